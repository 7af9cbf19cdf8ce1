#include "apps/addressbook/dialogs/ColumnDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/addressbook/dialogs/ReadingFields.h"
#include "apps/addressbook/widgets/LabelPreview.h"
#include "apps/addressbook/widgets/ScrollingForm.h"
#include "apps/tables/ColumnNames.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

enum TableColumn { kTitle, kExample, kRole, kTableColumns };

constexpr int kExampleRows = 20;
constexpr QSize kSize(820, 520);
constexpr int kPreviewWidth = 260;

}  // namespace

ColumnDialog::ColumnDialog(ColumnedFile& file, const QString& name, QWidget* parent)
    : QDialog(parent),
      _file(file),
      _choice(file.choice()),
      _reading(new ReadingFields(file, this)),
      _problem(new QLabel(this)),
      _table(new QTableWidget(this)) {
  setWindowTitle(tr("Columns of “%1”").arg(name));
  auto* const lead = new QLabel(tr("Choose what each column is to the label. The choice is "
                                   "remembered for files with the same "
                                   "first line."),
                                this);
  lead->setWordWrap(true);
  _table->setObjectName(QStringLiteral("columns"));
  _table->setAccessibleName(tr("Columns of the file"));
  auto* const buttons = new QDialogButtonBox(this);
  _accept = buttons->addButton(tr("&Use These Columns"), QDialogButtonBox::AcceptRole);
  _accept->setObjectName(QStringLiteral("useColumns"));
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  auto* const middle = new QHBoxLayout;
  middle->addWidget(_table, 1);
  middle->addWidget(buildPreview());
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(lead);
  layout->addWidget(_reading);
  layout->addWidget(_problem);
  layout->addWidget(buildAddresses());
  layout->addLayout(middle, 1);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &ColumnDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(_reading, &ReadingFields::changed, this, &ColumnDialog::readingChanged);
  _problem->setWordWrap(true);
  _problem->setObjectName(QStringLiteral("problem"));
  take(_choice);
  _reading->setChoice(_choice);
  fillTable();
  resizeToScreen(*this, kSize);
}

// Where a row holds several addresses, the columns of one of them are shown at a time.
QWidget* ColumnDialog::buildAddresses() {
  _whichRow = new QWidget(this);
  _which = new QComboBox(_whichRow);
  _which->setObjectName(QStringLiteral("address"));
  auto* const caption =
      new QLabel(tr("Each row holds several addresses. Columns of &address:"), _whichRow);
  caption->setBuddy(_which);
  auto* const layout = new QHBoxLayout(_whichRow);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(caption);
  layout->addWidget(_which);
  layout->addStretch(1);
  connect(_which, &QComboBox::currentIndexChanged, this, &ColumnDialog::addressChanged);
  return _whichRow;
}

QWidget* ColumnDialog::buildPreview() {
  auto* const side = new QWidget(this);
  side->setFixedWidth(kPreviewWidth);
  _preview = new LabelPreview(side);
  _rowText = new QLabel(side);
  _previous = new QToolButton(side);
  _previous->setArrowType(Qt::LeftArrow);
  _previous->setAccessibleName(tr("Previous row"));
  _next = new QToolButton(side);
  _next->setArrowType(Qt::RightArrow);
  _next->setAccessibleName(tr("Next row"));
  auto* const steps = new QHBoxLayout;
  steps->addWidget(_previous);
  steps->addWidget(_rowText, 1, Qt::AlignCenter);
  steps->addWidget(_next);
  auto* const layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new QLabel(tr("The label:"), side));
  layout->addWidget(_preview);
  layout->addLayout(steps);
  layout->addStretch(1);
  connect(_previous, &QToolButton::clicked, this, [this] { showRow(_row - 1); });
  connect(_next, &QToolButton::clicked, this, [this] { showRow(_row + 1); });
  return side;
}

