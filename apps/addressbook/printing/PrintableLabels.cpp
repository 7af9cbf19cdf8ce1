#include "apps/addressbook/printing/PrintableLabels.h"

#include "apps/addressbook/book/Book.h"

namespace postwright::addressbook {

QStringList PrintableLabels::chosen(bool includesRefused) const {
  if (includesRefused || refused == 0) {
    return texts;
  }
  QStringList labels;
  for (qsizetype label = 0; label < texts.size(); ++label) {
    if (!areRefused[label]) {
      labels.append(texts[label]);
    }
  }
  return labels;
}

PrintableLabels printableLabels(const Book& book, const QList<int>& rows) {
  PrintableLabels labels;
  for (const int row : rows) {
    const Entry& entry = book.at(row);
    if (!hasAddress(entry)) {
      ++labels.withoutAddress;
      continue;
    }
    const bool isRefused = book.stateAt(row) == CheckState::Failed && !entry.check.isUnanswered;
    labels.texts.append(entry.label);
    labels.areRefused.append(isRefused);
    labels.refused += isRefused ? 1 : 0;
    if (saysConfirmation(book.stateAt(row)) && !entry.check.deliveryPoint.isEmpty()) {
      labels.deliveryPoints.insert(entry.label, entry.check.deliveryPoint);
    }
  }
  return labels;
}

}  // namespace postwright::addressbook
