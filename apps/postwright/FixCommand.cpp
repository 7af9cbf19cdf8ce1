#include "apps/postwright/FixCommand.h"

#include <postwright/FetchTimeout.h>
#include <postwright/PostwrightClient.h>

#include <iostream>
#include <map>

#include "apps/ServerOption.h"
#include "apps/postwright/Explanation.h"
#include "apps/postwright/FixRecord.h"
#include "apps/postwright/LabelFix.h"
#include "apps/postwright/LabelText.h"
#include "apps/postwright/stream/LineFilter.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/stream/WorkerPool.h"
#include "common/WideText.h"

namespace postwright {

namespace {

const std::map<std::string, Capitalization> kLetters = {
    {"upper", CapitalizationUpper}, {"lower", CapitalizationLower}, {"mixed", CapitalizationMixed}};

const std::map<std::string, PunctuationForm> kPunctuation = {
    {"keep", PunctuationKeep}, {"postal", PunctuationPostal}, {"remove", PunctuationRemove}};

const std::map<std::string, NameForm> kNames = {{"as-typed", NamesAsTyped},
                                                {"same-case", NamesSameCase}};

void ApplySettings(const FixOptions& options, PostwrightClient& client) {
  client.setCapitalization(kLetters.at(options.letters));
  client.setRemovePunctuation(false);  // ReviewedFix does, with more care
  client.setMixedCase(QString::fromStdString(options.mixedCase));
}

LabelFix::Asking AskingOf(const FixOptions& options) {
  const PunctuationForm punctuation =
      options.keepPunctuation ? PunctuationKeep : kPunctuation.at(options.punctuation);
  return {{options.wholeLabel, {punctuation, kNames.at(options.names)}}, options.acceptDoubtful};
}

// Ends in one line break, whether or not `text` does.
std::string BytesOf(const std::wstring& text) {
  const std::string bytes = Utf8FromAnyWide(text);
  return bytes.ends_with('\n') ? bytes : bytes + "\n";
}

void Print(const std::wstring& text) {
  Output output("");
  output.Write(BytesOf(text));
  output.Finish();
}

ExitStatus FixText(const FixOptions& options, PostwrightClient& client) {
  const LabelFix fix(ReadLabelText(options.file), AskingOf(options), client);
  if (options.explain) {
    std::cerr << ExplainInWords(fix.Review()) << ExplainInWords(fix.Confirmed());
  }
  if (!fix.Explanation().empty()) {
    std::cerr << fix.Explanation() << '\n';
  }
  if (fix.Values().status == AddressStatusError) {
    return kExitNotALabel;
  }
  if (!fix.Proposed().empty()) {
    std::cerr << "With --accept-doubtful it would read:\n" << BytesOf(fix.Proposed());
  }
  Print(fix.Text());
  return fix.Proposed().empty() ? kExitDone : kExitDoubtful;
}

ExitStatus FixLines(const FixOptions& options, PostwrightClient& client) {
  LineFilterOptions lines;
  lines.input = options.file;
  lines.output = options.output;
  lines.resume = options.resume;
  lines.jobs = options.jobs;
  lines.progress = !options.quiet;
  const RecordOptions record = {AskingOf(options), options.explain};
  return FilterLines(
      lines,
      [&client, &record](const LabelLine& label) { return FixRecord(client, label, record); },
      [](const LabelLine& label, const std::string& ending) {
        return FailedRecord(label, "The worker process that was fixing this address " + ending);
      });
}

}  // namespace

std::string CheckLetters(const std::string& letters) {
  return kLetters.contains(letters) ? "" : "'" + letters + "' is not upper, lower or mixed";
}

std::string CheckPunctuation(const std::string& punctuation) {
  return kPunctuation.contains(punctuation) ? ""
                                            : "'" + punctuation + "' is not keep, postal or remove";
}

std::string CheckNames(const std::string& names) {
  return kNames.contains(names) ? "" : "'" + names + "' is not as-typed or same-case";
}

std::string CheckSpellings(const std::string& spellings) {
  try {
    WideFromUtf8(spellings);
    return "";
  } catch (const boost::locale::conv::conversion_error&) {
    return "it is not valid UTF-8";  // nothing was begun, so no text is at stake
  }
}

std::string CheckJobs(const std::string& jobs) {
  const bool isNumber = !jobs.empty() && jobs.size() <= 3 &&
                        jobs.find_first_not_of("0123456789") == std::string::npos;
  const int number = isNumber ? std::stoi(jobs) : 0;
  return number >= 1 && number <= WorkerPool::kLimit
             ? ""
             : "'" + jobs + "' is not a number from 1 to " + std::to_string(WorkerPool::kLimit);
}

ExitStatus RunFix(const FixOptions& options) {
  if (!options.server.empty()) {
    UseServer(options.server);
  }
  if (options.timeout.count() > 0) {
    SetFetchTimeout(options.timeout);
  }
  PostwrightClient client;
  ApplySettings(options, client);
  if (!options.jsonl) {
    return FixText(options, client);
  }
  return FixLines(options, client);
}

}  // namespace postwright
