#include "client/batch/review/BatchReview.h"

#include <postwright/VerifyReport.h>

#include "client/batch/review/BatchTexts.h"
#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// A record by its letter: Pending, Confirmed, Unchanged, Fixed, Blank, Multiple, Error, Down,
// Network.
BatchResultRecordPointer Record(QChar kind) {
  auto record = std::make_shared<BatchResultRecord>(u"12 main st"_qs);
  const auto candidate =
      std::make_shared<PostwrightSelector>(u"1"_qs, u"1"_qs, QString(), QString());
  const VerifyReport confirmed(
      "<R><Address><City>A</City><DPVConfirmation>Y</DPVConfirmation></Address></R>");
  const QHash<QChar, AddressOutcome> outcomes{
      {u'C',
       {.answer = AddressFix{u"12 MAIN ST"_qs, {}},
        .message = {},
        .confirmation = Confirmation(confirmed)}},
      {u'U', {AddressFix{u"12 MAIN ST"_qs, {}}, {}}},
      {u'F', {AddressFix{u"12 MAIN AVE"_qs, {}}, {}}},
      {u'B', {AddressFix{}, {}}},
      {u'M', {AddressFix{{}, {candidate, candidate}}, {}}},
      {u'E', {std::nullopt, PostwrightClient::stringForResult(10)}},
      {u'D', {std::nullopt, PostwrightClient::stringForResult(3)}},
      {u'N', {std::nullopt, PostwrightClient::stringForResult(4)}},
  };
  if (outcomes.contains(kind)) {
    record->fix([&](const QString&) { return outcomes.value(kind); });
  }
  return record;
}

BatchResultRecordList Records(const QString& kinds) {
  BatchResultRecordList records;
  for (const QChar kind : kinds) {
    records.append(Record(kind));
  }
  return records;
}

}  // namespace

class BatchReviewTest : public QObject {
  Q_OBJECT

 private slots:
  void tallyIsTheCount();
  void sentencesSayWhatIsSo_data();
  void sentencesSayWhatIsSo();
  void timeLeftIsToldWhereItHelps();
};

void BatchReviewTest::tallyIsTheCount() {
  const BatchResultRecordList records = Records(u"PUFBMEDNPPPC"_qs);
  ReviewTally tally;
  for (const BatchResultRecordPointer& record : records) {
    tally.update(*record);
    tally.update(*record);  // counted once
  }
  const ReviewCounts counts = countRecords(records);
  QCOMPARE(counts, (ReviewCounts{4, 2, 2, 1, 3, 2, 1, 1, 0, 0, 1}));
  QVERIFY(tally.counts() == counts);

  BatchResultRecordList left = records;
  left.takeFirst();
  tally.remove(*records.first());
  for (const BatchResultRecordPointer& record : left) {
    record->setFixed(u"chosen"_qs);
    tally.update(*record);
    QVERIFY(tally.counts() == countRecords(left));
  }
}

void BatchReviewTest::sentencesSayWhatIsSo_data() {
  QTest::addColumn<QString>("kinds");
  QTest::addColumn<QString>("apply");
  QTest::addColumn<QString>("summary");
  QTest::addColumn<QString>("banner");
  QTest::newRow("empty") << u""_qs << u"Do&ne"_qs << u""_qs << u""_qs;
  QTest::newRow("all right") << u"CCC"_qs << u"Do&ne"_qs
                             << u"All 3 addresses are right; there is nothing to apply."_qs
                             << u""_qs;
  QTest::newRow("none confirmed")
      << u"UUU"_qs << u"Do&ne"_qs
      << u"No address was corrected. 3 are well written, but not confirmed."_qs << u""_qs;
  QTest::newRow("mixed") << u"FFCUMMEEE"_qs << u"&Apply 2 Corrections"_qs
                         << u"2 addresses were corrected. 1 was right. 1 is well written, but not "
                            "confirmed. "
                            "Left as they are: 3 errors and 2 open choices."_qs
                         << u""_qs;
  QTest::newRow("three kinds")
      << u"EMP"_qs << u"Do&ne"_qs
      << u"No address was corrected. Left as they are: 1 error, 1 open choice and 1 address not "
         "checked."_qs
      << u""_qs;
  QTest::newRow("blank") << u"B"_qs << u"&Apply 1 Correction"_qs
                         << u"1 address was corrected. 1 entry would be emptied."_qs << u""_qs;
  QTest::newRow("down")
      << u"EDN"_qs << u"Do&ne"_qs
      << u"No address was corrected. Left as they are: 1 error and 2 addresses not checked."_qs
      << u"The address service does not answer. 2 addresses could not be checked."_qs;
  QTest::newRow("no network")
      << u"PN"_qs << u"Do&ne"_qs
      << u"No address was corrected. "
         "Left as they are: 2 addresses not checked."_qs
      << u"There is no network connection. 1 address could not be checked."_qs;
}

void BatchReviewTest::sentencesSayWhatIsSo() {
  QFETCH(const QString, kinds);
  const ReviewCounts counts = countRecords(Records(kinds));
  QTEST(applyText(counts), "apply");
  QTEST(summaryText(counts), "summary");
  QTEST(bannerText(counts, {}), "banner");
}

void BatchReviewTest::timeLeftIsToldWhereItHelps() {
  const struct {
    int done;
    int total;
    int milliseconds;
    QString text;
  } rows[] = {
      {0, 340, 5000, u"0 of 340"_qs},
      {4, 340, 5000, u"4 of 340"_qs},  // too few to tell
      {5, 340, 999, u"5 of 340"_qs},   // too soon
      {12, 340, 1200, u"12 of 340, about 33 seconds left"_qs},
      {10, 130, 10000, u"10 of 130, about 2 minutes left"_qs},
      {10, 7210, 10000, u"10 of 7,210, about 2 hours left"_qs},
      {339, 340, 34000, u"339 of 340"_qs},
      {340, 340, 34000, u"340 of 340"_qs},
  };
  for (const auto& [done, total, milliseconds, text] : rows) {
    const auto left = timeLeft(done, total, std::chrono::milliseconds(milliseconds));
    QCOMPARE(progressText(done, total, left), text);
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, BatchReviewTest)
#include "BatchReviewTest.moc"
