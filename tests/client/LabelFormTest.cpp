#include <postwright/LabelForm.h>

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

class LabelFormTest : public QObject {
  Q_OBJECT

 private slots:
  void leavesOutWhatTheFormLeavesOut();
  void putsALabelInCase();
  void putsNamesBackAsTyped_data();
  void putsNamesBackAsTyped();
};

void LabelFormTest::leavesOutWhatTheFormLeavesOut() {
  const struct {
    QString address;
    QString postal;
    QString bare;
  } rows[] = {
      {u"112-10 Main St, Apt. 4"_qs, u"112-10 MAIN ST APT 4"_qs, u"11210 MAIN ST APT 4"_qs},
      {u"12-B Elm; B-12 Elm"_qs, u"12-B ELM B-12 ELM"_qs, u"12B ELM B12 ELM"_qs},
      {u"-12 12- - Winston-Salem"_qs, u"12 12 WINSTON SALEM"_qs, u"12 12 WINSTONSALEM"_qs},
      {u"12 1/2 c/o /3 4/"_qs, u"12 1/2 C/O 3 4"_qs, u"12 12 CO 3 4"_qs},
      {u"12 39.2 Rd. .5 5. St.Louis"_qs, u"12 39.2 RD 5 5 ST LOUIS"_qs,
       u"12 392 RD 5 5 STLOUIS"_qs},
      {u"N.W. J.B. N. W. P.O.B"_qs, u"NW JB N W POB"_qs, u"NW JB N W POB"_qs},
      {u"O'Neil O\u2019Neil 'x'"_qs, u"ONEIL ONEIL X"_qs, u"ONEIL ONEIL X"_qs},
      {u"A & B #4 # 5"_qs, u"A & B #4 # 5"_qs, u"A B 4 5"_qs},
      {u"1 A\nB, TX 78701-1234"_qs, u"1 A\nB TX 78701-1234"_qs, u"1 A\nB TX 78701-1234"_qs},
      {u"78701-1234 1 A\nTX 178701-1234"_qs, u"78701-1234 1 A\nTX 178701-1234"_qs,
       u"787011234 1 A\nTX 1787011234"_qs},
      {u"TX 78701-12345\n8701-1234"_qs, u"TX 78701-12345\n8701-1234"_qs,
       u"TX 7870112345\n87011234"_qs},
      {u"Peña-Ruiz"_qs, u"PEÑA RUIZ"_qs, u"PEÑARUIZ"_qs},
      {u""_qs, u""_qs, u""_qs},
  };
  PostwrightClient client;
  client.setRemovePunctuation(false);
  for (const auto& row : rows) {
    QCOMPARE(addressInForm(row.address, PunctuationPostal, client), row.postal);
    QCOMPARE(addressInForm(row.address, PunctuationRemove, client), row.bare);
    QCOMPARE(addressInForm(row.address, PunctuationKeep, client), row.address);
  }
  client.setCapitalization(CapitalizationMixed);
  QCOMPARE(addressInForm(u"12 O'NEIL ST"_qs, PunctuationPostal, client), u"12 ONeil St"_qs);
}

void LabelFormTest::putsALabelInCase() {
  const QString labels[] = {
      u"  Jo's  co. \r\n\t\n12 main st \na a"_qs,
      u"jo\u2028 12 main st \u2029a\u0085b\rc\vd\fe\u2028\u2028"_qs,
      u"\r jo\n\r\n"_qs,
      u""_qs,
  };
  PostwrightClient client;
  client.setRemovePunctuation(false);
  for (const QString& label : labels) {
    client.setCapitalization(CapitalizationUpper);
    QCOMPARE(labelInCase(label, client), label.toUpper());
    client.setCapitalization(CapitalizationLower);
    QCOMPARE(labelInCase(label, client), label.toLower());
    client.setCapitalization(CapitalizationMixed);
    QCOMPARE(labelInCase(label, client).toLower(), label.toLower());
  }
}

void LabelFormTest::putsNamesBackAsTyped_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("corrected");
  QTest::addColumn<QString>("label");
  const QString corrected = u"JO SMITH\nACME INC\n12 MAIN ST\nAUSTIN TX 78701\nRING"_qs;
  QTest::newRow("above and below")
      << u"\n Jo \"Smith\"\r\n\r\nAcme, Inc.\n12 main st\nAustin, TX 78701\nring!\n"_qs << corrected
      << u"Jo \"Smith\"\nAcme, Inc.\n12 MAIN ST\nAUSTIN TX 78701\nring!"_qs;
  QTest::newRow("another name ends it")
      << u"Joe Smith\nAcme Inc\n12 main st\nAustin TX 78701\nringing"_qs << corrected << corrected;
  QTest::newRow("the second line another")
      << u"Jo Smith\nAcme Co\n12 main st\nAustin TX 78701\nRing"_qs << corrected
      << u"Jo Smith\nACME INC\n12 MAIN ST\nAUSTIN TX 78701\nRing"_qs;
  QTest::newRow("a digit ends it")
      << u"3m co\n12 main st\nx"_qs << u"3M CO\n12 MAIN ST\nX"_qs << u"3M CO\n12 MAIN ST\nx"_qs;
  QTest::newRow("accents typed apart")
      << u"Jose\u0301\n1 a"_qs << u"JOSÉ\n1 A"_qs << u"Jose\u0301\n1 A"_qs;
  QTest::newRow("rare line breaks")
      << u"Jo Smith\u2028Acme, Inc.\u2029 12 main st\vAustin, TX 78701\u0085ring!"_qs << corrected
      << u"Jo Smith\nAcme, Inc.\n12 MAIN ST\nAUSTIN TX 78701\nring!"_qs;
  QTest::newRow("fewer lines than typed") << u"Jo\nAnn\n1 a"_qs << u"JO"_qs << u"Jo"_qs;
}

void LabelFormTest::putsNamesBackAsTyped() {
  QFETCH(const QString, typed);
  QFETCH(const QString, corrected);
  QTEST(withNamesAsTyped(corrected, typed), "label");
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, LabelFormTest)
#include "LabelFormTest.moc"
