// The batch window of a host that has corrections reviewed: what the service says of a label, from
// its reply to what a person sees and what is written back.

#include <postwright/Deployment.h>

#include <QApplication>

#include "tests/client/ClientTestMain.h"
#include "tests/client/batch/Person.h"
#include "tests/support/LoopbackServer.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// A service that knows one street: 12 MAIN ST is confirmed, 14 has no number there, nobody has
// checked ELM ST, and what is asked about 16 comes back as 61.
LoopbackServer::Answer Answer(const std::string& request) {
  const auto holds = [&request](const char* words) {
    return request.find(words) != std::string::npos;
  };
  const std::string place = "</Address2><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";
  const std::string known = "<DPVConfirmation>Y</DPVConfirmation><DPVFootnotes>AABB</DPVFootnotes>";
  std::string address = "<Address2>12 MAIN ST" + place + known;
  if (holds("ELM")) {
    address = "<Address2>12 ELM ST" + place;
  } else if (holds("%3E14%20") || holds(">14 ") || holds("14%20MAIN") || holds("14+MAIN")) {
    address = "<Address2>14 MAIN ST" + place +
              "<DPVConfirmation>N</DPVConfirmation><DPVFootnotes>AAM3</DPVFootnotes>";
  } else if (holds("16%20MAIN") || holds("16+MAIN")) {
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

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, ReviewedWindowTest)
#include "ReviewedWindowTest.moc"
