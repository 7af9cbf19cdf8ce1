// What a host turns on in the batch window beyond its plain form.

#include <postwright/Deployment.h>
#include <postwright/PostwrightController.h>
#include <postwright/VerifyReport.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextEdit>

#include "client/batch/BatchSummary.h"
#include "tests/client/ClientTestMain.h"
#include "tests/client/Controls.h"
#include "tests/client/batch/Person.h"
#include "tests/support/LoopbackServer.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

const QString kInvalid = u"Invalid Address"_qs;
const AddressOutcome kRefused{std::nullopt, kInvalid};
const AddressOutcome kDown{std::nullopt, PostwrightClient::stringForResult(3)};

BatchOptions Impatient() {
  BatchOptions options = BatchOptions::all();
  options.firstPause = options.longestPause = std::chrono::milliseconds(1);
  return options;
}

// Answers the next question with the button whose text contains `text`, and keeps the question.
void AnswerNext(QObject& context, const QString& text, QString& asked) {
  QTimer::singleShot(0, &context, [text, &asked] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QVERIFY(box != nullptr);
    asked = box->text() + u'\n' + box->informativeText();
    const auto leave = qScopeGuard([box] { box->reject(); });
    for (QAbstractButton* button : box->buttons()) {
      if (button->text().remove(u'&').contains(text)) {
        button->click();
        return;
      }
    }
    QFAIL("no such button");
  });
}

}  // namespace

class BatchOptionsTest : public QObject {
  Q_OBJECT

 private slots:
  void stopsAndGoesOn();
  void asksBeforeWorkIsLost_data();
  void asksBeforeWorkIsLost();
  void everyStepCanBeTakenBack();
  void anyRecordCanBeEdited();
  void selectsTheFirstProblemUnlessAPersonDid();
  void aNameFromTheRightTurnsNoOtherLine();
  void manyAtOnce();
  void theSameTextAtOnce();
  void theSameForAll();
  void theDoubtfulWaitsForAPerson();
  void findsAndSorts();
  void waitsForAServiceThatIsAway();
  void isNotMistakenAboutAnOutage();
  void waitsAsLongAsTheServiceSays();
  void givesUpAndKeepsTheRestPending();
  void longLinesDoNotHoldTheWindowUp();
  void usesTheHostsFont();
  void staysSmallAndDoesNotGrow();
  void namesEveryControl();
  void savesAReport();
};

void BatchOptionsTest::stopsAndGoesOn() {
  Oracle oracle;
  oracle.waits = true;
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}), oracle.ask(),
                  BatchOptions::all());
  Person& person = open.person;
  oracle.answers.release(1);
  QTRY_COMPARE(oracle.asked.available(), 2);
  person.click(u"bnStop"_qs);
  oracle.answers.release(1);
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.column(2), (QStringList{u"Fixed"_qs, u"Fixed"_qs, {}, {}}));
  QVERIFY(person.label(u"txtProgress"_qs).startsWith(u"Stopped: 2 of 4 checked."_qs));
  QVERIFY(!person.find<QWidget>(u"vwBanner"_qs)->isVisible());
  QCOMPARE(open.window.results().size(), 2);
  oracle.answers.release(2);
  person.click(u"bnGoOn"_qs);
  QTRY_VERIFY(person.hasFinished() && open.window.results().size() == 4);
  QCOMPARE(oracle.asked.available(), 4);
  QVERIFY(!person.find<QWidget>(u"bnGoOn"_qs)->isVisible());
}

void BatchOptionsTest::asksBeforeWorkIsLost_data() {
  QTest::addColumn<QString>("does");
  QTest::addColumn<QString>("answer");
  QTest::addColumn<int>("result");
  QTest::newRow("nothing to lose") << u""_qs << u""_qs << -1001;
  QTest::newRow("ignored, discard") << u"ignore"_qs << u"Discard"_qs << -1001;
  QTest::newRow("a draft, discard") << u"type"_qs << u"Discard"_qs << -1001;
  QTest::newRow("own text, apply") << u"keep"_qs << u"Apply 1"_qs << -1000;
  QTest::newRow("own text, stay") << u"keep"_qs << u"Stay"_qs << 0;
}

