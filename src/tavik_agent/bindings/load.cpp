// Imports the companion modules and makes the constants. Nothing is guarded: what is missing makes
// the import fail.
#include "bindings/load.hpp"

#include <string_view>

#include "material_characterization/vocabulary/vocabulary.hpp"
#include "py/containers.hpp"
#include "py/strings.hpp"

namespace tavik::bindings {
namespace {

constexpr std::string_view acronyms_module = "tavik_agent.method_acronyms";
constexpr std::string_view reference_module = "tavik_agent.material_reference_data";

// What text/formula_tokens.hpp scans for, for readers and tests in Python.
constexpr std::string_view formula_token_pattern = R"(\b(?:[A-Z][a-z]?\d*){1,8}\b)";
constexpr std::string_view formula_part_pattern = R"(([A-Z][a-z]?)(\d*))";

}  // namespace

void fill_namespace(const py::Object& names) {
  const auto bind = [&](std::string_view name, const py::Object& value) {
    py::set_item(names, py::string(name), value);
  };
  const py::Object acronyms = py::import_from(acronyms_module, "METHOD_ACRONYMS");
  bind("METHOD_ACRONYMS", acronyms);
  for (const std::string_view name : py::texts<characterization::ReferenceName>) {
    bind(name, py::import_from(reference_module, name));
  }
  const py::Object compile = py::import_from("re", "compile");
  bind("_FORMULA_TOKEN_RE", py::call(compile, py::string(formula_token_pattern)));
  bind("_FORMULA_PART_RE", py::call(compile, py::string(formula_part_pattern)));
  bind("_NON_FORMULA_TOKENS", py::set_of(acronyms));
}

}  // namespace tavik::bindings
