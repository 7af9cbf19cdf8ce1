#include "apps/postwright/FixCommand.h"

#include <iostream>

#include "apps/VerifyServer.h"
#include "apps/postwright/JsonRecord.h"
#include "apps/postwright/LabelFix.h"
#include "apps/postwright/LabelText.h"
#include "apps/postwright/LineFilter.h"
#include "apps/postwright/Output.h"
#include "apps/postwright/Utf8.h"

namespace postwright {

namespace {

ExitStatus FixText(const std::string& file) {
  const LabelFix fix = FixLabel(ReadLabelText(file));
  if (!fix.failure.empty()) {
    std::cerr << Utf8FromWide(fix.failure) << '\n';
    return kExitNotALabel;
  }
  Output output("");
  output.Write(Utf8FromWide(fix.corrected) + "\n");
  output.Finish();
  return kExitDone;
}

// What became of a label, as in the records of a batch window.
enum LabelStatus : int {
  kLabelUnchanged = 0,
  kLabelFixed = 1,
  kLabelMultiple = 2,  // several candidates, which no reply of the service holds
  kLabelError = 3
};

// A label whose corrected form says the same keeps the user's spelling.
std::string FixLine(const LabelLine& label) {
  LabelFix fix;
  LabelStatus status = kLabelFixed;
  if (label.problem.empty()) {
    fix = FixLabel(label.address);
  } else {
    fix.failure = WideFromUtf8("The line " + label.problem);
  }
  if (!fix.failure.empty()) {
    status = kLabelError;
  } else if (IsAddressEqual(label.address, fix.corrected)) {
    fix.corrected = label.address;
    status = kLabelUnchanged;
  }
  JsonRecord record(label.id);
  record.Add("address", label.address);
  record.Add("fixed", fix.corrected);
  record.Add("result", fix.failure);
  record.Add("status", status);
  return record.Line();
}

}  // namespace

ExitStatus RunFix(const FixOptions& options) {
  if (!options.server.empty()) {
    UseServer(options.server);
  }
  if (!options.jsonl) {
    return FixText(options.file);
  }
  return FilterLines(options.file, options.output, Flushing::kEachRecord, FixLine);
}

}  // namespace postwright
