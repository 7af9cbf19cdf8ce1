// The dialog that asks how to read a file: a choice shows its effect at once.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTest>

#include "apps/addressbook/dialogs/ColumnDialog.h"
#include "apps/addressbook/widgets/LabelPreview.h"
#include "apps/workbook/OdsWorkbook.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

class ColumnDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void showsWhatIsChosen_data();
  void showsWhatIsChosen();
  void fitsASmallScreen();

 private:
  TestFolder _folder;
};

void ColumnDialogTest::initTestCase() {
  QCoreApplication::setOrganizationName("PostwrightTest");
  QStandardPaths::setTestModeEnabled(true);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path({}));
}

// A field, the keys pressed there, and the label and reason that follow.
void ColumnDialogTest::showsWhatIsChosen_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QString>("field");
  QTest::addColumn<QString>("keys");
  QTest::addColumn<QString>("label");
  QTest::addColumn<bool>("isRefused");
  const QByteArray mac = "Name,Street\nJos\x8E,1 Elm St\n";
  QTest::newRow("encoding") << mac << "encoding"
                            << "m"
                            << "José\n1 Elm St" << false;
  QTest::newRow("encoding that it is not in")
      << mac << "encoding"
      << "u" << QString("Jos%1\n1 Elm St").arg(QChar(0x17D)) << true;
  QTest::newRow("delimiter") << QByteArray("Name;Street,x\nLi;1 Elm St,y\n") << "delimiter"
                             << "s"
                             << "Li\n1 Elm St,y" << false;
  QTest::newRow("rows above") << QByteArray("Name,Street\nMr,x\nName,Street,\nLi,1 Elm St,\n")
                              << "skipped"
                              << "2"
                              << "Li\n1 Elm St" << false;
  QTest::newRow("too many") << QByteArray("Name,Street\nLi,1 Elm St\n") << "skipped"
                            << "7"
                            << "Li\n1 Elm St" << true;
  QTest::newRow("no names") << QByteArray("Name,Street\nLi,1 Elm St\n") << "header"
                            << " "
                            << "Li\n1 Elm St" << false;
}

void ColumnDialogTest::showsWhatIsChosen() {
  QFETCH(QByteArray, file);
  QFETCH(QString, field);
  QFETCH(QString, keys);
  QFETCH(QString, label);
  QFETCH(bool, isRefused);
  const std::unique_ptr<BookFile> book = openBookFile(_folder.put("a.csv", file));
  ColumnDialog dialog(*book->columns(), "a.csv");
  dialog.show();
  dialog.findChild<QSpinBox*>("skipped")->selectAll();  // as going there by key does
  QTest::keyClicks(dialog.findChild<QWidget*>(field), keys);
  const auto* const preview = dialog.findChild<LabelPreview*>();
  const auto* const problem = dialog.findChild<QLabel*>("problem");
  if (field == u"header") {
    QCOMPARE(dialog.findChild<QTableWidget*>("columns")->item(0, 0)->text(), "A");
    return;
  }
  QCOMPARE(preview->accessibleDescription(), label);
  QCOMPARE(problem->isVisible(), isRefused);
  QTest::mouseClick(dialog.findChild<QPushButton*>("useColumns"), Qt::LeftButton);
  QCOMPARE(book->entries().first().label, label);
}

// 1280 x 720 at 200 %, less the frame and a desktop's panel.
void ColumnDialogTest::fitsASmallScreen() {
  for (const QByteArray& file : {QByteArray("Name,Home Street,Home City,Work Street,Work City\n"
                                            "Li,1 Elm St,Reno,2 Oak St,Elko\n"),
                                 workbook::OdsWorkbook::make()}) {
    const std::unique_ptr<BookFile> book = openBookFile(_folder.put("b.bin", file));
    ColumnDialog dialog(*book->columns(), "b");
    dialog.show();
    const QSize least = dialog.minimumSizeHint();
    QVERIFY2(least.width() <= 640 && least.height() <= 330,
             qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
  }
}

}  // namespace postwright::addressbook

QTEST_MAIN(postwright::addressbook::ColumnDialogTest)
#include "ColumnDialogTest.moc"