void BatchOptionsTest::asksBeforeWorkIsLost() {
  QFETCH(const QString, does);
  QFETCH(const QString, answer);
  Oracle oracle;
  oracle.outcomes[u"a"_qs] = kRefused;
  OpenWindow open(EntriesOf({u"a"_qs}), oracle.ask(), BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(0);
  if (does == u"ignore") {
    person.press(Qt::Key_Delete);
  } else if (!does.isEmpty()) {
    person.press(Qt::Key_F2);
    person.type(u"b"_qs);
  }
  if (does == u"keep") {
    person.click(u"bnKeepError"_qs);
  }
  QString asked;
  if (!answer.isEmpty()) {
    AnswerNext(open.window, answer, asked);
  }
  if (does == u"type") {
    open.window.close();
  } else {
    person.table()->setFocus();
    person.press(Qt::Key_Escape);
  }
  QCOMPARE(asked.isEmpty(), answer.isEmpty());
  QTEST(open.window.result(), "result");
  QCOMPARE(open.window.isVisible(), answer == u"Stay");
}

// Each step is undone and redone, with what the service has said since.
void BatchOptionsTest::everyStepCanBeTakenBack() {
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = kRefused;
  oracle.outcomes[u"c"_qs] = Candidates();
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs}), oracle.ask(), BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  const QStringList first = person.column(1);
  person.clickRow(2);
  person.press(Qt::Key_2);
  QCOMPARE(person.text(2, 1), u"1 S OAK"_qs);
  person.clickRow(1);
  person.press(Qt::Key_F2);
  person.type(u"bb"_qs);
  person.press(Qt::Key_Return, Qt::ControlModifier);
  QTRY_COMPARE(person.text(1, 1), u"BB FIXED"_qs);
  QTRY_VERIFY(person.hasFinished());
  person.table()->setFocus();
  person.clickRow(0);
  person.press(Qt::Key_Delete);
  QCOMPARE(person.column(0), (QStringList{u"bb"_qs, u"c"_qs}));
  for (int i = 0; i < 3; ++i) {
    person.table()->setFocus();
    person.press(Qt::Key_Z, Qt::ControlModifier);
  }
  QCOMPARE(person.column(0), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs}));
  QCOMPARE(person.column(1), first);
  QCOMPARE(person.column(2), (QStringList{u"Fixed"_qs, u"Error"_qs, u"To Choose"_qs}));
  QCOMPARE(oracle.asked.available(), 4);  // undoing asks nothing again
  for (int i = 0; i < 3; ++i) {
    person.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  }
  QCOMPARE(person.column(1), (QStringList{u"BB FIXED"_qs, u"1 S OAK"_qs}));
  QCOMPARE(person.find<QPushButton>(u"bnUpdate"_qs)->text(), u"&Apply 2 Corrections"_qs);
}

void BatchOptionsTest::anyRecordCanBeEdited() {
  Oracle oracle;
  oracle.outcomes[u"B"_qs] = {AddressFix{u"B"_qs, {}}, {}};
  oracle.outcomes[u"c"_qs] = kRefused;
  OpenWindow open(EntriesOf({u"a"_qs, u"B"_qs, u"c"_qs}), oracle.ask(), BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  QTRY_COMPARE(person.selectedRow(), 2);  // the first that needs a decision
  person.clickRow(0);
  person.press(Qt::Key_F2);
  QCOMPARE(person.detail(), u"vwEdit"_qs);
  person.press(Qt::Key_Escape);
  QCOMPARE(person.detail(), u"vwFixed"_qs);
  person.press(Qt::Key_F2);
  person.type(u"aa"_qs);
  person.press(Qt::Key_Return, Qt::ControlModifier);
  QCOMPARE(person.selectedRow(), 2);
  QTRY_COMPARE(person.text(0, 1), u"AA FIXED"_qs);
  person.clickRow(1);
  person.press(Qt::Key_F2);
  person.find<QPlainTextEdit>(u"tvEditFixed"_qs)->setFocus();
  person.type(u"My Way"_qs);
  person.click(u"bnKeepEdit"_qs);
  QCOMPARE(person.text(1, 1), u"My Way"_qs);
  QCOMPARE(person.text(1, 2), u"As Written"_qs);
  QVERIFY(open.window.records().at(1)->values().own);
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(open.window.results().size(), 2);
}

void BatchOptionsTest::selectsTheFirstProblemUnlessAPersonDid() {
  for (const bool selects : {false, true}) {
    Oracle oracle;
    oracle.waits = true;
    oracle.outcomes[u"b"_qs] = kRefused;
    OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs}), oracle.ask(), BatchOptions::all());
    if (selects) {
      open.person.clickRow(0);
    }
    oracle.answers.release(2);
    const auto segments = open.person.find<QWidget>(u"scFilter"_qs)->findChildren<QToolButton*>();
    QTRY_COMPARE(segments.at(3)->text(), u"&Errors  1"_qs);
    QCOMPARE(open.person.selectedRow(), selects ? 0 : 1);
    QVERIFY(!open.person.hasFinished());
    oracle.answers.release(1);
    QTRY_VERIFY(open.person.hasFinished());
  }
}

