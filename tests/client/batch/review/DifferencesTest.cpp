#include "client/batch/review/Differences.h"

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

QString WithoutBrackets(QString text) {
  return text.remove(u'[').remove(u']');
}

QString Bracketed(QString text, const QList<TextMark>& marks) {
  for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
    text.insert(mark->start + mark->length, u']').insert(mark->start, u'[');
  }
  return text;
}

}  // namespace

class DifferencesTest : public QObject {
  Q_OBJECT

 private slots:
  void marksWhatChanged_data();
  void marksWhatChanged();
  void tellsWhatMoved();
  void longTextsTakeBoundedTime();
};

// Both texts with the marked parts in brackets, and the changes as spoken.
void DifferencesTest::marksWhatChanged_data() {
  QTest::addColumn<QString>("before");
  QTest::addColumn<QString>("after");
  QTest::addColumn<QString>("changes");

  QTest::newRow("nothing") << u"12 Main St"_qs << u"12 Main St"_qs << u""_qs;
  QTest::newRow("case alone") << u"12 main st\npeña"_qs << u"12 MAIN ST\nPEÑA"_qs << u""_qs;
  QTest::newRow("other lines") << u"12 Main St, Austin"_qs << u"12 Main St,\nAustin"_qs << u""_qs;
  QTest::newRow("a word for another") << u"25 [East] Oak"_qs << u"25 [E] Oak"_qs << u"East>E"_qs;
  QTest::newRow("characters of a word")
      << u"4 Oak Ave[nue]"_qs << u"4 Oak Ave"_qs << u"Avenue>Ave"_qs;
  QTest::newRow("a character put in") << u"Austn TX"_qs << u"Aust[i]n TX"_qs << u"Austn>Austin"_qs;
  QTest::newRow("half alike is not alike") << u"[abxy]"_qs << u"[abcd]"_qs << u"abxy>abcd"_qs;
  QTest::newRow("more than half alike") << u"abc[x]"_qs << u"abc[d]"_qs << u"abcx>abcd"_qs;
  QTest::newRow("words put in") << u"12 St"_qs << u"12 [N] [Main] St"_qs << u">N Main"_qs;
  QTest::newRow("words gone") << u"12 [Old] [Mill] St"_qs << u"12 St"_qs << u"Old Mill>"_qs;
  QTest::newRow("the likest is its partner")
      << u"[Strexx] Str[x]et"_qs << u"Stre[e]t"_qs << u"Strexx>|Strxet>Street"_qs;
  QTest::newRow("from nothing") << u""_qs << u"[a]"_qs << u">a"_qs;
  QTest::newRow("to nothing") << u"[a]"_qs << u" \n"_qs << u"a>"_qs;
  QTest::newRow("composed or not")
      << u"Jose\u0301 Pen\u0303a"_qs << u"JOS\u00C9 PE\u00D1A"_qs << u""_qs;
  QTest::newRow("a mark goes with its letter")
      << u"Jos[e\u0301]"_qs << u"JOS[E]"_qs << u"Jose\u0301>JOSE"_qs;
  QTest::newRow("right to left") << u"\u05D3\u05D5\u05D3 [Oak]"_qs << u"\u05D3\u05D5\u05D3 [Elm]"_qs
                                 << u"Oak>Elm"_qs;
  QTest::newRow("halves of a character stay together")
      << u"ab[\U0001F3E0]"_qs << u"ab[\U0001F3E1]"_qs << u"ab\U0001F3E0>ab\U0001F3E1"_qs;
}

void DifferencesTest::marksWhatChanged() {
  QFETCH(const QString, before);
  QFETCH(const QString, after);
  QFETCH(const QString, changes);
  const Differences found = findDifferences(WithoutBrackets(before), WithoutBrackets(after));
  QCOMPARE(Bracketed(WithoutBrackets(before), found.removed), before);
  QCOMPARE(Bracketed(WithoutBrackets(after), found.added), after);
  QStringList spoken;
  for (const Change& change : found.changes) {
    spoken.append(change.from + u'>' + change.to);
  }
  QCOMPARE(spoken.join(u'|'), changes);
}

// Words that moved to another existing line. Lines that were broken or joined count as the same.
void DifferencesTest::tellsWhatMoved() {
  const struct {
    QString before;
    QString after;
    QString moves;
  } rows[] = {
      {u"Jane Doe [1]\n1 fix Street"_qs, u"JANE DOE\n[1] 1 FIX ST"_qs, u"1 1>2"_qs},
      {u"12 Main St, Austin TX"_qs, u"12 Main St,\nAustin TX"_qs, u""_qs},
      {u"12 Main St\nApt 4\nAustin"_qs, u"12 Main St Apt 4\nAustin"_qs, u""_qs},
      {u"Red Door\n6 Oak St [Gadsden]\nAL 35901"_qs, u"Red Door\n6 Oak St\n[Gadsden] AL 35901"_qs,
       u"Gadsden 2>3"_qs},
      {u"a b\nc d"_qs, u"a b\nc d"_qs, u""_qs},
      {u"a\n\nb"_qs, u"a\nb"_qs, u""_qs},
  };
  for (const auto& [before, after, moves] : rows) {
    const Differences found = findDifferences(WithoutBrackets(before), WithoutBrackets(after));
    QCOMPARE(Bracketed(WithoutBrackets(before), found.movedFrom), before);
    QCOMPARE(Bracketed(WithoutBrackets(after), found.movedTo), after);
    QStringList told;
    for (const Move& move : found.moves) {
      told.append(u"%1 %2>%3"_qs.arg(move.word).arg(move.fromLine).arg(move.toLine));
    }
    QCOMPARE(told.join(u'|'), moves);
  }
}

// The ends are still compared. The test's time limit is its only clock.
void DifferencesTest::longTextsTakeBoundedTime() {
  const std::pair<QString, QString> rows[] = {
      {u"old "_qs.repeated(100000), u"new "_qs.repeated(100000)},
      {QString(1000000, u'a') + u' ', QString(999999, u'a') + u' '},
  };
  for (const auto& [before, after] : rows) {
    const Differences found =
        findDifferences(u"first "_qs + before + u"last"_qs, u"first "_qs + after + u"last"_qs);
    QCOMPARE(found.removed.first().start, 6);
    QCOMPARE(found.added.first().start, 6);
    QVERIFY(found.removed.last().start + found.removed.last().length <= before.size() + 5);
    QCOMPARE(found.changes.size(), 1);
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, DifferencesTest)
#include "DifferencesTest.moc"
