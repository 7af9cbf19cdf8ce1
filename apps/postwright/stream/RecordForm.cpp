#include "apps/postwright/stream/RecordForm.h"

#include "apps/postwright/stream/JsonRecord.h"

namespace postwright {

bool FixRecordForm::IsRecord(std::string_view line) const {
  return StatusOfRecord(line).has_value();
}

bool FixRecordForm::IsOf(const LineReader& record, const LabelLine& label) {
  const LabelLine told = parser_.Parse(record);
  return told.problem.empty() && told.address == label.address && told.id == label.id;
}

}  // namespace postwright