// The second lines of two labels look the same whatever script the first ones are in.
void BatchOptionsTest::aNameFromTheRightTurnsNoOtherLine() {
  Oracle oracle;
  OpenWindow open(
      EntriesOf({u"x\ny"_qs, u"do\n25 East St"_qs, u"\u05D3\u05D5\u05D3\n25 East St"_qs}),
      oracle.ask(), BatchOptions::all());
  QTableView& table = *open.person.table();
  QTRY_VERIFY(open.person.hasFinished());
  open.person.clickRow(0);
  const QImage shown = table.viewport()->grab().toImage();
  const auto secondLine = [&](int row) {
    const QRect cell = table.visualRect(table.model()->index(row, 0));
    return shown.copy(cell.adjusted(1, cell.height() / 2, -1, -1));
  };
  QVERIFY(secondLine(1) == secondLine(2));
}

void BatchOptionsTest::manyAtOnce() {
  Oracle oracle;
  for (const QString& text : {u"b"_qs, u"c"_qs, u"d"_qs}) {
    oracle.outcomes[text] = kRefused;
  }
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"b"_qs, u"d"_qs}), oracle.ask(),
                  BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(1);
  person.find<QAbstractButton>(u"ckErrorTwins"_qs)->click();
  person.press(Qt::Key_F2);
  person.type(u"bb"_qs);
  person.press(Qt::Key_Return, Qt::ControlModifier);
  QTRY_COMPARE(person.column(1).count(u"BB FIXED"_qs), 2);
  person.table()->setFocus();
  person.press(Qt::Key_Home);
  person.press(Qt::Key_End, Qt::ShiftModifier);
  person.table()->selectAll();
  QCOMPARE(person.detail(), u"vwSeveral"_qs);
  QCOMPARE(person.label(u"txtSeveral"_qs), u"5 addresses selected\nFixed: 3, Errors: 2"_qs);
  person.press(Qt::Key_C, Qt::ControlModifier);
  const QMimeData* copied = QApplication::clipboard()->mimeData();
  QVERIFY(copied->text().startsWith(u"A FIXED\n\nBB FIXED\n\n"_qs));
  QCOMPARE(copied->data(u"text/csv"_qs).count("\r\n"), 6);
  person.click(u"bnTakeTyped"_qs);
  QCOMPARE(person.column(2), QStringList(5, u"Unchanged"_qs));
  person.press(Qt::Key_Z, Qt::ControlModifier);
  person.table()->selectAll();
  person.table()->setFocus();
  person.press(Qt::Key_Delete);
  QVERIFY(open.window.records().isEmpty());
  open.window.undo();
  QCOMPARE(person.column(0), (QStringList{u"a"_qs, u"bb"_qs, u"c"_qs, u"bb"_qs, u"d"_qs}));
  const int asked = oracle.asked.available();
  person.table()->selectAll();
  person.click(u"bnAskAgain"_qs);
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(oracle.asked.available(), asked + 4);  // once for the same text
}

