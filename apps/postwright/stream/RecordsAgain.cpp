#include "apps/postwright/stream/RecordsAgain.h"

#include "apps/postwright/stream/JsonRecord.h"

namespace postwright {

bool IsMadeAgain(std::string_view record, Retry retry) {
  const std::optional<FixStatus> status = StatusOfRecord(record);
  const bool isFailed = status == FixStatus::kUnanswered ||
                        (status == FixStatus::kTurnedDown && retry == Retry::kFailed);
  // As JsonRecord writes it. Within a string the quotation marks would be escaped.
  return isFailed && record.find(R"("address":"","fixed":)") == std::string_view::npos;
}

bool RecordsAgain::Next() {
  if (!reader_.Next() || !reader_.IsWhole()) {
    return false;
  }
  if (IsMadeAgain(reader_.Line(), retry_)) {
    label_ = parser_.Parse(reader_);
    record_.clear();
  } else {
    label_ = {};
    record_ = std::string(reader_.Line()) + '\n';
  }
  return true;
}

}  // namespace postwright
