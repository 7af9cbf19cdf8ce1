#include "apps/addressbook/dialogs/MergeDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/book/SameAddress.h"
#include "apps/addressbook/widgets/ScrollingForm.h"
#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr QSize kSize(420, 320);

}  // namespace

MergeDialog::MergeDialog(const Book& book, const QList<int>& rows, QWidget* parent)
    : QDialog(parent), _editor(new QPlainTextEdit(this)) {
  QStringList labels;
  for (const int row : rows) {
    labels.append(book.at(row).label);
  }
  setWindowTitle(tr("Merge Entries"));
  auto* const lead = new QLabel(
      tr("One entry with this label takes the place of %n. What else the file holds of the others, "
         "such as telephone numbers, goes with them; it can be undone.",
         nullptr, static_cast<int>(rows.size())),
      this);
  lead->setWordWrap(true);
  _editor->setPlainText(mergedLabel(labels));
  _editor->setObjectName(QStringLiteral("mergedLabel"));
  _editor->setAccessibleName(tr("Lines of the label"));
  _editor->setTabChangesFocus(true);
  auto* const buttons = new QDialogButtonBox(this);
  buttons->addButton(tr("&Merge"), QDialogButtonBox::AcceptRole);
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(lead);
  layout->addWidget(_editor, 1);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  _editor->setFocus();
  resizeToScreen(*this, kSize);
}

QString MergeDialog::label() const {
  return tables::tidyLabel(_editor->toPlainText());
}

}  // namespace postwright::addressbook