// From each page that has a field, for all that have the same text: a new text, and one that stays.
void BatchOptionsTest::theSameTextAtOnce() {
  const struct {
    AddressOutcome outcome;
    QString box;
    QString field;
    QString keep;
  } pages[] = {
      {kRefused, u"ckErrorTwins"_qs, u"tvErrorAddress"_qs, u"bnKeepError"_qs},
      {Candidates(), u"ckTwins"_qs, u"tvMultipleAddress"_qs, u"bnKeepMultiple"_qs},
      {{AddressFix{u"B X"_qs, {}}, {}}, u"ckEditTwins"_qs, u"tvEditAddress"_qs, u"bnKeepEdit"_qs},
  };
  for (const auto& [outcome, box, field, keep] : pages) {
    Oracle oracle;
    oracle.outcomes[u"b"_qs] = outcome;
    OpenWindow open(EntriesOf({u"b"_qs, u"a"_qs, u"b"_qs, u"b"_qs}), oracle.ask(),
                    BatchOptions::all());
    Person& person = open.person;
    QTRY_VERIFY(person.hasFinished());
    const auto edit = [&person, &box = box, &field = field] {
      person.table()->setFocus();
      person.clickRow(0);
      person.press(Qt::Key_F2);
      QVERIFY(person.find<QCheckBox>(box)->text().startsWith(u"Also for 2 more"_qs));
      person.find<QCheckBox>(box)->click();
      person.find<QPlainTextEdit>(field)->setFocus();
    };
    edit();
    person.type(u"bb"_qs);
    person.press(Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(person.column(1).count(u"BB FIXED"_qs), 3);
    QTRY_VERIFY(person.hasFinished());
    open.window.undo();
    edit();
    person.click(keep);
    QCOMPARE(person.column(2).count(u"As Written"_qs), 3);
  }
}

void BatchOptionsTest::theSameForAll() {
  Oracle oracle;
  const QString place = u"Springfeild IL"_qs;
  const QStringList texts{u"1 Oak St\n"_qs + place,        u"2 Elm St\nspringfeild IL"_qs,
                          u"3 Fir St\nAustin TX"_qs,       u"4 Ash St\n"_qs + place,
                          u"5 Fig St\nSpringfeild  IL"_qs, u"6 Bay St\n"_qs + place};
  for (const QString& text : texts.mid(0, 3)) {
    oracle.outcomes[text] = kRefused;
  }
  oracle.outcomes[texts[3]] = {AddressFix{u"4 ASH ST\nSPRINGFIELD IL"_qs, {}}, {}};
  oracle.outcomes[texts[4]] = {AddressFix{u"5 FIG ST\nSPRINGFEILD IL"_qs, {}}, {}};
  const VerifyReport confirmed(
      "<R><Address><City>A</City><DPVConfirmation>Y</DPVConfirmation></Address></R>");
  oracle.outcomes[texts[5]] = {
      .answer = AddressFix{texts[5], {}}, .message = {}, .confirmation = Confirmation(confirmed)};
  OpenWindow open(EntriesOf(texts), oracle.ask(), BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(0);
  open.window.reFixAddress(u"1 Oak St\nSpringfield IL"_qs);
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(0);
  QString asked;
  AnswerNext(open.window, u"Change"_qs, asked);
  open.window.sameForAll();
  QVERIFY2(asked.startsWith(u"Make the same change in 2 more"_qs), qPrintable(asked));
  QVERIFY(asked.contains(u"2 Elm St, springfeild IL"_qs));
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.text(1, 0), u"2 Elm St\nSpringfield IL"_qs);
  QCOMPARE(person.text(4, 0), u"5 Fig St\nSpringfield  IL"_qs);  // not confirmed
  QCOMPARE(person.text(3, 0), texts[3]);  // the service had corrected it by itself
  QCOMPARE(person.text(5, 0), texts[5]);  // and confirmed this one
}

void BatchOptionsTest::findsAndSorts() {
  Oracle oracle;
  oracle.outcomes[u"b x"_qs] = kRefused;
  oracle.outcomes[u"c x"_qs] = {std::nullopt, u"Invalid City"_qs};
  OpenWindow open(EntriesOf({u"d x"_qs, u"b x"_qs, u"a"_qs, u"c x"_qs}), oracle.ask(),
                  BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  const auto clickColumn = [&person](int column) {
    QHeaderView* header = person.table()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(column) + 20, header->height() / 2));
  };
  const QString host = u"d x|b x|a|c x"_qs;
  const std::pair<int, QString> clicks[] = {
      {0, u"a|b x|c x|d x"_qs}, {0, u"d x|c x|b x|a"_qs}, {0, host},
      {2, u"b x|c x|d x|a"_qs}, {2, u"d x|a|c x|b x"_qs}, {2, host},
  };
  auto* given = person.find<QToolButton>(u"bnHostOrder"_qs);
  for (const auto& [column, order] : clicks) {
    clickColumn(column);
    QCOMPARE(person.column(0).join(u'|'), order);
    QCOMPARE(given->isVisible(), order != host);
  }
  clickColumn(1);
  QTest::mouseClick(given, Qt::LeftButton);
  QCOMPARE(person.column(0).join(u'|'), host);
  person.press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(person.find<QWidget>(u"leSearch"_qs), u"A fixed"_qs);
  QCOMPARE(person.column(0), QStringList{u"a"_qs});
  person.press(Qt::Key_Return);
  QVERIFY(person.table()->hasFocus() && person.selectedRow() == 0);
  person.press(Qt::Key_F, Qt::ControlModifier);
  person.press(Qt::Key_Escape);
  QVERIFY(person.table()->hasFocus() && open.window.isVisible());
  auto* reasons = person.find<QComboBox>(u"cbReason"_qs);
  QCOMPARE(reasons->count(), 3);
  QCOMPARE(reasons->itemText(2), u"Invalid City (1)"_qs);
  reasons->setFocus();
  QTest::keyClick(reasons, Qt::Key_End);
  QCOMPARE(person.column(0), QStringList{u"c x"_qs});
  QTest::keyClick(reasons, Qt::Key_Home);
  QCOMPARE(person.column(0).join(u'|'), host);
  const QString tip = person.table()->model()->index(0, 1).data(Qt::ToolTipRole).toString();
  QVERIFY2(tip.contains(u"FIXED added"_qs), qPrintable(tip));
}

