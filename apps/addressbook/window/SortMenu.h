#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_SORTMENU_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_SORTMENU_H_

#include <QObject>

#include "apps/addressbook/document/EntryModel.h"

class QAction;
class QActionGroup;
class QMenu;

namespace postwright::addressbook {

class EntryTable;

// The orders of the list in the menu of the view, that of last names among them. A click on the
// heading of the names sorts them as was chosen last, which is kept between runs.
class SortMenu : public QObject {
  Q_OBJECT

 public:
  // All three live longer than this, but for `menu`, whose child it is.
  SortMenu(QMenu* menu, EntryModel& model, EntryTable& table);

 private:
  struct Order {
    int column;
    EntryModel::NameOrder names;
    QAction* action;
  };
  void add(QMenu* menu, const char* name, const QString& text, int column,
           EntryModel::NameOrder names = EntryModel::NameOrder::AsWritten);
  void sort(const Order& order);
  void showOrder(int column);

  EntryModel& _model;
  EntryTable& _table;
  QActionGroup* _group;
  QList<Order> _orders;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_SORTMENU_H_
