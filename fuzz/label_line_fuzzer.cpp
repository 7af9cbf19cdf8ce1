// Lines of JSON, into the reader of labels. Every line is a label or has a problem; what is taken
// for a label is JSON to another reader too, and reads the same when written as a record's members.

#include <nlohmann/json.hpp>

#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/stream/LabelLine.h"
#include "common/WideText.h"
#include "fuzz/InputFile.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using fuzz::Require;

LabelLine ReadAgain(LabelLineParser& parser, const std::string& record) {
  const fuzz::InputFile file(record);
  LineReader reader(file.Descriptor(), "record");
  Require(reader.Next(), "a record is a line");
  return parser.Parse(reader);
}

void CheckLabel(LabelLineParser& parser, const LabelLine& label, std::string_view line) {
  Require(IsUtf8(label.id) && IsUtf8(label.problem), "id and problem are UTF-8");
  if (!label.problem.empty()) {
    return;
  }
  Require(nlohmann::json::accept(line), "what is taken for a label is JSON");
  Require(label.id.empty() || nlohmann::json::accept(label.id), "an id is a JSON value");
  JsonRecord record(label.id);
  record.Add("address", label.address);
  const LabelLine again = ReadAgain(parser, record.Line());
  Require(again.problem.empty() && again.address == label.address && again.id == label.id,
          "a label written as a record reads the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::UseCharacterLocale();
  const std::string_view text = fuzz::TextOf(data, size);
  const fuzz::InputFile file(text);
  LineReader reader(file.Descriptor(), "input");
  LabelLineParser parser;
  std::size_t lines = 0;
  std::size_t bytes = 0;
  while (reader.Next()) {
    CheckLabel(parser, parser.Parse(reader), reader.Line());
    ++lines;
    bytes += reader.Line().size() + (reader.IsWhole() ? 1 : 0);
  }
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  Require(bytes == size - (text.starts_with(kMark) ? kMark.size() : 0), "no byte is skipped");
  Require(lines == reader.Number(), "lines are numbered");
  return 0;
}
