#ifndef POSTWRIGHT_CLIENT_BATCH_ROWHEIGHTS_H_
#define POSTWRIGHT_CLIENT_BATCH_ROWHEIGHTS_H_

#include <QFont>
#include <QHash>
#include <QString>

namespace postwright {

// The font of the window's tables: the system's, 14 pixels high or higher where the user has set a
// higher one.
QFont tableFont();

// The heights of table rows, by their text: that of TextMetric, but never less than 48, and between
// it and the next row a little air. A height depends on the number of lines alone, so a long list
// costs one measurement for each number.
class RowHeights {
 public:
  // No row is lower than `leastLines` lines of text are.
  explicit RowHeights(const QFont& font, int leastLines = 1)
      : _font(font), _leastLines(leastLines) {}

  int heightFor(const QString& text);

 private:
  QFont _font;
  int _leastLines;
  QHash<qsizetype, int> _byLines;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_ROWHEIGHTS_H_
