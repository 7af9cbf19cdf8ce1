#ifndef POSTWRIGHT_SERVICE_UPSTREAM_JSON_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_JSON_H_

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace postwright::service {

// Returns the object that `text` holds; nullopt for text that is not JSON, holds another kind of
// value, or nests deeper than any reply of an API does. Needs memory in proportion to the text.
std::optional<nlohmann::json> ParseJsonObject(std::string_view text);

// Returns the text or the number under `key` as text; empty where `value` is not an object, has no
// such key, or has null or anything else there. APIs write a number now as one, now in quotes.
std::string JsonText(const nlohmann::json& value, const char* key);

// Returns the value under `key`, or a null value where there is none.
const nlohmann::json& JsonMember(const nlohmann::json& value, const char* key);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_JSON_H_
