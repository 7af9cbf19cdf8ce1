#include "apps/postwright/stream/JsonRecord.h"

#include "common/SmallText.h"
#include "common/WideText.h"

namespace postwright {

namespace {

bool IsControl(wchar_t character) {
  return character < 0x20 || character == 0x7F;
}

void AppendControl(wchar_t character, std::string& line) {
  switch (character) {
    case L'\n':
      line += "\\n";
      break;
    case L'\r':
      line += "\\r";
      break;
    case L'\t':
      line += "\\t";
      break;
    default:
      line += "\\u00";
      line += kLowerHexDigits[static_cast<unsigned>(character) >> 4U];
      line += kLowerHexDigits[static_cast<unsigned>(character) & 15U];
  }
}

void AppendCharacter(wchar_t character, std::string& line) {
  if (IsControl(character)) {
    AppendControl(character, line);
  } else if (character == L'"' || character == L'\\') {
    line += '\\';
    line += static_cast<char>(character);
  } else if (character < 0x80) {
    line += static_cast<char>(character);
  } else {
    AppendUtf8(character, line);
  }
}

}  // namespace

JsonRecord::JsonRecord(std::string_view id) : line_("{") {
  if (!id.empty()) {
    AddKey("id");
    line_ += id;
  }
}

void JsonRecord::Add(std::string_view key, std::wstring_view text) {
  AddKey(key);
  line_ += '"';
  for (const wchar_t character : text) {
    AppendCharacter(character, line_);
  }
  line_ += '"';
}

void JsonRecord::Add(std::string_view key, int number) {
  AddKey(key);
  line_ += std::to_string(number);
}

void JsonRecord::AddJson(std::string_view key, std::string_view json) {
  AddKey(key);
  line_ += json;
}

const std::string& JsonRecord::Line() {
  line_ += "}\n";
  return line_;
}

void JsonRecord::AddKey(std::string_view key) {
  line_ += line_.size() > 1 ? ",\"" : "\"";
  line_ += key;
  line_ += "\":";
}

std::optional<FixStatus> StatusOfRecord(std::string_view line) {
  constexpr std::string_view kStart = ",\"status\":";
  if (line.ends_with('\n')) {
    line.remove_suffix(1);
  }
  if (line.size() < kStart.size() + 2 || !line.ends_with('}')) {
    return std::nullopt;
  }
  const auto number = static_cast<std::size_t>(line[line.size() - 2] - '0');
  line.remove_suffix(2);
  if (!line.ends_with(kStart) || number >= kFixStatusCodes.size()) {
    return std::nullopt;
  }
  return static_cast<FixStatus>(number);
}

}  // namespace postwright
