#include "postal/import/GeoJsonSource.h"

#include <simdjson.h>

#include <new>
#include <utility>

#include "common/SmallText.h"

namespace postwright::postal {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";

constexpr std::pair<const char*, Field> kProperties[] = {
    {"number", Field::Number}, {"street", Field::Street}, {"unit", Field::Unit},
    {"city", Field::City},     {"region", Field::State},  {"postcode", Field::Zip},
};

std::string TextOf(const simdjson::dom::element& value) {
  std::string_view text;
  if (value.get(text) == simdjson::SUCCESS) {
    return std::string(text);
  }
  return value.is<double>() ? simdjson::minify(value) : std::string();
}

const char* Describe(simdjson::error_code error) {
  switch (error) {
    case simdjson::MEMALLOC:
      throw std::bad_alloc();
    case simdjson::UTF8_ERROR:
      return "is not valid UTF-8";
    case simdjson::DEPTH_ERROR:
      return "has objects or arrays too deep inside one another";
    case simdjson::INCORRECT_TYPE:
    case simdjson::NO_SUCH_FIELD:
      return "is not a GeoJSON feature with properties";
    default:
      return "is not JSON";
  }
}

}  // namespace

struct GeoJsonSource::Json {
  Json() {
    if (parser.allocate(kLongestLine, kMostLevels) != simdjson::SUCCESS) {
      throw std::bad_alloc();
    }
  }

  simdjson::dom::parser parser;
};

bool GeoJsonSource::IsLikely(std::string_view head) {
  if (head.starts_with(kByteOrderMark)) {
    head.remove_prefix(kByteOrderMark.size());
  }
  return Trim(head, " \t\r\n").starts_with('{');
}

GeoJsonSource::GeoJsonSource(const SourceFile& file)
    : bytes_(file), json_(std::make_unique<Json>()) {
  AddressRow row;
  try {
    Next(row);
  } catch (const RowError& error) {
    throw SourceError(file.Name() + ": line " + std::to_string(line_) + " " + error.what() +
                      "; what is known is a feature a line, as OpenAddresses publishes them");
  }
  GoTo({});
}

GeoJsonSource::~GeoJsonSource() = default;

// False at the end; empty lines are passed over.
bool GeoJsonSource::ReadLine() {
  do {
    const bool isFirst = bytes_.Position() == 0;
    if (!bytes_.ReadLine(text_, kLongestLine)) {
      return false;
    }
    ++line_;
    if (isFirst && text_.starts_with(kByteOrderMark)) {
      text_.erase(0, kByteOrderMark.size());
    }
  } while (Trim(text_, kBlanks).empty());
  return true;
}

bool GeoJsonSource::Next(AddressRow& row) {
  if (!ReadLine()) {
    return false;
  }
  if (text_.size() > kLongestLine) {
    throw RowError("is longer than 64 KiB");
  }
  ReadFeature(row);
  return true;
}

void GeoJsonSource::ReadFeature(AddressRow& row) {
  text_.reserve(text_.size() + simdjson::SIMDJSON_PADDING);
  simdjson::dom::element feature;
  std::string_view type;
  simdjson::dom::object properties;
  simdjson::error_code error = json_->parser.parse(text_.data(), text_.size(), false).get(feature);
  error = error ? error : feature["type"].get(type);
  error = error ? error : feature["properties"].get(properties);
  if (error || type != "Feature") {
    throw RowError(Describe(error ? error : simdjson::INCORRECT_TYPE));
  }
  row.Clear();
  for (const auto& [name, field] : kProperties) {
    simdjson::dom::element value;
    if (properties[name].get(value) == simdjson::SUCCESS) {
      row[field] = TextOf(value);
    }
  }
}

void GeoJsonSource::GoTo(const RowPlace& place) {
  bytes_.GoTo(place.position);
  line_ = place.line - 1;
}

}  // namespace postwright::postal
