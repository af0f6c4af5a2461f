// The template's values: what stands for "not decided" and "not asked for".
#include "material_characterization/record_template.hpp"

#include "host/strings.hpp"

namespace tavik::characterization {

RecordTemplate::RecordTemplate(const host::Indexed<RecordKey>& keys,
                               const host::Indexed<Label>& labels)
    : record_(host::new_dict()) {
  for (host::Value& value : usual_) value = host::empty_string();
  for (const RecordKey key :
       {RecordKey::structure_mode, RecordKey::structure_archetype, RecordKey::electronic_class,
        RecordKey::magnetic_class, RecordKey::correlation_class}) {
    usual_[key] = labels[Label::unknown].another();
  }
  usual_[RecordKey::material_family] = labels[Label::other].another();
  usual_[RecordKey::intent_driven] = host::boolean(false);
  for (const RecordKey key : host::all_words<RecordKey>())
    host::set(record_, keys[key], usual_[key]);
}

}  // namespace tavik::characterization
