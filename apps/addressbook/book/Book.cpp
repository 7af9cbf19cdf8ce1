#include "apps/addressbook/book/Book.h"

#include <algorithm>

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

void Book::reset(const QList<Entry>& entries) {
  _entries = entries;
  _nextId = 1;
  for (const Entry& entry : _entries) {
    _nextId = std::max(_nextId, entry.id + 1);
  }
  emit wasReset();
}

Entry Book::makeEntry(const QString& label) {
  return {_nextId++, label, {}};
}

void Book::insert(const QList<PlacedEntry>& placed) {
  QList<Entry> merged;
  merged.reserve(_entries.size() + placed.size());
  auto old = _entries.cbegin();
  for (const PlacedEntry& each : placed) {
    while (merged.size() < each.row && old != _entries.cend()) {
      merged.append(*old++);
    }
    merged.append(each.entry);
  }
  std::copy(old, _entries.cend(), std::back_inserter(merged));
  _entries.swap(merged);
  emit inserted(rowsOf(placed));
}

QList<PlacedEntry> Book::remove(const QList<int>& rows) {
  QList<PlacedEntry> taken;
  taken.reserve(rows.size());
  QList<Entry> kept;
  kept.reserve(_entries.size() - rows.size());
  auto next = rows.cbegin();
  for (int row = 0; row < size(); ++row) {
    if (next != rows.cend() && *next == row) {
      taken.append({row, _entries[row]});
      ++next;
    } else {
      kept.append(_entries[row]);
    }
  }
  _entries.swap(kept);
  emit removed(rows);
  return taken;
}

void Book::setLabel(int row, const QString& label) {
  _entries[row].label = label;
  emit changed({row});
}

void Book::setLabels(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _entries[each.row].label = each.entry.label;
  }
  emit changed(rowsOf(placed));
}

void Book::setChecks(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _entries[each.row].check = each.entry.check;
  }
  emit changed(rowsOf(placed));
}

}  // namespace postwright::addressbook
