#include "client/suite/StringHelpers.h"

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace): a test of these names

class StringHelpersTest : public QObject {
  Q_OBJECT

 private slots:
  void capitalized_data();
  void capitalized();
  void splitsAndKeeps_data();
  void splitsAndKeeps();
  void fillsPlaceholders();
};

void StringHelpersTest::capitalized_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("expected");

  QTest::newRow("words") << u"MAIN st"_qs << u"Main St"_qs;
  QTest::newRow("hyphen, slash, ampersand")
      << u"WINSTON-SALEM C/O AT&T"_qs << u"Winston-Salem C/O At&T"_qs;
  QTest::newRow("apostrophe inside") << u"O'NEIL O’NEIL"_qs << u"O'neil O’neil"_qs;
  QTest::newRow("apostrophe outside") << u"'TIS' A'-B"_qs << u"'Tis' A'-B"_qs;
  QTest::newRow("digits first") << u"4B 42ND 1ST"_qs << u"4B 42Nd 1St"_qs;
  QTest::newRow("Spanish") << u"PEÑA ÁVILA"_qs << u"Peña Ávila"_qs;
  QTest::newRow("Vietnamese, combining") << u"NGUYE\u0302\u0303N"_qs << u"Nguye\u0302\u0303n"_qs;
  QTest::newRow("Vietnamese, composed") << u"ĐƯỜNG"_qs << u"Đường"_qs;
  QTest::newRow("longer in lower case") << u"Aİ"_qs << u"Ai\u0307"_qs;
  QTest::newRow("title case") << u"ǆUNGLA"_qs << u"ǅungla"_qs;
  QTest::newRow("beyond 16 bits") << u"\U00010428\U00010400 \U0001F600x"_qs
                                  << u"\U00010400\U00010428 \U0001F600X"_qs;
  QTest::newRow("half a character")
      << (u"A"_qs + QChar(0xD83D) + u"B"_qs) << (u"A"_qs + QChar(0xD83D) + u"B"_qs);
}

void StringHelpersTest::capitalized() {
  QFETCH(const QString, text);
  QTEST(StringHelpers::capitalized(text), "expected");
  QCOMPARE(StringHelpers::capitalized(StringHelpers::capitalized(text)),
           StringHelpers::capitalized(text));
}

void StringHelpersTest::splitsAndKeeps_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QStringList>("lines");
  QTest::addColumn<QString>("alphanumeric");
  QTest::addColumn<QString>("trimmed");

  QTest::newRow("empty") << u""_qs << QStringList{} << u""_qs << u""_qs;
  QTest::newRow("every terminator")
      << u"a\r\nb\rc\nd\u0085e\u2028f\u2029g"_qs << QStringList{"a", "b", "c", "d", "e", "f", "g"}
      << u"abcdefg"_qs << u"a\r\nb\rc\nd\u0085e\u2028f\u2029g"_qs;
  QTest::newRow("terminators end lines")
      << u"\na\n\nb\n"_qs << QStringList{"", "a", "", "b"} << u"ab"_qs << u"a\n\nb"_qs;
  QTest::newRow("signs") << u"\t12½ B-ST. #5 "_qs << QStringList{u"\t12½ B-ST. #5 "_qs}
                         << u"12½BST5"_qs << u"12½ B-ST. #5"_qs;
  QTest::newRow("marks and planes")
      << u"n\u0303 \U0001F600\U00010400 漢"_qs << QStringList{u"n\u0303 \U0001F600\U00010400 漢"_qs}
      << u"n\u0303\U00010400漢"_qs << u"n\u0303 \U0001F600\U00010400 漢"_qs;
}

void StringHelpersTest::splitsAndKeeps() {
  QFETCH(const QString, text);
  QTEST(StringHelpers::lines(text), "lines");
  QTEST(StringHelpers::alphanumericOnly(text), "alphanumeric");
  QTEST(StringHelpers::trim(text), "trimmed");
}

void StringHelpersTest::fillsPlaceholders() {
  const struct {
    const char* format;
    QStringList arguments;
    const char* expected;
  } rows[] = {
      {"%@ to %@", {"A", "F"}, "A to F"},
      {"100% %d %@ %%", {"1"}, "100% %d 1 %%"},
      {"%@ %@", {"%@", "x"}, "%@ x"},
      {"%@ %@", {"A"}, "A %@"},
      {"%@", {"A", "B"}, "A"},
  };
  for (const auto& row : rows) {
    QCOMPARE(StringHelpers::stringWithFormat(row.format, row.arguments), row.expected);
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, StringHelpersTest)
#include "StringHelpersTest.moc"
