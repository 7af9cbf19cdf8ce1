#ifndef POSTWRIGHT_CLIENT_BATCH_DIFFERENCEFORMAT_H_
#define POSTWRIGHT_CLIENT_BATCH_DIFFERENCEFORMAT_H_

#include <QPalette>
#include <QTextCharFormat>
#include <QTextLayout>

#include "client/batch/review/Differences.h"

namespace postwright {

enum class MarkKind { Removed, Added, Moved };

// How marked text looks: struck through or underlined, on a tint of red or green that is mixed into
// the palette's own base, so that the text keeps its colour and its contrast in light and dark. A
// word that moved into another line is the strongest mark: bold, with a broken line beneath, on
// amber.
QTextCharFormat markFormat(MarkKind kind, const QPalette& palette);

// The marks as formats of a text layout.
QList<QTextLayout::FormatRange> markFormats(const QList<TextMark>& marks, MarkKind kind,
                                            const QPalette& palette);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_DIFFERENCEFORMAT_H_
