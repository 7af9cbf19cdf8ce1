#include "service/text/Xml.h"

namespace postwright::service {

std::string EscapeXml(std::string_view utf8) {
  std::string escaped;
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
  return escaped;
}

void AppendElement(std::string& xml, std::string_view name, std::string_view utf8) {
  xml.append("<").append(name);
  if (utf8.empty()) {
    xml += "/>";
  } else {
    xml.append(">").append(EscapeXml(utf8)).append("</").append(name).append(">");
  }
}

}  // namespace postwright::service
