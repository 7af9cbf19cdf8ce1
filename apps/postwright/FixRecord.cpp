#include "apps/postwright/FixRecord.h"

#include <postwright/BatchResultRecord.h>

#include "apps/postwright/Utf8.h"
#include "apps/postwright/stream/JsonRecord.h"

namespace postwright {

namespace {

std::string Line(const LabelLine& label, const std::wstring& fixed, const std::wstring& result,
                 AddressStatus status) {
  JsonRecord record(label.id);
  record.Add("address", label.address);
  record.Add("fixed", fixed);
  record.Add("result", result);
  record.Add("status", status);
  return record.Line();
}

}  // namespace

std::string FixRecord(PostwrightClient& client, const LabelLine& label) {
  if (!label.problem.empty()) {
    return FailedRecord(label, "The line " + label.problem);
  }
  BatchResultRecord record(QString::fromStdWString(label.address));
  record.fix(client);
  const BatchResultRecord::Values values = record.values();
  return Line(label, values.fixed.toStdWString(), values.result.toStdWString(), values.status);
}

std::string FailedRecord(const LabelLine& label, const std::string& result) {
  return Line(label, L"", WideFromUtf8(result), AddressStatusError);
}

}  // namespace postwright
