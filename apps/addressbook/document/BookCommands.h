#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_BOOKCOMMANDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_BOOKCOMMANDS_H_

#include <QCoreApplication>
#include <QList>
#include <QUndoCommand>
#include <functional>

#include "apps/addressbook/book/Book.h"

namespace postwright::addressbook {

// Told of the rows that undoing or redoing has changed, so that they can be shown.
using RowsTouched = std::function<void(const QList<int>& rows)>;

// Changes the labels of entries: one that the user edits, or those of a batch.
class ChangeLabels final : public QUndoCommand {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::ChangeLabels)

 public:
  static constexpr int kNoSession = 0;

  // `changed` holds the new labels at their rows. Edits of one entry in the same session, such as
  // the keys typed until the user turns to something else, become one step.
  ChangeLabels(Book& book, RowsTouched touched, const QList<PlacedEntry>& changed,
               int session = kNoSession);

  void undo() override;
  void redo() override;
  int id() const override { return _session == kNoSession ? -1 : 1; }
  bool mergeWith(const QUndoCommand* later) override;

 private:
  Book& _book;
  RowsTouched _touched;
  QList<PlacedEntry> _old;
  QList<PlacedEntry> _new;
  int _session;
  bool _isRedone = false;  // the first redo() is the user's own doing and needs not be shown
};

// Adds entries to the book.
class AddEntries final : public QUndoCommand {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::AddEntries)

 public:
  AddEntries(Book& book, RowsTouched touched, const QList<PlacedEntry>& added);

  void undo() override;
  void redo() override;

 private:
  Book& _book;
  RowsTouched _touched;
  QList<PlacedEntry> _added;
};

// Removes entries from the book.
class RemoveEntries final : public QUndoCommand {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::RemoveEntries)

 public:
  RemoveEntries(Book& book, RowsTouched touched, const QList<int>& rows);

  void undo() override;
  void redo() override;

 private:
  Book& _book;
  RowsTouched _touched;
  QList<int> _rows;
  QList<PlacedEntry> _removed;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_BOOKCOMMANDS_H_
