#ifndef POSTWRIGHT_CORE_ENGINE_REPLYENCODING_H_
#define POSTWRIGHT_CORE_ENGINE_REPLYENCODING_H_

#include <string>

namespace postwright {

// TinyXML converts nothing: a reply has to be UTF-8 before it is parsed.

// Returns whether `reply` begins with an XML declaration of ISO-8859-1 or Windows-1252. Where it
// does and is not UTF-8 in spite of it, it is turned into UTF-8, both read as Windows-1252, of
// which the other is the part that senders mean. Left as it is where it holds one of the five bytes
// that Windows-1252 has no character for.
bool TurnIntoUtf8(std::string& reply);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_REPLYENCODING_H_
