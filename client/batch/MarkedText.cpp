#include "client/batch/MarkedText.h"

#include <QTextCursor>
#include <algorithm>
#include <vector>

namespace postwright {

namespace {

// Of tips in any order; there are few.
QString tipOf(const TextMark& mark, const QList<MarkTip>& tips) {
  for (const MarkTip& tip : tips) {
    if (mark.start < tip.words.start + tip.words.length &&
        tip.words.start < mark.start + mark.length) {
      return tip.text;
    }
  }
  return {};
}

}  // namespace

void showMarked(QTextEdit& field, const QString& text, const QList<TextMark>& marks, MarkKind kind,
                const QList<TextMark>& moved, const QList<MarkTip>& tips) {
  struct Run {
    TextMark mark;
    QTextCharFormat format;
  };
  std::vector<Run> runs;
  for (const TextMark& mark : marks) {
    runs.push_back({mark, markFormat(kind, field.palette())});
  }
  for (const TextMark& mark : moved) {
    runs.push_back({mark, markFormat(MarkKind::Moved, field.palette())});
  }
  for (Run& run : runs) {
    run.format.setToolTip(tipOf(run.mark, tips));
  }
  std::stable_sort(runs.begin(), runs.end(), [](const Run& one, const Run& other) {
    return one.mark.start < other.mark.start;
  });
  field.document()->setUndoRedoEnabled(false);
  field.clear();
  QTextCursor cursor(field.document());
  cursor.beginEditBlock();
  qsizetype written = 0;
  for (const Run& run : runs) {
    if (run.mark.start >= written) {
      cursor.insertText(text.mid(written, run.mark.start - written), QTextCharFormat());
      cursor.insertText(text.mid(run.mark.start, run.mark.length), run.format);
      written = run.mark.start + run.mark.length;
    }
  }
  cursor.insertText(text.mid(written), QTextCharFormat());
  cursor.endEditBlock();
  field.moveCursor(QTextCursor::Start);
}

}  // namespace postwright
