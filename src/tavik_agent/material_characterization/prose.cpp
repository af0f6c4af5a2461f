// What prose names: all species that it mentions, and the one formula that names the material. Both
// know compound names, element names and written formulas, and differ in what outranks what.
#include "host/objects.hpp"
#include "host/ordered_set.hpp"
#include "host/strings.hpp"
#include "material_characterization/formulas.hpp"

namespace tavik::characterization {
namespace {

Value named_compound(const Module& module, Text& text) {
  Value formula;
  module.for_each_phrase(Global::FORMULA_ALIASES, text, [&](const Value& found) {
    formula = found.another();
    return false;
  });
  return formula;
}

Value written_formula(const Module& module, Text& text) {
  Value formula;
  for_each_candidate(module, text, [&](const Value& token) {
    if (is_formula(module, token)) formula = token.another();
    return !formula;
  });
  return formula;
}

host::Values unique_texts(const Value& species) {
  host::OrderedSet unique;
  host::Iterator entries(species);
  while (const Value entry = entries.next()) {
    Value text = host::strip(host::text_form(entry));
    if (!host::is_empty(text)) unique.add(std::move(text));
  }
  return unique.take();
}

/// One element alone, or the binary oxide of one element.
Value formula_from_species(const Value& species) {
  if (host::is_empty_list(species)) return host::empty_string();
  const host::Values unique = unique_texts(species);
  if (unique.size() == 1) return unique.front().another();
  if (unique.size() != 2) return host::empty_string();
  const Value& first = unique[0];
  const Value& second = unique[1];
  if (host::equals(first, "O")) return host::message("", second, "O");
  if (host::equals(second, "O")) return host::message("", first, "O");
  return host::empty_string();
}

}  // namespace

// Compound names, then element names, then written formulas; always all three, wherever they stand.
Value _species_from_text(const Module& module, Text& given) {
  host::WrittenForm text(given);
  host::OrderedSet found;
  const auto add_symbols = [&](const Value& formula) {
    found.add_all(symbols_of(module, formula));
    return true;
  };
  const auto add_species = [&](const Value& species) {
    found.add(species.another());
    return true;
  };
  module.for_each_phrase(Global::FORMULA_ALIASES, *text, add_symbols);
  module.for_each_phrase(Global::ELEMENT_NAME_ALIASES, *text, add_species);
  for_each_candidate(module, *text, add_symbols);
  return found.take_list();
}

// A compound name, else the first formula written in the text, else what the species leave no doubt
// about.
Value _formula_hint(const Module& module, Text& given, const Value& species) {
  host::WrittenForm text(given);
  if (Value formula = named_compound(module, *text)) return formula;
  if (Value formula = written_formula(module, *text)) return formula;
  return formula_from_species(species);
}

}  // namespace tavik::characterization
