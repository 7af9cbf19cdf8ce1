#ifndef POSTWRIGHT_COMMON_ENCODING_H_
#define POSTWRIGHT_COMMON_ENCODING_H_

#include <string>
#include <string_view>

namespace postwright {

// Says whether `bytes` are well-formed UTF-8 (RFC 3629: no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes);

// Returns the character of `byte` in Windows-1252; U+FFFD for the five that it leaves open.
char32_t FromWindows1252(char byte);

// The same in Mac OS Roman, which leaves none open; its apple is U+F8FF of the private use area.
char32_t FromMacRoman(char byte);

// Returns `bytes` as UTF-8: unchanged where they are that already, otherwise read as Windows-1252,
// of which ISO-8859-1 is the part that clients mean. Every byte reads as something.
std::string DecodeText(std::string_view bytes);

// The same for a document that may also be UTF-16 with its byte order mark (RFC 2781). What is no
// character there reads as U+FFFD.
std::string DecodeDocument(std::string_view bytes);

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_ENCODING_H_