// A doubtful correction is shown with its reason, and written back only if it is chosen.
void BatchOptionsTest::theDoubtfulWaitsForAPerson() {
  Oracle oracle;
  for (const QString& text : {u"a"_qs, u"b"_qs, u"c"_qs}) {
    const QString corrected = text.toUpper() + u" X"_qs;
    oracle.outcomes[text] = {
        AddressFix{corrected,
                   {Candidate(corrected, corrected, {}, {}), Candidate(text, text, {}, {})}},
        {},
        u"A number moved."_qs};
  }
  oracle.outcomes[u"rr 2"_qs] = {AddressFix{u"rr 2"_qs, {}}, {}, u"A rural route."_qs};
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"rr 2"_qs}), oracle.ask(),
                  BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  const QString doubtful = u"Doubtful"_qs;
  QCOMPARE(person.column(2), (QStringList{doubtful, doubtful, doubtful, u"Unchanged"_qs}));
  QCOMPARE(person.table()->model()->index(0, 1).data(Qt::AccessibleTextRole).toString(),
           u"A number moved."_qs);
  person.clickRow(0);
  QAbstractItemModel& texts = *person.find<QTableView>(u"tvMatches"_qs)->model();
  QVERIFY(person.label(u"txtMatches"_qs).startsWith(u"This correction is doubtful"_qs));
  QCOMPARE(texts.headerData(1, Qt::Vertical).toString(), u"As typed"_qs);
  QCOMPARE(texts.index(0, 0).data(Qt::AccessibleTextRole).toString(),
           u"As corrected: A X. X added"_qs);
  const auto choose = [&](int row, int candidate) {
    person.clickRow(row);
    QTRY_COMPARE(person.label(u"txtDoubt"_qs), u"A number moved."_qs);
    person.find<QTableView>(u"tvMatches"_qs)->selectRow(candidate);
    person.click(u"bnChooseSelectedAddress"_qs);
  };
  choose(0, 0);
  choose(1, 1);
  const auto statusOf = [&](int row) { return open.window.records().at(row)->values().status; };
  QTRY_COMPARE(statusOf(1), AddressStatusUnchanged);
  QCOMPARE(statusOf(0), AddressStatusFixed);
  QCOMPARE(statusOf(2), AddressStatusMultiple);
  QCOMPARE(open.window.records().at(1)->values().fixed, u"b"_qs);
  QVERIFY(person.label(u"txtUnchanged"_qs).startsWith(u"You left this text"_qs));
  person.clickRow(3);
  QCOMPARE(person.label(u"txtUnchanged"_qs), u"A rural route."_qs);
  QCOMPARE(
      person.label(u"txtProgress"_qs),
      u"1 address was corrected. Left as they are: 2 addresses as typed and 1 open choice."_qs);
}

