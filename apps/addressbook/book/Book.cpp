#include "apps/addressbook/book/Book.h"

#include <algorithm>

#include "apps/addressbook/book/SameAddress.h"

namespace postwright::addressbook {

namespace {

QList<int> rowsOf(const QList<PlacedEntry>& placed) {
  QList<int> rows;
  rows.reserve(placed.size());
  for (const PlacedEntry& each : placed) {
    rows.append(each.row);
  }
  return rows;
}

}  // namespace

Book::Book(QObject* parent) : QObject(parent) {}

int Book::rowOf(qint64 id) const {
  const auto found = std::find_if(_entries.begin(), _entries.end(),
                                  [id](const Entry& entry) { return entry.id == id; });
  return found == _entries.end() ? -1 : static_cast<int>(found - _entries.begin());
}

int Book::count(CheckState state) const {
  return static_cast<int>(std::count_if(_told.begin(), _told.end(),
                                        [state](const Told& told) { return told.state == state; }));
}

bool Book::haveOneAddress(const QList<int>& rows) const {
  return rows.size() > 1 && !addressAt(rows.first()).isEmpty() &&
         std::all_of(rows.begin(), rows.end(),
                     [&](int row) { return addressAt(row) == addressAt(rows.first()); });
}

Book::Told Book::tell(const Entry& entry) {
  Told told{checkState(entry, _today), addressKey(entry.label)};
  if (!told.address.isEmpty()) {
    const int sharing = ++_sharing[told.address];
    _shared += sharing == 2 ? 2 : sharing > 2 ? 1 : 0;
  }
  return told;
}

void Book::forget(const Told& told) {
  const auto found = _sharing.find(told.address);
  if (found == _sharing.end()) {
    return;
  }
  _shared -= *found == 2 ? 2 : *found > 2 ? 1 : 0;
  if (--*found == 0) {
    _sharing.erase(found);
  }
}

void Book::reset(const QList<Entry>& entries, QDate today) {
  _entries = entries;
  _today = today;
  _nextId = 1;
  _told.clear();
  _told.reserve(_entries.size());
  _sharing.clear();
  _shared = 0;
  for (const Entry& entry : _entries) {
    _told.append(tell(entry));
    _nextId = std::max(_nextId, entry.id + 1);
  }
  emit wasReset();
}

Entry Book::makeEntry(const QString& label) {
  return {_nextId++, label, {}};
}

void Book::insert(const QList<PlacedEntry>& placed) {
  QList<Entry> entries;
  QList<Told> told;
  entries.reserve(_entries.size() + placed.size());
  told.reserve(_entries.size() + placed.size());
  qsizetype old = 0;
  const auto takeOld = [&](qsizetype until) {
    for (; entries.size() < until && old < _entries.size(); ++old) {
      entries.append(_entries[old]);
      told.append(_told[old]);
    }
  };
  for (const PlacedEntry& each : placed) {
    takeOld(each.row);
    entries.append(each.entry);
    told.append(tell(each.entry));
  }
  takeOld(entries.size() + _entries.size());
  _entries.swap(entries);
  _told.swap(told);
  emit inserted(rowsOf(placed));
}

QList<PlacedEntry> Book::remove(const QList<int>& rows) {
  QList<PlacedEntry> taken;
  taken.reserve(rows.size());
  QList<Entry> entries;
  QList<Told> told;
  entries.reserve(_entries.size() - rows.size());
  told.reserve(_entries.size() - rows.size());
  auto next = rows.cbegin();
  for (int row = 0; row < size(); ++row) {
    if (next != rows.cend() && *next == row) {
      taken.append({row, _entries[row]});
      forget(_told[row]);
      ++next;
    } else {
      entries.append(_entries[row]);
      told.append(_told[row]);
    }
  }
  _entries.swap(entries);
  _told.swap(told);
  emit removed(rows);
  return taken;
}

void Book::setLabels(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _entries[each.row].label = each.entry.label;
  }
  tellAnew(placed);
}

void Book::setChecks(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _entries[each.row].check = each.entry.check;
  }
  tellAnew(placed);
}

void Book::tellAnew(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    forget(_told[each.row]);
    _told[each.row] = tell(_entries[each.row]);
  }
  emit changed(rowsOf(placed));
}

}  // namespace postwright::addressbook
