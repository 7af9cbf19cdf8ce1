#include "service/upstream/Json.h"

namespace postwright::service {
namespace {

constexpr int kDeepest = 16;

}  // namespace

std::optional<nlohmann::json> ParseJsonObject(std::string_view text) {
  bool isTooDeep = false;
  const auto watch = [&isTooDeep](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
    isTooDeep = isTooDeep || depth > kDeepest;
    return !isTooDeep;
  };
  nlohmann::json value = nlohmann::json::parse(text, watch, false);
  return isTooDeep || !value.is_object() ? std::nullopt : std::optional(std::move(value));
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
