// The batch window of a host that has corrections reviewed, from the service's reply to what a
// person sees and what is written back.

#include <postwright/Deployment.h>
#include <postwright/NetworkReachability.h>
#include <postwright/ReviewedFix.h>
#include <postwright/UnreadReason.h>

#include <QApplication>
#include <QTextEdit>

#include "client/ReviewWords.h"
#include "client/batch/review/BatchReport.h"
#include "tests/client/ClientTestMain.h"
#include "tests/client/Controls.h"
#include "tests/client/batch/Person.h"
#include "tests/support/LoopbackServer.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// A service that knows one street: 12 MAIN ST is confirmed, 14 is not a number on it, 1-12 ELM ST
// is unchecked, and 16 comes back as 61. It finds nothing else.
LoopbackServer::Answer Answer(const std::string& request) {
  const auto holds = [&request](const char* words) {
    return request.find(words) != std::string::npos;
  };
  const std::string place =
      holds("02108") ? "</Address2><City>BOSTON</City><State>MA</State><Zip5>02108</Zip5>"
                     : "</Address2><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";
  const std::string known =
      "<DPVConfirmation>Y</DPVConfirmation><DPVFootnotes>AABB</DPVFootnotes>" +
      std::string(holds("\r\nPostwright-Source: 1\r\n")
                      ? "<Source><Kind>base</Kind><Name>a.base</Name></Source>"
                      : "");
  std::string address =
      "<Error><Number>-2147219401</Number><Description>Address Not Found.</Description></Error>";
  if (holds("ELM")) {
    address = "<Address2>1-12 ELM ST" + place;
  } else if (holds("14%20MAIN")) {
    address = "<Address2>14 MAIN ST" + place +
              "<DPVConfirmation>N</DPVConfirmation><DPVFootnotes>AAM3</DPVFootnotes>";
  } else if (holds("16%20MAIN")) {
    address = "<Address2>61 MAIN ST" + place + known;
  } else if (holds("12%20MAIN") && (holds("78701") || holds("02108"))) {
    address = "<Address2>12 MAIN ST" + place + known;
  }
  return LoopbackServer::Page("<R><Address>" + address + "</Address></R>");
}

const QString kPlace = u"\nAustin, TX 78701"_qs;
const QString kStreet = u"Jo O'Neil\n12 main street"_qs + kPlace;
const QString kSwapped = u"Jo O'Neil\n16 main st"_qs + kPlace;

// A window whose service is the one above.
class ReviewedWindow {
 public:
  explicit ReviewedWindow(const QStringList& texts, const BatchOptions& options)
      : window(EntriesOf(texts), true, CapitalizationUpper, std::nullopt), person(window) {
    const std::string endpoint = server.GetEndpoint();
    SetDeployment({.verifyHost = endpoint, .userId = "TEST", .probeHost = endpoint});
    window.setOptions(options);
    window.show();
    window.activateWindow();
  }

  BatchResultRecord::Values values(int row) const { return window.records().at(row)->values(); }

  const LoopbackServer server{Answer};
  PostwrightController window;
  Person person;
};

}  // namespace

class ReviewedWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void reviewsWhereTheHostSaysSo();
  void givesTheRestInTheSameForm();
  void saysWhyOfEachChange();
  void decidesOnTheDoubtfulTogether();
  void mendsWhatCanOnlyBeMeantOneWay();
  void callsNothingRightThatWasNotConfirmed();
  void namesTheServiceThatIsNotThere();
  void everyWordIsTranslated();
};

