#include "client/batch/BatchQuestions.h"

#include <QMessageBox>
#include <QPushButton>

#include "client/LocalizedString.h"
#include "client/batch/review/BatchTexts.h"
#include "client/suite/StringHelpers.h"

namespace postwright {

Leaving askHowToLeave(QWidget& window, const ReviewCounts& counts) {
  QMessageBox box(&window);
  box.setObjectName(QStringLiteral("bxLeave"));
  box.setIcon(QMessageBox::Question);
  box.setWindowTitle(window.windowTitle());
  box.setText(localizedString("SLeaveQuestion"));
  box.setInformativeText(summaryText(counts));
  QPushButton* apply =
      counts.toApply() > 0 ? box.addButton(applyText(counts), QMessageBox::AcceptRole) : nullptr;
  QPushButton* discard =
      box.addButton(localizedString("SLeaveDiscard"), QMessageBox::DestructiveRole);
  QPushButton* stay = box.addButton(localizedString("SLeaveStay"), QMessageBox::RejectRole);
  box.setDefaultButton(stay);
  box.setEscapeButton(stay);
  box.exec();
  const QAbstractButton* clicked = box.clickedButton();
  return clicked == discard                     ? Leaving::Discard
         : apply != nullptr && clicked == apply ? Leaving::Apply
                                                : Leaving::Stay;
}

bool askSameForAll(QWidget& window, const QList<Change>& changes, const QStringList& texts) {
  constexpr qsizetype kShown = 8;
  constexpr qsizetype kLongest = 200;
  QStringList lines;
  for (const Change& change : changes) {
    lines.append(StringHelpers::stringWithFormat(localizedString("SSpokenChanged"),
                                                 {change.from, change.to}));
  }
  lines.append(QString());
  for (const QString& text : texts.first(std::min(texts.size(), kShown))) {
    lines.append(
        u'•' + QStringLiteral(" ") +
        QString(text.first(std::min(text.size(), kLongest))).replace(u'\n', QStringLiteral(", ")));
  }
  if (texts.size() > kShown) {
    lines.append(localizedString("SMoreAddresses", texts.size() - kShown));
  }
  QMessageBox box(&window);
  box.setObjectName(QStringLiteral("bxSame"));
  box.setIcon(QMessageBox::Question);
  box.setWindowTitle(window.windowTitle());
  box.setTextFormat(Qt::PlainText);
  box.setText(localizedString("SSameQuestion", texts.size()));
  box.setInformativeText(lines.join(u'\n'));
  QPushButton* change = box.addButton(localizedString("SSameChange"), QMessageBox::AcceptRole);
  QPushButton* leave = box.addButton(localizedString("SSameLeave"), QMessageBox::RejectRole);
  box.setDefaultButton(change);
  box.setEscapeButton(leave);
  box.exec();
  return box.clickedButton() == change;
}

}  // namespace postwright
