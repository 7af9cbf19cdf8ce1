#include "apps/addressbook/formats/rows/RowEntries.h"

#include <algorithm>

#include "apps/tables/ColumnNames.h"
#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

void RowEntries::takeRow(const QStringList& cells) {
  const int row = _rows++;
  const qsizetype first = _slots.size();
  for (int place = 0; place < _addresses.size(); ++place) {
    const tables::AddressColumns& address = _addresses[place];
    if (_addresses.size() > 1 && !address.mapping.hasAddress(cells)) {
      continue;
    }
    const QString label = address.mapping.compose(cells);
    const bool isRepeated =
        std::any_of(_slots.begin() + first, _slots.end(),
                    [&label](const Slot& slot) { return tables::sameLetters(slot.label, label); });
    if (!isRepeated) {
      const QString told = cells.value(address.kindColumn).remove(QLatin1Char('*')).trimmed();
      _slots.append({row, place, told.isEmpty() ? tables::kindText(address.kind) : told, label,
                     address.mapping.lastName(cells)});
    }
  }
  if (_slots.size() == first) {
    const tables::ColumnMapping& mapping = _addresses.first().mapping;
    _slots.append({row, 0, {}, mapping.compose(cells), mapping.lastName(cells)});
  }
}

QList<Entry> RowEntries::entries() const {
  QList<Entry> entries;
  entries.reserve(_slots.size());
  for (const Slot& slot : _slots) {
    entries.append({entries.size() + 1, slot.label, {}, slot.kind, slot.lastName});
  }
  return entries;
}

RowEntries::Changes::Changes(const RowEntries& read, const QList<Entry>& entries)
    : _read(read), _labels(read._slots.size(), nullptr) {
  for (const Entry& entry : entries) {
    if (entry.id <= _labels.size()) {
      _labels[entry.id - 1] = &entry.label;
    } else {
      _added.append(divided(read._addresses.first().mapping, entry.label, {}));
    }
  }
}

RowEntries::Changes::Fate RowEntries::Changes::next(const std::function<QStringList()>& cells) {
  Fate fate{true, std::nullopt};
  const int row = _row++;
  for (; _slot < _labels.size() && _read._slots[_slot].row == row; ++_slot) {
    const Slot& slot = _read._slots[_slot];
    const QString* const label = _labels[_slot];
    fate.isRemoved = fate.isRemoved && label == nullptr;
    if (label != nullptr && *label == slot.label) {
      continue;
    }
    if (!fate.cells) {
      fate.cells = cells();
    }
    const tables::ColumnMapping& mapping = _read._addresses[slot.address].mapping;
    const qsizetype width = fate.cells->size();
    fate.cells = label == nullptr ? mapping.withoutAddress(*fate.cells)
                                  : divided(mapping, *label, *fate.cells);
    while (fate.cells->size() > width && fate.cells->last().isEmpty()) {
      fate.cells->removeLast();  // a row that was shorter than the header stays so
    }
  }
  return fate;
}

QStringList RowEntries::Changes::divided(const tables::ColumnMapping& mapping, const QString& label,
                                         const QStringList& cells) {
  const tables::ColumnMapping::Division division = mapping.divide(label, cells);
  _wholeLabels += division.isWhole ? 1 : 0;
  return division.cells;
}

QStringList RowEntries::Changes::notes() const {
  if (_wholeLabels == 0) {
    return {};
  }
  return {
      tr("%n labels could not be divided into the columns of the file. Each stands whole in "
         "one cell, line below line; nothing is lost.",
         nullptr, _wholeLabels)};
}

}  // namespace postwright::addressbook
