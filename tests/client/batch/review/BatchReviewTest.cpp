#include "client/batch/review/BatchReview.h"

#include <QXmlStreamReader>

#include "client/batch/review/BatchTexts.h"
#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// A record as one letter says: Pending, Unchanged, Fixed, Blank, Multiple, Error, Down, Network.
BatchResultRecordPointer Record(QChar kind) {
  auto record = std::make_shared<BatchResultRecord>(u"12 main st"_qs);
  const auto candidate =
      std::make_shared<PostwrightSelector>(u"1"_qs, u"1"_qs, QString(), QString());
  const QHash<QChar, AddressOutcome> outcomes{
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

// The messages of a string table: for each id whether it is complete.
QMap<QString, bool> ReadTable(const QString& name) {
  QFile file(QStringLiteral(POSTWRIGHT_RESOURCES "/") + name);
  if (!file.open(QIODevice::ReadOnly)) {
    return {};
  }
  QMap<QString, bool> table;
  QString id;
  for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext()) {
    if (xml.isStartElement() && xml.name() == u"message") {
      id = xml.attributes().value(u"id"_qs).toString();
    } else if (xml.isStartElement() &&
               (xml.name() == u"translation" || xml.name() == u"numerusform")) {
      const bool draft = xml.attributes().value(u"type"_qs) == u"unfinished";
      const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
      table[id] = table.value(id, true) && !draft && !text.trimmed().isEmpty();
    }
  }
  return table;
}

}  // namespace

class BatchReviewTest : public QObject {
  Q_OBJECT

 private slots:
  void filterPassesSelectedStatuses_data();
  void filterPassesSelectedStatuses();
  void tallyIsTheCount();
  void sentencesSayWhatIsSo_data();
  void sentencesSayWhatIsSo();
  void timeLeftIsToldWhereItHelps_data();
  void timeLeftIsToldWhereItHelps();
  void everyTextIsTranslated();
};

void BatchReviewTest::filterPassesSelectedStatuses_data() {
  QTest::addColumn<QString>("selected");  // of UFME
  QTest::addColumn<QList<int>>("passed");
  QTest::newRow("all") << u"UFME"_qs << QList<int>{0, 1, 2, 3, 4, 5, 6};
  QTest::newRow("none") << u""_qs << QList<int>{};
  QTest::newRow("unchanged, and not asked yet") << u"U"_qs << QList<int>{1, 4};
  QTest::newRow("fixed and errors") << u"FE"_qs << QList<int>{0, 3, 5, 6};
  QTest::newRow("multiple") << u"M"_qs << QList<int>{2};
}

void BatchReviewTest::filterPassesSelectedStatuses() {
  QFETCH(const QString, selected);
  QFETCH(const QList<int>, passed);
  const BatchResultRecordList records = Records(u"FPMEUDF"_qs);
  const BatchResultRecordList shown =
      filterRecords(records, {selected.contains(u'U'), selected.contains(u'F'),
                              selected.contains(u'M'), selected.contains(u'E')});
  QList<int> places;
  for (const BatchResultRecordPointer& record : shown) {
    places.append(static_cast<int>(records.indexOf(record)));
  }
  QCOMPARE(places, passed);
}

void BatchReviewTest::tallyIsTheCount() {
  const BatchResultRecordList records = Records(u"PUFBMEDNPPP"_qs);
  ReviewTally tally;
  for (const BatchResultRecordPointer& record : records) {
    tally.update(*record);
    tally.update(*record);  // counted once
  }
  const ReviewCounts counts = countRecords(records);
  QCOMPARE(counts, (ReviewCounts{4, 1, 2, 1, 3, 2, 1, 1}));
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
  QTest::newRow("all right") << u"UUU"_qs << u"Do&ne"_qs
                             << u"All 3 addresses are right; there is nothing to apply."_qs
                             << u""_qs;
  QTest::newRow("mixed") << u"FFUMMEEE"_qs << u"&Apply 2 Corrections"_qs
                         << u"2 addresses were corrected. 1 was right. "
                            "Left as they are: 3 errors and 2 open choices."_qs
                         << u""_qs;
  QTest::newRow("blank") << u"B"_qs << u"&Apply 1 Correction"_qs
                         << u"1 address was corrected. 1 entry would be emptied."_qs << u""_qs;
  QTest::newRow("down")
      << u"EDN"_qs << u"Do&ne"_qs << u"No address was corrected. Left as they are: 3 errors."_qs
      << u"The address service does not answer. 2 addresses could not be checked."_qs;
  QTest::newRow("no network")
      << u"PN"_qs << u"Do&ne"_qs
      << u"No address was corrected. "
         "Left as they are: 1 error and 1 address not checked."_qs
      << u"There is no network connection. 1 address could not be checked."_qs;
}

void BatchReviewTest::sentencesSayWhatIsSo() {
  QFETCH(const QString, kinds);
  const ReviewCounts counts = countRecords(Records(kinds));
  QTEST(applyText(counts), "apply");
  QTEST(summaryText(counts), "summary");
  QTEST(bannerText(counts), "banner");
}

void BatchReviewTest::timeLeftIsToldWhereItHelps_data() {
  QTest::addColumn<int>("done");
  QTest::addColumn<int>("total");
  QTest::addColumn<int>("milliseconds");
  QTest::addColumn<QString>("text");
  QTest::newRow("none done") << 0 << 340 << 5000 << u"0 of 340"_qs;
  QTest::newRow("too few done") << 4 << 340 << 5000 << u"4 of 340"_qs;
  QTest::newRow("too soon") << 5 << 340 << 999 << u"5 of 340"_qs;
  QTest::newRow("seconds") << 12 << 340 << 1200 << u"12 of 340, about 33 seconds left"_qs;
  QTest::newRow("minutes") << 10 << 130 << 10000 << u"10 of 130, about 2 minutes left"_qs;
  QTest::newRow("hours") << 10 << 7210 << 10000 << u"10 of 7,210, about 2 hours left"_qs;
  QTest::newRow("hardly any") << 339 << 340 << 34000 << u"339 of 340"_qs;
  QTest::newRow("all done") << 340 << 340 << 34000 << u"340 of 340"_qs;
}

void BatchReviewTest::timeLeftIsToldWhereItHelps() {
  QFETCH(const int, done);
  QFETCH(const int, total);
  QFETCH(const int, milliseconds);
  QTEST(progressText(done, total, timeLeft(done, total, std::chrono::milliseconds(milliseconds))),
        "text");
}

void BatchReviewTest::everyTextIsTranslated() {
  const QMap<QString, bool> english = ReadTable(u"postwright_en.ts"_qs);
  QVERIFY(english.size() > 80);
  QCOMPARE(english.values().count(false), 0);
  QCOMPARE(ReadTable(u"postwright_es.ts"_qs), english);
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, BatchReviewTest)
#include "BatchReviewTest.moc"
