#include <postwright/NotificationCenter.h>
#include <postwright/PostwrightClient.h>
#include <postwright/PostwrightController.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSemaphore>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>

#include "tests/client/ClientTestMain.h"
#include "tests/client/Controls.h"
#include "tests/client/batch/Person.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/ServiceProcess.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

const QString kRight = u"205 4th Ave NE Ste 104\nCullman AL 35055"_qs;
const QString kWrong = u"Red Door\n600 broad street, suite 107\nGadsden, Alabama 35901"_qs;
const QString kWrongFixed = u"Red Door\n600 Broad St Ste 107\nGadsDen AL 35901"_qs;
const QString kBad = u"Old Mill Road\nSpringfield, IL 62701"_qs;

}  // namespace

class BatchWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void appliesWhatWasFixed();
  void cancelsInEveryState_data();
  void cancelsInEveryState();
  void reviewsWhileTheWorkerRuns();
  void filtersWhenAskedAlone();
  void ignoresRowByRow();
  void choosesACandidate();
  void choosesForAllOfTheSameText();
  void editedTextThatIsRightCanBeUsed();
  void survivesADeadService();
  void staysAliveWhileTheServiceIsSilent();
  void workByKeyboardAlone();
  void everyControlIsNamedAndMnemonicsDiffer();
};

