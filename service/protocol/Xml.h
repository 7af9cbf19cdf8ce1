#ifndef POSTWRIGHT_SERVICE_PROTOCOL_XML_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_XML_H_

#include <string>
#include <string_view>

namespace postwright::service {

// Returns `utf8` as it is written in an element or an attribute in double quotes. Tabs and line
// breaks become blanks.
std::string EscapeXml(std::string_view utf8);

// Appends `<name>text</name>`, and `<name/>` for the empty text.
void AppendElement(std::string& xml, std::string_view name, std::string_view utf8);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_XML_H_
