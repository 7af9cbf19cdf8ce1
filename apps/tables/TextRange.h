#ifndef POSTWRIGHT_APPS_TABLES_TEXTRANGE_H_
#define POSTWRIGHT_APPS_TABLES_TEXTRANGE_H_

#include <QByteArray>

namespace postwright::tables {

// A piece of the text that is read, by offsets into it.
struct TextRange {
  qsizetype begin = 0;
  qsizetype end = 0;

  qsizetype size() const { return end - begin; }
  QByteArray of(const QByteArray& text) const { return text.sliced(begin, size()); }
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_TEXTRANGE_H_
