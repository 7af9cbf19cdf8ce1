#ifndef POSTWRIGHT_CLIENT_BATCH_MARKEDTEXT_H_
#define POSTWRIGHT_CLIENT_BATCH_MARKEDTEXT_H_

#include <QTextEdit>

#include "client/batch/DifferenceFormat.h"

namespace postwright {

// Why words were changed.
struct MarkTip {
  TextMark words;
  QString text;
};

// Shows `text` in `field` with its marks, which are in order: those of `kind` and those of words
// that moved. A mark that touches the words of a tip has that as its tool tip. Written
// in one go, in time in proportion to the text.
void showMarked(QTextEdit& field, const QString& text, const QList<TextMark>& marks, MarkKind kind,
                const QList<TextMark>& moved, const QList<MarkTip>& tips);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_MARKEDTEXT_H_
