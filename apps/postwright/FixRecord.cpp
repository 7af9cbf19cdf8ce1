#include "apps/postwright/FixRecord.h"

#include "apps/postwright/LabelFix.h"
#include "apps/postwright/Utf8.h"
#include "apps/postwright/stream/JsonRecord.h"

namespace postwright {

namespace {

std::string Line(const LabelLine& label, const std::wstring& fixed, const std::wstring& result,
                 AddressStatus status, const std::string& reason) {
  JsonRecord record(label.id);
  record.Add("address", label.address);
  record.Add("fixed", fixed);
  record.Add("result", result);
  record.Add("reason", WideFromUtf8(reason));
  record.Add("status", status);  // the last: see StatusOfRecord()
  return record.Line();
}

}  // namespace

std::string FixRecord(PostwrightClient& client, const LabelLine& label, bool wholeLabel) {
  if (!label.problem.empty()) {
    return FailedRecord(label, "The line " + label.problem);
  }
  const LabelFix fix(label.address, wholeLabel, client);
  const BatchResultRecord::Values& values = fix.Values();
  return Line(label, values.fixed.toStdWString(), values.result.toStdWString(), values.status,
              fix.Reason());
}

std::string FailedRecord(const LabelLine& label, const std::string& result) {
  return Line(label, L"", WideFromUtf8(result), AddressStatusError, "");
}

}  // namespace postwright