void BatchWindowTest::appliesWhatWasFixed() {
  ServiceProcess service;
  const Entries entries = EntriesOf({kRight, kWrong, kBad, kWrong, u"nowhere"_qs});
  QSignalSpy posts(NotificationCenter::defaultCenter(), &NotificationCenter::notificationPosted);
  PostwrightClient client;
  client.setLastResult(u"mine"_qs);
  QTimer::singleShot(0, &client, [] {
    auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const auto leave = qScopeGuard([window] { window->close(); });  // a failed step must not hang
    Person person(*window);
    QTRY_VERIFY(person.hasFinished());
    QCOMPARE(person.column(2),
             (QStringList{u"Unchanged"_qs, u"Fixed"_qs, u"Error"_qs, u"Fixed"_qs, u"Error"_qs}));
    QCOMPARE(person.text(1, 1), kWrongFixed);
    QCOMPARE(person.find<QPushButton>(u"bnUpdate"_qs)->text(), u"&Apply 2 Corrections"_qs);
    person.clickRow(3);
    person.click(u"bnIgnore"_qs);
    person.clickRow(2);
    QCOMPARE(person.label(u"txtErrorText"_qs), u"Invalid Address"_qs);
    person.press(Qt::Key_F2);
    person.type(u"1200 old mill rd.\nSpringfield il 62701"_qs);
    person.click(u"bnFixErrorAddress"_qs);
    QTRY_COMPARE(person.text(2, 2), u"Unchanged"_qs);
    person.clickRow(3);
    person.press(Qt::Key_Return);
    person.type(u"1200 old mill road\nSpringfield il 62701"_qs);
    person.press(Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(person.text(3, 2), u"Fixed"_qs);
    QTRY_COMPARE(person.find<QPushButton>(u"bnUpdate"_qs)->text(), u"&Apply 2 Corrections"_qs);
    QTRY_VERIFY(person.hasFinished());
    person.click(u"bnUpdate"_qs);
  });
  const std::optional<QString> first =
      client.fixAddressWithDialog(entries, true, CapitalizationMixed, u"GadsDen"_qs);
  QCOMPARE(first.value_or(u"nil"_qs), kWrongFixed);
  QCOMPARE(TextsOf(entries), (QStringList{kRight, kWrongFixed, kBad, kWrong,
                                          u"1200 Old Mill Rd\nSpringfield IL 62701"_qs}));
  QCOMPARE(posts.size(), 1);
  QCOMPARE(posts[0][0].toString(), ReloadAddressBookNotification);
  QCOMPARE(posts[0][1].value<QObject*>(), &client);
  QCOMPARE(client.lastResult().value_or(QString()), u"mine"_qs);
}

void BatchWindowTest::cancelsInEveryState_data() {
  QTest::addColumn<QString>("state");
  QTest::addColumn<bool>("silent");
  QTest::addColumn<QString>("by");
  for (const char* by : {"button", "escape", "close"}) {
    QTest::addRow("at once, by %s", by) << u"started"_qs << true << QString::fromLatin1(by);
  }
  QTest::newRow("running") << u"running"_qs << false << u"button"_qs;
  QTest::newRow("asking, silent service") << u"asking"_qs << true << u"button"_qs;
  QTest::newRow("finished") << u"finished"_qs << false << u"button"_qs;
  QTest::newRow("re-fixing, silent service") << u"re-fixing"_qs << true << u"escape"_qs;
}

// Nothing is written or posted, and a service that does not answer does not keep the user waiting.
void BatchWindowTest::cancelsInEveryState() {
  QFETCH(const QString, state);
  QFETCH(const bool, silent);
  QFETCH(const QString, by);
  std::atomic<bool> quiet = silent && state != u"re-fixing";
  const LoopbackServer server([&](const std::string&) {
    return quiet ? LoopbackServer::Answer{}
                 : LoopbackServer::Page("<R><Address><Error/></Address></R>");
  });
  SetDeployment({.verifyHost = server.GetEndpoint(), .userId = "X", .probeHost = "127.0.0.1"});
  QStringList texts;
  for (int i = 0; i < (state == u"running" ? 20000 : 3); ++i) {
    texts.append(u"%1 main st"_qs.arg(i));
  }
  const Entries entries = EntriesOf(texts);
  QSignalSpy posts(NotificationCenter::defaultCenter(), &NotificationCenter::notificationPosted);
  QTimer::singleShot(0, this, [&] {
    auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const auto leave = qScopeGuard([window] { window->close(); });
    Person person(*window);
    const auto* progress = person.find<QProgressBar>(u"piProgress"_qs);
    if (state == u"running") {
      QTRY_VERIFY(progress->value() > 3);
      QVERIFY(progress->isVisible() && !person.hasFinished());
    } else if (state == u"asking") {
      QTRY_VERIFY(!server.GetRequests().empty());
    } else if (state != u"started") {
      QTRY_VERIFY(person.hasFinished());
    }
    if (state == u"re-fixing") {
      const std::size_t asked = server.GetRequests().size();
      quiet = true;
      person.clickRow(1);
      person.click(u"bnFixErrorAddress"_qs);
      QTRY_VERIFY(server.GetRequests().size() > asked);
      QVERIFY(!person.hasFinished());
    }
    if (by == u"escape") {
      if (state == u"re-fixing") {
        person.press(Qt::Key_Escape);  // back to the list
      }
      person.press(Qt::Key_Escape);
    } else if (by == u"button") {
      person.click(u"bnCancel"_qs);
    }
    QCOMPARE(window->isVisible(), by == u"close");
  });
  PostwrightClient client;
  QVERIFY(!client.fixAddressWithDialog(entries, true, CapitalizationUpper, std::nullopt));
  QCOMPARE(TextsOf(entries), texts);
  QCOMPARE(posts.size(), 0);
}

// No row moves or loses its selection while results come in, and the user's actions take effect.
void BatchWindowTest::reviewsWhileTheWorkerRuns() {
  Oracle oracle;
  oracle.waits = true;
  oracle.outcomes[u"b"_qs] = Candidates();
  oracle.outcomes[u"c"_qs] = {std::nullopt, u"Invalid Address"_qs};
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"e"_qs, u"f"_qs}), oracle.ask());
  Person& person = open.person;
  QCOMPARE(person.column(1), QStringList(6, u"Processing…"_qs));
  person.clickRow(3);
  oracle.answers.release(3);
  QTRY_COMPARE(person.column(2),
               (QStringList{u"Fixed"_qs, u"To Choose"_qs, u"Error"_qs, {}, {}, {}}));
  QCOMPARE(person.selectedRow(), 3);
  QTRY_COMPARE(person.label(u"txtProgress"_qs), u"3 of 6"_qs);
  QVERIFY(!person.find<QWidget>(u"scFilter"_qs)->isEnabled());

  person.click(u"bnIgnore"_qs);  // d, which is being asked about
  QCOMPARE(person.selectedRow(), 3);
  QCOMPARE(person.text(3, 0), u"e"_qs);
  person.clickRow(1);
  person.press(Qt::Key_2);
  QCOMPARE(person.text(1, 1), u"1 S OAK"_qs);
  person.clickRow(2);
  person.press(Qt::Key_F2);
  person.type(u"cc"_qs);
  person.press(Qt::Key_Return, Qt::ControlModifier);
  person.press(Qt::Key_Escape);
  person.clickRow(4);
  oracle.answers.release(10);
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.selectedRow(), 4);
  QCOMPARE(person.column(1), (QStringList{u"A FIXED"_qs, u"1 S OAK"_qs, u"CC FIXED"_qs,
                                          u"E FIXED"_qs, u"F FIXED"_qs}));
  QCOMPARE(open.window.results().size(), 5);
  QVERIFY(!person.find<QProgressBar>(u"piProgress"_qs)->isVisible());
  QCOMPARE(person.find<QProgressBar>(u"piProgress"_qs)->value(), 6);
}

