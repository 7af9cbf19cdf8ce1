// A choice in the batch window, from the address base to the text written back, with the real
// service and a person who is asked for numbers.

#include <postwright/Deployment.h>
#include <postwright/ReviewedFix.h>

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "service/Verifier.h"
#include "service/VerifyService.h"
#include "service/http/HttpServer.h"
#include "tests/client/ClientTestMain.h"
#include "tests/client/Controls.h"
#include "tests/client/batch/Person.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/support/TempFolder.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// The made-up town as an address base, imported once.
const std::string& TownBase() {
  static const TempFolder folder;
  static const std::string file = [] {
    postal::Import(folder.File("base"), "town",
                   {std::filesystem::path(POSTWRIGHT_SOURCE_DIR) / "data/sample/town.csv"},
                   postal::SampleZips());
    return folder.File("base");
  }();
  return file;
}

// The service with the made-up town of data/sample as its base.
class Town {
 public:
  Town() {
    _base.emplace(std::vector<std::filesystem::path>{TownBase()});
    _verifier.emplace(_zips, &*_base);
    _service.emplace(*_verifier, nullptr, service::VerifyService::Options());
    _server.emplace(
        service::ListenAddress::Parse("127.0.0.1:0"), service::HttpServer::Limits(),
        [this](const service::HttpRequest& request, const service::Respond& respond) {
          ++questions;
          named += request.extensions.empty() ? 0 : 1;
          _service->Answer(request, respond);
        },
        _log);
    SetDeployment({.verifyHost = _server->Address(), .userId = "TEST", .probeHost = "127.0.0.1"});
  }

  void close() { _server.reset(); }

  std::atomic<int> questions = 0;
  std::atomic<int> named = 0;  // with the field that asks for candidates

 private:
  const postal::ZipList _zips = postal::SampleZips();
  service::RequestLog _log{-1, ""};
  std::optional<postal::JoinedBases> _base;
  std::optional<service::Verifier> _verifier;
  std::optional<service::VerifyService> _service;
  std::optional<service::HttpServer> _server;
};

const QString kUnitMissing = u"Jane Doe\n14 N Main St\nMillrace, OH 00011"_qs;
const QString kNumberWrong = u"Jane Doe\n151 Chestnut Ave\nMillrace, OH 00011"_qs;
const QString kTwoStreets = u"Jane Doe\n12 Main St\nMillrace, OH 00011\nFragile"_qs;
const QString kRight = u"Jane Doe\n40 S Main St\nMillrace, OH 00011"_qs;

class ChoiceWindow {
 public:
  explicit ChoiceWindow(const QStringList& texts, BatchOptions options = BatchOptions::all())
      : entries(EntriesOf(texts)),
        window(entries, false, CapitalizationMixed, std::nullopt),
        person(window) {
    window.setAsk([](PostwrightClient& client, const QString& label) {
      return fixReviewed(client, label, {});
    });
    options.sameFormForAll = false;  // labels that are right are not written
    window.setOptions(options);
    window.show();
    window.activateWindow();
  }

  QStringList choices() const {
    QStringList texts;
    const QAbstractItemModel* model = person.find<QTableView>(u"tvMatches"_qs)->model();
    for (int row = 0; row < model->rowCount(); ++row) {
      texts.append(model->index(row, 0).data().toString());
    }
    return texts;
  }

  BatchResultRecord::Values values(int row) const { return window.records().at(row)->values(); }

  // Selects a choice of a record and runs `does` in the dialog.
  void choose(int row, int match, std::function<void(QDialog&)> does) {
    person.clickRow(row);
    auto* matches = person.find<QTableView>(u"tvMatches"_qs);
    QVERIFY2(match < matches->model()->rowCount(), qPrintable(choices().join(u'|')));
    matches->selectRow(match);
    bool isOpened = false;
    QTimer::singleShot(0, &window, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr && dialog != &window);
      isOpened = true;
      const auto leave = qScopeGuard([dialog] {
        if (dialog->isVisible()) {
          dialog->reject();  // a failed step must not hang the run
        }
      });
      does(*dialog);
    });
    person.click(u"bnChooseSelectedAddress"_qs);
    QVERIFY(isOpened);
  }

  const Entries entries;
  PostwrightController window;
  Person person;
};

QLineEdit* Field(QDialog& dialog, const char* name) {
  return dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
}

QPushButton* Button(QDialog& dialog, const char* name) {
  return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
}

QString Told(const QDialog& dialog) {
  return dialog.findChild<QLabel*>(u"txtTold"_qs)->text();
}

// Types a number as a person would, and confirms it with Return.
void TypeNumber(QDialog& dialog, const char* field, const QString& number) {
  QLineEdit* edit = Field(dialog, field);
  QVERIFY(edit != nullptr);
  edit->setFocus();
  edit->selectAll();
  QTest::keyClicks(edit, number);
  QTest::keyClick(edit, Qt::Key_Return);
}

}  // namespace

class CandidateTest : public QObject {
  Q_OBJECT

