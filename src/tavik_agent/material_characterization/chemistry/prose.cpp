// What prose names: all species that it mentions, and the one formula that names the material. Both
// know compound names, element names and written formulas, and differ in what outranks what.
#include "material_characterization/chemistry/formulas.hpp"
#include "py/ordered_set.hpp"

namespace tavik::characterization {
namespace {

Object named_compound(const ModuleState& module, Text& text) {
  Object formula;
  module.for_each_phrase(Global::FORMULA_ALIASES, text, [&](const Object& found) {
    formula = found.new_ref();
    return false;
  });
  return formula;
}

Object written_formula(const ModuleState& module, Text& text) {
  Object formula;
  for_each_candidate(module, text, [&](const Object& token) {
    if (is_formula(module, token)) formula = token.new_ref();
    return !formula;
  });
  return formula;
}

/// One element alone, or the binary oxide of one element.
Object formula_from_species(const Object& species) {
  py::OrderedSet distinct;
  distinct.add_all(py::stripped_texts_of(species));
  const Object unique = distinct.list();
  if (distinct.size() == 1) return py::first(unique);
  if (distinct.size() != 2) return py::empty_string();
  py::Iterator walk(unique);
  const Object first = walk.next();
  const Object second = walk.next();
  if (py::equals(first, "O")) return py::message("", second, "O");
  if (py::equals(second, "O")) return py::message("", first, "O");
  return py::empty_string();
}

}  // namespace

// Compound names, then element names, then written formulas; always all three, wherever they stand.
Object _species_from_text(const ModuleState& module, Text& given) {
  py::TextForm text(given);
  py::OrderedSet found;
  const auto add_symbols = [&](const Object& formula) {
    found.add_all(symbols_of(module, formula));
    return true;
  };
  const auto add_species = [&](const Object& species) {
    found.add(species);
    return true;
  };
  module.for_each_phrase(Global::FORMULA_ALIASES, *text, add_symbols);
  module.for_each_phrase(Global::ELEMENT_NAME_ALIASES, *text, add_species);
  for_each_candidate(module, *text, add_symbols);
  return found.list();
}

// A compound name, else the first formula written in the text, else what the species leave no doubt
// about.
Object _formula_hint(const ModuleState& module, Text& given, const Object& species) {
  py::TextForm text(given);
  if (Object formula = named_compound(module, *text)) return formula;
  if (Object formula = written_formula(module, *text)) return formula;
  return formula_from_species(species);
}

}  // namespace tavik::characterization
