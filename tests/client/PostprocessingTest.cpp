#include <postwright/PostwrightClient.h>

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

class PostprocessingTest : public QObject {
  Q_OBJECT

 private slots:
  void setsCase();
  void removesPunctuation_data();
  void removesPunctuation();
  void mixesCase_data();
  void mixesCase();
  void comparesAddresses();
  void hasAMessageForEveryResult();
};

void PostprocessingTest::setsCase() {
  const std::pair<int, QString> rows[] = {
      {CapitalizationUpper, u"12 MAIN ST NE\nPEÑA BLANCA NM 87041"_qs},
      {CapitalizationLower, u"12 main st ne\npeña blanca nm 87041"_qs},
      {CapitalizationMixed, u"12 Main St NE\nPeña Blanca NM 87041"_qs},
      {3, u""_qs},
      {-1, u""_qs},
  };
  for (const auto& [capitalization, expected] : rows) {
    PostwrightClient client;
    client.setCapitalization(capitalization);
    QCOMPARE(client.capitalizeAddress(u" 12 Main St. Ne\r\nPeña Blanca, Nm 87041\n"_qs), expected);
  }
}

void PostprocessingTest::removesPunctuation_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("expected");

  QTest::newRow("dash and period") << u"12 - B ST."_qs << u"12 B ST"_qs;
  QTest::newRow("number sign") << u"APT #5"_qs << u"APT 5"_qs;
  QTest::newRow("run around a period") << u"A . B"_qs << u"A B"_qs;
  QTest::newRow("ZIP+4") << u"AUSTIN, TX 78701-1234"_qs << u"AUSTIN TX 787011234"_qs;
  QTest::newRow("first of a run stays") << u"A\t  B \u00A0C"_qs << u"A\tB C"_qs;
  QTest::newRow("leading run") << u" . A"_qs << u"A"_qs;
  QTest::newRow("symbols stay") << u"$5 + 3 = A|B"_qs << u"$5 + 3 = A|B"_qs;
  QTest::newRow("every category") << u"a_b–c(d)e«f»g¿h"_qs << u"abcdefgh"_qs;
  QTest::newRow("lines") << u"  A,\r\n\n B. "_qs << u"A\n\nB"_qs;
  QTest::newRow("marks stay") << u"Pen\u0303a, Ngu\u1EC5n."_qs << u"Pen\u0303a Ngu\u1EC5n"_qs;
  QTest::newRow("beyond 16 bits stays")
      << u"\U00010100 \U0001F600,\U00010400"_qs << u"\U00010100 \U0001F600\U00010400"_qs;
}

void PostprocessingTest::removesPunctuation() {
  QFETCH(const QString, text);
  PostwrightClient client;
  QTEST(client.fixPunctuation(text), "expected");
  client.setRemovePunctuation(false);
  QCOMPARE(client.fixPunctuation(text), text);
}

void PostprocessingTest::mixesCase_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("spellings");  // the user's
  QTest::addColumn<QString>("expected");

  QTest::newRow("every blank kept") << u"12  MAIN ST"_qs << QString() << u"12  Main St"_qs;
  QTest::newRow("tab joins") << u"DEWITT\tNE x"_qs << u"DeWitt"_qs << u"Dewitt\tNe X"_qs;
  QTest::newRow("O' name") << u"O'NEIL ST"_qs << QString() << u"O'Neil St"_qs;
  QTest::newRow("O' too short") << u"O'N"_qs << QString() << u"O'n"_qs;
  QTest::newRow("O' with a hyphen") << u"O'NEIL-SMITH"_qs << QString() << u"O'neil-Smith"_qs;
  QTest::newRow("O' with letters of marks") << u"O'N\u0303A"_qs << QString() << u"O'N\u0303a"_qs;
  QTest::newRow("product's words") << u"MCALLEN, TX PO BOX 7\n142ND AVE NW"_qs << QString()
                                   << u"McAllen, TX PO Box 7\n142nd Ave NW"_qs;
  QTest::newRow("user's words") << u"KNUTH MCKNUTH"_qs << u" KNUTH ;McKnuth;"_qs
                                << u"KNUTH McKnuth"_qs;
  QTest::newRow("later spelling") << u"KNUTH"_qs << u"KNuth;KnutH"_qs << u"KnutH"_qs;
  QTest::newRow("product's first") << u"TX"_qs << u"tX"_qs << u"TX"_qs;
  QTest::newRow("user's apostrophe") << u"O'NEIL"_qs << u"O'neil"_qs << u"O'Neil"_qs;
  QTest::newRow("only blanks") << u"  "_qs << u""_qs << u""_qs;
}

void PostprocessingTest::mixesCase() {
  QFETCH(const QString, text);
  QFETCH(const QString, spellings);
  PostwrightClient client;
  client.setMixedCase(u"St"_qs);  // replaced whole, below
  client.setMixedCase(spellings.isNull() ? std::nullopt : std::optional(spellings));
  QTEST(client.fixMixedCase(text), "expected");
}

void PostprocessingTest::comparesAddresses() {
  const struct {
    QString text;
    QString other;
    bool equal;
  } rows[] = {
      {u"12 Main St.\nSpringfield"_qs, u"12 MAIN ST SPRINGFIELD"_qs, true},
      {u"12 Main St"_qs, u"13 Main St"_qs, false},
      {u"12½ Main St"_qs, u"12 Main St"_qs, false},
      {u"Peña"_qs, u"Pena"_qs, false},
      {u"Weißes"_qs, u"WEISSES"_qs, true},
      {u"\U00010400"_qs, u"\U00010428"_qs, true},
      {u" .,-"_qs, u""_qs, true},
  };
  for (const auto& row : rows) {
    QVERIFY2(PostwrightClient::isAddress(row.text, row.other) == row.equal, qPrintable(row.text));
  }
}

void PostprocessingTest::hasAMessageForEveryResult() {
  const struct {
    int code;
    const char* message;
  } rows[] = {{1, "Unable to connect to the server"},
              {2, "Unable to get data from the server"},
              {3, "Request completed OK, but the server's reply is unexpected/wrong"},
              {4, "No internet connection available"},
              {10, "Invalid Address"},
              {11, "Invalid Zip Code"},
              {12, "Invalid State"},
              {13, "Invalid City"},
              {21, "Invalid address (Address not found)"},
              {22, "Multiple match"},
              {25, "Street address does not match"},
              {31, "exact match"},
              {32, "default match"},
              {0, "Unexpected error code 0"},
              {5, "Unexpected error code 5"},
              {-1, "Unexpected error code -1"}};
  for (const auto& row : rows) {
    QCOMPARE(PostwrightClient::stringForResult(row.code), QString::fromLatin1(row.message));
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, PostprocessingTest)
#include "PostprocessingTest.moc"
