// In which order the table shows the entries: a part of EntryModel.

#include <QCollator>
#include <QHash>
#include <QLocale>
#include <algorithm>
#include <vector>

#include "apps/addressbook/book/LastName.h"
#include "apps/addressbook/document/EntryModel.h"

namespace postwright::addressbook {

void EntryModel::arrange() {
  _shown.clear();
  for (int row = 0; row < _book.size(); ++row) {
    if (passes(row)) {
      _shown.append(row);
    }
  }
  if (_sortColumn == kBookOrder) {
    bringTogether();
    return;
  }
  // The collation of the locale "C" knows neither case nor numbers.
  const QLocale locale;
  QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
  collator.setNumericMode(true);
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  struct Keyed {
    int row;
    int rank;
    QCollatorSortKey key;
  };
  std::vector<Keyed> keyed;
  keyed.reserve(_shown.size());
  for (const int row : _shown) {
    keyed.push_back({row, sortRank(row), collator.sortKey(sortText(row))});
  }
  const auto isBefore = [](const Keyed& a, const Keyed& b) {
    const int order = a.rank != b.rank ? a.rank - b.rank : a.key.compare(b.key);
    return order != 0 ? order < 0 : a.row < b.row;
  };
  std::sort(keyed.begin(), keyed.end(), isBefore);
  std::transform(keyed.begin(), keyed.end(), _shown.begin(), [](const Keyed& k) { return k.row; });
  if (_sortOrder == Qt::DescendingOrder) {
    std::reverse(_shown.begin(), _shown.end());
  }
}

// What comes first whatever its text.
int EntryModel::sortRank(int bookRow) const {
  return _sortColumn == Checked   ? urgency(_book.stateAt(bookRow))
         : _sortColumn == Sharing ? -_book.sharing(bookRow)
                                  : 0;
}

QString EntryModel::sortText(int bookRow) const {
  if (_sortColumn == Sharing) {
    return _book.addressAt(bookRow);
  }
  if (_sortColumn == Name && _nameOrder == NameOrder::LastName) {
    return lastNameKey(text(bookRow, Name), _book.at(bookRow).lastName);
  }
  return text(bookRow, _sortColumn == Checked ? Name : _sortColumn);
}

// Those of one address stand with the first of them where they are what is shown.
void EntryModel::bringTogether() {
  if (_filter.kind != Filter::Shared) {
    return;
  }
  QHash<QString, int> first;
  for (const int row : _shown) {
    first.insert(_book.addressAt(row), first.value(_book.addressAt(row), row));
  }
  std::stable_sort(_shown.begin(), _shown.end(), [&](int a, int b) {
    return first.value(_book.addressAt(a)) < first.value(_book.addressAt(b));
  });
}

}  // namespace postwright::addressbook
