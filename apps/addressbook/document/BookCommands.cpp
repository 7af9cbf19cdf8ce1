#include "apps/addressbook/document/BookCommands.h"

namespace postwright::addressbook {

namespace {

QList<int> rowsOf(const QList<PlacedEntry>& placed) {
  QList<int> rows;
  for (const PlacedEntry& each : placed) {
    rows.append(each.row);
  }
  return rows;
}

}  // namespace

ChangeLabels::ChangeLabels(Book& book, RowsTouched touched, const QList<PlacedEntry>& changed,
                           int session)
    : _book(book), _touched(std::move(touched)), _new(changed), _session(session) {
  for (const PlacedEntry& each : changed) {
    _old.append({each.row, book.at(each.row)});
  }
  setText(session == kNoSession
              ? tr("Correct %n addresses", nullptr, static_cast<int>(changed.size()))
              : tr("Edit"));
}

void ChangeLabels::undo() {
  _book.setLabels(_old);
  _touched(rowsOf(_old));
}

void ChangeLabels::redo() {
  _book.setLabels(_new);
  if (_isRedone) {
    _touched(rowsOf(_new));
  }
  _isRedone = true;
}

bool ChangeLabels::mergeWith(const QUndoCommand* later) {
  const auto* const edit = static_cast<const ChangeLabels*>(later);
  if (edit->_session != _session || rowsOf(edit->_new) != rowsOf(_new)) {
    return false;
  }
  _new = edit->_new;
  setObsolete(_new.first().entry.label == _old.first().entry.label);
  return true;
}

AddEntries::AddEntries(Book& book, RowsTouched touched, const QList<PlacedEntry>& added)
    : _book(book), _touched(std::move(touched)), _added(added) {
  setText(tr("Add %n entries", nullptr, static_cast<int>(added.size())));
}

void AddEntries::undo() {
  _book.remove(rowsOf(_added));
}

void AddEntries::redo() {
  _book.insert(_added);
  _touched(rowsOf(_added));
}

RemoveEntries::RemoveEntries(Book& book, RowsTouched touched, const QList<int>& rows)
    : _book(book), _touched(std::move(touched)), _rows(rows) {
  setText(tr("Remove %n entries", nullptr, static_cast<int>(rows.size())));
}

void RemoveEntries::undo() {
  _book.insert(_removed);
  _touched(_rows);
}

void RemoveEntries::redo() {
  _removed = _book.remove(_rows);
}

}  // namespace postwright::addressbook
