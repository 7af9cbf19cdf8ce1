#ifndef POSTWRIGHT_CORE_REVIEW_TEXTFORM_H_
#define POSTWRIGHT_CORE_REVIEW_TEXTFORM_H_

#include <postwright/Export.h>

#include <string>
#include <string_view>

// How a question and a corrected text are written. Letters, digits and signs are those of Unicode;
// upper case is the character locale's. Pure functions, for any thread; they throw nothing but
// std::bad_alloc and take time in proportion to the texts.
namespace postwright::TextForm {

// Returns the text composed (Unicode's form NFC): the engine knows no combining marks, and would
// lose an accent that is one. A text that holds what is not a code point stays as it is.
POSTWRIGHT_CORE_EXPORT std::wstring Composed(std::wstring_view text);

// Returns the lines of an address without the punctuation that USPS Publication 28 leaves out
// (sections 354 and D1), blanks reduced to one: the hyphen beside a digit (12-34, ZIP+4), the slash
// between two letters or digits, the point between digits (39.2 RD), "#" and "&" stay; an
// apostrophe and the points of initials go; any other sign separates words.
POSTWRIGHT_CORE_EXPORT std::wstring Postal(std::wstring_view address);

// Returns `corrected` with those lines above and below its address as they are in `typed` that
// differ from it in case and punctuation alone: lines without a digit, from either end inwards, up
// to the first that is none of these. For a label that was asked about as a whole.
POSTWRIGHT_CORE_EXPORT std::wstring WithNamesAsTyped(std::wstring_view corrected,
                                                     std::wstring_view typed);

// True where both texts hold the same letters and digits in the same order, whatever their case,
// spacing, punctuation and line breaks: a correction that says the same is none.
POSTWRIGHT_CORE_EXPORT bool SaysTheSame(std::wstring_view text, std::wstring_view other);

}  // namespace postwright::TextForm

#endif  // POSTWRIGHT_CORE_REVIEW_TEXTFORM_H_
