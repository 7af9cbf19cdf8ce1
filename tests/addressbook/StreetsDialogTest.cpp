// Fetching streets as a user does: the bar, the dialog, the real command, a stand-in for the
// publisher, and then an address checked with them.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "apps/CharacterLocale.h"
#include "apps/addressbook/dialogs/StreetsDialog.h"
#include "apps/addressbook/fix/BatchFixer.h"
#include "apps/addressbook/window/AddressBookWindow.h"
#include "tests/postal/base/PackedFiles.h"
#include "tests/postal/fetch/FileStandIn.h"

namespace postwright::addressbook {

namespace {

using postal::FileStandIn;

constexpr int kPatience = 60'000;  // milliseconds, for a busy machine
const std::string kTravis = "/geo/tiger/TIGER2025/ADDRFEAT/tl_2025_48453_addrfeat.zip";

// The ranges of a made-up county, in a real ZIP code.
std::string county() {
  std::ifstream file(POSTWRIGHT_SOURCE_DIR "/fuzz/corpus/import_table/addrfeat.dbf",
                     std::ios::binary);
  std::string table(std::istreambuf_iterator<char>(file), {});
  const std::string zip = "00011";
  for (size_t at = 0; (at = table.find(zip, at)) != std::string::npos;) {
    table.replace(at, zip.size(), "78701");
  }
  const TempFolder folder;
  std::ifstream packed(postal::WriteZip(folder, "a.zip", {{"tl_2025_48453_addrfeat.dbf", table}}),
                       std::ios::binary);
  return {std::istreambuf_iterator<char>(packed), {}};
}

}  // namespace

class StreetsDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void fetchesWhatIsUsedAtOnce();
  void stopsAndGoesOn();
  void saysWhyNot_data();
  void saysWhyNot();
  void leavesWithTheWindow();

 private:
  template <typename Widget>
  Widget* find(const char* name) const;
  // Opens the dialog by the bar's button and fills it in with keys.
  void open(const QString& state, const QString& county, const QString& server);
  QString progress() const {
    return _dialog.isNull() ? QString() : find<QLabel>("streetsProgress")->text();
  }
  QString checked(const QString& label);

  std::unique_ptr<QTemporaryDir> _data;
  std::unique_ptr<FileStandIn> _server;
  std::unique_ptr<BatchFixer> _fixer;
  std::unique_ptr<AddressBookWindow> _window;
  QPointer<StreetsDialog> _dialog;
};

template <typename Widget>
Widget* StreetsDialogTest::find(const char* name) const {
  auto* const found = _window->findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) {
    qFatal("no %s", name);
  }
  return found;
}

void StreetsDialogTest::init() {
  _data = std::make_unique<QTemporaryDir>();
  qputenv("XDG_DATA_HOME", _data->path().toUtf8());
  _server = std::make_unique<FileStandIn>();
  _server->Put(kTravis, county());
  _server->Put("/geo/docs/reference/codes2020/national_county2020.txt",
               "STATE|STATEFP|COUNTYFP|COUNTYNS|COUNTYNAME\nTX|48|453|1|Travis County\n");
  _fixer = std::make_unique<BatchFixer>("", "");
  _window = std::make_unique<AddressBookWindow>(*_fixer);
  _window->show();
  QVERIFY(QTest::qWaitForWindowActive(_window.get()));
}

void StreetsDialogTest::cleanup() {
  _window.reset();
}

void StreetsDialogTest::open(const QString& state, const QString& county, const QString& server) {
  auto* const bar = find<QWidget>("streetsBar");
  QVERIFY(bar->isVisible());
  QTest::keyClick(bar->findChild<QAbstractButton*>("messageStep"), Qt::Key_Space);
  _dialog = _window->findChild<StreetsDialog*>();
  QVERIFY(_dialog != nullptr);
  QVERIFY(QTest::qWaitForWindowActive(_dialog));
  QVERIFY(!find<QAbstractButton>("fetch")->isEnabled());  // no state yet
  QTest::keyClicks(find<QComboBox>("state"), state);
  QTest::keyClicks(find<QLineEdit>("county"), county);
  QTest::keyClicks(find<QLineEdit>("streetsServer"), server);
  QTest::keyClick(_dialog, Qt::Key_Return);
}

