#ifndef POSTWRIGHT_CORE_ENGINE_REPLYGUARD_H_
#define POSTWRIGHT_CORE_ENGINE_REPLYGUARD_H_

#include <string_view>

namespace postwright {

// Returns what forbids giving `reply` to TinyXML, as words for the log, or null where nothing does.
// A document that is merely broken passes: finding that out is the parser's work, in bounded time,
// stack and memory. The words are constants. Takes time in proportion to the reply.
//
// Refused is
// - a NUL, at which TinyXML would take the document to end;
// - text that is not UTF-8: TinyXML takes a lead byte's word for the length of its sequence, and so
//   steps over the bracket of a tag or the end of the document. Text in another encoding would be
//   lost at the conversion in any case;
// - a character reference of anything but digits: TinyXML reads one back from the next ";", and so
//   steps over the tags in between;
// - an XML declaration that does not end at its first ">": some versions of TinyXML abort on one;
// - elements nested deeper than 100, since TinyXML recurses once a level;
// - an element of more than 100 attributes, since it compares each with all before it;
// - more than 100,000 tags and attributes, since it keeps some 250 bytes for each. A reply of the
//   service has about twenty.
const wchar_t* FindReplyFault(std::string_view reply);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_REPLYGUARD_H_
