#ifndef POSTWRIGHT_TESTS_CLIENT_CONTROLS_H_
#define POSTWRIGHT_TESTS_CLIENT_CONTROLS_H_

#include <QAbstractButton>
#include <QLabel>
#include <QtTest>

namespace postwright {

// Checks that every visible control that Tab reaches has a name, every button a mnemonic, and that
// no two controls share one. Adds the mnemonics to `mnemonics`.
inline void checkControls(const QWidget& window, QStringList& mnemonics) {
  const QList<QWidget*> controls = window.findChildren<QWidget*>();
  for (const QWidget* control : controls) {
    if (!control->isVisible()) {
      continue;
    }
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    const auto* label = qobject_cast<const QLabel*>(control);
    const QString text = button != nullptr  ? button->text()
                         : label != nullptr ? label->text()
                                            : QString();
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (!key.isEmpty()) {
      mnemonics.append(key.toString());
    }
    const bool inner = control->objectName().startsWith(QStringLiteral("qt_"));
    if (!inner && (control->focusPolicy() & Qt::TabFocus) != 0) {
      QVERIFY2(!control->accessibleName().isEmpty() || !text.isEmpty(),
               qPrintable(control->objectName()));
      QVERIFY2(button == nullptr || text.isEmpty() || !key.isEmpty(), qPrintable(text));
    }
  }
  const QString all = mnemonics.join(QStringLiteral(" "));
  QVERIFY2(mnemonics.removeDuplicates() == 0, qPrintable(all));
}

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CLIENT_CONTROLS_H_
