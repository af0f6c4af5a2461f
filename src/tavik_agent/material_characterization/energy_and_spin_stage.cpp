// The energy unit that the request speaks of and the spin treatment that it asks for in so many
// words. The intent decides; without it, the joined text.
#include <algorithm>
#include <string>

#include "host/strings.hpp"
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

/// The intent's energy unit in lower case, with blanks for hyphens.
Value normalized_intent_energy_unit(const Characterization& call) {
  const Value energy = call.module.read(call.intent_units, InputKey::energy);
  const Value intent_energy_unit = host::strip(host::text_form_or_empty(energy));
  std::string unit(host::Utf8(host::lower(intent_energy_unit)).view());
  std::ranges::replace(unit, '-', ' ');
  return host::strip(host::string(unit));
}

Wish unit_in_intent(const Characterization& call) {
  if (!call.module.is_mapping(call.intent_units)) return Wish::none;
  const Value unit = normalized_intent_energy_unit(call);
  if (host::equals_any(unit, {"ev", "electron volt", "electron volts"})) return Wish::electronvolt;
  if (host::equals_any(
          unit, {"ha", "hartree", "hartrees", "atomic unit", "atomic units", "a.u.", "au"})) {
    return Wish::hartree;
  }
  return Wish::none;
}

Wish unit_in_prose(const Characterization& call) {
  if (call.combined->mentions(Group::electronvolt)) return Wish::electronvolt;
  if (call.combined->mentions(Group::hartree)) return Wish::hartree;
  return Wish::none;
}

void take_unit(Characterization& call, Wish unit, host::Ascii prefix, host::Ascii suffix) {
  call.requested_energy_unit = unit;
  call.report(prefix, call.module.wish(unit), suffix);
}

}  // namespace

void decide_energy_unit(Characterization& call) {
  if (const Wish unit = unit_in_intent(call); unit != Wish::none) {
    take_unit(call, unit, "user query requested ", " energy semantics (LLM intent)");
  } else if (const Wish said = unit_in_prose(call); said != Wish::none) {
    take_unit(call, said, "query requested ", " energy semantics (prose fallback)");
  }
}

void decide_spin_mode(Characterization& call) {
  const auto mode = [&] {
    const IntentField& asked = call.intent_magnetism;
    if (asked.is(IntentWord::non_collinear)) return Wish::non_collinear;
    if (asked.is(IntentWord::ferromagnetic)) return Wish::collinear;
    if (asked.is(IntentWord::antiferromagnetic)) return Wish::collinear;
    if (asked.is(IntentWord::ferrimagnetic)) return Wish::collinear;
    if (call.combined->mentions(Group::noncollinear)) return Wish::non_collinear;
    if (call.combined->mentions(Group::collinear)) return Wish::collinear;
    return Wish::none;
  };
  call.explicit_spin_mode = mode();
}

}  // namespace tavik::characterization
