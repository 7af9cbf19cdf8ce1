#include "apps/postwright/stream/LineRecord.h"

#include <algorithm>
#include <charconv>

namespace postwright {

namespace {

// There is no tab within a record: JsonRecord escapes it.
constexpr char kSeparator = '\t';

std::string_view TakeField(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(kSeparator), rest.size());
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return field;
}

int NumberOf(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::string PackRecord(const LineRecord& record) {
  std::string why = record.why;
  std::replace_if(
      why.begin(), why.end(), [](char c) { return c == kSeparator || c == '\n'; }, ' ');
  return std::to_string(static_cast<int>(record.heard)) + kSeparator +
         std::to_string(record.retryAfter.count()) + kSeparator + why + kSeparator + record.line;
}

LineRecord UnpackRecord(std::string_view packed) {
  LineRecord record;
  record.heard = static_cast<Heard>(NumberOf(TakeField(packed)));
  record.retryAfter = std::chrono::seconds(NumberOf(TakeField(packed)));
  record.why = TakeField(packed);
  record.line = packed;
  return record;
}

}  // namespace postwright
