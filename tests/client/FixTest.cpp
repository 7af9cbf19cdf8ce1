#include <postwright/BatchResultRecord.h>
#include <postwright/Deployment.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/PostwrightClient.h>
#include <postwright/ReviewedFix.h>

#include "client/EngineTexts.h"
#include "tests/client/ClientTestMain.h"
#include "tests/support/LoopbackServer.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

LoopbackServer::Answer Page(const QString& body) {
  return LoopbackServer::Page(body.toStdString());
}

const QString kFound =
    u"<R><Address><Address2>12 MAIN ST NE</Address2><City>PEÑA</City><State>TX</State>"
    "<Zip5>78701</Zip5><Zip4>1234</Zip4></Address></R>"_qs;

void Deploy(const std::string& endpoint) {
  SetDeployment({.verifyHost = endpoint, .userId = "TEST", .probeHost = endpoint});
}

}  // namespace

class FixTest : public QObject {
  Q_OBJECT

 private slots:
  void givesTextOrMessage_data();
  void givesTextOrMessage();
  void textThatIsNotAsciiGoesThroughWhole();
  void wantsNoReplyWithoutANetwork();
  void reviewsWhatItCorrects_data();
  void reviewsWhatItCorrects();
  void offersWhatIsDoubtful();
  void presentsCandidates();
  void outcomeDecidesStatus();
  void changeDuringAFixWins();
};

void FixTest::givesTextOrMessage_data() {
  QTest::addColumn<QString>("reply");
  QTest::addColumn<QString>("text");  // null for a failure
  QTest::addColumn<QString>("message");

  const QString badReply = PostwrightClient::stringForResult(3);
  QTest::newRow("found") << kFound << u"12 Main St NE\nPeña TX 787011234"_qs << QString();
  QTest::newRow("nothing in it") << u"<R><Address/></R>"_qs << u""_qs << QString();
  QTest::newRow("turned down") << u"<R><Address><Error/></Address></R>"_qs << QString()
                               << u"Invalid Address"_qs;
  QTest::newRow("service's own error") << u"<Error/>"_qs << QString() << badReply;
  QTest::newRow("cut short") << kFound.left(50) << QString() << badReply;
  QTest::newRow("no XML") << u"oops"_qs << QString() << badReply;
  QTest::newRow("empty") << u""_qs << QString() << badReply;
}

void FixTest::givesTextOrMessage() {
  QFETCH(const QString, reply);
  QFETCH(const QString, text);
  QFETCH(const QString, message);
  const LoopbackServer server(Page(reply));
  Deploy(server.GetEndpoint());
  PostwrightClient client;
  client.setCapitalization(CapitalizationMixed);
  client.setLastResult(u"before"_qs);

  const QString label = u"\n 12 main st.\naustin, tx 78701 \n"_qs;
  const std::optional<QString> quick = client.fixAddressQuick(label);
  QCOMPARE(quick, text.isNull() ? std::nullopt : std::optional(text));
  QCOMPARE(client.lastResult(), message.isNull() ? std::nullopt : std::optional(message));
  client.setLastResult(u"before"_qs);
  const std::optional<AddressFix> full = client.fixAddress(label);
  QCOMPARE(full.has_value(), quick.has_value());
  QCOMPARE(full.value_or(AddressFix()).ExactAddress, quick.value_or(QString()));
  QVERIFY(full.value_or(AddressFix()).MatchedAddresses.isEmpty());
  QCOMPARE(client.lastResult(), message.isNull() ? std::nullopt : std::optional(message));
  QCOMPARE(server.GetRequests().size(), 2U);
}