// Three without an answer make the run wait; then all get their outcomes, each reported once.
void BatchOptionsTest::waitsForAServiceThatIsAway() {
  std::atomic<int> asked = 0;
  OpenWindow open(
      EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"poison"_qs, u"e"_qs}),
      [&](PostwrightClient&, const QString& address) {
        const bool away = ++asked <= 9 || address == u"poison";
        return away ? kDown : AddressOutcome{AddressFix{address + u"!"_qs, {}}, {}};
      },
      Impatient());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.column(2), (QStringList{u"Unchanged"_qs, u"Unchanged"_qs, u"Unchanged"_qs,
                                          u"Unchanged"_qs, u"Not Checked"_qs, u"Unchanged"_qs}));
  QCOMPARE(person.find<QProgressBar>(u"piProgress"_qs)->value(), 6);
  QCOMPARE(asked, 9 + 1 + 2 + 1 + 2 + 1);  // the poisoned one only once more
}

// Neither addresses that never get an answer nor one that was not asked about tell whether the
// service is there.
void BatchOptionsTest::isNotMistakenAboutAnOutage() {
  std::atomic<int> asked = 0;
  OpenWindow open(
      EntriesOf({u"1 poison"_qs, u"2 poison"_qs, u"3 poison"_qs, u"a"_qs, u"b"_qs, u"1 alone"_qs,
                 u"c"_qs, u"2 alone"_qs, u"d"_qs}),
      [&](PostwrightClient&, const QString& address) {
        if (address.endsWith(u"alone")) {
          AddressOutcome outcome{AddressFix{address, {}}, {}, u"Not asked."_qs};
          outcome.isAsked = false;
          return outcome;
        }
        const bool away = address.endsWith(u"poison") || (address != u"a" && ++asked <= 9);
        return away ? kDown : AddressOutcome{AddressFix{address + u"!"_qs, {}}, {}};
      },
      Impatient());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(person.column(2).filter(u"Not Checked"_qs).size(), 3);
  for (const BatchResultRecordPointer& record : open.window.records()) {
    const bool isPoison = record->values().address.endsWith(u"poison");
    QCOMPARE(record->values().status, isPoison ? AddressStatusError : AddressStatusUnchanged);
  }
}

// If the service says when to ask again the run waits for it, whatever its patience.
void BatchOptionsTest::waitsAsLongAsTheServiceSays() {
  std::atomic<int> requests = 0;
  const LoopbackServer server([&requests](const std::string&) {
    return ++requests == 2
               ? LoopbackServer::Answer{"HTTP/1.1 503 Busy\r\nRetry-After: 1\r\n"
                                        "Content-Length: 0\r\n\r\n"}
               : LoopbackServer::Page(
                     "<R><Address><Address2>1 A ST</Address2><City>AUSTIN</City><State>TX</State>"
                     "<Zip5>78701</Zip5></Address></R>");
  });
  SetDeployment({.verifyHost = server.GetEndpoint(), .userId = "TEST", .probeHost = "127.0.0.1"});
  BatchOptions options = Impatient();
  options.giveUpAfter = std::chrono::milliseconds(0);
  OpenWindow open(EntriesOf({u"1 a st, austin tx 78701"_qs, u"2 a st, austin tx 78701"_qs}), {},
                  options);
  QTRY_VERIFY(open.person.hasFinished());
  QCOMPARE(requests, 3);
  for (const BatchResultRecordPointer& record : open.window.records()) {
    QVERIFY(!record->values().pending && record->values().status != AddressStatusError);
  }
}

void BatchOptionsTest::givesUpAndKeepsTheRestPending() {
  std::atomic<bool> away = true;
  BatchOptions options = Impatient();
  options.giveUpAfter = std::chrono::milliseconds(0);
  QStringList texts;
  for (int i = 0; i < 200; ++i) {
    texts.append(QString::number(i));
  }
  OpenWindow open(
      EntriesOf(texts),
      [&](PostwrightClient&, const QString& address) {
        return away ? kDown : AddressOutcome{AddressFix{address + u" x"_qs, {}}, {}};
      },
      options);
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  QVERIFY(person.find<QWidget>(u"vwBanner"_qs)->isVisible());
  QVERIFY(person.label(u"txtBanner"_qs).endsWith(u"200 addresses were not asked about."_qs));
  for (const BatchResultRecordPointer& record : open.window.records()) {
    QVERIFY(record->values().pending);
  }
  away = false;
  person.click(u"bnRetry"_qs);
  QTRY_VERIFY(person.hasFinished());
  QCOMPARE(open.window.results().size(), 200);
  QVERIFY(!person.find<QWidget>(u"vwBanner"_qs)->isVisible());
}

