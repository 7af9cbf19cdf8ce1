#include "core/engine/ReplyDocument.h"

#include "core/engine/ReplyEncoding.h"
#include "core/engine/ReplyGuard.h"

#include <tinyxml.h>

#include <string_view>

namespace postwright {

std::optional<std::wstring> ParseReply(std::string reply, TiXmlDocument* document) {
  if (reply.empty()) {
    return std::nullopt;
  }
  // Character references, too, are to become UTF-8 then, whatever the declaration says.
  const TiXmlEncoding encoding = TurnIntoUtf8(reply) ? TIXML_ENCODING_UTF8 : TIXML_ENCODING_UNKNOWN;
  if (const wchar_t* refusal = FindReplyFault(reply)) {
    return refusal;
  }
  document->SetTabSize(0);  // spares counting lines and columns
  document->Parse(reply.c_str(), nullptr, encoding);
  if (!document->Error()) {
    return std::nullopt;
  }
  const std::string_view fault = document->ErrorDesc();  // in ASCII
  return std::wstring(fault.begin(), fault.end());
}

}  // namespace postwright