 private slots:
  void offersWhatTheServiceNames();
  void takesWhatIsConfirmed();
  void tellsWhatIsOutsideAndMayKeepIt();
  void asksAboutAWholeAddressAtOnce();
  void goesOnWithTheUnitsOfTheAddressChosen();
  void keepsTheChoiceOpenWithoutAService();
  void isAsBeforeWithoutTheOption();
  void namesEveryControl();
};

void CandidateTest::offersWhatTheServiceNames() {
  Town town;
  ChoiceWindow open({kUnitMissing, kNumberWrong, kTwoStreets, kRight});
  QTRY_VERIFY(open.person.hasFinished());
  QCOMPARE(town.named, 4);
  const QString place = u"\nMILLRACE, OH 00011"_qs;
  const QStringList expected[] = {{u"Jane Doe\n14 N MAIN ST APT (1 - 3)"_qs + place},
                                  {u"Jane Doe\n(100 - 198) CHESTNUT AVE"_qs + place,
                                   u"Jane Doe\n(101 - 149) CHESTNUT AVE"_qs + place},
                                  {u"Jane Doe\n12 N MAIN ST"_qs + place + u"\nFragile"_qs,
                                   u"Jane Doe\n12 S MAIN ST"_qs + place + u"\nFragile"_qs}};
  for (int row = 0; row < 3; ++row) {
    open.person.clickRow(row);
    QCOMPARE(open.values(row).status, AddressStatusMultiple);
    QVERIFY(!open.values(row).isDoubtful());
    QCOMPARE(open.person.detail(), u"vwMultiple"_qs);
    QCOMPARE(open.choices(), expected[row]);
  }
  open.person.clickRow(1);
  QCOMPARE(open.person.label(u"txtDoubt"_qs), u"The street is known, the number is not."_qs);
  QCOMPARE(open.values(3).status, AddressStatusUnchanged);
  QVERIFY(open.window.results().isEmpty());
}

void CandidateTest::takesWhatIsConfirmed() {
  Town town;
  ChoiceWindow open({kUnitMissing, kUnitMissing});
  QTRY_VERIFY(open.person.hasFinished());
  const int before = town.questions;
  open.choose(0, 0, [](QDialog& dialog) {
    QVERIFY(!Button(dialog, "btCheck")->isEnabled());
    QVERIFY(Field(dialog, "txtNumber") == nullptr);
    QVERIFY(Field(dialog, "txtUnit")->accessibleName().contains(u"1 to 3"_qs));
    TypeNumber(dialog, "txtUnit", u"2"_qs);
    QTRY_VERIFY(!dialog.isVisible());
  });
  QCOMPARE(town.questions, before + 1);
  const BatchResultRecord::Values values = open.values(0);
  QCOMPARE(values.fixed, u"Jane Doe\n14 N Main St Apt 2\nMillrace OH 00011-1401"_qs);
  QCOMPARE(values.status, AddressStatusFixed);
  QCOMPARE(values.confirmation.Kind(), ConfirmationFull);
  QVERIFY(!values.own);
  QCOMPARE(values.address, kUnitMissing);
  QCOMPARE(open.values(1).status, AddressStatusMultiple);
  open.window.undo();
  QCOMPARE(open.values(0).status, AddressStatusMultiple);
  open.window.redo();
  QCOMPARE(open.window.results().size(), 1);
}