// Only as much of a line is shown and marked as is quick; the rest comes when it is asked for.
void BatchOptionsTest::longLinesDoNotHoldTheWindowUp() {
  QString line;
  while (line.size() < 12000) {
    line += u"alpha%1 "_qs.arg(line.size());
  }
  Oracle oracle;
  oracle.outcomes[line] = {AddressFix{QString(line).replace(u"alpha"_qs, u"alphas"_qs), {}}, {}};
  OpenWindow open(EntriesOf({line}), oracle.ask(), BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(0);
  const auto* after = person.find<QTextEdit>(u"tvFixedAfter"_qs);
  QCOMPARE(after->toPlainText().size(), 4000);
  QVERIFY(person.label(u"txtCut"_qs).endsWith(u"more characters are not shown."_qs));
  person.click(u"bnMarkRest"_qs);
  QVERIFY(after->toPlainText().size() > 12000);

  const QString longer(50000, u'x');
  oracle.outcomes[longer] = kRefused;
  OpenWindow other(EntriesOf({longer}), oracle.ask(), BatchOptions::all());
  QTRY_VERIFY(other.person.hasFinished());
  other.person.clickRow(0);
  QCOMPARE(other.person.find<QPlainTextEdit>(u"tvErrorAddress"_qs)->toPlainText().size(), 20000);
  other.person.click(u"bnKeepError"_qs);  // and nothing of it is lost
  QCOMPARE(other.window.results().first()->values().fixed, longer);
  QVERIFY(!open.window.grab().isNull());
}

void BatchOptionsTest::usesTheHostsFont() {
  const QFont before = QApplication::font();
  const auto restore = qScopeGuard([&before] { QApplication::setFont(before); });
  QFont large = before;
  large.setPointSize(20);
  QApplication::setFont(large);
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = kRefused;
  OpenWindow plain(EntriesOf({u"a"_qs}), oracle.ask());
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs}), oracle.ask(), BatchOptions::all());
  for (const char* name : {"tvAddresses", "tvErrorAddress", "tvFixedAfter", "tvMatches"}) {
    QCOMPARE(open.person.find<QWidget>(QString::fromLatin1(name))->font().pointSize(), 20);
  }
  QVERIFY(open.person.table()->rowHeight(0) >= 2 * open.person.table()->fontMetrics().height());
  QVERIFY(plain.person.table()->font() != large);
  QTRY_VERIFY(open.person.hasFinished());
  const QSize size = open.window.size();
  open.person.clickRow(1);
  open.person.clickRow(0);
  QTest::qWait(0);
  QCOMPARE(open.window.size(), size);
}

// The program runs once more in Spanish for this.
void BatchOptionsTest::staysSmallAndDoesNotGrow() {
  const QSize small(420, 345);
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = Candidates();
  oracle.outcomes[u"c"_qs] = {std::nullopt, PostwrightClient::stringForResult(3)};
  oracle.outcomes[u"d"_qs] = kRefused;
  oracle.outcomes[u"d"_qs].proposal = u"02134"_qs;
  OpenWindow open(EntriesOf({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"d"_qs, u"b"_qs}), oracle.ask(),
                  Impatient());
  open.window.resize(small);
  QTRY_VERIFY(open.person.hasFinished());
  const auto* detail = open.person.find<QScrollArea>(u"vwDetail"_qs);
  const auto fits = [&] {
    QTest::qWait(0);
    QCOMPARE(open.window.size(), small);
    const int room = open.person.table()->viewport()->height();
    QVERIFY2(room >= 48, qPrintable(QString::number(room)));
    QVERIFY2(detail->horizontalScrollBar()->maximum() == 0, qPrintable(open.person.detail()));
    QRegion taken;
    const auto* page = open.person.find<QStackedWidget>(u"vwContent"_qs)->currentWidget();
    for (const auto* control :
         page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (control->isVisible()) {
        QVERIFY2(!taken.intersects(control->geometry()), qPrintable(control->objectName()));
        taken += control->geometry();
      }
    }
  };
  open.person.table()->selectAll();
  fits();
  for (int row = 0; row < 4; ++row) {
    open.person.clickRow(row);
    fits();
    open.person.press(Qt::Key_F2);
    fits();
  }
  open.window.resize(920, 680);
  QTest::qWait(0);
  const QList<QWidget*> texts{open.person.find<QWidget>(u"tvMultipleAddress"_qs),
                              open.person.find<QWidget>(u"tvMatches"_qs)};
  open.person.clickRow(1);
  QTest::qWait(0);
  QVERIFY(texts.last()->mapTo(&open.window, QPoint()).x() >
          texts.first()->mapTo(&open.window, QPoint(texts.first()->width(), 0)).x());
}

