#include "apps/postwright/ParseCommand.h"

#include <postwright/AddressInfo.h>
#include <postwright/AddressParser.h>

#include <QJsonObject>
#include <algorithm>
#include <string_view>
#include <utility>

#include "apps/postwright/LabelText.h"
#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/stream/LineFilter.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/table/PlainInput.h"
#include "apps/postwright/table/RowRecords.h"
#include "apps/postwright/table/WriteTable.h"
#include "common/WideText.h"
#include "core/label/ParsedFields.h"

namespace postwright {

namespace {

constexpr std::size_t kTitleWidth = 18;

// The fields that hold something, one a line; further lines of a field stand below its first.
std::string Describe(const AddressInfo& info) {
  std::string description;
  for (const ParsedField& field : kParsedFields) {
    if ((info.*field.value).empty()) {
      continue;
    }
    std::string title(field.name);
    std::replace(title.begin(), title.end(), '_', ' ');
    title.resize(kTitleWidth, ' ');
    description += title;
    for (const char byte : Utf8FromAnyWide(info.*field.value)) {
      description += byte;
      if (byte == '\n') {
        description.append(kTitleWidth, ' ');
      }
    }
    description += '\n';
  }
  return description;
}

ExitStatus ParseText(const InputBytes& input) {
  const std::wstring text = LabelTextOf(input);
  const AddressInfo info = AddressParser::GetInstance()->Parse(text);
  if (info == AddressInfo()) {
    throw Failure(
        "no address found: it takes a house number and a street, or a box, and a city, "
        "a state and a ZIP code",
        kExitNotALabel);
  }
  Output output("");
  output.Write(Describe(info));
  output.Finish();
  return kExitDone;
}

std::string ParseLine(const LabelLine& label) {
  AddressInfo info;
  if (label.problem.empty()) {
    info = AddressParser::GetInstance()->Parse(label.address);
  }
  JsonRecord record(label.id);
  for (const ParsedField& field : kParsedFields) {
    record.Add(field.name, info.*field.value);
  }
  return record.Line();
}

// The records of an earlier run have no label in them: each must have the id of its own, and now
// and then one is made again to be compared, the first of all.
class ParseRecordForm final : public RecordForm {
 public:
  std::string Run() const override { return "a parse"; }

  bool IsRecord(std::string_view line) const override {
    return (line.starts_with(kFirst) || line.find(kNext) != std::string_view::npos) &&
           line.starts_with('{') && line.ends_with("\"}");
  }

  bool IsOf(const LineReader& record, const LabelLine& label) override {
    constexpr std::size_t kCompared = 100;
    const std::string_view line = record.Line();
    const bool hasId = label.id.empty()
                           ? line.starts_with(kFirst)
                           : line.starts_with(R"({"id":)" + label.id + std::string(kNext));
    return hasId &&
           (record.Number() % kCompared != 1 || std::string(line) + '\n' == ParseLine(label));
  }

 private:
  static constexpr std::string_view kFirst = R"({"prefix":")";
  static constexpr std::string_view kNext = R"(,"prefix":")";
};

ExitStatus ParseLines(const ParseOptions& options) {
  ParseRecordForm form;
  LineFilterOptions lines;
  lines.input = options.file;
  lines.output = options.output;
  lines.resume = options.resume;
  lines.form = &form;
  lines.jobs = options.jobs;
  AddressParser::GetInstance();  // made once, before there are worker processes
  return FilterLines(lines, ParseLine);
}

QStringList CellsOf(const AddressInfo& info) {
  QStringList cells;
  for (const ParsedField& field : kParsedFields) {
    cells.append(QString::fromStdWString(info.*field.value));
  }
  return cells;
}

QStringList CellsOf(const QJsonObject& record) {
  QStringList cells;
  for (const ParsedField& field : kParsedFields) {
    cells.append(record[QLatin1String(field.name)].toString());
  }
  return cells;
}

// The fields of each address in columns of their own; nothing else of the table changes. One
// process takes each label as it comes to it; for several, or for records that are kept, the labels
// are a stream of their own.
ExitStatus ParseTable(const AddressTable& table, const ParseOptions& options) {
  QStringList titles;
  for (const ParsedField& field : kParsedFields) {
    titles.append(QLatin1String(field.name));
  }
  Output output(options.output);
  if (options.jobs == 1 && options.resume.empty()) {
    return WriteTable(
        table, titles,
        [](const LabelColumns& columns, const QStringList& cells) {
          return CellsOf(
              AddressParser::GetInstance()->Parse(columns.LabelOf(cells).toStdWString()));
        },
        output);
  }
  RowRecords records(table, options.resume, RowId::kLabel,
                     [&options](const std::string& input, const std::string& kept) {
                       ParseOptions stream = options;
                       stream.file = input;
                       stream.output.clear();
                       stream.resume = kept;
                       return ParseLines(stream);
                     });
  const ExitStatus written = WriteTable(
      table, titles,
      [&records](const LabelColumns&, const QStringList&) {
        return CellsOf(records.Next() ? records.Record() : QJsonObject());
      },
      output);
  return std::max(records.Status(), written);
}

}  // namespace

ExitStatus RunParse(const ParseOptions& options) {
  if (options.jsonl) {
    if (!options.resume.empty() && !options.output.empty()) {
      throw Failure("--resume excludes --output: the records go to the end of its own file");
    }
    return ParseLines(options);
  }
  PlainInput input(options.file, options.csv, options.columns);
  if (input.Table()) {
    return ParseTable(*input.Table(), options);
  }
  RefuseOptionsOfMany({{"--output", !options.output.empty()},
                       {"--resume", !options.resume.empty()},
                       {"--jobs", options.jobs > 1}});
  return ParseText(input.Bytes());
}

}  // namespace postwright
