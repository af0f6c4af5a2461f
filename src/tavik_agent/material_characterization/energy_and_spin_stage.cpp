// The energy unit that the request speaks of and the spin treatment that it asks for in so many
// words. The intent decides; without it, the joined text.
#include <algorithm>
#include <string>

#include "host/strings.hpp"
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

void take_unit(Characterization& call, Wish unit, const char* prefix, const char* suffix) {
  call.requested_energy_unit = unit;
  call.report(prefix, call.module.wish(unit), suffix);
}

/// The intent's energy unit in lower case, with blanks for hyphens.
Value normalized_intent_energy_unit(const Characterization& call) {
  if (!call.module.is_mapping(call.intent_units)) return host::empty_string();
  const Value energy = call.module.read(call.intent_units, InputKey::energy);
  const Value intent_energy_unit = host::strip(host::text_form_or_empty(energy));
  std::string unit(host::Utf8(host::lower(intent_energy_unit)).view());
  std::ranges::replace(unit, '-', ' ');
  return host::strip(host::string(unit));
}

}  // namespace

void decide_energy_unit(Characterization& call) {
  const Value wanted = normalized_intent_energy_unit(call);
  const auto from_intent = [&](Wish unit) {
    take_unit(call, unit, "user query requested ", " energy semantics (LLM intent)");
  };
  const auto from_prose = [&](Wish unit) {
    take_unit(call, unit, "query requested ", " energy semantics (prose fallback)");
  };
  if (host::equals_any(wanted, {"ev", "electron volt", "electron volts"})) {
    from_intent(Wish::electronvolt);
  } else if (host::equals_any(wanted, {"ha", "hartree", "hartrees", "atomic unit", "atomic units",
                                       "a.u.", "au"})) {
    from_intent(Wish::hartree);
  } else if (call.combined->mentions(Group::electronvolt)) {
    from_prose(Wish::electronvolt);
  } else if (call.combined->mentions(Group::hartree)) {
    from_prose(Wish::hartree);
  }
}

void decide_spin_mode(Characterization& call) {
  const auto mode = [&] {
    if (host::equals(call.intent_magnetism, "non-collinear")) return Wish::non_collinear;
    if (host::equals_any(call.intent_magnetism,
                         {"ferromagnetic", "antiferromagnetic", "ferrimagnetic"})) {
      return Wish::collinear;
    }
    if (call.combined->mentions(Group::noncollinear)) return Wish::non_collinear;
    if (call.combined->mentions(Group::collinear)) return Wish::collinear;
    return Wish::none;
  };
  call.explicit_spin_mode = mode();
}

}  // namespace tavik::characterization
