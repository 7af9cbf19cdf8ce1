#include "apps/postwright/FixRecord.h"

#include "apps/postwright/CandidateList.h"
#include "apps/postwright/Explanation.h"
#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/table/LabelColumns.h"
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
std::string End(JsonRecord& record, FixStatus status) {
  record.Add("status", static_cast<int>(status));
  return record.Line();
}

// What --explain adds.
void AddWords(JsonRecord& record, const std::string& confirmation, const std::string& reason,
              const VerifySource& source, const std::string& changes) {
  record.Add("confirmation_text", WideFromUtf8(confirmation));
  record.Add("reason_text", WideFromUtf8(reason));
  record.Add("source", WideFromUtf8(source.Code()));
  record.Add("source_text", WideFromUtf8(source.Text()));
  record.AddJson("changes", changes);
}

// The record of a label that got no answer.
std::string FailedRecord(const LabelLine& label, const std::string& result,
                         const std::string& reason, const std::string& reasonText, FixStatus status,
                         const RecordOptions& options) {
  JsonRecord record = Begin(label, L"", WideFromUtf8(result));
  record.Add("confirmation", L"");
  record.Add("reason", WideFromUtf8(reason));
  if (options.explain) {
    AddWords(record, "", reasonText, {}, "[]");
  }
  if (options.candidates) {
    record.AddJson("candidates", "[]");
  }
  return End(record, status);
}

// The parts of the corrected label that were given, as JSON; as they were where it has no others.
std::string PartsOf(const LabelParts& given, const std::wstring& fixed) {
  static const LabelColumns columns("name=1,street=2,unit=3,city=4,state=5,zip=6", {},
                                    static_cast<int>(kPartNames.size()));
  QStringList cells;
  for (const std::wstring& part : given) {
    cells.append(QString::fromStdWString(part));
  }
  const QString label = QString::fromStdWString(fixed);
  if (!label.isEmpty()) {
    cells = columns.WithLabel(cells, label).value_or(cells);
  }
  JsonRecord parts("");
  for (std::size_t part = 0; part < kPartNames.size(); ++part) {
    const QString& cell = cells[static_cast<qsizetype>(part)];
    if (!given[part].empty() || !cell.isEmpty()) {
      parts.Add(kPartNames[part], cell.toStdWString());
    }
  }
  std::string line = parts.Line();
  line.pop_back();  // the line feed
  return line;
}

}  // namespace

LineRecord FixRecord(PostwrightClient& client, const LabelLine& label,
                     const RecordOptions& options) {
  if (!label.problem.empty()) {
    return FailedRecord(label, "The line " + label.problem, "no-label",
                        "The line holds no label that can be read. Nobody was asked about it.",
                        FixStatus::kTurnedDown, options);
  }
  const LabelFix fix(label.address, options.asking, client);
  const BatchResultRecord::Values& values = fix.Values();
  JsonRecord record = Begin(label, values.fixed.toStdWString(), values.result.toStdWString());
  if (label.parts) {
    const bool isFixed = values.status == AddressStatusFixed;
    record.AddJson("parts", PartsOf(*label.parts, isFixed ? values.fixed.toStdWString() : L""));
  }
  record.Add("confirmation", WideFromUtf8(fix.Confirmed().Code()));
  if (!fix.Proposed().empty()) {
    record.Add("proposed", fix.Proposed());
  }
  record.Add("reason", WideFromUtf8(fix.Reason()));
  if (options.explain) {
    AddWords(record, fix.Confirmed().Text(), fix.ReasonText(), fix.Source(),
             ExplainInJson(fix.Review()));
  }
  if (options.candidates) {
    record.AddJson("candidates", CandidatesInJson(fix.Candidates()));
  }
  LineRecord line(End(
      record, fix.IsUnanswered() ? FixStatus::kUnanswered : static_cast<FixStatus>(values.status)));
  if (fix.IsUnanswered()) {
    line.heard = Heard::kNoAnswer;
    line.retryAfter = fix.RetryAfter();
    line.why = fix.ReasonText();
  } else if (fix.IsAsked()) {
    line.heard = Heard::kAnswer;
  }
  return line;
}

std::string DeadWorkerRecord(const LabelLine& label, const std::string& ending,
                             const RecordOptions& options) {
  return FailedRecord(
      label, "The worker process that was fixing this address " + ending, "worker-ended",
      "The process that asked about it ended before there was an answer. Ask again.",
      FixStatus::kUnanswered, options);
}

}  // namespace postwright
