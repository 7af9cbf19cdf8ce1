#include "apps/postwright/stream/LabelLine.h"

#include <simdjson.h>

#include <algorithm>
#include <utility>

#include "common/WideText.h"

namespace postwright {

namespace {

using simdjson::ondemand::json_type;

static_assert(LineReader::kPadding >= simdjson::SIMDJSON_PADDING);

constexpr int kMostLevels = 1000;  // each costs a call of CheckValue its part of the stack

// The library reads on demand: what nobody asks for is not checked. So ask for everything. `level`
// counts the arrays and objects around the value.
void CheckValue(simdjson::ondemand::value value, int level) {
  if (level > kMostLevels) {
    throw simdjson::simdjson_error(simdjson::DEPTH_ERROR);
  }
  switch (value.type()) {
    case json_type::object:
      for (auto field : value.get_object()) {
        field.unescaped_key().value();
        CheckValue(field.value(), level + 1);
      }
      break;
    case json_type::array:
      for (auto element : value.get_array()) {
        CheckValue(element.value(), level + 1);
      }
      break;
    case json_type::string:
      value.get_string().value();
      break;
    case json_type::number:
      value.get_double().value();
      break;
    case json_type::boolean:
      value.get_bool().value();
      break;
    case json_type::null:
      if (!value.is_null()) {
        throw simdjson::simdjson_error(simdjson::N_ATOM_ERROR);
      }
      break;
  }
}

// The text of `value` as it is written in `document`.
std::string RawText(simdjson::ondemand::document& document, simdjson::ondemand::value value) {
  const char* const begin = value.current_location();
  CheckValue(value, 1);
  const char* const end = document.current_location();
  const std::string_view text(begin, end - begin);
  return std::string(text.substr(0, text.find_last_not_of(" \t\r\n") + 1));
}

std::string ProblemOf(simdjson::error_code error) {
  switch (error) {
    case simdjson::UTF8_ERROR:
      return "is not valid UTF-8";
    case simdjson::DEPTH_ERROR:
      return "has more than 1,000 arrays and objects inside one another";
    default:
      return "is not a JSON string";
  }
}

// A ZIP code may be a number, as spreadsheets make of it.
std::wstring PartText(simdjson::ondemand::document& document, std::string_view name,
                      simdjson::ondemand::value value) {
  if (value.type() == json_type::string) {
    return WideFromUtf8(value.get_string().value());
  }
  const bool isNumber = value.type() == json_type::number;
  const std::string text = RawText(document, value);
  return isNumber && (name == "zip" || name == "unit") ? WideFromUtf8(text) : std::wstring();
}

// The lines of the label; "" where the parts do not make an address.
std::wstring Compose(const LabelParts& parts) {
  const auto& [name, street, unit, city, state, zip] = parts;
  std::wstring label;
  const auto add = [&label](const std::wstring& piece, std::wstring_view before) {
    label += label.empty() || piece.empty() ? L"" : before;
    label += piece;
  };
  if (!street.empty()) {
    add(name, L"");
    add(street, L"\n");
    add(IsBareUnit(unit) ? L"# " + unit : unit, L"\n");
    add(city, L"\n");
    add(state, city.empty() ? L"\n" : L", ");
    add(zip, city.empty() && state.empty() ? L"\n" : L" ");
  }
  return label;
}

// The parts that a record gives back.
LabelParts ReadParts(simdjson::ondemand::document& document, simdjson::ondemand::value value) {
  LabelParts parts;
  for (auto field : value.get_object()) {
    const std::string_view key = field.unescaped_key();
    simdjson::ondemand::value member = field.value();
    const auto part = std::find(kPartNames.begin(), kPartNames.end(), key);
    if (part != kPartNames.end()) {
      parts[part - kPartNames.begin()] = PartText(document, *part, member);
    } else {
      CheckValue(member, 2);
    }
  }
  return parts;
}

void ReadObject(simdjson::ondemand::document& document, LabelLine& label) {
  bool hasAddress = false;
  LabelParts parts;
  for (auto field : document.get_object()) {
    const std::string_view key = field.unescaped_key();
    simdjson::ondemand::value value = field.value();
    const auto part = std::find(kPartNames.begin(), kPartNames.end(), key);
    if (key == "id") {
      label.id = RawText(document, value);
    } else if (key == "address" && value.type() == json_type::string) {
      label.address = WideFromUtf8(value.get_string().value());
      hasAddress = true;
    } else if (key == "parts" && value.type() == json_type::object) {
      label.parts = ReadParts(document, value);
    } else if (part != kPartNames.end()) {
      parts[part - kPartNames.begin()] = PartText(document, *part, value);
    } else {
      hasAddress = hasAddress && key != "address";
      CheckValue(value, 1);
    }
  }
  if (!hasAddress) {
    label.address = Compose(parts);
    label.parts = std::move(parts);
  }
  if (label.address.empty() && !hasAddress) {
    label.problem = R"(is an object without a string "address", or "street" and others)";
  }
}

}  // namespace

bool IsBareUnit(std::wstring_view unit) {
  constexpr std::size_t kMost = 6;
  const auto isSign = [](wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') ||
           c == L'-';
  };
  const bool isPlain =
      !unit.empty() && unit.size() <= kMost && std::all_of(unit.begin(), unit.end(), isSign);
  return isPlain && (unit.size() == 1 || unit.find_first_of(L"0123456789") <= 1);
}

struct LabelLineParser::Json {
  simdjson::ondemand::parser parser;
};

LabelLineParser::LabelLineParser() : json_(std::make_unique<Json>()) {}

LabelLineParser::~LabelLineParser() = default;

LabelLine LabelLineParser::Parse(const LineReader& reader) {
  LabelLine label;
  if (reader.IsTooLong()) {
    label.problem = "is longer than " + std::to_string(LineReader::kLimit >> 20U) + " MiB";
    return label;
  }
  try {
    const std::string_view line = reader.Line();
    simdjson::ondemand::document document =
        json_->parser.iterate(line.data(), line.size(), line.size() + LineReader::kPadding);
    if (document.type() == json_type::object) {
      ReadObject(document, label);
    } else {
      label.address = WideFromUtf8(document.get_string().value());
    }
    if (document.current_location().error() != simdjson::OUT_OF_BOUNDS) {
      throw simdjson::simdjson_error(simdjson::TRAILING_CONTENT);
    }
  } catch (const simdjson::simdjson_error& error) {
    // The label is lost, and said to be: its line is named and an empty record answers it.
    label = {{}, {}, {}, ProblemOf(error.error())};
  }
  return label;
}

}  // namespace postwright
