// The batch window of a host that has corrections reviewed: what the service says of a label, from
// its reply to what a person sees and what is written back.

#include <postwright/Deployment.h>

#include <QApplication>

#include "tests/client/ClientTestMain.h"
#include "tests/client/batch/Person.h"
#include "tests/support/LoopbackServer.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// A service that knows one street: 12 MAIN ST is confirmed, 14 is no number of it, nobody has
// checked 1-12 ELM ST, and what is asked about 16 comes back as 61.
LoopbackServer::Answer Answer(const std::string& request) {
  const auto holds = [&request](const char* words) {
    return request.find(words) != std::string::npos;
  };
  const std::string place = "</Address2><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";
  const std::string known = "<DPVConfirmation>Y</DPVConfirmation><DPVFootnotes>AABB</DPVFootnotes>";
  std::string address = "<Address2>12 MAIN ST" + place + known;
  if (holds("ELM")) {
    address = "<Address2>1-12 ELM ST" + place;
  } else if (holds("14%20MAIN")) {
    address = "<Address2>14 MAIN ST" + place +
              "<DPVConfirmation>N</DPVConfirmation><DPVFootnotes>AAM3</DPVFootnotes>";
  } else if (holds("16%20MAIN")) {
    address = "<Address2>61 MAIN ST" + place + known;
  }
  return LoopbackServer::Page("<R><Address>" + address + "</Address></R>");
}

const QString kPlace = u"\nAustin, TX 78701"_qs;
const QString kStreet = u"Jo O'Neil\n12 main street"_qs + kPlace;
const QString kSwapped = u"Jo O'Neil\n16 main st"_qs + kPlace;

// A window whose service is the one above.
class ReviewedWindow {
 public:
  explicit ReviewedWindow(const QStringList& texts, const BatchOptions& options)
      : window(EntriesOf(texts), true, CapitalizationUpper, std::nullopt), person(window) {
    const std::string endpoint = server.GetEndpoint();
    SetDeployment({.verifyHost = endpoint, .userId = "TEST", .probeHost = endpoint});
    window.setOptions(options);
    window.show();
    window.activateWindow();
  }

  BatchResultRecord::Values values(int row) const { return window.records().at(row)->values(); }

  const LoopbackServer server{Answer};
  PostwrightController window;
  Person person;
};

}  // namespace

class ReviewedWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void reviewsWhereTheHostSaysSo();
  void givesTheRestInTheSameForm();
};

void ReviewedWindowTest::reviewsWhereTheHostSaysSo() {
  BatchOptions options;
  ReviewedWindow plain({kStreet, kSwapped}, options);
  QTRY_VERIFY(plain.person.hasFinished());
  QCOMPARE(plain.values(0).fixed, u"JO ONEIL\n12 MAIN ST\nAUSTIN TX 78701"_qs);
  QCOMPARE(plain.values(1).status, AddressStatusFixed);

  options.reviewsCorrections = true;
  options.form.punctuation = PunctuationKeep;
  ReviewedWindow reviewed({kStreet, kSwapped}, options);
  QTRY_VERIFY(reviewed.person.hasFinished());
  QCOMPARE(reviewed.values(0).fixed, u"Jo O'Neil\n12 MAIN ST\nAUSTIN, TX 78701"_qs);
  QCOMPARE(reviewed.values(1).status, AddressStatusMultiple);
  QVERIFY(reviewed.values(1).isDoubtful());
}

// What is right is written as the corrected ones are, and still counts as unchanged; not what would
// lose the sign of a number, what nobody was asked about, and what a person left as typed.
void ReviewedWindowTest::givesTheRestInTheSameForm() {
  const QString right = u"Jo O'Neil\n12 Main St."_qs + kPlace;
  const QString hyphen = u"1-12 Elm St"_qs + kPlace;
  const QString route = u"RR 3 Box 14"_qs + kPlace;
  BatchOptions options = BatchOptions::all();
  options.form.punctuation = PunctuationRemove;
  ReviewedWindow open({right, kStreet, hyphen, route}, options);
  QTRY_VERIFY(open.person.hasFinished());
  const QString formed = u"Jo O'Neil\n12 MAIN ST\nAUSTIN TX 78701"_qs;
  QCOMPARE(open.values(0).status, AddressStatusUnchanged);
  QCOMPARE(open.person.column(1), (QStringList{formed, formed, hyphen, route}));
  QCOMPARE(open.window.results().size(), 2);
  QCOMPARE(open.window.results().first()->values().fixed, formed);
  QCOMPARE(open.person.find<QPushButton>(u"bnUpdate"_qs)->text(), u"&Apply to 2 Addresses"_qs);
  QVERIFY(open.person.label(u"txtProgress"_qs).contains(u"1 of these is written in the chosen form."));
  open.person.clickRow(0);
  QCOMPARE(open.person.find<QPlainTextEdit>(u"tvUnchangedAddress"_qs)->toPlainText(), formed);
  open.window.bnTakeTypedClick();
  QCOMPARE(open.person.text(0, 1), right);
  QCOMPARE(open.window.results().size(), 1);
  open.window.undo();
  QCOMPARE(open.window.results().size(), 2);

  options.sameFormForAll = false;
  ReviewedWindow plain({right}, options);
  QTRY_VERIFY(plain.person.hasFinished());
  QVERIFY(plain.window.results().isEmpty());
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, ReviewedWindowTest)
#include "ReviewedWindowTest.moc"
