#include "service/text/Xml.h"

namespace postwright::service {

namespace {

void AppendEscaped(std::string& escaped, std::string_view utf8) {
  for (const char c : utf8) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\t':
      case '\n':
      case '\r':
        escaped += ' ';
        break;
      default:
        escaped += c;
    }
  }
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
