#include "core/engine/ReplyEncoding.h"

#include "core/engine/ReplyGuard.h"

#include <iconv.h>
#include <strings.h>

#include <algorithm>
#include <string_view>

namespace postwright {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// The encoding that the XML declaration names; empty where there is none.
std::string DeclaredEncoding(std::string_view reply) {
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
  return end == std::string_view::npos ? std::string()
                                       : std::string(declaration.substr(at + 1, end - at - 1));
}

// The names of the two in IANA's registry that are in use, and what Microsoft's programs write.
bool IsWestern(const std::string& encoding) {
  constexpr const char* kNames[] = {"ISO-8859-1", "ISO_8859-1",   "ISO8859-1",
                                    "latin1",     "Windows-1252", "cp1252"};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [&](const char* name) { return strcasecmp(encoding.c_str(), name) == 0; });
}

// Empty where the system cannot.
std::string Utf8FromWindows1252(std::string text) {
  const iconv_t converter = iconv_open("UTF-8", "WINDOWS-1252");
  if (converter == iconv_t(-1)) {
    return {};
  }
  std::string converted(3 * text.size(), '\0');
  char* from = text.data();
  char* to = converted.data();
  std::size_t left = text.size();
  std::size_t room = converted.size();
  const bool isWhole = iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  iconv_close(converter);
  converted.resize(isWhole ? converted.size() - room : 0);
  return converted;
}

}  // namespace

bool TurnIntoUtf8(std::string& reply) {
  if (!IsWestern(DeclaredEncoding(reply))) {
    return false;
  }
  if (!IsReplyUtf8(reply)) {
    std::string converted = Utf8FromWindows1252(reply);
    if (!converted.empty()) {
      reply = std::move(converted);
    }
  }
  return true;
}

}  // namespace postwright
