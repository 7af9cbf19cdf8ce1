#ifndef POSTWRIGHT_CORE_ENGINE_REPLYGUARD_H_
#define POSTWRIGHT_CORE_ENGINE_REPLYGUARD_H_

#include <string_view>

namespace postwright {

// Returns what forbids giving `reply` to TinyXML, as words for the log, or null where nothing does.
// A document that is merely broken passes: finding that out is the parser's work, in bounded time,
// stack and memory. The words are constants. Takes time in proportion to the reply.
//
// Refused are
//   a NUL              at which TinyXML would take the document to end
//   text not in UTF-8  TinyXML trusts a lead byte to be followed by its sequence and so steps over
//                      the bytes behind it, a tag's bracket or the end of the document among them;
//                      text in another encoding would be lost at the conversion in any case
//   a character reference of anything but digits   TinyXML reads it back from the next ";", and so
//                      steps over the tags in between
//   more than 100 levels of elements   TinyXML recurses once a level
//   more than 100 attributes a tag     it compares each with all before it
//   more than 100,000 tags             it keeps some 250 bytes for each; a real reply has twenty
//   an XML declaration that does not end at its first ">"   versions of TinyXML abort on one
const wchar_t* FindReplyFault(std::string_view reply);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_REPLYGUARD_H_
