#include "core/engine/ReplyEncoding.h"

#include "common/Encoding.h"
#include "common/SmallText.h"

#include <algorithm>
#include <string_view>

namespace postwright {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// The encoding that the XML declaration names; empty where there is none.
std::string_view DeclaredEncoding(std::string_view reply) {
  constexpr std::string_view kDeclaration = "<?xml";
  constexpr std::string_view kName = "encoding";
  if (!reply.starts_with(kDeclaration)) {
    return {};
  }
  const std::string_view declaration = reply.substr(0, reply.find("?>"));
  std::size_t at = declaration.find(kName);
  if (at == std::string_view::npos) {
    return {};
  }
  at = declaration.find_first_not_of(kBlanks, at + kName.size());
  if (at == std::string_view::npos || declaration[at] != '=') {
    return {};
  }
  at = declaration.find_first_not_of(kBlanks, at + 1);
  if (at == std::string_view::npos || (declaration[at] != '"' && declaration[at] != '\'')) {
    return {};
  }
  const std::size_t end = declaration.find(declaration[at], at + 1);
  return end == std::string_view::npos ? std::string_view()
                                       : declaration.substr(at + 1, end - at - 1);
}

// The names of the two in IANA's registry that are in use, and what Microsoft's programs write.
bool IsWestern(std::string_view encoding) {
  constexpr const char* kNames[] = {"ISO-8859-1", "ISO_8859-1",   "ISO8859-1",
                                    "latin1",     "Windows-1252", "cp1252"};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [&](const char* name) { return EqualsIgnoringCase(encoding, name); });
}

}  // namespace

bool TurnIntoUtf8(std::string& reply) {
  if (!IsWestern(DeclaredEncoding(reply))) {
    return false;
  }
  const auto isOpen = [](char c) { return FromWindows1252(c) == 0xFFFD; };
  if (!IsUtf8(reply) && std::none_of(reply.begin(), reply.end(), isOpen)) {
    reply = DecodeText(reply);
  }
  return true;
}

}  // namespace postwright
