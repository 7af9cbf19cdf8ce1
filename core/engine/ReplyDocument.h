#ifndef POSTWRIGHT_CORE_ENGINE_REPLYDOCUMENT_H_
#define POSTWRIGHT_CORE_ENGINE_REPLYDOCUMENT_H_

#include <optional>
#include <string>

class TiXmlDocument;

namespace postwright {

// Parses the bytes of a reply, in any encoding that TurnIntoUtf8 knows and within the bounds of
// FindReplyFault. Returns why it cannot be read, as words for the log; nullopt where `document`
// holds it. An empty reply is an empty document. The one way from bytes to XML: what a fix reads is
// what is reported of it.
std::optional<std::wstring> ParseReply(std::string reply, TiXmlDocument* document);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_REPLYDOCUMENT_H_
