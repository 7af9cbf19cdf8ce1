#include "apps/addressbook/document/BookDocument.h"

#include <QFileInfo>

#include "apps/addressbook/document/BookCommands.h"
#include "apps/addressbook/formats/BookFormats.h"

namespace postwright::addressbook {

BookDocument::BookDocument(QObject* parent) : QObject(parent), _history(CheckHistory::usualPath()) {
  _book.reset({}, QDate::currentDate());
}

QString BookDocument::title() const {
  return _path.isEmpty() ? tr("Untitled") : QFileInfo(_path).fileName();
}

void BookDocument::clear() {
  begin(nullptr, QString(), {});
}

void BookDocument::begin(std::unique_ptr<BookFile> file, const QString& path) {
  QList<Entry> entries = file->entries();
  _history.fill(entries);
  begin(std::move(file), path, std::move(entries));
}

void BookDocument::begin(std::unique_ptr<BookFile> file, const QString& path,
                         QList<Entry> entries) {
  _undoStack.clear();
  _file = std::move(file);
  _path = path;
  _diskState = diskState(path);
  _book.reset(entries, QDate::currentDate());
  emit titleChanged();
}

const BookFormat& BookDocument::format() const {
  return _file ? _file->format() : *bookFormats().first();
}

QStringList BookDocument::save(const QString& path, const BookFormat& format) {
  std::unique_ptr<BookFile> converted;
  if (!_file || &format != &_file->format()) {
    converted = format.make(path);
  }
  const QStringList notes = (converted ? converted : _file)->write(path, _book.entries());
  if (converted) {
    _file = std::move(converted);
  }
  _path = path;
  _diskState = diskState(path);
  _undoStack.setClean();
  endEdit();
  emit titleChanged();
  return notes;
}

bool BookDocument::isChangedOnDisk() const {
  return !_path.isEmpty() && !(diskState(_path) == _diskState);
}

BookDocument::DiskState BookDocument::diskState(const QString& path) {
  const QFileInfo info(path);
  return path.isEmpty() || !info.exists() ? DiskState{}
                                          : DiskState{info.lastModified(), info.size()};
}

void BookDocument::edit(int row, const QString& label) {
  Entry entry = _book.at(row);
  if (entry.label == label) {
    return;
  }
  entry.label = label;
  _undoStack.push(new ChangeLabels(_book, toucher(), {{row, entry}}, _session));
}

void BookDocument::add(const QString& label) {
  endEdit();
  _undoStack.push(new AddEntries(_book, toucher(), {{_book.size(), _book.makeEntry(label)}}));
}

void BookDocument::remove(const QList<int>& rows) {
  endEdit();
  if (!rows.isEmpty()) {
    _undoStack.push(new RemoveEntries(_book, toucher(), rows));
  }
}

void BookDocument::merge(const QList<int>& rows, const QString& label) {
  endEdit();
  Entry kept = _book.at(rows.first());
  kept.label = label;
  _undoStack.beginMacro(tr("Merge %n entries", nullptr, static_cast<int>(rows.size())));
  _undoStack.push(new ChangeLabels(_book, toucher(), {{rows.first(), kept}}));
  _undoStack.push(new RemoveEntries(_book, toucher(), rows.mid(1)));
  _undoStack.endMacro();
}

void BookDocument::correct(const QList<PlacedEntry>& corrected) {
  endEdit();
  if (!corrected.isEmpty()) {
    _undoStack.push(new ChangeLabels(_book, toucher(), corrected));
  }
}

void BookDocument::keepChecks(const QList<PlacedEntry>& checked) {
  _book.setChecks(checked);
  QList<Entry> entries;
  for (const PlacedEntry& each : checked) {
    entries.append(each.entry);
  }
  _history.remember(entries, QDate::currentDate());
}

std::function<void(const QList<int>&)> BookDocument::toucher() {
  return [this](const QList<int>& rows) {
    endEdit();
    emit touched(rows);
  };
}

}  // namespace postwright::addressbook
