// What each label gives a word processor, and how a person is asked about some.

#include <QTest>

#include "apps/CharacterLocale.h"
#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/lists/AskList.h"
#include "apps/addressbook/lists/MergeFile.h"
#include "apps/addressbook/lists/MergeParts.h"

namespace postwright::addressbook {

class MergeFileTest : public QObject {
  Q_OBJECT

 private slots:
  void takesLabelsApart_data();
  void takesLabelsApart();
  void saysHowEachStands();
};

void MergeFileTest::takesLabelsApart_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<QString>("parts");
  const std::pair<const char*, const char*> rows[] = {
      {"Jane Doe\n12 Main St Apt 4\nAustin TX 78701-1234",
       "Jane Doe|12 Main St|Apt 4|Austin|TX|78701-1234|"},
      {"JANE DOE\nACME INC\n12 N MAIN ST # 4B\nAUSTIN, TX 78701",
       "JANE DOE+ACME INC|12 N MAIN ST|# 4B|AUSTIN|TX|78701|"},
      {"Class of 1998\n12 Main St\nApt 4\nReno NV 89501",
       "Class of 1998|12 Main St|Apt 4|Reno|NV|89501|"},
      {"Jane Doe\n12 Main St, Ste 200\nReno NV 89501",
       "Jane Doe|12 Main St|Ste 200|Reno|NV|89501|"},
      {"Jane Doe\nPO Box 12\nReno NV 89501", "Jane Doe|PO Box 12||Reno|NV|89501|"},
      {"Jane Doe\nRR 3 Box 14\nHope AR 71801", "Jane Doe|RR 3 Box 14||Hope|AR|71801|"},
      {"Jane Doe\nSomewhere", "Jane Doe+Somewhere||||||"},
      {"Jane Doe\n12 Main St\nReno NV 89501\nUSA", "Jane Doe|12 Main St||Reno|NV|89501|USA"},
      {"Peña & Söhne\n4 Oak Ave Fl 2\nReno NV 89501", "Peña & Söhne|4 Oak Ave|Fl 2|Reno|NV|89501|"},
  };
  for (const auto& [label, parts] : rows) {
    QTest::newRow(label) << QString(label) << QString(parts);
  }
}

void MergeFileTest::takesLabelsApart() {
  QFETCH(QString, label);
  const MergeParts parts = mergePartsOf(label);
  QTEST(QStringList({parts.names.join('+'), parts.street, parts.unit, parts.city, parts.state,
                     parts.zip, parts.below})
            .join('|'),
        "parts");
}

void MergeFileTest::saysHowEachStands() {
  const QDate today(2026, 5, 1);
  const auto checked = [today](const char* label, Check check) {
    check.day = today;
    check.text = textFingerprint(label);
    return Entry{0, label, check};
  };
  Book book;
  book.reset({checked("=Li\nInc\n1 A St\nReno NV 89501", {{}, {}, {}, Known::Whole}),
              checked("Al\n2 A St\nReno NV 89501", {{}, {}, "No such street."}),
              checked("Bo\n3 A St\nReno NV 89501", {{}, {}, "Away", {}, {}, true}),
              {0, "Cy\n4 A St\nReno NV 89501", {}}},
             today);
  QCOMPARE(MergeFile::write(book, {3, 2, 1, 0}),
           "\xEF\xBB\xBFName,Name 2,Street,Unit,City,State,ZIP code,Below "
           "it,Kind,Confirmation,Reason\r\n"
           "Cy,,4 A St,,Reno,NV,89501,,,Not checked,\r\n"
           "Bo,,3 A St,,Reno,NV,89501,,,Not checked,Away\r\n"
           "Al,,2 A St,,Reno,NV,89501,,,Turned down,No such street.\r\n"
           "\"'=Li\",Inc,1 A St,,Reno,NV,89501,,,Confirmed,\r\n");
  const QList<int> asked = AskList::of(book, {3, 2, 1, 0});
  QCOMPARE(asked, QList<int>{1});
  QCOMPARE(AskList::text(book, asked),
           "Al\n2 A St\nReno NV 89501\nWhat is wrong: No such street.\nThe right address:\n");
  QVERIFY(AskList::page(book, asked).contains("<td width='30%'>No such street.</td>"));
}

}  // namespace postwright::addressbook

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  postwright::SetCharacterLocale();
  postwright::addressbook::MergeFileTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "MergeFileTest.moc"
