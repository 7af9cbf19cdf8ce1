#include "apps/addressbook/printing/AskDialog.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "apps/addressbook/printing/PageButtons.h"
#include "apps/addressbook/widgets/ScrollingForm.h"

namespace postwright::addressbook {

namespace {

constexpr QSize kSize(720, 520);

}  // namespace

AskDialog::AskDialog(const QString& page, const QString& text, int entries, Paper paper,
                     QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("Addresses to Ask About"));
  auto* const lead = new QLabel(
      tr("%n of the addresses that are shown were turned down. Print the list, or copy it into a "
         "mail, and ask the people who know.",
         nullptr, entries),
      this);
  lead->setWordWrap(true);
  auto* const view = new QTextBrowser(this);
  view->setObjectName(QStringLiteral("askList"));
  view->setAccessibleName(windowTitle());
  view->setTabChangesFocus(true);
  view->setHtml(page);
  auto* const buttons = new PageButtons(page, paper, tr("Addresses to ask about.pdf"), this);
  QPushButton* const copy = buttons->addButton(tr("C&opy as Text"), PageButtons::ActionRole);
  connect(copy, &QPushButton::clicked, this, [this, lead, text] {
    QGuiApplication::clipboard()->setText(text);
    lead->setText(tr("The list is copied. Paste it into a mail."));
  });
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(lead);
  layout->addWidget(view, 1);
  layout->addWidget(buttons);
  resizeToScreen(*this, kSize);
}

}  // namespace postwright::addressbook
