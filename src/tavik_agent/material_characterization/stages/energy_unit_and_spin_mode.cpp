// The energy unit that the request speaks of and the spin treatment that it asks for in so many
// words. The intent decides; without it, the joined text.
#include <algorithm>
#include <string>

#include "material_characterization/stages/characterization.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

/// The intent's energy unit in lower case, with blanks for hyphens.
Object normalized_intent_energy_unit(const Characterization& call) {
  const Object energy = call.module.read(call.intent_units, InputKey::energy);
  const Object intent_energy_unit = py::strip(py::text_form_or_empty(energy));
  std::string unit(py::Utf8(py::lower(intent_energy_unit)).view());
  std::ranges::replace(unit, '-', ' ');
  return py::strip(py::string(unit));
}

EnergyUnit unit_in_intent(const Characterization& call) {
  using enum EnergyUnit;
  if (!call.module.is_mapping(call.intent_units)) return none;
  const Object unit = normalized_intent_energy_unit(call);
  if (py::equals_any(unit, {"ev", "electron volt", "electron volts"})) return eV;
  if (py::equals_any(unit,
                     {"ha", "hartree", "hartrees", "atomic unit", "atomic units", "a.u.", "au"})) {
    return Hartree;
  }
  return none;
}

EnergyUnit unit_in_prose(const Characterization& call) {
  if (call.combined->mentions(Group::electronvolt)) return EnergyUnit::eV;
  if (call.combined->mentions(Group::hartree)) return EnergyUnit::Hartree;
  return EnergyUnit::none;
}

void take_unit(Characterization& call, EnergyUnit unit, std::string_view prefix,
               std::string_view suffix) {
  call.requested_energy_unit = unit;
  call.report(prefix, call.module.string(unit), suffix);
}

SpinMode spin_mode_of(const Characterization& call) {
  using enum SpinMode;
  const Object& asked = call.intent_magnetism;
  if (equals(asked, IntentMagnetism::non_collinear)) return non_collinear;
  if (equals(asked, IntentMagnetism::ferromagnetic)) return collinear;
  if (equals(asked, IntentMagnetism::antiferromagnetic)) return collinear;
  if (equals(asked, IntentMagnetism::ferrimagnetic)) return collinear;
  if (call.combined->mentions(Group::noncollinear)) return non_collinear;
  if (call.combined->mentions(Group::collinear)) return collinear;
  return none;
}

}  // namespace

void decide_energy_unit(Characterization& call) {
  if (const EnergyUnit asked = unit_in_intent(call); asked != EnergyUnit::none) {
    take_unit(call, asked, "user query requested ", " energy semantics (LLM intent)");
  } else if (const EnergyUnit said = unit_in_prose(call); said != EnergyUnit::none) {
    take_unit(call, said, "query requested ", " energy semantics (prose fallback)");
  }
}

void decide_spin_mode(Characterization& call) { call.explicit_spin_mode = spin_mode_of(call); }

}  // namespace tavik::characterization
