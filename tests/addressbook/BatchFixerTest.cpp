// The connection to the batch window, with the real window and the real service.

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "apps/CharacterLocale.h"
#include "apps/addressbook/fix/BatchFixer.h"
#include "tests/support/ServiceProcess.h"

namespace postwright::addressbook {

namespace {

const QStringList kLabels = {"Amir Park\n776 e adams rd\nseiling, ok 73663",
                             "Lena Quinn\n7517 Adams Boulevard\nNatural Bridge, VA 24578",
                             "Al Roe\n9 Elm St\nReno, ZZ 89501"};

}  // namespace

class BatchFixerTest : public QObject {
  Q_OBJECT

 private slots:
  void tellsWhatBecameOfEach();
  void tellsNothingWhenCancelled();
  void tellsWhatGotNoAnswer();
  void callsNothingRightThatAPersonKept();
  void asksTheServerOfTheOptions();
  void answersByItself();

 private:
  // Has the user wait for the answers and press a button of the batch window; with `keepsAll`,
  // first the one that leaves all labels as typed.
  void press(const char* button, bool keepsAll = false);

  ServiceProcess _service;
  const std::string _server = GetDeployment().verifyHost;
};

void BatchFixerTest::press(const char* button, bool keepsAll) {
  QTimer::singleShot(0, this, [button, keepsAll] {
    QWidget* const window = QApplication::activeModalWidget();
    QVERIFY(window != nullptr);
    const auto leave = qScopeGuard([window] { window->close(); });
    auto* const update = window->findChild<QAbstractButton*>("bnUpdate");
    QTRY_VERIFY_WITH_TIMEOUT(update->isEnabled(), 30000);
    if (keepsAll) {
      window->findChild<QTableView*>("tvAddresses")->selectAll();
      QTest::mouseClick(window->findChild<QAbstractButton*>("bnTakeTyped"), Qt::LeftButton);
    }
    // Work that would be lost is asked about once.
    QTimer::singleShot(0, window, [] {
      if (auto* const question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        for (QAbstractButton* choice : question->buttons()) {
          if (question->buttonRole(choice) == QMessageBox::DestructiveRole) {
            QTest::mouseClick(choice, Qt::LeftButton);
            return;
          }
        }
      }
    });
    QTest::mouseClick(window->findChild<QAbstractButton*>(QLatin1String(button)), Qt::LeftButton);
  });
}

void BatchFixerTest::tellsWhatBecameOfEach() {
  BatchFixer fixer(_server);
  press("bnUpdate");
  const QList<FixOutcome> outcomes = fixer.fix(kLabels, {}, nullptr);
  QCOMPARE(outcomes.size(), 3);
  QCOMPARE(outcomes[0].kind, FixOutcome::Kind::Right);
  QCOMPARE(outcomes[0].text, "Amir Park\n776 E ADAMS RD\nSEILING OK 73663");
  QCOMPARE(outcomes[0].known, Known::FormOnly);  // the service has no streets
  QCOMPARE(outcomes[0].source, "According to the list of ZIP codes.");
  QCOMPARE(outcomes[1].kind, FixOutcome::Kind::Corrected);
  QCOMPARE(outcomes[1].known, Known::FormOnly);
  QCOMPARE(outcomes[1].text, "Lena Quinn\n7517 ADAMS BLVD\nNATURAL BRIDGE VA 24578");
  QCOMPARE(outcomes[2].kind, FixOutcome::Kind::Failed);
  QVERIFY2(outcomes[2].text.startsWith("There is no state"), qPrintable(outcomes[2].text));
}

void BatchFixerTest::tellsNothingWhenCancelled() {
  BatchFixer fixer(_server);
  press("bnCancel");
  QVERIFY(fixer.fix(kLabels, {}, nullptr).isEmpty());
}

void BatchFixerTest::tellsWhatGotNoAnswer() {
  BatchFixer fixer("127.0.0.1:1");
  press("bnUpdate");
  const QList<FixOutcome> outcomes = fixer.fix({kLabels[1]}, {}, nullptr);
  QCOMPARE(outcomes.size(), 1);
  QCOMPARE(outcomes[0].kind, FixOutcome::Kind::NoAnswer);
  QVERIFY(!outcomes[0].text.isEmpty());
}

// But a label with nothing to correct stays that way.
void BatchFixerTest::callsNothingRightThatAPersonKept() {
  BatchFixer fixer(_server);
  press("bnUpdate", true);
  const QList<FixOutcome> outcomes = fixer.fix(kLabels, {}, nullptr);
  QCOMPARE(outcomes.size(), 3);
  QCOMPARE(outcomes[0].kind, FixOutcome::Kind::Right);
  QVERIFY(outcomes[0].text.isEmpty());
  QCOMPARE(outcomes[1].kind, FixOutcome().kind);
  QCOMPARE(outcomes[2].kind, FixOutcome().kind);
}

// The server in the options is used if the command line names none.
void BatchFixerTest::asksTheServerOfTheOptions() {
  BatchFixer fixer({}, "127.0.0.1:1");
  FixSettings options{
      TextCase::Mixed, Punctuation::Keep, Names::SameCase, {}, QString::fromStdString(_server)};
  press("bnUpdate");
  const QString label = QString(kLabels[1]).replace("Lena", "lena");
  const QList<FixOutcome> outcomes = fixer.fix({label}, options, nullptr);
  QCOMPARE(outcomes.value(0).text, "Lena Quinn\n7517 Adams Blvd\nNatural Bridge, VA 24578");
  QCOMPARE(GetDeployment().verifyHost, _server);
  const BatchFixer all[] = {BatchFixer("a", "c"), BatchFixer("", "c"), BatchFixer("", "")};
  QCOMPARE(all[0].serverFor("b") + all[1].serverFor("b") + all[1].serverFor(""), "abc");
  QCOMPARE(all[2].serverFor(""), "");
}

// With the ZIP codes alone, then with a base added meanwhile, then with a damaged one; a service
// named on the command line is asked all the same.
void BatchFixerTest::answersByItself() {
  const QTemporaryDir data;
  const QString base = data.filePath("postwright/town.base");
  qputenv("XDG_DATA_HOME", data.path().toUtf8());
  QVERIFY(QDir(data.path()).mkpath("postwright"));
  QFile town(QStringLiteral(POSTWRIGHT_SOURCE_DIR "/data/sample/town.csv"));
  QFile rows(data.filePath("town.csv"));
  QVERIFY(town.open(QIODevice::ReadOnly) && rows.open(QIODevice::WriteOnly));
  rows.write(town.readAll().replace("MILLRACE,OH,00011", "AUSTIN,TX,78701"));
  rows.close();
  const QString label = "Jane Doe\n12 north main street\naustin tx 78701";
  const auto fix = [&](BatchFixer& fixer) {
    press("bnUpdate");
    return fixer.fix({label}, {}, nullptr).value(0);
  };
  BatchFixer fixer({}, {});
  QCOMPARE(fixer.ownStreets().bases, QStringList());
  QCOMPARE(fix(fixer).text, "Jane Doe\n12 N MAIN ST\nAUSTIN TX 78701");
  QProcess import;
  import.start(QStringLiteral(POSTWRIGHT_BASE),
               {"import", base, rows.fileName(), "--source", "town"});
  QVERIFY(import.waitForFinished() && import.exitCode() == 0);
  QCOMPARE(fixer.ownStreets().bases, QStringList{base});
  QCOMPARE(fix(fixer).text, "Jane Doe\n12 N MAIN ST\nAUSTIN TX 78701-1201");
  QFile file(base);
  QVERIFY(file.resize(9000));
  QString said;
  QTimer::singleShot(0, this, [&said] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    said = box->text() + box->informativeText();
    QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
  });
  QVERIFY(fixer.fix({label}, {}, nullptr).isEmpty());
  QVERIFY2(said.startsWith("No address was checked." + base + ": "), qPrintable(said));
  BatchFixer other(_server);
  QCOMPARE(fix(other).text, "Jane Doe\n12 N MAIN ST\nAUSTIN TX 78701");
}

}  // namespace postwright::addressbook

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  postwright::SetCharacterLocale();
  postwright::addressbook::BatchFixerTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "BatchFixerTest.moc"