void CandidateTest::tellsWhatIsOutsideAndMayKeepIt() {
  Town town;
  ChoiceWindow open({kUnitMissing, kNumberWrong, kNumberWrong});
  QTRY_VERIFY(open.person.hasFinished());
  const int before = town.questions;
  open.choose(0, 0, [](QDialog& dialog) {
    QVERIFY(!Button(dialog, "btKeep")->isVisible());
    TypeNumber(dialog, "txtUnit", u"9"_qs);
    QVERIFY2(Told(dialog).startsWith(u"9 is not between 1 and 3."_qs), qPrintable(Told(dialog)));
    QVERIFY(Button(dialog, "btKeep")->isVisible());
    QTest::keyClick(Field(dialog, "txtUnit"), Qt::Key_Backspace);
    QVERIFY(!Button(dialog, "btKeep")->isVisible());
    TypeNumber(dialog, "txtUnit", u"9a"_qs);
    QTest::mouseClick(Button(dialog, "btKeep"), Qt::LeftButton);
    QTRY_VERIFY(!dialog.isVisible());
  });
  QCOMPARE(town.questions, before + 1);
  QCOMPARE(open.values(0).fixed, u"Jane Doe\n14 N Main St Apt 9A\nMillrace OH 00011-1400"_qs);
  QCOMPARE(open.values(0).status, AddressStatusFixed);
  QVERIFY(open.values(0).own);

  // A range only says what is possible: the service confirms no number in it.
  open.choose(1, 0, [](QDialog& dialog) {
    TypeNumber(dialog, "txtNumber", u"151"_qs);
    QVERIFY2(Told(dialog).startsWith(u"151 is not an even number"_qs), qPrintable(Told(dialog)));
    TypeNumber(dialog, "txtNumber", u"150"_qs);
    QTRY_VERIFY2(
        Told(dialog).startsWith(u"The service does not confirm this address. The street"_qs),
        qPrintable(Told(dialog)));
    QTest::mouseClick(Button(dialog, "btKeep"), Qt::LeftButton);
    QTRY_VERIFY(!dialog.isVisible());
  });
  QCOMPARE(open.values(1).fixed, u"Jane Doe\n150 Chestnut Ave\nMillrace OH 00011-3300"_qs);
  QVERIFY(open.values(1).own);

  open.choose(2, 1, [](QDialog& dialog) {
    TypeNumber(dialog, "txtNumber", u"5"_qs);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  QCOMPARE(open.values(2).status, AddressStatusMultiple);
  for (const BatchResultRecordPointer& record : open.window.results()) {
    QVERIFY(!record->values().fixed.contains(u"%@"_qs));
  }
}

void CandidateTest::asksAboutAWholeAddressAtOnce() {
  Town town;
  ChoiceWindow open({kTwoStreets});
  QTRY_VERIFY(open.person.hasFinished());
  open.choose(0, 1, [](QDialog& dialog) { QTRY_VERIFY(!dialog.isVisible()); });
  QCOMPARE(open.values(0).fixed, u"Jane Doe\n12 S Main St\nMillrace OH 00011\nFragile"_qs);
  QVERIFY(!open.values(0).own);
}

void CandidateTest::goesOnWithTheUnitsOfTheAddressChosen() {
  Town town;
  ChoiceWindow open({u"Jane Doe\n99 Main St\nMillrace, OH 00011"_qs});
  QTRY_VERIFY(open.person.hasFinished());
  open.choose(0, 0, [](QDialog& dialog) {
    TypeNumber(dialog, "txtNumber", u"14"_qs);
    QTRY_VERIFY(!dialog.isVisible());
  });
  QCOMPARE(open.values(0).status, AddressStatusMultiple);
  QTRY_COMPARE(open.choices(),
               QStringList(u"Jane Doe\n14 N MAIN ST APT (1 - 3)\nMILLRACE, OH 00011"_qs));
  open.choose(0, 0, [](QDialog& dialog) {
    TypeNumber(dialog, "txtUnit", u"3"_qs);
    QTRY_VERIFY(!dialog.isVisible());
  });
  QCOMPARE(open.values(0).fixed, u"Jane Doe\n14 N Main St Apt 3\nMillrace OH 00011"_qs);
}

void CandidateTest::keepsTheChoiceOpenWithoutAService() {
  Town town;
  ChoiceWindow open({kUnitMissing});
  QTRY_VERIFY(open.person.hasFinished());
  town.close();
  open.choose(0, 0, [](QDialog& dialog) {
    TypeNumber(dialog, "txtUnit", u"2"_qs);
    QTRY_VERIFY(Told(dialog).startsWith(u"The service does not confirm"_qs));
    QVERIFY(Button(dialog, "btKeep")->isVisible());
  });
  QCOMPARE(open.values(0).status, AddressStatusMultiple);
  QCOMPARE(open.values(0).address, kUnitMissing);
  open.choose(0, 0, [](QDialog& dialog) {
    TypeNumber(dialog, "txtUnit", u"9"_qs);
    QTest::mouseClick(Button(dialog, "btKeep"), Qt::LeftButton);
    QTRY_VERIFY(!dialog.isVisible());
  });
  QCOMPARE(open.values(0).fixed, u"Jane Doe\n14 N MAIN ST APT 9\nMILLRACE, OH 00011"_qs);
  QVERIFY(open.values(0).own);
}

void CandidateTest::isAsBeforeWithoutTheOption() {
  Town town;
  ChoiceWindow open({kUnitMissing, kTwoStreets}, {});
  QTRY_VERIFY(open.person.hasFinished());
  QCOMPARE(town.named, 0);
  QCOMPARE(open.values(0).status, AddressStatusFixed);  // with the building's ZIP+4
  QCOMPARE(open.values(1).status, AddressStatusError);
  QVERIFY(open.values(0).candidates.isEmpty());
}

void CandidateTest::namesEveryControl() {
  Town town;
  ChoiceWindow open({kUnitMissing, kNumberWrong});
  QTRY_VERIFY(open.person.hasFinished());
  for (int row = 0; row < 2; ++row) {
    open.choose(row, 0, [row](QDialog& dialog) {
      TypeNumber(dialog, row == 0 ? "txtUnit" : "txtNumber", u"777"_qs);
      QStringList mnemonics;
      checkControls(dialog, mnemonics);
      QVERIFY(mnemonics.size() >= 5);
      auto* address = dialog.findChild<QPlainTextEdit*>(u"txtAddress"_qs);
      QVERIFY(!address->verticalScrollBar()->isVisible());
    });
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, CandidateTest)
#include "CandidateTest.moc"
