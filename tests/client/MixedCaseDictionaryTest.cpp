#include "client/MixedCaseDictionary.h"

#include <QFile>
#include <QSet>

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

class MixedCaseDictionaryTest : public QObject {
  Q_OBJECT

 private slots:
  void readsPairs_data();
  void readsPairs();
  void everyShippedPairCanBeFound();
};

void MixedCaseDictionaryTest::readsPairs_data() {
  QTest::addColumn<QString>("resource");
  QTest::addColumn<QString>("pairs");  // as "key=spelling", sorted

  QTest::newRow("nothing") << u""_qs << u""_qs;
  QTest::newRow("one field") << u"Nw"_qs << u""_qs;
  QTest::newRow("one pair") << u"Nw|NW"_qs << u"Nw=NW"_qs;
  QTest::newRow("trimmed") << u" Nw |\tNW \r\n|\n\nSe|SE|\n"_qs << u"Nw=NW Se=SE"_qs;
  QTest::newRow("odd field") << u"Nw|NW|Se"_qs << u"Nw=NW"_qs;
  QTest::newRow("line break parts nothing") << u"Nw|NW\nSe|SE|Sw"_qs << u"Nw=NW\nSe SE=Sw"_qs;
  QTest::newRow("later counts") << u"Nw|nw|Nw|NW"_qs << u"Nw=NW"_qs;
}

void MixedCaseDictionaryTest::readsPairs() {
  QFETCH(const QString, resource);
  const MixedCaseDictionary dictionary = parseDefaultSpellings(resource);
  QStringList pairs;
  for (auto pair = dictionary.begin(); pair != dictionary.end(); ++pair) {
    pairs.append(pair.key() + u'=' + pair.value());
  }
  pairs.sort();
  QTEST(pairs.join(u' '), "pairs");
}

// A key in another form, a key that stands twice, a value that is another word: each is a slip of
// the pen that nothing else would show.
void MixedCaseDictionaryTest::everyShippedPairCanBeFound() {
  QFile file(u":/com.tarnix.pallo.postwright/MixCaseDict.txt"_qs);
  QVERIFY(file.open(QIODevice::ReadOnly));
  const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
  QSet<QString> keys;
  for (const QString& line : lines) {
    const QStringList fields = line.split(u'|');
    QVERIFY2(fields.size() == 3 && fields[2].isEmpty(), qPrintable(line));
    QVERIFY2(mixedCaseKey(fields[1].toUpper()) == fields[0], qPrintable(line));
    QVERIFY2(fields[0] != fields[1] && !keys.contains(fields[0]), qPrintable(line));
    keys.insert(fields[0]);
  }
  for (int number = 1; number <= 199; ++number) {
    const QString text = QString::number(number);
    const bool teen = number % 100 > 10 && number % 100 < 14;
    const char* ending = teen               ? "Th"
                         : number % 10 == 1 ? "St"
                         : number % 10 == 2 ? "Nd"
                         : number % 10 == 3 ? "Rd"
                                            : "Th";
    QVERIFY2(keys.contains(text + QLatin1String(ending)), qPrintable(text));
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, MixedCaseDictionaryTest)
#include "MixedCaseDictionaryTest.moc"