void ReviewedWindowTest::reviewsWhereTheHostSaysSo() {
  BatchOptions options;
  ReviewedWindow plain({kStreet, kSwapped}, options);
  QTRY_VERIFY(plain.person.hasFinished());
  QCOMPARE(plain.values(0).fixed, u"JO ONEIL\n12 MAIN ST\nAUSTIN TX 78701"_qs);
  QCOMPARE(plain.values(1).status, AddressStatusFixed);

  options.reviewsCorrections = true;
  options.form.punctuation = PunctuationKeep;
  ReviewedWindow reviewed({kStreet, kSwapped}, options);
  QTRY_VERIFY(reviewed.person.hasFinished());
  QCOMPARE(reviewed.values(0).fixed, u"Jo O'Neil\n12 MAIN ST\nAUSTIN, TX 78701"_qs);
  QCOMPARE(reviewed.values(1).status, AddressStatusMultiple);
  QVERIFY(reviewed.values(1).isDoubtful());
}

// Labels that are right are written in the same form as corrected ones and still count as
// unchanged, except one that would lose a number sign, one not asked about, and one a person left
// as typed.
void ReviewedWindowTest::givesTheRestInTheSameForm() {
  const QString right = u"Jo O'Neil\n12 Main St."_qs + kPlace;
  const QString hyphen = u"1-12 Elm St"_qs + kPlace;
  const QString route = u"RR 3 Box 14"_qs + kPlace;
  BatchOptions options = BatchOptions::all();
  options.form.punctuation = PunctuationRemove;
  ReviewedWindow open({right, kStreet, hyphen, route}, options);
  QTRY_VERIFY(open.person.hasFinished());
  const QString formed = u"Jo O'Neil\n12 MAIN ST\nAUSTIN TX 78701"_qs;
  QCOMPARE(open.values(0).status, AddressStatusUnchanged);
  QCOMPARE(open.person.column(1), (QStringList{formed, formed, hyphen, route}));
  QCOMPARE(open.window.results().size(), 2);
  QCOMPARE(open.window.results().first()->values().fixed, formed);
  QCOMPARE(open.person.find<QPushButton>(u"bnUpdate"_qs)->text(), u"&Apply to 2 Addresses"_qs);
  QVERIFY(
      open.person.label(u"txtProgress"_qs).contains(u"1 of these is written in the chosen form."));
  open.person.clickRow(0);
  QCOMPARE(open.person.find<QPlainTextEdit>(u"tvUnchangedAddress"_qs)->toPlainText(), formed);
  open.window.bnTakeTypedClick();
  QCOMPARE(open.person.text(0, 1), right);
  QCOMPARE(open.window.results().size(), 1);
  open.window.undo();
  QCOMPARE(open.window.results().size(), 2);

  options.sameFormForAll = false;
  ReviewedWindow plain({right}, options);
  QTRY_VERIFY(plain.person.hasFinished());
  QVERIFY(plain.window.results().isEmpty());
}

// The rule of a change is in the detail, at its mark, in the row's tip, for screen readers and in
// the report; the reason for turning a text down is below the message.
void ReviewedWindowTest::saysWhyOfEachChange() {
  const QString noZip = u"Jo\n12 main st\nAustin, TX"_qs;
  ReviewedWindow open({kStreet, kSwapped, noZip}, BatchOptions::all());
  const Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  const QString why = u"street changed to ST: suffix in standard form"_qs;
  open.person.clickRow(0);
  QCOMPARE(person.label(u"txtChanges"_qs), why);
  for (const auto& [field, word] :
       {std::pair(u"tvFixedBefore"_qs, u"street"_qs), std::pair(u"tvFixedAfter"_qs, u"ST\n"_qs)}) {
    auto* text = person.find<QTextEdit>(field);
    QTextCursor cursor = text->textCursor();
    cursor.setPosition(static_cast<int>(text->toPlainText().indexOf(word)) + 1);
    QCOMPARE(cursor.charFormat().toolTip(), why);
  }
  const QAbstractItemModel& rows = *person.table()->model();
  QVERIFY(rows.index(0, 1).data(Qt::ToolTipRole).toString().contains(why));
  QVERIFY(rows.index(0, 1).data(Qt::AccessibleTextRole).toString().endsWith(why));
  open.person.clickRow(1);
  QCOMPARE(person.label(u"txtDoubt"_qs), u"The number “16” became “61”."_qs);
  open.person.clickRow(2);
  QCOMPARE(person.label(u"txtErrorText"_qs), u"Invalid Address"_qs);
  QCOMPARE(person.label(u"txtErrorReason"_qs),
           u"There is no ZIP code. Write its five digits after the state."_qs);
  QVERIFY(csvReport(open.window.records()).contains(u"\"suffix in standard form\""));
  const QList<SummaryLine> lines = summaryLines(open.window.records());
  const auto rule = std::find_if(lines.begin(), lines.end(), [](const SummaryLine& line) {
    return line.text == u"suffix in standard form";
  });
  QVERIFY(rule != lines.end() && rule->count == 1 && rule->part);
}

