#include "service/upstream/Json.h"

namespace postwright::service {
namespace {

constexpr int kDeepest = 16;

// The parser's own way to watch the depth looks through an array at each of its elements' ends.
bool IsTooDeep(std::string_view text) {
  int depth = 0;
  bool isText = false;
  for (std::size_t at = 0; at < text.size() && depth <= kDeepest; ++at) {
    const char c = text[at];
    if (c == '"') {
      isText = !isText;
    } else if (isText) {
      at += c == '\\' ? 1 : 0;
    } else if (c == '[' || c == '{') {
      ++depth;
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return depth > kDeepest;
}

}  // namespace

std::optional<nlohmann::json> ParseJsonObject(std::string_view text) {
  if (IsTooDeep(text)) {
    return std::nullopt;
  }
  nlohmann::json value = nlohmann::json::parse(text, nullptr, false);
  return value.is_object() ? std::optional(std::move(value)) : std::nullopt;
}

std::string JsonText(const nlohmann::json& value, const char* key) {
  const nlohmann::json& member = JsonMember(value, key);
  if (member.is_string()) {
    return member.get<std::string>();
  }
  return member.is_number() ? member.dump() : std::string();
}

const nlohmann::json& JsonMember(const nlohmann::json& value, const char* key) {
  static const nlohmann::json none;
  const auto found = value.is_object() ? value.find(key) : value.end();
  return found == value.end() ? none : *found;
}

}  // namespace postwright::service
