# The commands of a working copy. Each sets up what it needs on first use, in .venv.
#   make run [QUERY="..."]   characterize a request
#   make test                run all tests
#   make lint                formatters in check mode, static checks, types
#   make format              reformat all sources
#   make bench               what a call costs, as ratios; not part of the tests
#   make package             source package and wheel in dist/, checked in a clean environment
PYTHON ?= python3.13
ifeq ($(origin CXX),default)
CXX := c++
endif
# As it was typed: a dollar sign in a request is no reference to a variable.
override QUERY := $(value QUERY)
export CXX QUERY

venv := .venv
bin := $(venv)/bin
tools_named := .tools-named
tools_ready := $(venv)/.tools
module_ready := $(venv)/.module
cpp := $(shell find src -name '*.cpp' -o -name '*.hpp')
py := $(shell find src -name '*.py' -o -name '*.pyi' -o -name py.typed)

.PHONY: run test lint format bench package clean check-tools FORCE

run: check-tools $(module_ready)
	@$(bin)/python examples/characterize_request.py "$$QUERY"

test: check-tools $(module_ready)
	@$(bin)/python -m pytest

lint: check-tools $(module_ready)
	$(bin)/clang-format --dry-run --Werror $(cpp)
	$(bin)/ruff format --check .
	$(bin)/ruff check .
	$(bin)/mypy src/tavik_agent/reference_data src/tavik_agent/typing/characterization_types.py \
	  src/tavik_agent/characterize benchmarks examples scripts
	$(bin)/stubtest tavik_agent.material_characterization

format: check-tools $(tools_ready)
	$(bin)/clang-format -i $(cpp)
	$(bin)/ruff format .

bench: check-tools $(module_ready)
	@$(bin)/python benchmarks/bench.py

package: check-tools $(tools_ready)
	@rm -rf dist
	@$(bin)/python -m build --no-isolation .
	@$(bin)/python scripts/check-package.py dist

clean:
	rm -rf $(venv) build dist $(tools_named)

check-tools:
	@scripts/check-tools.sh "$(PYTHON)" "$(CXX)"

# Another Python or compiler than last time starts afresh.
$(tools_named): FORCE | check-tools
	@echo '$(PYTHON) $(CXX)' | cmp -s - $@ || \
	  { rm -rf $(venv) build && echo '$(PYTHON) $(CXX)' > $@; }

$(tools_ready): requirements.txt $(tools_named)
	@echo "setting up $(venv) (half a minute, once) ..." >&2
	@$(PYTHON) -m venv --clear $(venv)
	@$(bin)/python -m pip install --quiet --disable-pip-version-check -r requirements.txt
	@touch $@

$(module_ready): $(tools_ready) $(cpp) $(py) CMakeLists.txt pyproject.toml
	@echo "building the module ..." >&2
	@$(bin)/python -m pip install --quiet --disable-pip-version-check --no-build-isolation --no-deps \
	  --force-reinstall --config-settings=cmake.define.TAVIK_WARNINGS_AS_ERRORS=ON .
	@touch $@
