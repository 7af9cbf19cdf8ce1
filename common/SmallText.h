#ifndef POSTWRIGHT_COMMON_SMALLTEXT_H_
#define POSTWRIGHT_COMMON_SMALLTEXT_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace postwright {

// Small knowledge on texts, in ASCII alone, whatever the locale. Pure, for any thread.

// The digits by their values, for what is written.
inline constexpr std::string_view kUpperHexDigits = "0123456789ABCDEF";
inline constexpr std::string_view kLowerHexDigits = "0123456789abcdef";

// Returns `text` without the characters of `blanks` at either end.
std::string_view Trim(std::string_view text, std::string_view blanks = " \t\r\n");

bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Appends the percent escape of `byte` to `text`: "%2F".
void AppendEscape(char byte, std::string& text);

// Returns the byte whose percent escape stands at `text[at]`; nullopt where none does.
std::optional<char> EscapeAt(std::string_view text, std::size_t at);

// Returns `text` as a part of a query (RFC 3986, section 2.3): everything but letters, digits and
// -._~ becomes a percent escape.
std::string EscapeQuery(std::string_view text);

// Returns a part of a query as it was before: percent escapes resolved, `+` for a blank. A `%`
// without two hexadecimal digits after it is literal.
std::string UnescapeQuery(std::string_view escaped);

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_SMALLTEXT_H_
