#ifndef POSTWRIGHT_CORE_RECORDS_UTILS_H_
#define POSTWRIGHT_CORE_RECORDS_UTILS_H_

#include <postwright/Export.h>

#include <string>
#include <vector>

namespace postwright {

// Wide-string helpers that bring a user's text into the shape that the parser reads. One element of
// a wide string is one code point. Pure functions: any thread may call any of them at any time, and
// nothing is thrown but std::bad_alloc.
namespace Utils {

using LineIterator = std::vector<std::wstring>::const_iterator;

// Returns `text` without the blanks, tabs, line feeds and carriage returns at its ends; no other
// white space is trimmed. A text of nothing else comes back unchanged: in a label a line of blanks
// is a line, and the caller decides what to make of it.
POSTWRIGHT_CORE_EXPORT std::wstring TrimString(const std::wstring& text);

// Returns `text` with each character upper-cased by towupper() under the process's character
// locale: the length never changes, and in the "C" locale only a to z do.
POSTWRIGHT_CORE_EXPORT std::wstring ToUpper(const std::wstring& text);

// Splits `text` at each line feed, carriage return, or carriage return with a line feed after it.
// Lines are neither trimmed nor dropped, so a text that ends in a break ends in an empty line. The
// empty text has no lines.
POSTWRIGHT_CORE_EXPORT std::vector<std::wstring> SeparateStringToLines(const std::wstring& text);

// Joins the strings in [begin, end). A separator is written before an element whenever the result
// so far is not empty, so empty elements at the front leave no trace while an empty one after some
// text still brings its separator. With `skipEmpty`, empty elements leave no trace anywhere.
POSTWRIGHT_CORE_EXPORT std::wstring JoinStrings(LineIterator begin, LineIterator end,
                                                const std::wstring& separator, bool skipEmpty);
POSTWRIGHT_CORE_EXPORT std::wstring JoinStrings(const std::vector<std::wstring>& strings,
                                                const std::wstring& separator, bool skipEmpty);

// Returns the lines of `text`, each trimmed, joined by single line feeds, without the empty ones
// and without a final break. A line of nothing but blanks is kept (see TrimString);
// case, punctuation and the blanks inside a line are left alone.
POSTWRIGHT_CORE_EXPORT std::wstring NormalizeAddress(const std::wstring& text);

}  // namespace Utils
}  // namespace postwright

#endif  // POSTWRIGHT_CORE_RECORDS_UTILS_H_
