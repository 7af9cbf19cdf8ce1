#include <postwright/AddressBookDesignatorController.h>

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "client/suite/ModalRun.h"
#include "tests/client/ClientTestMain.h"
#include "tests/client/Controls.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

PostwrightSelectorPointer OneRange() {
  return PostwrightSelector::postwrightSelectorWithAddressPattern(
      u"100 MAIN ST %@\nX"_qs, u"100 MAIN ST (1A - 1F)\nX"_qs, u"1A"_qs, u"1F"_qs);
}

PostwrightSelectorPointer BothRanges() {
  return PostwrightSelector::postwrightSelectorWithAddressPattern(
      u"%@ MAIN ST %@\nX"_qs, u"(100 - 198) MAIN ST (1& - 1F)\nX"_qs, u"1&"_qs, u"1F"_qs);
}

// Runs the dialog above `window`; `user` acts on it as soon as it is up.
template <typename User>
int RunWithUser(const PostwrightSelectorPointer& selector, User user, QWidget* window = nullptr) {
  AddressBookDesignatorController dialog(selector);
  QTimer::singleShot(0, &dialog, [&] {
    const auto leave = qScopeGuard([&] { dialog.close(); });  // a failed step must not hang the run
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    user(dialog);
  });
  return runModalForWindow(dialog, window);
}

}  // namespace

class AddressBookDesignatorTest : public QObject {
  Q_OBJECT

 private slots:
  void typingEnablesOkAndEnterAccepts();
  void leavingChangesNothing_data();
  void leavingChangesNothing();
  void asksForTheHouseNumberToo();
  void everyControlIsNamed();
  void staysOnTheScreenAboveItsWindow();
};

void AddressBookDesignatorTest::typingEnablesOkAndEnterAccepts() {
  const PostwrightSelectorPointer selector = OneRange();
  const int code = RunWithUser(selector, [](QDialog& dialog) {
    const auto* ok = dialog.findChild<QPushButton*>(u"btOK"_qs);
    QCOMPARE(dialog.findChild<QPlainTextEdit*>(u"txtAddress"_qs)->toPlainText(),
             u"100 MAIN ST (1A - 1F)\nX"_qs);
    QVERIFY(dialog.findChild<QLabel*>(u"txtRange"_qs)->text().endsWith(u"A to F:"_qs));
    QVERIFY(!ok->isEnabled());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Enter);  // has no effect yet
    QVERIFY(dialog.isVisible());
    QTest::keyClicks(dialog.focusWidget(), u"c"_qs);
    QVERIFY(ok->isEnabled());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
    QVERIFY(!ok->isEnabled());
    QTest::keyClicks(dialog.focusWidget(), u"C"_qs);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Enter);
  });
  QCOMPARE(code, -1000);
  QCOMPARE(selector->fixedAddress(), std::optional(u"100 MAIN ST 1C\nX"_qs));
}

void AddressBookDesignatorTest::leavingChangesNothing_data() {
  QTest::addColumn<QString>("way");
  for (const char* way : {"Escape", "button", "mnemonic", "close"}) {
    QTest::newRow(way) << QString::fromLatin1(way);
  }
}

void AddressBookDesignatorTest::leavingChangesNothing() {
  QFETCH(const QString, way);
  const PostwrightSelectorPointer selector = OneRange();
  const auto leave = [&way](QDialog& dialog) {
    QTest::keyClicks(dialog.focusWidget(), u"Z"_qs);
    if (way == u"Escape"_qs) {
      QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    } else if (way == u"button"_qs) {
      QTest::mouseClick(dialog.findChild<QPushButton*>(u"btCancel"_qs), Qt::LeftButton);
    } else if (way == u"mnemonic"_qs) {
      QTest::keyClick(dialog.focusWidget(), Qt::Key_C, Qt::AltModifier);
    }
  };
  QCOMPARE(RunWithUser(selector, leave), -1001);
  QVERIFY(!selector->fixedAddress());
  selector->fixAddressWithCharacter(u"B"_qs);
  QCOMPARE(RunWithUser(selector, leave), -1001);
  QCOMPARE(selector->fixedAddress(), std::optional(u"100 MAIN ST 1B\nX"_qs));
}

void AddressBookDesignatorTest::asksForTheHouseNumberToo() {
  const PostwrightSelectorPointer selector = BothRanges();
  const int code = RunWithUser(selector, [](QDialog& dialog) {
    auto* ok = dialog.findChild<QPushButton*>(u"btOK"_qs);
    QVERIFY(dialog.findChild<QLabel*>(u"txtNumberRange"_qs)->text().endsWith(u"100 to 198:"_qs));
    QVERIFY(dialog.findChild<QLabel*>(u"txtRange"_qs)->text().endsWith(u"&& to F:"_qs));
    QTest::keyClicks(dialog.focusWidget(), u"120"_qs);
    QVERIFY(!ok->isEnabled());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(dialog.focusWidget(), u"C"_qs);
    QVERIFY(ok->isEnabled());
    QTest::mouseClick(ok, Qt::LeftButton);
  });
  QCOMPARE(code, -1000);
  QCOMPARE(selector->fixedAddress(), std::optional(u"120 MAIN ST 1C\nX"_qs));
}

void AddressBookDesignatorTest::everyControlIsNamed() {
  AddressBookDesignatorController dialog(BothRanges());
  dialog.show();
  QStringList mnemonics;
  checkControls(dialog, mnemonics);
  QCOMPARE(mnemonics.size(), 5);
}

void AddressBookDesignatorTest::staysOnTheScreenAboveItsWindow() {
  const QString above = u"NAME ABOVE THE ADDRESS\n"_qs.repeated(500);
  const auto selector = PostwrightSelector::postwrightSelectorWithAddressPattern(
      above + u"1 A ST %@\nX"_qs, above + u"1 A ST (A - B)\nX"_qs, u"A"_qs, u"B"_qs);
  QWidget window;
  window.setGeometry(
      QRect(window.screen()->availableGeometry().bottomRight() - QPoint(50, 50), QSize(300, 300)));
  window.show();
  const auto look = [&window](QDialog& dialog) {
    const QRect screen = window.screen()->availableGeometry();
    QVERIFY2(screen.contains(dialog.frameGeometry()),
             qPrintable(QDebug::toString(dialog.frameGeometry()) + QDebug::toString(screen)));
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.windowHandle()->transientParent(), window.windowHandle());
  };
  QCOMPARE(RunWithUser(selector, look, &window), -1001);
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, AddressBookDesignatorTest)
#include "AddressBookDesignatorTest.moc"