void ColumnDialog::fillTable() {
  const QStringList roles = {tr("Not on the label"),
                             tr("First name"),
                             tr("Last or full name"),
                             tr("Company"),
                             tr("Address line"),
                             tr("City"),
                             tr("State"),
                             tr("ZIP code"),
                             tr("Line below"),
                             tr("Title before the name"),
                             tr("Suffix after the name"),
                             tr("Country")};
  const QStringList header = _file.header();
  _table->clear();
  _table->setColumnCount(kTableColumns);
  _table->setRowCount(static_cast<int>(header.size()));
  _table->setHorizontalHeaderLabels({tr("Column"), tr("Example"), tr("On the label")});
  _table->verticalHeader()->hide();
  _table->setSelectionMode(QAbstractItemView::NoSelection);
  _table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (int column = 0; column < header.size(); ++column) {
    QString example;
    for (int row = 0; row < std::min(_file.rowCount(), kExampleRows) && example.isEmpty(); ++row) {
      example = _file.cells(row).value(column).simplified();
    }
    _table->setItem(column, kTitle, new QTableWidgetItem(header[column]));
    _table->setItem(column, kExample, new QTableWidgetItem(example));
    auto* const box = new QComboBox(_table);
    box->addItems(roles);
    box->setCurrentIndex(
        static_cast<int>(_choice.addresses[_address].mapping.roles().value(column)));
    box->setAccessibleName(tr("What “%1” is to the label").arg(header[column]));
    connect(box, &QComboBox::currentIndexChanged, this, &ColumnDialog::refresh);
    _table->setCellWidget(column, kRole, box);
  }
  _table->resizeColumnToContents(kTitle);
  _table->resizeColumnToContents(kRole);
  _table->horizontalHeader()->setSectionResizeMode(kExample, QHeaderView::Stretch);
  showRow(0);
}

// The columns are guessed again; where the file cannot be read so, the reason is shown and the file
// is as it was.
void ColumnDialog::readingChanged() {
  _problem->hide();
  tables::TableChoice choice = _choice;
  if (!_reading->read(choice)) {
    return;
  }
  try {
    take(_file.guess(choice));
    _reading->setChoice(_choice);
  } catch (const tables::FileError& error) {
    _problem->setText(error.message());
    _problem->show();
  }
  fillTable();
}

tables::ColumnMapping ColumnDialog::mapping() const {
  QList<tables::ColumnRole> roles;
  for (int column = 0; column < _table->rowCount(); ++column) {
    const auto* const box = qobject_cast<QComboBox*>(_table->cellWidget(column, kRole));
    roles.append(static_cast<tables::ColumnRole>(box->currentIndex()));
  }
  return tables::ColumnMapping(roles);
}

void ColumnDialog::showRow(int row) {
  const int count = _file.rowCount();
  _row = std::clamp(row, 0, std::max(count - 1, 0));
  _previous->setEnabled(_row > 0);
  _next->setEnabled(_row + 1 < count);
  _rowText->setText(count == 0 ? tr("The file has no rows.")
                               : tr("Row %1 of %2").arg(_row + 1).arg(count));
  const tables::ColumnMapping mapping = this->mapping();
  _preview->setLabel(count == 0 ? QString() : _file.label(_row, mapping));
  _accept->setEnabled(mapping.isUsable());
}

// Reads the file by a choice; throws where it cannot be, and all stays as it was.
void ColumnDialog::take(const tables::TableChoice& choice) {
  _file.choose(choice);
  _choice = choice;
  _address = 0;
  const QSignalBlocker quiet(_which);
  _which->clear();
  for (const tables::AddressColumns& address : _choice.addresses) {
    const QString kind = tables::kindText(address.kind);
    _which->addItem(kind.isEmpty() ? tr("Address %1").arg(_which->count() + 1) : kind);
  }
  _whichRow->setVisible(_which->count() > 1);
  _problem->hide();
}

void ColumnDialog::addressChanged(int address) {
  _choice.addresses[_address].mapping = mapping();
  _address = address;
  fillTable();
}

void ColumnDialog::accept() {
  _choice.addresses[_address].mapping = mapping();
  _file.choose(_choice);
  QDialog::accept();
}

}  // namespace postwright::addressbook
