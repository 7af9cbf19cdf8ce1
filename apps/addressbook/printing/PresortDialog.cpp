#include "apps/addressbook/printing/PresortDialog.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <utility>

#include "apps/addressbook/printing/PageButtons.h"
#include "apps/addressbook/widgets/ScrollingForm.h"

namespace postwright::addressbook {

namespace {

constexpr QSize kSize(360, 480);

}  // namespace

PresortDialog::PresortDialog(QList<Presort::Count> counts, Paper paper, QWidget* parent)
    : QDialog(parent), _counts(std::move(counts)) {
  setWindowTitle(tr("Presort Sheet"));
  int pieces = 0;
  for (const Presort::Count& count : _counts) {
    pieces += count.pieces;
  }
  auto* const lead = new QLabel(
      tr("%n pieces, by the first three digits of their ZIP codes.", nullptr, pieces), this);
  lead->setWordWrap(true);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(lead);
  layout->addWidget(buildTable(), 1);
  layout->addWidget(new PageButtons(Presort::page(_counts), paper, tr("Presort.pdf"), this));
  resizeToScreen(*this, kSize);
}

QWidget* PresortDialog::buildTable() {
  auto* const table = new QTableWidget(static_cast<int>(_counts.size()), 2, this);
  table->setObjectName(QStringLiteral("prefixes"));
  table->setAccessibleName(tr("Pieces by prefix"));
  table->setHorizontalHeaderLabels({tr("Prefix"), tr("Pieces")});
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setTabKeyNavigation(false);
  for (int row = 0; row < _counts.size(); ++row) {
    const Presort::Count& count = _counts[row];
    table->setItem(row, 0,
                   new QTableWidgetItem(count.prefix.isEmpty() ? tr("No ZIP code") : count.prefix));
    auto* const pieces = new QTableWidgetItem(QString::number(count.pieces));
    pieces->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setItem(row, 1, pieces);
  }
  return table;
}

}  // namespace postwright::addressbook
