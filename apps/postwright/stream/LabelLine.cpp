#include "apps/postwright/stream/LabelLine.h"

#include <simdjson.h>

#include "apps/postwright/Utf8.h"

namespace postwright {

namespace {

using simdjson::ondemand::json_type;

static_assert(LineReader::kPadding >= simdjson::SIMDJSON_PADDING);

// The library reads on demand: what nobody asks for is not checked. So ask for everything.
void CheckValue(simdjson::ondemand::value value) {
  switch (value.type()) {
    case json_type::object:
      for (auto field : value.get_object()) {
        field.unescaped_key().value();
        CheckValue(field.value());
      }
      break;
    case json_type::array:
      for (auto element : value.get_array()) {
        CheckValue(element.value());
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
  CheckValue(value);
  const char* const end = document.current_location();
  const std::string_view text(begin, end - begin);
  return std::string(text.substr(0, text.find_last_not_of(" \t\r\n") + 1));
}

void ReadObject(simdjson::ondemand::document& document, LabelLine& label) {
  bool hasAddress = false;
  for (auto field : document.get_object()) {
    const std::string_view key = field.unescaped_key();
    simdjson::ondemand::value value = field.value();
    if (key == "id") {
      label.id = RawText(document, value);
    } else if (key == "address" && value.type() == json_type::string) {
      label.address = WideFromUtf8(value.get_string().value());
      hasAddress = true;
    } else {
      hasAddress = hasAddress && key != "address";
      CheckValue(value);
    }
  }
  if (!hasAddress) {
    label.problem = R"(is an object without a string "address")";
  }
}

}  // namespace

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
    const bool isEncoding = error.error() == simdjson::UTF8_ERROR;
    label = {{}, {}, isEncoding ? "is not valid UTF-8" : "is not a JSON string"};
  }
  return label;
}

}  // namespace postwright
