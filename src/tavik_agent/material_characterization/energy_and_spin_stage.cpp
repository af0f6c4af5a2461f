// The energy unit that the request speaks of and the spin treatment that it asks for in so many
// words. The intent decides; without it, the joined text.
#include <algorithm>
#include <string>

#include "host/strings.hpp"
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

constexpr const char* electronvolt = "eV";
constexpr const char* hartree = "Hartree";

void take_unit(Characterization& call, const char* unit, const char* prefix, const char* suffix) {
  call.requested_energy_unit = host::string(unit);
  call.report(prefix, call.requested_energy_unit, suffix);
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
  const Value unit = normalized_intent_energy_unit(call);
  const auto from_intent = [&](const char* name) {
    take_unit(call, name, "user query requested ", " energy semantics (LLM intent)");
  };
  const auto from_prose = [&](const char* name) {
    take_unit(call, name, "query requested ", " energy semantics (prose fallback)");
  };
  if (host::equals_any(unit, {"ev", "electron volt", "electron volts"})) {
    from_intent(electronvolt);
  } else if (host::equals_any(unit, {"ha", "hartree", "hartrees", "atomic unit", "atomic units",
                                     "a.u.", "au"})) {
    from_intent(hartree);
  } else if (call.combined->mentions(Group::electronvolt)) {
    from_prose(electronvolt);
  } else if (call.combined->mentions(Group::hartree)) {
    from_prose(hartree);
  } else {
    call.requested_energy_unit = host::empty_string();
  }
}

void decide_spin_mode(Characterization& call) {
  const auto mode = [&]() -> const char* {
    if (host::equals(call.intent_magnetism, "non-collinear")) return "non-collinear";
    if (host::equals_any(call.intent_magnetism,
                         {"ferromagnetic", "antiferromagnetic", "ferrimagnetic"})) {
      return "collinear";
    }
    if (call.combined->mentions(Group::noncollinear)) return "non-collinear";
    if (call.combined->mentions(Group::collinear)) return "collinear";
    return "";
  };
  call.explicit_spin_mode = host::string(mode());
}

}  // namespace tavik::characterization
