#include "client/batch/review/LongLines.h"

#include <QStringList>

namespace postwright {

QString cutLongLines(const QString& text, qsizetype most, qsizetype lines) {
  if (text.size() <= most && text.count(u'\n') < lines) {
    return text;
  }
  QStringList cut;
  for (qsizetype start = 0; start <= text.size() && cut.size() < lines;) {
    const qsizetype found = text.indexOf(u'\n', start);
    const qsizetype end = found < 0 ? text.size() : found;
    qsizetype length = std::min(most, end - start);
    if (length == most && length > 0 && text[start + length - 1].isHighSurrogate()) {
      --length;
    }
    cut.append(text.mid(start, length));
    start = end + 1;
  }
  return cut.join(u'\n');
}

}  // namespace postwright
