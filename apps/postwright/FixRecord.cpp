#include "apps/postwright/FixRecord.h"

#include "apps/postwright/Explanation.h"
#include "apps/postwright/stream/JsonRecord.h"
#include "common/WideText.h"

namespace postwright {

namespace {

JsonRecord Begin(const LabelLine& label, const std::wstring& fixed, const std::wstring& result) {
  JsonRecord record(label.id);
  record.Add("address", label.address);
  record.Add("fixed", fixed);
  record.Add("result", result);
  return record;
}

// The status is the last: see StatusOfRecord().
std::string End(JsonRecord& record, int status) {
  record.Add("status", status);
  return record.Line();
}

}  // namespace

std::string FixRecord(PostwrightClient& client, const LabelLine& label,
                      const RecordOptions& options) {
  if (!label.problem.empty()) {
    return FailedRecord(label, "The line " + label.problem);
  }
  const LabelFix fix(label.address, options.asking, client);
  const BatchResultRecord::Values& values = fix.Values();
  JsonRecord record = Begin(label, values.fixed.toStdWString(), values.result.toStdWString());
  record.Add("confirmation", WideFromUtf8(fix.Confirmed().Code()));
  if (!fix.Proposed().empty()) {
    record.Add("proposed", fix.Proposed());
  }
  record.Add("reason", WideFromUtf8(fix.Reason()));
  if (options.explain) {
    record.AddJson("changes", ExplainInJson(fix.Review()));
  }
  return End(record, fix.IsUnanswered() ? kNotAnswered : values.status);
}

std::string FailedRecord(const LabelLine& label, const std::string& result) {
  JsonRecord record = Begin(label, L"", WideFromUtf8(result));
  record.Add("confirmation", L"");
  record.Add("reason", L"");
  return End(record, AddressStatusError);
}

}  // namespace postwright