void FixTest::textThatIsNotAsciiGoesThroughWhole() {
  const LoopbackServer server(Page(kFound));
  Deploy(server.GetEndpoint());
  PostwrightClient client;
  client.setRemovePunctuation(false);
  QCOMPARE(client.fixAddressQuick(u"NGUYỄN THI\u0323 ÁNH \U0001F600\U00020BB7\n12 main st\n"
                                  "austin tx 78701\nBÊN CẠNH NHÀ THỜ"_qs),
           std::optional(u"NGUYỄN THI\u0323 ÁNH \U0001F600\U00020BB7\n12 MAIN ST NE\n"
                         "PEÑA, TX 78701-1234\nBÊN CẠNH NHÀ THỜ"_qs));
  // A NUL ends the core's strings; what follows it is not lost.
  QCOMPARE(client.fixAddressQuick(u"A"_qs + QChar(u'\0') + u"B\n12 main st\naustin tx 78701"_qs),
           std::optional(u"AB\n12 MAIN ST NE\nPEÑA, TX 78701-1234"_qs));
}

void FixTest::wantsNoReplyWithoutANetwork() {
  const LoopbackServer server(Page(kFound));
  SetDeployment({.verifyHost = server.GetEndpoint(), .userId = "T", .probeHost = "a.invalid"});
  PostwrightClient client;
  QVERIFY(!client.checkNetwork());
  QVERIFY(!client.fixAddressQuick(u"12 main st\naustin tx"_qs));
  QCOMPARE(client.lastResult(), std::optional(u"No internet connection available"_qs));
  QVERIFY(!client.fixAddress(u"12 main st\naustin tx"_qs));
  // The name that does not exist is not the service's.
  QCOMPARE(client.lastReport().Fetch().outcome, FetchOutcomeNoNetwork);
  QCOMPARE(server.GetRequests().size(), 0U);
}

void FixTest::reviewsWhatItCorrects_data() {
  QTest::addColumn<QString>("reply");
  QTest::addColumn<QString>("label");
  QTest::addColumn<AddressStatus>("status");
  QTest::addColumn<QString>("fixed");
  QTest::addColumn<QString>("proposed");
  QTest::addColumn<QString>("remark");  // its beginning
  QTest::newRow("no doubt") << kFound << u"3M Co.\n12 main street ne\nPeña, tx 78701-1234"_qs
                            << AddressStatusFixed << u"3M Co.\n12 MAIN ST NE\nPEÑA TX 78701-1234"_qs
                            << QString() << QString();
  QTest::newRow("another number") << kFound << u"Jo\n14 main st ne\npeña tx 78701-1234"_qs
                                  << AddressStatusMultiple << QString()
                                  << u"Jo\n12 MAIN ST NE\nPEÑA TX 78701-1234"_qs
                                  << u"The number “14”"_qs;
  QTest::newRow("left alone") << kFound << u"Jo\nRR 3 Box 14\npeña tx 78701"_qs
                              << AddressStatusUnchanged << u"Jo\nRR 3 Box 14\npeña tx 78701"_qs
                              << QString() << u"A rural route"_qs;
  QTest::newRow("signs kept, accents composed")
      << u"<R><Address><Address2>112-10 MAIN ST # 4</Address2><City>QUEENS</City>"
         "<State>NY</State><Zip5>11375</Zip5></Address></R>"_qs
      << u"Jose\u0301\n112-10 Main Street #4\nQueens, NY 11375"_qs << AddressStatusFixed
      << u"Jose\u0301\n112-10 MAIN ST # 4\nQUEENS NY 11375"_qs << QString() << QString();
  QString noNumber = kFound;
  noNumber.replace(u"</Zip4>"_qs,
                   u"</Zip4><DPVConfirmation>N</DPVConfirmation>"
                   "<DPVFootnotes>AAM3</DPVFootnotes>"_qs);
  QTest::newRow("number not there, the same text")
      << noNumber << u"Jo\n12 Main St NE\nPeña, TX 78701-1234"_qs << AddressStatusMultiple
      << QString() << u"Jo\n12 MAIN ST NE\nPEÑA TX 78701-1234"_qs
      << u"The street is known, the number is not."_qs;
  QString noUnit = kFound;
  noUnit.replace(u"</Zip4>"_qs,
                 u"</Zip4><DPVConfirmation>S</DPVConfirmation>"
                 "<DPVFootnotes>AAC1</DPVFootnotes>"_qs);
  QTest::newRow("unit not there, the same text")
      << noUnit << u"Jo\n12 Main St NE\nPeña, TX 78701-1234"_qs << AddressStatusMultiple
      << QString() << u"Jo\n12 MAIN ST NE\nPEÑA TX 78701-1234"_qs
      << u"Confirmed but for its unit, which is not known."_qs;
  QTest::newRow("the same words on other lines")
      << kFound << u"Jo\n12 Main\nSt NE, Peña, TX 78701-1234"_qs << AddressStatusUnchanged
      << u"Jo\n12 Main\nSt NE, Peña, TX 78701-1234"_qs << QString() << QString();
}

