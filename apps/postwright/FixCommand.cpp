#include "apps/postwright/FixCommand.h"

#include <postwright/Deployment.h>

#include <algorithm>
#include <iostream>
#include <string_view>

#include "apps/postwright/JsonRecord.h"
#include "apps/postwright/LabelFix.h"
#include "apps/postwright/LabelText.h"
#include "apps/postwright/LineFilter.h"
#include "apps/postwright/Output.h"
#include "apps/postwright/Utf8.h"

namespace postwright {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHostCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._";
constexpr std::string_view kIpv6Characters = "0123456789abcdefABCDEF:.";

bool ConsistsOf(std::string_view text, std::string_view characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool IsPort(std::string_view text) {
  return ConsistsOf(text, kDigits) && text.size() <= 5 && std::stoi(std::string(text)) <= 65535;
}

void UseServer(const std::string& server) {
  Deployment deployment = GetDeployment();
  deployment.verifyHost = server;
  deployment.probeHost = HostOf(server);
  SetDeployment(deployment);
}

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

std::string HostOf(const std::string& server) {
  const bool isIpv6 = server.starts_with('[');
  const std::size_t end = std::min(server.find(isIpv6 ? ']' : ':'), server.size());
  const std::string host = isIpv6 ? server.substr(1, end - 1) : server.substr(0, end);
  const std::string port = server.substr(std::min(end + (isIpv6 ? 1 : 0), server.size()));
  const bool isHost = isIpv6 ? end < server.size() && ConsistsOf(host, kIpv6Characters)
                             : ConsistsOf(host, kHostCharacters);
  const bool isGood = isHost && (port.empty() || (port[0] == ':' && IsPort(port.substr(1))));
  return isGood ? host : "";
}

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
