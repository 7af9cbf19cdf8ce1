#include "client/MixedCaseDictionary.h"

#include <QFile>
#include <QSet>

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

class MixedCaseDictionaryTest : public QObject {
  Q_OBJECT

 private slots:
  void readsPairs();
  void everyShippedPairCanBeFound();
};

void MixedCaseDictionaryTest::readsPairs() {
  const std::pair<QString, QString> rows[] = {
      // a resource, its pairs as "key=spelling", sorted
      {u""_qs, u""_qs},
      {u"Nw"_qs, u""_qs},
      {u"Nw|NW"_qs, u"Nw=NW"_qs},
      {u" Nw |\tNW \r\n|\n\nSe|SE|\n"_qs, u"Nw=NW Se=SE"_qs},
      {u"Nw|NW|Se"_qs, u"Nw=NW"_qs},                   // an odd field
      {u"Nw|NW\nSe|SE|Sw"_qs, u"Nw=NW\nSe SE=Sw"_qs},  // a line break parts nothing
      {u"Nw|nw|Nw|NW"_qs, u"Nw=NW"_qs},                // the later one counts
  };
  for (const auto& [resource, expected] : rows) {
    const MixedCaseDictionary dictionary = parseDefaultSpellings(resource);
    QStringList pairs;
    for (auto pair = dictionary.begin(); pair != dictionary.end(); ++pair) {
      pairs.append(pair.key() + u'=' + pair.value());
    }
    pairs.sort();
    QCOMPARE(pairs.join(u' '), expected);
  }
}

// A key in another form, a key that occurs twice, a value that is another word: slips that nothing
// else would show.
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
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, MixedCaseDictionaryTest)
#include "MixedCaseDictionaryTest.moc"
