#include <postwright/PostwrightSelector.h>

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

class PostwrightSelectorTest : public QObject {
  Q_OBJECT

 private slots:
  void namesOneUnit_data();
  void namesOneUnit();
  void needsNoNameWithoutRange();
};

void PostwrightSelectorTest::namesOneUnit_data() {
  QTest::addColumn<QString>("pattern");
  QTest::addColumn<QString>("template_");
  QTest::addColumn<QString>("bounds");  // low, high
  QTest::addColumn<QString>("shown");   // low character, high character, house numbers
  QTest::addColumn<QString>("typed");   // house number, unit
  QTest::addColumn<QString>("fixed");

  const QString pattern = u"100 MAIN ST %@\nX"_qs;
  const QString text = u"100 MAIN ST (1A - 1F)\nX"_qs;
  QTest::newRow("letter") << pattern << text << u"1A,1F"_qs << u"A,F,"_qs << u",C"_qs
                          << u"100 MAIN ST 1C\nX"_qs;
  QTest::newRow("outside") << pattern << text << u"1A,1F"_qs << u"A,F,"_qs << u",Z"_qs
                           << u"100 MAIN ST 1Z\nX"_qs;
  QTest::newRow("nothing") << pattern << text << u"1A,1F"_qs << u"A,F,"_qs << u","_qs
                           << u"100 MAIN ST 1\nX"_qs;
  QTest::newRow("placeholder") << pattern << text << u"1A,1F"_qs << u"A,F,"_qs << u",%@"_qs
                               << u"100 MAIN ST 1%@\nX"_qs;
  QTest::newRow("one digit") << pattern << u"100 MAIN ST (1 - 20)\nX"_qs << u"1,20"_qs << u"1,0,"_qs
                             << u",5"_qs << u"100 MAIN ST 5\nX"_qs;
  QTest::newRow("no high bound") << pattern << text << u"1A,"_qs << u"A,,"_qs << u",C"_qs
                                 << u"100 MAIN ST 1C\nX"_qs;
  QTest::newRow("percent signs") << u"50% OFF %@\n%d"_qs << u"50% OFF (A - B)\n%d"_qs << u"A,B"_qs
                                 << u"A,B,"_qs << u",B"_qs << u"50% OFF B\n%d"_qs;
  QTest::newRow("user's placeholders")
      << u"%@ JOE\n1 A ST %@\nX\n%@"_qs << u"%@ JOE\n1 A ST (A - B)\nX\n%@"_qs << u"A,B"_qs
      << u"A,B,"_qs << u",B"_qs << u"%@ JOE\n1 A ST B\nX\n%@"_qs;
  QTest::newRow("both ranges") << u"J\n%@ A ST %@\nX"_qs << u"J\n(1 - 99) A ST (A - B)\nX"_qs
                               << u"A,B"_qs << u"A,B,1 - 99"_qs << u"17,B"_qs
                               << u"J\n17 A ST B\nX"_qs;
  QTest::newRow("number still open")
      << u"J\n%@ A ST %@\nX"_qs << u"J\n(1 - 99) A ST (A - B)\nX"_qs << u"A,B"_qs
      << u"A,B,1 - 99"_qs << u",B"_qs << u"J\n(1 - 99) A ST B\nX"_qs;
  QTest::newRow("whole characters")
      << pattern << u"100 MAIN ST (1n\u0303 - \U00010400)\nX"_qs << u"1n\u0303,\U00010400"_qs
      << u"n\u0303,\U00010400,"_qs << u",Z"_qs << u"100 MAIN ST 1Z\nX"_qs;
}

void PostwrightSelectorTest::namesOneUnit() {
  QFETCH(const QString, pattern);
  QFETCH(const QString, template_);
  QFETCH(const QString, bounds);
  QFETCH(const QString, typed);
  PostwrightSelector selector(pattern, template_, bounds.section(u',', 0, 0),
                              bounds.section(u',', 1));
  QVERIFY(selector.hasRange() && !selector.fixedAddress());
  QCOMPARE(selector.addressTemplate(), template_);
  QTEST(selector.lowCharacter() + u',' + selector.highCharacter() + u',' +
            selector.houseNumberRange().value_or(QString()),
        "shown");
  selector.fixAddressWithCharacter(u"overwritten"_qs);
  selector.setHouseNumber(typed.section(u',', 0, 0));
  selector.fixAddressWithCharacter(typed.section(u',', 1));
  QTEST(*selector.fixedAddress(), "fixed");
}

void PostwrightSelectorTest::needsNoNameWithoutRange() {
  for (const QString& pattern : {u"100 MAIN ST\nX"_qs, u"%@ MAIN ST\nX"_qs}) {
    const auto selector = PostwrightSelector::postwrightSelectorWithAddressPattern(
        pattern, u"shown"_qs, QString(), u"1F"_qs);
    QVERIFY(!selector->hasRange());
    QCOMPARE(selector->fixedAddress(), std::optional(pattern));
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, PostwrightSelectorTest)
#include "PostwrightSelectorTest.moc"
