#include "apps/postwright/ParseCommand.h"

#include <postwright/AddressInfo.h>
#include <postwright/AddressParser.h>

#include <algorithm>
#include <string_view>

#include "apps/postwright/LabelText.h"
#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/stream/LineFilter.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/table/PlainInput.h"
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

// The fields of each address in columns of their own; nothing else of the table changes.
ExitStatus ParseTable(const AddressTable& table, const std::string& file) {
  QStringList titles;
  for (const ParsedField& field : kParsedFields) {
    titles.append(QLatin1String(field.name));
  }
  Output output(file);
  return WriteTable(
      table, titles,
      [](const LabelColumns& columns, QStringList& cells) {
        const AddressInfo info =
            AddressParser::GetInstance()->Parse(columns.LabelOf(cells).toStdWString());
        QStringList values;
        for (const ParsedField& field : kParsedFields) {
          values.append(QString::fromStdWString(info.*field.value));
        }
        return values;
      },
      output);
}

}  // namespace

ExitStatus RunParse(const ParseOptions& options) {
  if (!options.jsonl) {
    if (!options.resume.empty() || options.jobs > 1) {
      throw Failure((options.resume.empty() ? "--jobs" : "--resume") +
                    std::string(" requires --jsonl"));
    }
    PlainInput input(options.file, options.csv, options.columns);
    if (input.Table()) {
      return ParseTable(*input.Table(), options.output);
    }
    if (!options.output.empty()) {
      throw Failure("--output requires --jsonl or --csv");
    }
    return ParseText(input.Bytes());
  }
  if (!options.resume.empty() && !options.output.empty()) {
    throw Failure("--resume excludes --output: the records go to the end of its own file");
  }
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

}  // namespace postwright