void BatchWindowTest::filtersWhenAskedAlone() {
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = {std::nullopt, u"Invalid Address"_qs};
  oracle.outcomes[u"c"_qs] = {AddressFix{u"C"_qs, {}}, {}};
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs}), oracle.ask());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(1);
  person.clickSegment(AddressStatusUnchanged);
  QCOMPARE(person.column(0), (QStringList{u"a"_qs, u"b"_qs}));
  QCOMPARE(person.selectedRow(), -1);
  QCOMPARE(person.detail(), u"vwNone"_qs);
  person.clickSegment(AddressStatusFixed);
  person.clickRow(0);
  person.press(Qt::Key_F2);
  person.type(u"bb"_qs);
  person.click(u"bnFixErrorAddress"_qs);
  QTRY_COMPARE(person.column(2), QStringList{u"Fixed"_qs});  // stays until the filter is used
  person.clickSegment(AddressStatusMultiple);
  QVERIFY(person.find<QWidget>(u"vwEmpty"_qs)->isVisible());
  QCOMPARE(person.label(u"txtEmpty"_qs), u"No address passes the filter."_qs);
  person.click(u"bnShowAll"_qs);
  QCOMPARE(person.column(0), (QStringList{u"a"_qs, u"bb"_qs, u"c"_qs}));
}

void BatchWindowTest::ignoresRowByRow() {
  Oracle oracle;
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs}), oracle.ask());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(2);
  person.press(Qt::Key_Delete);
  QCOMPARE(person.selectedRow(), 1);  // the new last row
  person.clickRow(0);
  person.press(Qt::Key_Delete);
  QCOMPARE(person.text(person.selectedRow(), 0), u"b"_qs);
  person.press(Qt::Key_Delete);
  QCOMPARE(person.table()->model()->rowCount(), 0);
  QCOMPARE(person.detail(), u"vwFixed"_qs);  // as it was, and out of use
  QVERIFY(!person.find<QWidget>(u"vwContent"_qs)->isEnabled());
  QCOMPARE(person.label(u"txtEmpty"_qs), u"There are no addresses to check."_qs);
  QVERIFY(!person.find<QWidget>(u"txtNone"_qs)->isVisible());
  open.window.reFixAddress(u"x"_qs);
  open.window.bnIgnoreClick();
  open.window.bnChooseSelectedAddressClick();
  QVERIFY(open.window.results().isEmpty());
}

void BatchWindowTest::choosesACandidate() {
  Oracle oracle;
  oracle.outcomes[u"a"_qs] = Candidates();
  OpenWindow open(EntriesOf({u"a"_qs}), oracle.ask());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(0);
  auto* matches = person.find<QTableView>(u"tvMatches"_qs);
  QCOMPARE(matches->model()->rowCount(), 2);
  QVERIFY(!person.find<QPushButton>(u"bnChooseSelectedAddress"_qs)->isEnabled());
  const auto answerDialog = [&](const QString& typed, Qt::Key key) {
    QTimer::singleShot(0, &open.window, [typed, key] {
      QWidget* dialog = QApplication::activeModalWidget();
      const auto leave = qScopeGuard([dialog] { dialog->close(); });
      QVERIFY(QTest::qWaitForWindowActive(dialog));
      QTest::keyClicks(dialog->focusWidget(), typed);
      QTest::keyClick(dialog->focusWidget(), key);
    });
    QTest::mouseClick(matches->viewport(), Qt::LeftButton, {},
                      matches->visualRect(matches->model()->index(0, 0)).center());
    person.click(u"bnChooseSelectedAddress"_qs);
  };
  answerDialog(u"C"_qs, Qt::Key_Escape);
  QCOMPARE(person.text(0, 2), u"To Choose"_qs);
  answerDialog(u"C"_qs, Qt::Key_Return);
  QCOMPARE(person.text(0, 2), u"Fixed"_qs);
  QCOMPARE(person.text(0, 1), u"1 N OAK 1C"_qs);
  QCOMPARE(person.detail(), u"vwFixed"_qs);
}

