# The commands of a working copy. Each sets up what it needs on first use, in .venv.
#   make run [QUERY="..."]                  characterize a request
#   make test [ARGS="-k magnetic"]          all tests, or some of them
#   make score [FILES="..."]                how often a record is right, by field and by group
#   make lint                               formatters in check mode, static checks, types
#   make fuzz [SECONDS=300] [SEED=...]      check random requests for that long
#   make sanitize [SECONDS=300] [SEED=...]  all tests, then random requests, under the sanitizers
#   make endurance                          memory, threads and interpreters at length
#   make format                             reformat all sources
#   make picture                            docs/screen.svg, from a real run
#   make bench                              what a call costs, as ratios; not part of the tests
#   make package                            source package and wheel in dist/, checked
PYTHON ?= python3.13
ifeq ($(origin CXX),default)
CXX := c++
endif
# The request as it was typed, so that a dollar sign in it names no variable.
override QUERY := $(value QUERY)
export CXX QUERY

venv := .venv
bin := $(venv)/bin
tools_named := .tools-named
tools_ready := $(venv)/.tools
module_ready := $(venv)/.module
sanitized := build/sanitized
sanitized_ready := $(sanitized)/.module
cpp := $(shell find src -name '*.cpp' -o -name '*.hpp')
py := $(shell find src -name '*.py' -o -name '*.pyi' -o -name py.typed)
built_from := $(cpp) $(py) CMakeLists.txt pyproject.toml scripts/generate_headers.py
install := $(bin)/python -m pip install --quiet --disable-pip-version-check --no-build-isolation \
  --no-deps --config-settings=cmake.define.TAVIK_WARNINGS_AS_ERRORS=ON

.PHONY: run test score lint fuzz endurance sanitize format bench picture package clean check-tools FORCE

run: check-tools $(module_ready)
	@$(bin)/python examples/characterize_request.py "$$QUERY"

test: check-tools $(module_ready)
	@$(bin)/python -m pytest $(ARGS)

score: check-tools $(module_ready)
	@$(bin)/python evaluation/score.py $(FILES)

lint: check-tools $(module_ready)
	$(bin)/clang-format --dry-run --Werror $(cpp)
	@echo $(filter %.cpp,$(cpp)) | xargs -n 4 -P 2 $(bin)/clang-tidy --quiet -p build/cp*
	$(bin)/ruff format --check .
	$(bin)/ruff check .
	$(bin)/mypy src/tavik_agent/reference_data src/tavik_agent/typing/characterization_types.py \
	  src/tavik_agent/characterize src/tavik_agent/explanation benchmarks evaluation examples scripts
	$(bin)/stubtest tavik_agent.material_characterization

fuzz: check-tools $(module_ready)
	@PYTHONPATH=tests $(bin)/python -m reliability.fuzz $(or $(SECONDS),300) $(SEED)

endurance: check-tools $(module_ready)
	@PYTHONPATH=tests $(bin)/python -m reliability.endurance

# Two tests of memory are left out, since the sanitizers replace the allocator; and the Dask job, whose
# workers end while their threads still hold records, which then count as lost.
sanitize: check-tools $(sanitized_ready)
	@scripts/sanitized.sh "$(CXX)" $(sanitized) $(bin)/python -m pytest \
	  -k "not nothing_grows and not failing_new and not dask"
	@scripts/sanitized.sh "$(CXX)" $(sanitized) \
	  $(bin)/python -m reliability.fuzz $(or $(SECONDS),300) $(SEED)

format: check-tools $(tools_ready)
	$(bin)/clang-format -i $(cpp)
	$(bin)/ruff format .

bench: check-tools $(module_ready)
	@$(bin)/python benchmarks/bench.py

picture: check-tools $(module_ready)
	@$(bin)/python scripts/picture.py docs/screen.svg

package: check-tools $(tools_ready)
	@rm -rf dist
	@$(bin)/python -m build --no-isolation .
	@$(bin)/python scripts/check-package.py dist

clean:
	rm -rf $(venv) build dist $(tools_named)

check-tools:
	@scripts/check-tools.sh "$(PYTHON)" "$(CXX)"

# With another Python or compiler than last time everything is set up afresh.
$(tools_named): FORCE | check-tools
	@echo '$(PYTHON) $(CXX)' | cmp -s - $@ || \
	  { rm -rf $(venv) build && echo '$(PYTHON) $(CXX)' > $@; }

$(tools_ready): requirements.txt $(tools_named)
	@echo "setting up $(venv) (half a minute, once) ..." >&2
	@$(PYTHON) -m venv --clear $(venv)
	@$(bin)/python -m pip install --quiet --disable-pip-version-check -r requirements.txt
	@touch $@

$(module_ready): $(tools_ready) $(built_from)
	@echo "building the module ..." >&2
	@$(install) --force-reinstall .
	@touch $@

$(sanitized_ready): $(tools_ready) $(built_from)
	@echo "building the module with sanitizers ..." >&2
	@rm -rf $(sanitized)/site
	@$(install) --target $(sanitized)/site --config-settings=build-dir=$(sanitized)/build \
	  --config-settings=cmake.build-type=RelWithDebInfo \
	  --config-settings=cmake.define.TAVIK_SANITIZE=ON .
	@touch $@