void FixTest::reviewsWhatItCorrects() {
  QFETCH(const QString, reply);
  QFETCH(const QString, label);
  QFETCH(const AddressStatus, status);
  QFETCH(const QString, fixed);
  QFETCH(const QString, proposed);
  QFETCH(const QString, remark);
  const LoopbackServer server(Page(reply));
  Deploy(server.GetEndpoint());
  PostwrightClient client;
  client.setRemovePunctuation(false);
  BatchResultRecord record(label);
  QVERIFY(record.fix([&](const QString& address) { return fixReviewed(client, address, {}); }));
  const BatchResultRecord::Values values = record.values();
  QCOMPARE(values.status, status);
  QCOMPARE(values.fixed, fixed);
  QVERIFY2(values.remark.startsWith(remark), qPrintable(values.remark));
  QCOMPARE(values.remark.isEmpty(), remark.isEmpty());
  QCOMPARE(values.matches.isEmpty(), proposed.isEmpty());
  if (!proposed.isEmpty()) {
    QCOMPARE(values.matches.at(0)->fixedAddress(), std::optional(proposed));
    QCOMPARE(values.matches.at(1)->fixedAddress(), std::optional(label));
  }
}

// What fixReviewed returns for a window: candidates, a remark, and whether the address stays open.
void FixTest::offersWhatIsDoubtful() {
  QString noNumber = kFound;
  noNumber.replace(u"</Zip4>"_qs,
                   u"</Zip4><DPVConfirmation>N</DPVConfirmation>"
                   "<DPVFootnotes>AAM1</DPVFootnotes>"_qs);
  QString otherZip = kFound;
  otherZip.replace(u"</Zip4>"_qs, u"</Zip4><Footnotes>A</Footnotes>"_qs);
  const struct {
    QString reply;
    QString label;
    qsizetype candidates;
    QString remark;  // how it begins
    bool isOpen;
  } rows[] = {
      {kFound, u"12 main st ne\npeña tx 78701-1234"_qs, 0, {}, false},
      {kFound, u"14 main st ne\npeña tx 78701-1234"_qs, 2, u"The number “14” became “12”."_qs,
       false},
      {kFound, u"12 main st ne\npeña tx 78702"_qs, 2, u"The ZIP code"_qs, false},
      {otherZip, u"12 main st ne\npeña tx 78702"_qs, 0, {}, false},
      {noNumber, u"12 main st ne\npeña tx 78701-1234"_qs, 2, u"The street is known"_qs, true},
      {noNumber, u"12 MAIN ST NE\nPEÑA TX 78701-1234"_qs, 1, u"The street is known"_qs, true},
      {noNumber, u"14 main st ne\npeña tx 78701-1234"_qs, 2, u"The number"_qs, true},
      {kFound, u"RR 3 Box 14\npeña tx 78701"_qs, 0, u"A rural route"_qs, false},
      {u"<R><Address><Error/></Address></R>"_qs, u"12 main st ne\npeña tx 78701"_qs, 0,
       u"The service says: no reason was given."_qs, false},
  };
  for (const auto& row : rows) {
    const LoopbackServer server(Page(row.reply));
    Deploy(server.GetEndpoint());
    PostwrightClient client;
    client.setRemovePunctuation(false);
    const AddressOutcome outcome = fixReviewed(client, row.label, {});
    const bool isAnswer = row.reply != rows[8].reply;
    QCOMPARE(outcome.answer.has_value(), isAnswer);
    QCOMPARE(outcome.message, isAnswer ? QString() : u"Invalid Address"_qs);
    QCOMPARE(outcome.answer.value_or(AddressFix()).MatchedAddresses.size(), row.candidates);
    QVERIFY2(outcome.remark.startsWith(row.remark), qUtf8Printable(outcome.remark));
    QCOMPARE(outcome.remark.isEmpty(), row.remark.isEmpty());
    QCOMPARE(outcome.isOpen, row.isOpen);
  }
}