// Who is said to have answered.
QString StreetsDialogTest::checked(const QString& label) {
  QTimer::singleShot(0, this, [] {
    QWidget* const window = QApplication::activeModalWidget();
    QVERIFY(window != nullptr);
    const auto leave = qScopeGuard([window] { window->close(); });
    auto* const update = window->findChild<QAbstractButton*>("bnUpdate");
    QTRY_VERIFY_WITH_TIMEOUT(update->isEnabled(), kPatience);
    QTest::mouseClick(update, Qt::LeftButton);
  });
  const FixOutcome outcome = _fixer->fix({label}, {}, nullptr).value(0);
  return outcome.text + '|' + outcome.source;
}

void StreetsDialogTest::fetchesWhatIsUsedAtOnce() {
  const QString label = "Jane Doe\n120 north main street\naustin tx 78701";
  const QString corrected = "Jane Doe\n120 N MAIN ST\nAUSTIN TX 78701";
  QCOMPARE(checked(label), corrected + "|According to the list of ZIP codes.");
  open("Texas", "Travis", QString::fromStdString(_server->Url()));
  QTRY_VERIFY_WITH_TIMEOUT(_dialog.isNull(), kPatience);
  QVERIFY2(
      find<QLabel>("messageText")->text().startsWith("The streets of Travis, Texas are there."),
      qPrintable(find<QLabel>("messageText")->text()));
  QVERIFY(!find<QWidget>("streetsBar")->isVisible());
  const QString now = checked(label);
  QVERIFY2(now.startsWith(corrected) && now.contains("travis"), qPrintable(now));
}

void StreetsDialogTest::stopsAndGoesOn() {
  const QString url = QString::fromStdString(_server->Url());
  _server->Play(kTravis, {FileStandIn::Stall});
  open("Texas", {}, url);
  QTRY_VERIFY2_WITH_TIMEOUT(progress().startsWith("0 of 1 files fetched"), qPrintable(progress()),
                            kPatience);
  QVERIFY(!find<QComboBox>("state")->isEnabled());
  QTest::keyClick(_dialog, Qt::Key_Escape);
  QTRY_VERIFY2_WITH_TIMEOUT(progress().startsWith("Stopped."), qPrintable(progress()), kPatience);
  QVERIFY(_dialog->isVisible());
  _server->TakeRequests();
  QTest::keyClick(_dialog, Qt::Key_Return);
  QTRY_VERIFY_WITH_TIMEOUT(_dialog.isNull(), kPatience);
  const std::string asked = _server->TakeRequests();
  QVERIFY2(asked.starts_with(kTravis) && !asked.ends_with(" 0\n"), asked.c_str());
  QCOMPARE(_fixer->ownStreets().bases, QStringList{_data->filePath("postwright/texas.base")});
}

void StreetsDialogTest::saysWhyNot_data() {
  QTest::addColumn<QString>("county");
  QTest::addColumn<QString>("server");
  QTest::addColumn<QString>("why");
  QTest::newRow("no such county") << "Nowhere"
                                  << ""
                                  << "'Nowhere, VT' is neither a state nor a county";
  QTest::newRow("no file") << ""
                           << ""
                           << "has no file of vermont";
  QTest::newRow("no https") << ""
                            << "http://example.org"
                            << "is not https";
}

void StreetsDialogTest::saysWhyNot() {
  QFETCH(const QString, county);
  QFETCH(const QString, server);
  QFETCH(const QString, why);
  open("Vermont", county, server.isEmpty() ? QString::fromStdString(_server->Url()) : server);
  QTRY_VERIFY2_WITH_TIMEOUT(progress().contains(why), qPrintable(progress()), kPatience);
  QVERIFY(progress().startsWith("The streets could not be fetched. "));
  QVERIFY(find<QAbstractButton>("fetch")->isEnabled());
  QTest::keyClick(_dialog, Qt::Key_Escape);
  QTRY_VERIFY(_dialog.isNull());
  QVERIFY(find<QWidget>("streetsBar")->isVisible());
}

// Nothing keeps the program waiting.
void StreetsDialogTest::leavesWithTheWindow() {
  _server->Play(kTravis, {FileStandIn::Stall});
  open("Texas", {}, QString::fromStdString(_server->Url()));
  QTRY_VERIFY_WITH_TIMEOUT(progress().startsWith("0 of 1"), kPatience);
  QVERIFY(_window->close());
  QVERIFY(_dialog.isNull());
}

}  // namespace postwright::addressbook

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QCoreApplication::setOrganizationName("PostwrightTest");
  QStandardPaths::setTestModeEnabled(true);
  postwright::SetCharacterLocale();
  postwright::addressbook::StreetsDialogTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "StreetsDialogTest.moc"
