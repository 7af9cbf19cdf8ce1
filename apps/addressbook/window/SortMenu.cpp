#include "apps/addressbook/window/SortMenu.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QMenu>
#include <QSettings>

#include "apps/addressbook/window/EntryTable.h"

namespace postwright::addressbook {

namespace {

const QString kByLastName = QStringLiteral("window/byLastName");

}  // namespace

SortMenu::SortMenu(QMenu* menu, EntryModel& model, EntryTable& table)
    : QObject(menu), _model(model), _table(table), _group(new QActionGroup(this)) {
  using NameOrder = EntryModel::NameOrder;
  _group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
  _model.setNameOrder(QSettings().value(kByLastName).toBool() ? NameOrder::LastName
                                                              : NameOrder::AsWritten);
  add(menu, "sortByFile", tr("In the Order of the &File"), EntryModel::kBookOrder);
  add(menu, "sortByLastName", tr("By &Last Name"), EntryModel::Name, NameOrder::LastName);
  add(menu, "sortByName", tr("By &Name as Written"), EntryModel::Name);
  add(menu, "sortByZip", tr("By &ZIP Code"), EntryModel::Zip);
  add(menu, "sortBySharing", tr("&Same Addresses First"), EntryModel::Sharing);
  connect(_table.horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          &SortMenu::showOrder);
  showOrder(_table.horizontalHeader()->sortIndicatorSection());
}

void SortMenu::add(QMenu* menu, const char* name, const QString& text, int column,
                   EntryModel::NameOrder names) {
  QAction* const action = menu->addAction(text);
  action->setObjectName(QLatin1String(name));
  action->setCheckable(true);
  _group->addAction(action);
  _orders.append({column, names, action});
  const Order order = _orders.last();
  connect(action, &QAction::triggered, this, [this, order] { sort(order); });
}

void SortMenu::sort(const Order& order) {
  if (order.column == EntryModel::Name) {
    _model.setNameOrder(order.names);
    QSettings().setValue(kByLastName, order.names == EntryModel::NameOrder::LastName);
  }
  {
    // The table would sort only where the heading is another.
    const QSignalBlocker silence(_table.horizontalHeader());
    _table.horizontalHeader()->setSortIndicator(order.column, Qt::AscendingOrder);
  }
  _model.sort(order.column, Qt::AscendingOrder);
  showOrder(order.column);
}

void SortMenu::showOrder(int column) {
  for (const Order& order : _orders) {
    order.action->setChecked(order.column == column &&
                             (column != EntryModel::Name || order.names == _model.nameOrder()));
  }
}

}  // namespace postwright::addressbook