void FixTest::presentsCandidates() {
  const AddressFields fields(L"J", L"A ST", L"", L"X", L"TX", L"78701", L"");
  const auto match = [&fields](const wchar_t* low, const wchar_t* unitLow) {
    return AddressMatch(fields, AddressRangeTypeNone, low, low, AddressRangeTypeNone, unitLow,
                        *unitLow != 0 ? L"1F" : L"", L"S");
  };
  MacPlatformServices services;
  const auto present = [&](FixResult result) {
    const FixedAddress fixed(result, AddressFields(),
                             {match(L"", L"1A"), match(L"7", L""), match(L"", L"")});
    return selectorsForCandidates(fixed, services);
  };
  for (const FixResult result : {FixResultMultipleMatch, FixResultDefaultMatch}) {
    const QList<PostwrightSelectorPointer> selectors = present(result);
    QCOMPARE(selectors.size(), 3);
    QCOMPARE(selectors[0]->addressTemplate(), u"J\nA ST (1A - 1F)\nX, TX 78701"_qs);
    selectors[0]->fixAddressWithCharacter(u"C"_qs);
    QCOMPARE(*selectors[0]->fixedAddress(), u"J\nA ST 1C\nX, TX 78701"_qs);
    QCOMPARE(*selectors[1]->fixedAddress(), u"J\n%@ A ST\nX, TX 78701"_qs);
    QCOMPARE(*selectors[2]->fixedAddress(), u"J\nA ST\nX, TX 78701"_qs);
  }
  QVERIFY(present(FixResultStreetMismatch).isEmpty());
}

// The window's own tests cover what it shows for the usual outcomes.
void FixTest::outcomeDecidesStatus() {
  const struct {
    QString exact;
    int candidates;
    AddressStatus status;
    QString fixed;
  } rows[] = {
      {u"12 MAIN ST"_qs, 2, AddressStatusUnchanged, u"12 main st."_qs},
      {u""_qs, 1, AddressStatusFixed, u""_qs},
      {u"X"_qs, 2, AddressStatusMultiple, u""_qs},
  };
  for (const auto& row : rows) {
    BatchResultRecord::Values values;
    values.address = u"12 main st."_qs;
    values.result = u"earlier"_qs;
    values.takeAnswer(AddressFix{row.exact, QList<PostwrightSelectorPointer>(row.candidates)}, {});
    QCOMPARE(values.status, row.status);
    QCOMPARE(values.fixed, row.fixed);
    QCOMPARE(values.result, u"earlier"_qs);
    QCOMPARE(values.matches.size(), row.status == AddressStatusMultiple ? 2 : 0);
  }
}

void FixTest::changeDuringAFixWins() {
  BatchResultRecord record(u"12 main st\naustin tx 78701"_qs);
  QCOMPARE(record.values().fixed, u"Processing…"_qs);
  bool change = true;
  const LoopbackServer server([&](const std::string&) {
    if (change) {
      record.setFixed(u"the user's choice"_qs);
    }
    return Page(kFound);
  });
  Deploy(server.GetEndpoint());
  PostwrightClient client;
  QVERIFY(!record.fix(client));
  QCOMPARE(record.values().fixed, u"the user's choice"_qs);
  QCOMPARE(record.values().status, AddressStatusFixed);
  change = false;
  QVERIFY(record.fix(client));
  QCOMPARE(record.values().fixed, u"12 MAIN ST NE\nPEÑA TX 787011234"_qs);
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, FixTest)
#include "FixTest.moc"
