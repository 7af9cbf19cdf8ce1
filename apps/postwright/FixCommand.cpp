#include "apps/postwright/FixCommand.h"

#include <postwright/FetchTimeout.h>
#include <postwright/PostwrightClient.h>
#include <unistd.h>

#include <iostream>
#include <map>
#include <utility>

#include "apps/OwnService.h"
#include "apps/ServerOption.h"
#include "apps/postwright/CandidateList.h"
#include "apps/postwright/CandidatePrompt.h"
#include "apps/postwright/Explanation.h"
#include "apps/postwright/FixRecord.h"
#include "apps/postwright/LabelFix.h"
#include "apps/postwright/LabelText.h"
#include "apps/postwright/stream/LineFilter.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/table/FixTable.h"
#include "apps/postwright/table/PlainInput.h"
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
  client.setWantsSource(options.explain);
}

void AskForCandidates(bool wanted, PostwrightClient& client) {
  client.setCandidates(wanted ? static_cast<qint32>(VerifyCandidate::kMost) : 0);
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

ExitStatus FixText(const InputBytes& input, const FixOptions& options, PostwrightClient& client) {
  CandidatePrompt prompt;
  AskForCandidates(options.candidates || prompt.IsPossible(), client);
  const LabelFix fix(LabelTextOf(input), AskingOf(options), client);
  if (prompt.IsPossible() && !fix.Candidates().isEmpty()) {
    if (const auto chosen = prompt.Offer(fix, AskingOf(options), client)) {
      Print(*chosen);
      return kExitDone;
    }
  } else if (options.candidates && !fix.Candidates().isEmpty()) {
    std::cerr << "It could be:\n" << CandidatesInWords(fix.Candidates());
  }
  if (options.explain) {
    std::cerr << ExplainInWords(fix.Review()) << ExplainInWords(fix.Confirmed())
              << ExplainInWords(fix.Source());
  }
  std::cerr << ExplainReasonInWords(fix);
  if (fix.Values().status == AddressStatusError) {
    if (!fix.Mended().empty()) {
      std::cerr << "Perhaps this is meant:\n" << BytesOf(fix.Mended());
    }
    return kExitNotALabel;
  }
  if (!fix.Proposed().empty()) {
    std::cerr << "With --accept-doubtful it would read:\n" << BytesOf(fix.Proposed());
  }
  Print(fix.Text());
  return fix.Proposed().empty() ? kExitDone : kExitDoubtful;
}

ExitStatus FixLines(const FixOptions& options, bool isResumable, PostwrightClient& client) {
  LineFilterOptions lines;
  lines.input = options.file;
  lines.output = options.output;
  lines.resume = options.resume;
  lines.isResumable = isResumable;
  lines.retry = options.retryFailed ? Retry::kFailed : Retry::kUnanswered;
  lines.jobs = options.jobs;
  lines.progress = !options.quiet;
  lines.giveUpAfter = options.giveUpAfter;
  AskForCandidates(options.candidates, client);
  const RecordOptions record = {AskingOf(options), options.explain, options.candidates};
  return FilterLines(
      lines,
      [&client, &record](const LabelLine& label) { return FixRecord(client, label, record); },
      [&record](const LabelLine& label, const std::string& ending) {
        return DeadWorkerRecord(label, ending, record);
      });
}

// The labels of a table are fixed as a stream of their own, whose records are put into the rows.
ExitStatus FixRows(const AddressTable& table, const FixOptions& options, PostwrightClient& client) {
  if (!options.quiet) {
    std::cerr << "postwright: " << table.Description() << '\n';
  }
  return FixTable(table, {options.output, options.resume, options.explain, options.candidates},
                  [&options, &client](const std::string& input, const std::string& records) {
                    FixOptions stream = options;
                    stream.file = input;
                    stream.output.clear();
                    stream.resume = records;
                    return FixLines(stream, !options.resume.empty(), client);
                  });
}

// Nobody else is asked. Worker processes are born with what is read here.
void AnswerHere(const FixOptions& options) {
  std::string known;
  try {
    known = UseOwnService();
  } catch (const std::exception& failure) {
    throw Failure(failure.what());
  }
  if (options.explain || (isatty(STDERR_FILENO) == 1 && !options.quiet)) {
    std::cerr << "postwright: " << known << '\n';
  }
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

ExitStatus RunFix(const FixOptions& options) {
  if (!options.server.empty()) {
    UseServer(options.server);
  } else if (!IsServerInEnvironment()) {
    AnswerHere(options);
  } else if (const std::string problem = UseServerOfEnvironment(); !problem.empty()) {
    throw Failure(problem);
  }
  if (options.timeout.count() > 0) {
    SetFetchTimeout(options.timeout);
  }
  PostwrightClient client;
  ApplySettings(options, client);
  if (options.jsonl && !options.resume.empty() && !options.output.empty()) {
    throw Failure("--resume excludes --output: the records go to the end of its own file");
  }
  if (options.jsonl) {
    return FixLines(options, true, client);
  }
  PlainInput input(options.file, options.csv, options.columns);
  if (input.Table()) {
    return FixRows(*input.Table(), options, client);
  }
  RefuseOptionsOfMany({{"--output", !options.output.empty()},
                       {"--resume", !options.resume.empty()},
                       {"--jobs", options.jobs > 1},
                       {"--give-up-after", options.giveUpAfter != FixOptions().giveUpAfter}});
  return FixText(input.Bytes(), options, client);
}

}  // namespace postwright