void BatchWindowTest::choosesForAllOfTheSameText() {
  Oracle oracle;
  oracle.outcomes[u"a"_qs] = Candidates();
  oracle.outcomes[u"b"_qs] = Candidates();
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"a"_qs, u"a"_qs}), oracle.ask());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(oracle.asked.available(), 2);
  person.clickRow(1);
  QVERIFY(!person.find<QCheckBox>(u"ckTwins"_qs)->isVisible());
  person.clickRow(0);
  person.press(Qt::Key_2);  // for this one only
  person.clickRow(2);
  auto* twins = person.find<QCheckBox>(u"ckTwins"_qs);
  QCOMPARE(twins->text(), u"Also for one more address with this te&xt"_qs);
  twins->click();
  person.press(Qt::Key_2);
  QCOMPARE(person.column(2), (QStringList{u"Fixed"_qs, u"To Choose"_qs, u"Fixed"_qs, u"Fixed"_qs}));
}

void BatchWindowTest::editedTextThatIsRightCanBeUsed() {
  Oracle oracle;
  oracle.outcomes[u"a"_qs] = {std::nullopt, u"Invalid Address"_qs};
  oracle.outcomes[u"B"_qs] = {AddressFix{u"B"_qs, {}}, {}};
  OpenWindow open(EntriesOf({u"a"_qs, u"B"_qs}), oracle.ask());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(0);
  person.press(Qt::Key_F2);
  person.type(u"nonsense"_qs);
  person.clickRow(1);
  QVERIFY(!person.find<QPushButton>(u"bnUseAddress"_qs)->isVisible());
  person.clickRow(0);
  const auto* field = person.find<QPlainTextEdit>(u"tvErrorAddress"_qs);
  QCOMPARE(field->toPlainText(), u"nonsense"_qs);  // typed text is kept
  person.click(u"bnRestoreError"_qs);
  QCOMPARE(field->toPlainText(), u"a"_qs);
  person.type(u"B"_qs);
  person.click(u"bnFixErrorAddress"_qs);
  QTRY_COMPARE(person.detail(), u"vwUnchanged"_qs);
  QVERIFY(open.window.results().isEmpty());
  person.click(u"bnUseAddress"_qs);
  QCOMPARE(open.window.results().size(), 1);
  QCOMPARE(open.window.results().first()->values().fixed, u"B"_qs);
}

void BatchWindowTest::survivesADeadService() {
  ServiceProcess service;
  QSemaphore reached;
  QSemaphore dead;
  OpenWindow open(EntriesOf({kWrong, kBad, kRight + u" "_qs, kRight}),
                  [&](PostwrightClient& client, const QString& address) {
                    if (address == kRight + u" "_qs) {
                      reached.release();
                      dead.acquire();
                    }
                    std::optional<AddressFix> answer = client.fixAddress(address);
                    return AddressOutcome{answer, client.lastResult().value_or(QString())};
                  });
  Person& person = open.person;
  reached.acquire();
  service.die();
  dead.release(2);
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.column(2),
           (QStringList{u"Fixed"_qs, u"Error"_qs, u"Not Checked"_qs, u"Not Checked"_qs}));
  QVERIFY(person.find<QWidget>(u"vwBanner"_qs)->isVisible());
  QCOMPARE(person.label(u"txtBanner"_qs),
           u"The address service does not answer. 2 addresses could not be checked."_qs);
  service.start();
  person.click(u"bnRetry"_qs);
  QVERIFY(!person.hasFinished());
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.column(2),
           (QStringList{u"Fixed"_qs, u"Error"_qs, u"Unchanged"_qs, u"Unchanged"_qs}));
  QVERIFY(!person.find<QWidget>(u"vwBanner"_qs)->isVisible());
}

