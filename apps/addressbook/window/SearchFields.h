#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_SEARCHFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_SEARCHFIELDS_H_

#include <QWidget>

#include "apps/addressbook/document/EntryModel.h"

class QComboBox;
class QLineEdit;

namespace postwright::addressbook {

// Which entries are shown: a search field and a list of states, confirmations and reasons, at the
// end of the tool bar.
class SearchFields : public QWidget {
  Q_OBJECT

 public:
  explicit SearchFields(QWidget* parent = nullptr);

  QString text() const;
  EntryModel::Filter filter() const;

  // Offers the shared addresses, confirmations and reasons found in `book`, with how many
  // have each. What is chosen stays so.
  void offer(const Book& book);

  // Empties the field and shows the entries that `filter` lets pass.
  void show(const EntryModel::Filter& filter);

  // Turns the keyboard to the field.
  void beginSearch();

 signals:
  void changed();
  void entered();  // Return: on to the list
  void left();     // Escape: all are to be shown again

 private:
  void add(const QString& text, const EntryModel::Filter& filter);

  QComboBox* _filter;
  QList<EntryModel::Filter> _filters;  // what the places of the list stand for
  QLineEdit* _search;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_SEARCHFIELDS_H_
