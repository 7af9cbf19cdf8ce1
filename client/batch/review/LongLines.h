#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_LONGLINES_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_LONGLINES_H_

#include <QString>

namespace postwright {

// As much of a line as is shown and compared unless the person asks for the rest: laying a line out
// takes longer than it is long.
inline constexpr qsizetype kShownOfLine = 4000;

// As much as the person may ask for, and may edit: with more, a field does not answer at once.
inline constexpr qsizetype kMostOfLine = 20000;

// Returns `text` with each line cut to its first `most` characters, and after `lines` lines. Parts
// no character. The same text where nothing was cut.
QString cutLongLines(const QString& text, qsizetype most = kShownOfLine, qsizetype lines = 1000);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_LONGLINES_H_
