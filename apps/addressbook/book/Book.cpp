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

void Book::reset(const QList<Entry>& entries, QDate today) {
  _entries = entries;
  _today = today;
  _nextId = 1;
  _states.clear();
  _states.reserve(_entries.size());
  for (const Entry& entry : _entries) {
    _states.append(checkState(entry, _today));
    _nextId = std::max(_nextId, entry.id + 1);
  }
  emit wasReset();
}

Entry Book::makeEntry(const QString& label) {
  return {_nextId++, label, {}};
}

void Book::insert(const QList<PlacedEntry>& placed) {
  QList<Entry> entries;
  QList<CheckState> states;
  entries.reserve(_entries.size() + placed.size());
  states.reserve(_entries.size() + placed.size());
  qsizetype old = 0;
  const auto takeOld = [&](qsizetype until) {
    for (; entries.size() < until && old < _entries.size(); ++old) {
      entries.append(_entries[old]);
      states.append(_states[old]);
    }
  };
  for (const PlacedEntry& each : placed) {
    takeOld(each.row);
    entries.append(each.entry);
    states.append(checkState(each.entry, _today));
  }
  takeOld(entries.size() + _entries.size());
  _entries.swap(entries);
  _states.swap(states);
  emit inserted(rowsOf(placed));
}

QList<PlacedEntry> Book::remove(const QList<int>& rows) {
  QList<PlacedEntry> taken;
  taken.reserve(rows.size());
  QList<Entry> entries;
  QList<CheckState> states;
  entries.reserve(_entries.size() - rows.size());
  states.reserve(_entries.size() - rows.size());
  auto next = rows.cbegin();
  for (int row = 0; row < size(); ++row) {
    if (next != rows.cend() && *next == row) {
      taken.append({row, _entries[row]});
      ++next;
    } else {
      entries.append(_entries[row]);
      states.append(_states[row]);
    }
  }
  _entries.swap(entries);
  _states.swap(states);
  emit removed(rows);
  return taken;
}

void Book::setLabels(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _entries[each.row].label = each.entry.label;
  }
  readStates(placed);
}

void Book::setChecks(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _entries[each.row].check = each.entry.check;
  }
  readStates(placed);
}

void Book::readStates(const QList<PlacedEntry>& placed) {
  for (const PlacedEntry& each : placed) {
    _states[each.row] = checkState(_entries[each.row], _today);
  }
  emit changed(rowsOf(placed));
}

}  // namespace postwright::addressbook
