#ifndef POSTWRIGHT_CLIENT_SUITE_STRINGHELPERS_H_
#define POSTWRIGHT_CLIENT_SUITE_STRINGHELPERS_H_

#include <QString>
#include <QStringList>
#include <optional>

namespace postwright {

// What the suite asks of a string beyond what QString offers. Pure functions for any thread. Text
// outside the 16-bit range goes through whole: no function separates the two halves of a character.
//
// A letter is a character of Unicode's categories L and M (so a combining mark belongs to its
// letter), a digit one of category N (so the fraction in "12½" counts).
namespace StringHelpers {

// Returns `text` without the white space and line breaks at its ends (QChar::isSpace).
QString trim(const QString& text);

// Splits `text` into lines; the terminators CR LF, LF, CR, U+0085, U+2028 and U+2029 are removed.
// They end lines rather than separate them: a text that ends in one has no empty line after it, and
// the empty text has no line at all.
QStringList lines(const QString& text);

// True for nil and for a string of length 0. A string of blanks is not empty.
bool isNilOrEmpty(const std::optional<QString>& text);

// Returns the letters and digits of `text`, in their order and with nothing between them.
QString alphanumericOnly(const QString& text);

// True when every character of `text` is a letter; so for the empty string too.
bool isAllLetters(const QString& text);

// Returns the capitalized form: in each run of letters and digits the first letter in upper case
// (in title case where Unicode tells the two apart) and every other letter in lower case. An
// apostrophe, straight or typographic, between two characters of a run does not end it; anything
// else does: "WINSTON-SALEM" gives "Winston-Salem", "O'NEIL" gives "O'neil", "42ND" gives "42Nd".
QString capitalized(const QString& text);

// Returns `format` with its first "%@" replaced by the first argument, the next by the second, and
// so on. No other percent sign means anything, arguments are not searched for placeholders, and a
// placeholder without an argument stays as it is.
QString stringWithFormat(const QString& format, const QStringList& arguments);

}  // namespace StringHelpers
}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_SUITE_STRINGHELPERS_H_
