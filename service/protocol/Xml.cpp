#include "service/protocol/Xml.h"

namespace postwright::service {

namespace {

// What a character of ASCII becomes; empty for one that stays.
std::string_view Escape(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\n':
      return "&#10;";  // as itself it would be a blank to its reader
    case '\t':
    case '\r':
      return " ";
    default:
      return {};
  }
}

void AppendEscaped(std::string& escaped, std::string_view utf8) {
  size_t written = 0;
  for (size_t i = 0; i < utf8.size(); ++i) {
    if (const std::string_view escape = Escape(utf8[i]); !escape.empty()) {
      escaped.append(utf8, written, i - written).append(escape);
      written = i + 1;
    }
  }
  escaped.append(utf8, written);
}

}  // namespace

std::string EscapeXml(std::string_view utf8) {
  std::string escaped;
  AppendEscaped(escaped, utf8);
  return escaped;
}

void AppendElement(std::string& xml, std::string_view name, std::string_view utf8) {
  xml.append("<").append(name);
  if (utf8.empty()) {
    xml += "/>";
    return;
  }
  xml += '>';
  AppendEscaped(xml, utf8);
  xml.append("</").append(name).append(">");
}

}  // namespace postwright::service