// In each state with other controls; the program runs once more in Spanish for this.
void BatchOptionsTest::namesEveryControl() {
  Oracle oracle;
  oracle.waits = true;
  oracle.outcomes[u"b"_qs] = Candidates();
  oracle.outcomes[u"c"_qs] = kRefused;
  oracle.outcomes[u"d"_qs] = {AddressFix{u"D"_qs, {}}, {}};
  oracle.outcomes[u"e"_qs] = {
      AddressFix{u"E X"_qs, {Candidate(u"E X"_qs, u"E X"_qs, {}, {})}}, {}, u"A number."_qs};
  oracle.outcomes[u"e"_qs].isOpen = true;
  oracle.outcomes[u"f"_qs] = kDown;
  const QStringList texts{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"e"_qs, QString(5000, u'x'),
                          u"f"_qs};
  OpenWindow open(EntriesOf(texts + QStringList{u"b"_qs, u"c"_qs, u"a"_qs}), oracle.ask(),
                  Impatient());
  QStringList whileRunning;
  checkControls(open.window, whileRunning);
  QVERIFY(open.person.find<QWidget>(u"bnStop"_qs)->isVisible());
  oracle.answers.release(100);
  QTRY_VERIFY(open.person.hasFinished());
  QVERIFY(open.person.find<QWidget>(u"bnRetry"_qs)->isVisible());
  QVERIFY(open.person.find<QWidget>(u"bnDoubtful"_qs)->isVisible());
  for (int row = -1; row < texts.size(); ++row) {
    if (row < 0) {
      open.person.table()->selectAll();
    } else {
      open.person.clickRow(row);
    }
    QStringList mnemonics;
    checkControls(open.window, mnemonics);
    open.person.press(Qt::Key_F2);
    QStringList inDetail;
    checkControls(open.window, inDetail);
  }
}

void BatchOptionsTest::savesAReport() {
  Oracle oracle;
  oracle.outcomes[u"b"_qs] = kRefused;
  OpenWindow open(EntriesOf({u"=a\n\"1\""_qs, u"b"_qs}), oracle.ask(), BatchOptions::all());
  QTRY_VERIFY(open.person.hasFinished());
  QTemporaryDir folder;
  QString error;
  for (const char* name : {"r.csv", "r.html"}) {
    QVERIFY(
        BatchSummary::write(open.window.records(), folder.filePath(QLatin1String(name)), error));
  }
  QFile csv(folder.filePath(u"r.csv"_qs));
  QFile page(folder.filePath(u"r.html"_qs));
  QVERIFY(csv.open(QIODevice::ReadOnly) && page.open(QIODevice::ReadOnly));
  QCOMPARE(csv.readAll(),
           "\"Address as Typed\",\"Address as Fixed\",\"Status\",\"Confirmation\",\"Reason\"\r\n"
           "\"'=a\n\"\"1\"\"\",\"'=A\n\"\"1\"\" FIXED\",\"Fixed\",\"\",\"\"\r\n"
           "\"b\",\"\",\"Error\",\"\",\"Invalid Address\"\r\n");
  QVERIFY(page.readAll().contains("<td>=a<br>&quot;1&quot;</td>"));
  QVERIFY(!BatchSummary::write(open.window.records(), folder.filePath(u"no/r.csv"_qs), error));
  QVERIFY(!error.isEmpty());
  BatchSummary summary(open.window.records(), nullptr);
  const QList<QProgressBar*> bars = summary.findChildren<QProgressBar*>();
  QCOMPARE(bars.size(), 3);  // corrected, errors, and of these the one reason
  QCOMPARE(bars.last()->accessibleName(), kInvalid);
  QCOMPARE(bars.last()->accessibleDescription(), u"1 of 2"_qs);
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, BatchOptionsTest)
#include "BatchOptionsTest.moc"