// Confirmed, form only, or a number that the street does not have: each says which it is.
void ReviewedWindowTest::callsNothingRightThatWasNotConfirmed() {
  const QString confirmed = u"12 MAIN ST\nAUSTIN TX 78701"_qs;
  const QString formOnly = u"1-12 ELM ST\nAUSTIN TX 78701"_qs;
  const QString noNumber = u"14 MAIN ST\nAUSTIN TX 78701"_qs;
  ReviewedWindow open({confirmed, formOnly, noNumber, kStreet}, BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  const auto said = [&](int row, const QString& label) {
    person.clickRow(row);
    return person.label(label);
  };
  QCOMPARE(said(0, u"txtUnchanged"_qs),
           u"The service found this address right. Its entry stays as it is."_qs);
  QCOMPARE(said(1, u"txtUnchanged"_qs),
           u"The service found nothing to correct. Form only, nobody has checked the street. Its "
           "entry stays as it is."_qs);
  QCOMPARE(said(2, u"txtDoubt"_qs), u"The street is known, the number is not."_qs);
  QCOMPARE(said(3, u"txtFixedNote"_qs), u"Confirmed. According to the address base a.base."_qs);
  QCOMPARE(person.table()->model()->index(1, 2).data(Qt::AccessibleTextRole).toString(),
           u"Unchanged. Form only, nobody has checked the street."_qs);
  QCOMPARE(person.label(u"txtProgress"_qs),
           u"1 address was corrected. 1 was right. 1 is well written, but not confirmed. Left as "
           "they are: 1 open choice."_qs);
  QStringList summary;
  for (const SummaryLine& line : summaryLines(open.window.records())) {
    summary.append(u"%1 %2"_qs.arg(line.text).arg(line.count));
  }
  for (const QString& line :
       {u"Right as typed 1"_qs, u"Well written, not confirmed 1"_qs, u"confirmed 2"_qs,
        u"form only, nobody has checked the street 1"_qs}) {
    QVERIFY2(summary.contains(line), qPrintable(summary.join(u'|')));
  }
  const QString report = csvReport(open.window.records());
  QVERIFY(
      report.startsWith(u"\"Address as Typed\",\"Address as Fixed\",\"Status\",\"Confirmation\""));
  QCOMPARE(report.count(u"\"Confirmed. According to"), 2);
}

// The doubtful ones are listed alone, with their number, and accepted in one step.
void ReviewedWindowTest::decidesOnTheDoubtfulTogether() {
  const QString noNumber = u"14 MAIN ST\nAUSTIN TX 78701"_qs;
  const QString other = u"16 Main St Apt 2"_qs + kPlace;
  ReviewedWindow open({kStreet, kSwapped, noNumber, other}, BatchOptions::all());
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  auto* filter = person.find<QToolButton>(u"bnDoubtful"_qs);
  QCOMPARE(filter->text(), u"Dou&btful (3)"_qs);
  QTest::mouseClick(filter, Qt::LeftButton);
  QCOMPARE(person.column(0), (QStringList{kSwapped, noNumber, other}));
  person.table()->selectAll();
  auto* accept = person.find<QPushButton>(u"bnAcceptDoubtful"_qs);
  QCOMPARE(accept->text(), u"Accept 3 &Doubtful"_qs);
  person.click(u"bnAcceptDoubtful"_qs);
  QCOMPARE(open.values(1).status, AddressStatusFixed);
  QCOMPARE(open.values(1).fixed, u"Jo O'Neil\n61 MAIN ST\nAUSTIN TX 78701"_qs);
  QVERIFY(!open.values(1).own);
  QCOMPARE(open.values(2).status, AddressStatusUnchanged);  // there was nothing else to take
  QVERIFY(open.values(2).own);
  QVERIFY(!accept->isVisible());
  QCOMPARE(person.find<QPushButton>(u"bnUpdate"_qs)->text(), u"&Apply 3 Corrections"_qs);
  open.window.undo();
  QCOMPARE(filter->text(), u"Dou&btful (3)"_qs);
  QTest::mouseClick(filter, Qt::LeftButton);
  QCOMPARE(person.column(0).size(), 4);
  open.window.bnShowAllClick();
  person.table()->selectAll();
  QVERIFY(accept->isVisible());
}

// A ZIP code without its zero, and a number in words: one click for one, or for all of that kind.
void ReviewedWindowTest::mendsWhatCanOnlyBeMeantOneWay() {
  const QString first = u"Jo\n12 Main St\nBoston, MA 2108"_qs;
  const QString second = u"Ann\n12 Main St\nBoston MA 2108"_qs;
  const QString words = u"Twelve Main St\nAustin, TX 78701"_qs;
  BatchOptions options = BatchOptions::all();
  options.sameFormForAll = false;
  ReviewedWindow open({first, second, words, kStreet}, options);
  Person& person = open.person;
  QTRY_VERIFY(person.hasFinished());
  person.clickRow(2);
  QCOMPARE(person.find<QPushButton>(u"bnUseProposal"_qs)->text(), u"Check &with “12”"_qs);
  QVERIFY(!person.find<QWidget>(u"bnUseProposals"_qs)->isVisible());
  person.click(u"bnUseProposal"_qs);
  QTRY_COMPARE(open.values(2).status, AddressStatusFixed);
  QCOMPARE(open.values(2).fixed, u"12 MAIN ST\nAUSTIN TX 78701"_qs);
  person.clickRow(0);
  QCOMPARE(person.find<QPushButton>(u"bnUseProposal"_qs)->text(), u"Check &with “02108”"_qs);
  auto* all = person.find<QPushButton>(u"bnUseProposals"_qs);
  QCOMPARE(all->text(), u"Mend All 2 Like Thi&s"_qs);
  QStringList mnemonics;
  checkControls(open.window, mnemonics);
  person.click(u"bnUseProposals"_qs);
  QTRY_COMPARE(open.window.results().size(), 4);
  QCOMPARE(open.values(0).fixed, u"Jo\n12 MAIN ST\nBOSTON MA 02108"_qs);
  QCOMPARE(open.values(1).fixed, u"Ann\n12 MAIN ST\nBOSTON MA 02108"_qs);
  open.window.undo();
  QCOMPARE(open.values(0).address, first);
  QCOMPARE(open.values(0).status, AddressStatusError);
  person.clickRow(3);
  person.clickRow(0);
  QVERIFY(all->isVisible());
}

// At once, and when the run waits for it.
void ReviewedWindowTest::namesTheServiceThatIsNotThere() {
  const std::pair<std::string, FetchOutcome> services[] = {
      {"127.0.0.1:1", FetchOutcomeRefused}, {"gone.invalid:8470", WhyUnreachable("gone.invalid")}};
  for (const auto& [server, outcome] : services) {
    for (const bool waits : {false, true}) {
      BatchOptions options = BatchOptions::all();
      options.waitsForService = waits;
      options.giveUpAfter = std::chrono::milliseconds(0);
      SetDeployment({.verifyHost = server, .userId = "TEST", .probeHost = server});
      PostwrightController window(EntriesOf({kStreet, kSwapped, kStreet, kSwapped}), true,
                                  CapitalizationUpper, std::nullopt);
      window.setOptions(options);
      window.show();
      const Person person(window);
      QTRY_VERIFY(person.hasFinished());
      const QString why = failureOf(kStreet, VerifyReport("", {.outcome = outcome})).reason;
      QVERIFY(why.contains(QString::fromStdString(server)));
      QVERIFY(person.find<QWidget>(u"vwBanner"_qs)->isVisible());
      QCOMPARE(person.label(u"txtBanner"_qs),
               why + (waits ? u" The address service has not answered for 0 minutes. 4 addresses "
                              "were not asked about."_qs
                            : u" 4 addresses could not be checked."_qs));
    }
  }
}

// In Spanish nothing appears in the core's English.
void ReviewedWindowTest::everyWordIsTranslated() {
  if (QLocale().language() != QLocale::Spanish) {
    QCOMPARE(wordsOf(CorrectionRule::Suffix), u"suffix in standard form"_qs);
    return;
  }
  for (int number = 0; number < 200; ++number) {
    const auto rule = static_cast<CorrectionRule>(number);
    if (std::string_view(CorrectionRuleCode(rule)) == "unknown") {
      continue;
    }
    QVERIFY2(wordsOf(rule) != QLatin1String(CorrectionRuleText(rule)), CorrectionRuleCode(rule));
    const CorrectionChange doubt{rule, {L"a %2"}, {L"b"}, true, L"English"};
    QVERIFY2(!IsDoubt(rule) || sentenceOf(doubt) != u"English", CorrectionRuleCode(rule));
  }
  const CorrectionChange doubt{CorrectionRule::NumberChanged, {L"1 %2"}, {L"2"}, true, L""};
  QCOMPARE(sentenceOf(doubt), u"El número “1 %2” pasó a ser “2”."_qs);
  for (int number = 1; number < 20; ++number) {
    const auto reason = static_cast<LeftAloneReason>(number);
    QVERIFY2(sentenceOf(reason).isEmpty() ||
                 sentenceOf(reason) != QString::fromUtf8(TextOfReason(reason)),
             CodeOfReason(reason));
  }
  const VerifyReport missing("", {.outcome = FetchOutcomeNotResolved});
  QCOMPARE(failureOf(kStreet, missing).reason,
           u"No existe el equipo %1. Revise el nombre del servidor."_qs.arg(
               QString::fromStdString(GetDeployment().verifyHost)));
  const VerifyReport refused(
      "<R><Address><Error><Number>-2147219400</Number><Description>Invalid "
      "City</Description></Error></Address></R>");
  QCOMPARE(failureOf(kStreet, refused).reason,
           u"El servicio dice: Invalid City. Revise la ciudad: en el estado no hay ninguna con ese "
           "nombre."_qs);
  for (const char* unread :
       {"", "a\nParis\nFrance", "12 Main St\nBoston MA 2108", "12 Main St\nA TX",
        "12 Main St\nAustin 78701", "Ten Main St\nAustin TX 78701", "Main St\nAustin TX 78701"}) {
    const QString label = QString::fromUtf8(unread);
    const UnreadReason reason(label.toStdWString());
    QVERIFY(reason.GetCause() != UnreadCauseNone);
    QVERIFY2(failureOf(label, refused).reason != QString::fromUtf8(reason.GetText()),
             reason.GetCode());
    QVERIFY2(!failureOf(label, refused).reason.contains(u"Invalid City"), reason.GetCode());
  }
  const VerifyReport answered(
      "<R><Address><Address2>1 A</Address2><Source><Kind>base</Kind><Name>a %2</Name>"
      "<Date>2026-11-20</Date></Source></Address></R>");
  QCOMPARE(sentenceOf(Confirmation(answered)),
           u"Solo la forma: nadie ha comprobado la calle. Según la base de direcciones a %2 del "
           "2026-11-20."_qs);
  for (qint32 kind = VerifySourceBase; kind <= VerifySourceCache; ++kind) {
    QVERIFY(sourceText({static_cast<VerifySourceKind>(kind)}).startsWith(u"Según"));
  }
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, ReviewedWindowTest)
#include "ReviewedWindowTest.moc"
