#ifndef POSTWRIGHT_COMMON_SHOWNTEXT_H_
#define POSTWRIGHT_COMMON_SHOWNTEXT_H_

#include <string>
#include <string_view>

namespace postwright {

// Returns `text` as it may be shown in a log or on a terminal, with `mark` in place of every
// control character (C0, DEL, C1) but those in `kept`, of the separators of lines and paragraphs
// (U+2028, U+2029), of every character that changes the direction of text (Unicode Standard Annex
// #9, 2.1 to 2.5), and of every byte that is not UTF-8. With a mark of one byte it is never longer
// than before. Pure, for any thread.
std::string ShownText(std::string_view text, std::string_view mark, std::string_view kept = "");

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_SHOWNTEXT_H_