// While the worker's fetch gets no answer, the window stays usable: it paints, edits, re-fixes and
// retries, and the retry does not wait.
void BatchWindowTest::staysAliveWhileTheServiceIsSilent() {
  std::atomic<bool> silent = true;
  const std::string body =
      "<R><Address><Address2>1 A ST</Address2><City>B</City><State>TX</State><Zip5/></Address></R>";
  const LoopbackServer server([&](const std::string&) {
    return silent ? LoopbackServer::Answer{} : LoopbackServer::Page(body);
  });
  SetDeployment({.verifyHost = server.GetEndpoint(), .userId = "X", .probeHost = "127.0.0.1"});
  OpenWindow open(EntriesOf({u"1 x"_qs, u"2 y"_qs}), {});
  Person& person = open.person;
  QTRY_COMPARE(server.GetRequests().size(), 1U);
  person.clickRow(1);
  QCOMPARE(person.label(u"txtUnchanged"_qs), u"This address has not been checked yet."_qs);
  open.window.reFixAddress(u"1 a st\nb tx"_qs);
  QCOMPARE(person.text(1, 0), u"1 a st\nb tx"_qs);
  QVERIFY(!open.window.grab().isNull());
  silent = false;
  open.window.bnRetryClick();
  QTRY_VERIFY_WITH_TIMEOUT(person.hasFinished(), 30000);
  QCOMPARE(person.column(2), (QStringList{u"Fixed"_qs, u"Unchanged"_qs}));
}

void BatchWindowTest::workByKeyboardAlone() {
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = {std::nullopt, u"Invalid Address"_qs};
  oracle.outcomes[u"d"_qs] = Candidates();
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}), oracle.ask());
  Person& person = open.person;
  QVERIFY(QTest::qWaitForWindowActive(&open.window));
  QTRY_VERIFY(person.hasFinished());
  const std::pair<QKeyCombination, int> moves[] = {
      {Qt::Key_Down, 0},
      {Qt::Key_F8, 1},
      {Qt::Key_F8, 3},
      {Qt::Key_F8, 3},
      {Qt::SHIFT | Qt::Key_F8, 1},
      {Qt::ALT | Qt::Key_Down, 2},
      {Qt::ALT | Qt::Key_Up, 1},
      {Qt::Key_Down, 2},
      {Qt::Key_F8, 3},
  };
  for (const auto& [key, row] : moves) {
    person.press(key.key(), key.keyboardModifiers());
    QCOMPARE(person.selectedRow(), row);
  }
  person.press(Qt::Key_Return);  // into the candidates, the first of them selected
  person.press(Qt::Key_Down);
  person.press(Qt::Key_Return);
  QCOMPARE(person.text(3, 1), u"1 S OAK"_qs);
  QVERIFY(person.table()->hasFocus());
  person.press(Qt::Key_F8, Qt::ShiftModifier);
  QCOMPARE(person.selectedRow(), 1);
  person.press(Qt::Key_I, Qt::AltModifier);
  QTRY_COMPARE(person.column(0), (QStringList{u"a"_qs, u"c"_qs, u"d"_qs}));
  person.press(Qt::Key_F, Qt::AltModifier);  // the filter
  QTRY_COMPARE(person.table()->model()->rowCount(), 0);
  person.press(Qt::Key_H, Qt::AltModifier);
  QTRY_COMPARE(person.table()->model()->rowCount(), 3);
  person.press(Qt::Key_A, Qt::AltModifier);
  QTRY_COMPARE(open.window.result(), -1000);
}

// In each state with other controls; the program runs once more in Spanish for this.
void BatchWindowTest::everyControlIsNamedAndMnemonicsDiffer() {
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = Candidates();
  oracle.outcomes[u"c"_qs] = {std::nullopt, PostwrightClient::stringForResult(3)};
  oracle.outcomes[u"d"_qs] = {AddressFix{u"D"_qs, {}}, {}};
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"b"_qs}), oracle.ask());
  QTRY_VERIFY(open.person.hasFinished());
  const bool spanish = QLocale().language() == QLocale::Spanish;
  QCOMPARE(open.window.windowTitle(), spanish ? u"Corregir direcciones"_qs : u"Fix Addresses"_qs);
  for (int row = 0; row < 4; ++row) {
    open.person.clickRow(row);
    QStringList mnemonics;
    checkControls(open.window, mnemonics);
    QVERIFY(mnemonics.size() >= 7);
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, BatchWindowTest)
#include "BatchWindowTest.moc"
