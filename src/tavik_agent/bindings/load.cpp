// Imports the companion modules and makes the constants. Nothing is guarded: what is missing makes
// the import fail.
#include "bindings/load.hpp"

#include <string_view>

#include "host/imports.hpp"
#include "host/objects.hpp"
#include "host/strings.hpp"
#include "material_characterization/names.hpp"

namespace tavik::bindings {
namespace {

using host::Value;

constexpr std::string_view acronyms_module = "tavik_agent.method_acronyms";
constexpr std::string_view reference_module = "tavik_agent.material_reference_data";

// What text/formula.hpp scans for, for readers and tests in the host.
constexpr std::string_view formula_token_pattern = R"(\b(?:[A-Z][a-z]?\d*){1,8}\b)";
constexpr std::string_view formula_part_pattern = R"(([A-Z][a-z]?)(\d*))";

}  // namespace

void fill_namespace(const Value& names) {
  const auto bind = [&](std::string_view name, const Value& value) {
    host::set(names, host::string(name), value);
  };
  const Value acronyms = host::import_from(acronyms_module, "METHOD_ACRONYMS");
  bind("METHOD_ACRONYMS", acronyms);
  for (const std::string_view name : texts_of(characterization::ReferenceName{})) {
    bind(name, host::import_from(reference_module, name));
  }
  const Value compile = host::import_from("re", "compile");
  bind("_FORMULA_TOKEN_RE", host::call(compile, host::string(formula_token_pattern)));
  bind("_FORMULA_PART_RE", host::call(compile, host::string(formula_part_pattern)));
  bind("_NON_FORMULA_TOKENS", host::set_of(acronyms));
}

}  // namespace tavik::bindings
