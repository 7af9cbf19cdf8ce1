// The window as users see it: keys, clicks and the questions it asks.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "apps/addressbook/dialogs/PreferencesDialog.h"
#include "apps/addressbook/formats/rows/ColumnMemory.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/settings/Translations.h"
#include "apps/addressbook/window/AddressBookWindow.h"
#include "apps/addressbook/window/EntryTable.h"
#include "apps/tables/ColumnGuess.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

namespace {

const QByteArray kBook =
    "Name,Street,City,State,Zip,Phone\n"
    "Jane Doe,12 Main St,Austin,TX,78701,555-0101\n"
    "Al Roe,9 Elm St,Reno,NV,89501,555-0102\n"
    "Zoe Li,100 Oak St,Boise,ID,83702,555-0103\n";

// Gives scripted answers and keeps what was asked: the batch window has tests of its own.
class ScriptedFixer final : public AddressFixer {
 public:
  QList<FixOutcome> fix(const QStringList& labels, const FixSettings&, QWidget*) override {
    asked = labels;
    return outcomes;
  }
  QString serverFor(const QString& server) const override {
    return server.isEmpty() ? usual : server;
  }
  OwnStreets ownStreets() const override { return streets; }

  QString usual;
  OwnStreets streets;

  QStringList asked;
  QList<FixOutcome> outcomes;
};

}  // namespace

class WindowTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void init();
  void cleanup();
  void typingIsOneStep();
  void addsAndRemovesByKeys();
  void searches();
  void sortsOnRequestOnly();
  void sortsByLastName();
  void mergesOneAddressByHand();
  void asksForColumnsOnce();
  void aBatchIsOneStep();
  void showsHowALabelWillRead();
  void skipsWhatWasFoundRight();
  void keepsWhatWasRightWhenNobodyAnswers();
  void asksBeforeChangesAreLost_data();
  void asksBeforeChangesAreLost();
  void warnsWhenTheFileHasChanged();
  void tellsADeletedFile();
  void columnsOfAFileThatHasNoneNow();
  void savesAsTheTypeChosen_data();
  void savesAsTheTypeChosen();
  void exportsOverNothingUnasked();
  void leavesWhenSavedElsewhere();
  void saysWhoAnswers_data();
  void saysWhoAnswers();
  void saysThatNoStreetsAreKnown();
  void opensWhatIsDropped();
  void saysWhyAFileDoesNotOpen();
  void takesBigBooks();

 private:
  template <typename Widget>
  Widget* find(const char* name, QWidget* in = nullptr) const;
  void trigger(const char* action) const { find<QAction>(action)->trigger(); }
  QString shown(int row, int column) const;
  QString path(const char* name) const { return _folder->path(name); }
  void put(const char* name, const QByteArray& bytes) const { _folder->put(name, bytes); }
  QByteArray bytes(const char* name) const { return _folder->bytes(name); }
  // Has the user press a button of the modal window that is about to come up.
  void answer(const QString& button, QString* said = nullptr);
  void press(const QString& button, QString* said = nullptr);  // of the one that is up
  // Types a name into a dialog that saves, and returns the field.
  QLineEdit* typeName(QFileDialog* dialog, const QString& typed);

  QTemporaryDir _settings;
  std::unique_ptr<TestFolder> _folder;
  ScriptedFixer _fixer;
  std::unique_ptr<AddressBookWindow> _window;
  EntryTable* _table = nullptr;
  QPlainTextEdit* _editor = nullptr;
};

template <typename Widget>
Widget* WindowTest::find(const char* name, QWidget* in) const {
  auto* const found = (in != nullptr ? in : _window.get())->findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) {
    qFatal("no %s", name);
  }
  return found;
}

void WindowTest::initTestCase() {
  QCoreApplication::setOrganizationName("PostwrightTest");
  QStandardPaths::setTestModeEnabled(true);
  installTranslations();
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _settings.path());
}

void WindowTest::init() {
  QFile::remove(CheckHistory::usualPath());
  QSettings().clear();
  _folder = std::make_unique<TestFolder>();
  put("book.csv", kBook);
  const QStringList header = {"Name", "Street", "City", "State", "Zip", "Phone"};
  ColumnMemory::remember(kBook.first(kBook.indexOf('\n')),
                         {',', true, 0, tables::guessColumns(header, {})});
  _fixer.usual.clear();
  _fixer.streets = {};
  _window = std::make_unique<AddressBookWindow>(_fixer);
  _window->show();
  _table = find<EntryTable>("entryTable");
  _editor = find<QPlainTextEdit>("labelEditor");
  QVERIFY(QTest::qWaitForWindowActive(_window.get()));
  QVERIFY(_window->openPath(path("book.csv")));
}

void WindowTest::cleanup() {
  _window->document().undoStack().setClean();
  _window.reset();
}

QString WindowTest::shown(int row, int column) const {
  return _table->model()->index(row, column).data().toString();
}

void WindowTest::answer(const QString& button, QString* said) {
  QTimer::singleShot(0, this, [this, button, said] { press(button, said); });
}

void WindowTest::press(const QString& button, QString* said) {
  QWidget* const window = QApplication::activeModalWidget();
  QVERIFY(window != nullptr);
  const auto leave = qScopeGuard([window] { window->close(); });  // a failure must not hang
  if (const auto* const box = qobject_cast<QMessageBox*>(window); box != nullptr && said) {
    *said = box->text() + "\n" + box->informativeText();
  }
  for (QAbstractButton* const each : window->findChildren<QAbstractButton*>()) {
    if (each->text().remove('&').startsWith(button)) {
      QTest::mouseClick(each, Qt::LeftButton);
      return;
    }
  }
  QFAIL(qPrintable("no button " + button));
}

// Keys typed in one go are one step of undo, whose key works in the field too.
void WindowTest::typingIsOneStep() {
  _table->selectRow(1);
  QTest::keyClick(_table, Qt::Key_F2);
  QTRY_VERIFY(_editor->hasFocus());
  QTest::keyClick(_editor, Qt::Key_Return);
  QTest::keyClicks(_editor, "USA  ");
  QCOMPARE(shown(1, EntryModel::Street), "9 Elm St, USA");
  QVERIFY(_window->isWindowModified());
  QTest::keyClick(_editor, Qt::Key_Z, Qt::ControlModifier);
  QCOMPARE(_editor->toPlainText(), "Al Roe\n9 Elm St\nReno, NV 89501");
  QVERIFY(!_window->isWindowModified());
  QTest::keyClick(_editor, Qt::Key_Y, Qt::ControlModifier);
  QCOMPARE(shown(1, EntryModel::Street), "9 Elm St, USA");
  QTest::keyClick(_editor, Qt::Key_Escape);
  QTRY_VERIFY(_table->hasFocus());
  trigger("save");
  QVERIFY(bytes("book.csv").contains(",555-0102\n"));
  QVERIFY(!_window->isWindowModified());
}

void WindowTest::addsAndRemovesByKeys() {
  QTest::keyClick(_window.get(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
  QTRY_VERIFY(_editor->hasFocus());
  QTest::keyClicks(_editor, "New One");
  QCOMPARE(shown(3, EntryModel::Name), "New One");
  QTest::keyClick(_editor, Qt::Key_Escape);
  _table->selectRow(0);
  QTest::keyClick(_table, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(_table, Qt::Key_Delete);
  QCOMPARE(_table->model()->rowCount(), 2);
  QCOMPARE(shown(0, EntryModel::Name), "Zoe Li");
  for (int step = 0; step < 3; ++step) {
    QTest::keyClick(_table, Qt::Key_Z, Qt::ControlModifier);
  }
  QCOMPARE(_table->model()->rowCount(), 3);
  trigger("save");
  QCOMPARE(bytes("book.csv"), kBook);
}

void WindowTest::searches() {
  auto* const field = find<QLineEdit>("searchField");
  QTest::keyClick(_table, Qt::Key_F, Qt::ControlModifier);
  QTRY_VERIFY(field->hasFocus());
  QTest::keyClicks(field, "reno al");
  QCOMPARE(_table->model()->rowCount(), 1);
  QCOMPARE(_table->selectedBookRows(), QList<int>{1});
  QCOMPARE(find<QLabel>("counts")->text(), "1 of 3 entries");
  _window->document().edit(1, "No longer");  // an entry does not vanish under the user's hands
  QCOMPARE(_table->model()->rowCount(), 1);
  QTest::keyClicks(field, " nobody");
  QVERIFY(find<QLabel>("emptyTitle")->isVisible());
  QTest::mouseClick(find<QAbstractButton>("emptyStep"), Qt::LeftButton);
  QCOMPARE(_table->model()->rowCount(), 3);
  QVERIFY(field->text().isEmpty());
}

void WindowTest::sortsOnRequestOnly() {
  _table->selectRow(0);
  const QHeaderView* const header = _table->horizontalHeader();
  const QPoint onStreet(header->sectionViewportPosition(EntryModel::Street) + 20, 5);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, onStreet);
  QCOMPARE(shown(0, EntryModel::Street), "9 Elm St");
  QCOMPARE(shown(2, EntryModel::Street), "100 Oak St");  // numbers count as numbers
  QCOMPARE(_table->selectedBookRows(), QList<int>{0});
  _window->document().edit(0, "Jane Doe\n500 Main St\nAustin, TX 78701");
  QCOMPARE(shown(1, EntryModel::Street), "500 Main St");
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, onStreet);
  QCOMPARE(shown(0, EntryModel::Street), "500 Main St");
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, onStreet);
  QCOMPARE(shown(1, EntryModel::Name), "Al Roe");  // the order of the book again
}

// By menu, and from then on by the heading, also in the next run.
void WindowTest::sortsByLastName() {
  trigger("sortByLastName");
  QCOMPARE(shown(0, EntryModel::Name), "Jane Doe");
  QCOMPARE(shown(2, EntryModel::Name), "Al Roe");
  QVERIFY(find<QAction>("sortByLastName")->isChecked());
  trigger("sortByName");
  QCOMPARE(shown(0, EntryModel::Name), "Al Roe");
  trigger("sortByLastName");
  trigger("sortByFile");
  _window = std::make_unique<AddressBookWindow>(_fixer);
  _table = find<EntryTable>("entryTable");
  QVERIFY(_window->openPath(path("book.csv")));
  _table->sortByColumn(EntryModel::Name, Qt::DescendingOrder);
  QCOMPARE(shown(0, EntryModel::Name), "Al Roe");
  QVERIFY(find<QAction>("sortByLastName")->isChecked());
  trigger("sortByZip");
  QCOMPARE(shown(0, EntryModel::Zip), "78701");
}

// One undo brings back what the merged row held besides the label.
void WindowTest::mergesOneAddressByHand() {
  QVERIFY(_table->isColumnHidden(EntryModel::Sharing));
  put("book.csv", kBook + "Kim Li,100 OAK STREET,Boise,ID,83702,555-0104\n");
  QVERIFY(_window->openPath(path("book.csv")));
  QVERIFY(!_table->isColumnHidden(EntryModel::Sharing));
  QCOMPARE(shown(0, EntryModel::Sharing), "");
  QCOMPARE(shown(3, EntryModel::Sharing), "2 at this address");
  trigger("sortBySharing");
  QCOMPARE(shown(0, EntryModel::Name), "Zoe Li");
  find<QComboBox>("filter")->setCurrentText("Several at one address (2)");
  QCOMPARE(_table->model()->rowCount(), 2);
  _table->selectRow(0);
  QVERIFY(!find<QAction>("merge")->isEnabled());
  trigger("selectAll");
  answer("Cancel");
  trigger("merge");
  QVERIFY(!_window->isWindowModified());
  answer("Merge");
  trigger("merge");
  QCOMPARE(_window->document().book().at(2).label, "Zoe Li\nKim Li\n100 Oak St\nBoise, ID 83702");
  QCOMPARE(_window->document().book().size(), 3);
  trigger("undo");
  trigger("save");
  QVERIFY(bytes("book.csv").endsWith("Kim Li,100 OAK STREET,Boise,ID,83702,555-0104\n"));
}

void WindowTest::asksForColumnsOnce() {
  put("other.csv", "x;Address;y\nJane;1 Main St;secret\n");
  answer("Cancel");
  QVERIFY(!_window->openPath(path("other.csv")));
  QCOMPARE(_window->document().title(), "book.csv");
  QTimer::singleShot(0, this, [this] {
    QWidget* const dialog = QApplication::activeModalWidget();
    const auto leave = qScopeGuard([dialog] { dialog->close(); });
    auto* const role = dialog->findChildren<QComboBox*>(QRegularExpression("^$")).value(0);
    QVERIFY(role != nullptr);
    role->setFocus();
    QTest::keyClicks(role, "Last");
    QTest::mouseClick(find<QAbstractButton>("useColumns", dialog), Qt::LeftButton);
  });
  QVERIFY(_window->openPath(path("other.csv")));
  QCOMPARE(_window->document().book().at(0).label, "Jane\n1 Main St");
  QVERIFY(_window->openPath(path("other.csv")));  // nothing is asked
}

void WindowTest::aBatchIsOneStep() {
  using Kind = FixOutcome::Kind;
  _fixer.outcomes = {{Kind::Corrected, "JANE DOE\n12 MAIN ST\nAUSTIN TX 78701"},
                     {Kind::Failed, "Invalid Address"},
                     {Kind::Right, {}, Known::Whole}};
  _fixer.outcomes[0].known = Known::FormOnly;
  _fixer.outcomes[2].source = QStringLiteral("According to the base.");
  QVERIFY(_table->isColumnHidden(EntryModel::Confirmed));
  _fixer.outcomes[2].text = QString(_window->document().book().at(2).label).toUpper();
  answer("Fix 3 Addresses");
  trigger("fix");
  QCOMPARE(_fixer.asked.size(), 3);
  QCOMPARE(_window->document().book().at(2).label, _fixer.outcomes[2].text);
  QCOMPARE(shown(0, EntryModel::Street), "12 MAIN ST");
  QCOMPARE(shown(1, EntryModel::Checked), "Invalid Address");
  QVERIFY(!_table->isColumnHidden(EntryModel::Confirmed));
  QVERIFY(shown(0, EntryModel::Checked).startsWith("Checked"));
  QCOMPARE(shown(0, EntryModel::Confirmed), "Form only, nobody has checked the street");
  QCOMPARE(shown(1, EntryModel::Confirmed), "");
  QVERIFY(shown(2, EntryModel::Checked).startsWith("Right"));
  QCOMPARE(shown(2, EntryModel::Confirmed), "Confirmed");
  QVERIFY(_table->model()
              ->index(2, EntryModel::Confirmed)
              .data(Qt::ToolTipRole)
              .toString()
              .contains("Confirmed\nAccording to the base."));
  QCOMPARE(find<QLabel>("messageText")->text(),
           "1 address corrected. 1 already right. 1 of these in the chosen form now. 1 failed.");
  const std::pair<const char*, int> filters[] = {
      {"Confirmed (1)", 2},
      {"Form only, nobody has checked the street (1)", 0},
      {"Failed: Invalid Address (1)", 1}};
  auto* const filter = find<QComboBox>("filter");
  for (const auto& [text, row] : filters) {
    filter->setCurrentText(text);
    QCOMPARE(_window->document().book().at(row).label.section('\n', 0, 0),
             shown(0, EntryModel::Name));
    QCOMPARE(_table->model()->rowCount(), 1);
  }
  QTest::mouseClick(find<QAbstractButton>("messageStep"), Qt::LeftButton);
  QCOMPARE(_table->model()->rowCount(), 1);
  _fixer.outcomes = {{Kind::Corrected, "AL ROE\n9 ELM ST\nRENO NV 89501"}};
  trigger("fixFailed");
  QCOMPARE(_fixer.asked, QStringList{"Al Roe\n9 Elm St\nReno, NV 89501"});
  trigger("showAll");
  trigger("undo");
  trigger("undo");
  QVERIFY(!_window->isWindowModified());
  QCOMPARE(shown(0, EntryModel::Street), "12 Main St");
  QVERIFY(shown(0, EntryModel::Checked).startsWith("Checked"));  // it differs in case alone
  trigger("redo");
  QCOMPARE(shown(0, EntryModel::Street), "12 MAIN ST");
}

// The preview follows each choice, and the choices are kept for the next time; a user who kept all
// punctuation when there were only two choices still does.
void WindowTest::showsHowALabelWillRead() {
  QSettings().setValue("fix/removePunctuation", false);
  QString sample;
  const auto choose = [&](int letters, int punctuation, int names) {
    PreferencesDialog dialog(Preferences::load(), _fixer);
    const std::pair<const char*, int> keys[] = {
        {"case", letters}, {"punctuation", punctuation}, {"names", names}};
    for (const auto& [name, presses] : keys) {
      for (int press = 0; press < presses; ++press) {
        QTest::keyClick(find<QComboBox>(name, &dialog), Qt::Key_Down);
      }
    }
    sample = find<QLabel>("sample", &dialog)->text();
    dialog.preferences().save();
  };
  choose(0, 0, 0);
  QCOMPARE(sample, "Maria O'Neil & Sons, Inc.\n112-10 NW MAIN ST # 4\nSAINT LOUIS, MO 63101-1234");
  choose(2, 1, 0);
  QCOMPARE(sample, "Maria O'Neil & Sons, Inc.\n112-10 NW Main St # 4\nSaint Louis MO 63101-1234");
  choose(0, 1, 1);
  QCOMPARE(sample, "Maria O'Neil & Sons, Inc.\n11210 NW Main St 4\nSaint Louis MO 63101-1234");
  QCOMPARE(Preferences::load().fix.textCase, TextCase::Mixed);
  QCOMPARE(Preferences::load().fix.punctuation, Punctuation::Remove);
  QCOMPARE(Preferences::load().fix.names, Names::SameCase);
  PreferencesDialog dialog(Preferences::load(), _fixer);
  QTest::keyClicks(find<QLineEdit>("spellings", &dialog), "SainT");
  QVERIFY(find<QLabel>("sample", &dialog)->text().contains("SainT Louis"));
}

void WindowTest::skipsWhatWasFoundRight() {
  _fixer.outcomes = QList<FixOutcome>(3, {FixOutcome::Kind::Right, {}});
  answer("Fix 3 Addresses");
  trigger("fix");
  QVERIFY(_window->openPath(path("book.csv")));  // known of a CSV file after it was closed, too
  _window->document().edit(1, "Al Roe\n10 Elm St\nReno, NV 89501");
  _table->selectRow(0);
  answer("Fix 1 Address");
  trigger("fix");
  QCOMPARE(_fixer.asked, QStringList{"Al Roe\n10 Elm St\nReno, NV 89501"});
  _table->selectAll();
  trigger("fixSelected");  // asked for by name
  QCOMPARE(_fixer.asked.size(), 3);
}

// An entry that was never checked can be tried again with those that failed.
void WindowTest::keepsWhatWasRightWhenNobodyAnswers() {
  using Kind = FixOutcome::Kind;
  _fixer.outcomes = {{Kind::Right, {}, Known::FormOnly}};
  _table->selectRow(0);
  trigger("fixSelected");
  QCOMPARE(find<QLabel>("messageText")->text(),
           "0 addresses corrected. 0 already right. 1 well written, but not confirmed. 0 failed.");
  _fixer.outcomes = QList<FixOutcome>(3, {Kind::NoAnswer, "No connection"});
  _table->selectAll();
  trigger("fixSelected");
  QVERIFY(shown(0, EntryModel::Checked).startsWith("Checked"));
  QCOMPARE(shown(1, EntryModel::Checked), "No connection");
  QCOMPARE(find<QLabel>("messageText")->text(),
           "0 addresses corrected. 0 already right. 2 failed. 1 checked before got no answer.");
  trigger("fixFailed");
  QCOMPARE(_fixer.asked.size(), 2);
}

void WindowTest::asksBeforeChangesAreLost_data() {
  QTest::addColumn<QString>("button");
  QTest::addColumn<bool>("closes");
  QTest::addColumn<bool>("saves");
  QTest::newRow("save") << "Save" << true << true;
  QTest::newRow("discard") << "Discard Changes" << true << false;
  QTest::newRow("cancel") << "Cancel" << false << false;
}

void WindowTest::asksBeforeChangesAreLost() {
  QFETCH(QString, button);
  _window->document().edit(0, "changed");
  answer(button);
  QTEST(_window->close(), "closes");
  QTEST(bytes("book.csv").contains("changed"), "saves");
}

void WindowTest::warnsWhenTheFileHasChanged() {
  put("book.csv", kBook + "Bo,1 A St,Reno,NV,89501,\n");
  _window->document().edit(0, "changed");
  QString said;
  answer("Cancel", &said);
  trigger("save");
  QVERIFY(said.contains("Another program has changed “book.csv”"));
  QVERIFY(!bytes("book.csv").contains("changed"));
  answer("Save Over It");
  trigger("save");
  QVERIFY(bytes("book.csv").contains("changed"));
}

void WindowTest::tellsADeletedFile() {
  QFile::remove(path("book.csv"));
  _window->document().edit(0, "changed");
  QString said;
  answer("Write It Again", &said);
  trigger("save");
  QVERIFY2(said.contains("“book.csv” is not there any more"), qPrintable(said));
  QVERIFY(bytes("book.csv").contains("changed"));
}

// Another program has put a vCard where the CSV file was.
void WindowTest::columnsOfAFileThatHasNoneNow() {
  put("book.csv", "BEGIN:VCARD\nVERSION:4.0\nFN:Vi\nADR:;;1 A St;Reno;NV;89501;\nEND:VCARD\n");
  trigger("columns");
  QCOMPARE(shown(0, EntryModel::Name), "Vi");
  QVERIFY(!find<QAction>("columns")->isEnabled());
}

void WindowTest::savesAsTheTypeChosen_data() {
  QTest::addColumn<QString>("type");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("written");
  QTest::addColumn<QByteArray>("begins");
  QTest::newRow("a dot in the name") << "CSV file"
                                     << "St. Brigid list"
                                     << "St. Brigid list.csv" << QByteArray("Name,Street");
  QTest::newRow("an ending of others") << "CSV file"
                                       << "list.xlsx"
                                       << "list.xlsx.csv" << QByteArray("Name,Street");
  QTest::newRow("its second ending") << "vCard file"
                                     << "list.vcard"
                                     << "list.vcard" << QByteArray("BEGIN:VCARD");
  QTest::newRow("no ending") << "Address book"
                             << "list"
                             << "list.pwbook" << QByteArray("SQLite format 3");
}

QLineEdit* WindowTest::typeName(QFileDialog* dialog, const QString& typed) {
  auto* const name = find<QLineEdit>("fileNameEdit", dialog);
  name->setCompleter(nullptr);
  name->setFocus();
  // Otherwise the file selected in the list overrides the name.
  (void)QTest::qWaitFor([name] { return name->hasFocus(); });
  name->selectAll();
  QTest::keyClicks(name, typed);
  return name;
}

// The dialog asks about the name as it was typed; the file is another.
void WindowTest::exportsOverNothingUnasked() {
  put("list.csv", "precious");
  QString said;
  QTimer::singleShot(0, this, [&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    QVERIFY(dialog != nullptr);
    const auto leave = qScopeGuard([dialog] { dialog->close(); });
    QLineEdit* const name = typeName(dialog, "list");
    answer("Cancel", &said);
    QTest::keyClick(name, Qt::Key_Return);
  });
  trigger("exportSafely");
  QVERIFY2(said.contains("“list.csv” is there already."), qPrintable(said));
  QCOMPARE(bytes("list.csv"), "precious");
}

// Another program has changed the file; the book is saved under another name, and the window
// closes.
void WindowTest::leavesWhenSavedElsewhere() {
  put("book.csv", kBook + "Bo,1 A St,Reno,NV,89501,\n");
  _window->document().edit(0, "changed");
  QTimer::singleShot(0, this, [this] {
    QTimer::singleShot(0, this, [this] {
      QTimer::singleShot(0, this, [this] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        const auto leave = qScopeGuard([dialog] { dialog->close(); });
        QTest::keyClick(typeName(dialog, "other"), Qt::Key_Return);
      });
      press("Save As");
    });
    press("Save");
  });
  QVERIFY(_window->close());
  QVERIFY(bytes("other.csv").contains("changed"));
  QVERIFY(!bytes("book.csv").contains("changed"));
}

void WindowTest::savesAsTheTypeChosen() {
  QFETCH(QString, type);
  QFETCH(QString, typed);
  QFETCH(QString, written);
  QFETCH(QByteArray, begins);
  QTimer::singleShot(0, this, [&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    QVERIFY(dialog != nullptr);
    const auto leave = qScopeGuard([dialog] { dialog->close(); });
    const QStringList filters = dialog->nameFilters().filter(type);
    QCOMPARE(filters.size(), 1);
    auto* const types = find<QComboBox>("fileTypeCombo", dialog);
    types->setCurrentText(filters.first());
    emit types->textActivated(filters.first());
    emit dialog->filterSelected(filters.first());
    dialog->selectNameFilter(filters.first());
    QLineEdit* const name = typeName(dialog, typed);
    if (type != "CSV file") {
      answer("Save the Labels");
    }
    QTest::keyClick(name, Qt::Key_Return);
  });
  trigger("saveAs");
  QVERIFY2(bytes(qPrintable(written)).startsWith(begins), qPrintable(written));
  QCOMPARE(_window->document().title(), written);
}

void WindowTest::saysWhoAnswers_data() {
  QTest::addColumn<QString>("usual");
  QTest::addColumn<QStringList>("bases");
  QTest::addColumn<QString>("problem");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("said");
  const QString itself = "This program answers by itself, ";
  const QStringList bases = {"/home/me/texas.base", "/var/lib/postwright/ohio.base"};
  QTest::newRow("itself") << "" << QStringList() << ""
                          << "" << itself + "from its list of ZIP codes only.";
  QTest::newRow("streets") << "" << bases << ""
                           << "" << itself + "with the streets of texas.base, ohio.base.";
  QTest::newRow("no folder") << "" << QStringList() << "/var: denied"
                             << ""
                             << "This program would answer by itself, but: /var: denied";
  QTest::newRow("named") << "" << bases << ""
                         << "a.example"
                         << "a.example is asked.";
  QTest::newRow("usual") << "b.example" << bases << ""
                         << ""
                         << "b.example is asked, as the program was started so.";
  QTest::newRow("wrong") << "" << bases << ""
                         << "a:b:c"
                         << "This is not a host with a port, as in 127.0.0.1:8470.";
}

void WindowTest::saysWhoAnswers() {
  QFETCH(QString, usual);
  QFETCH(QStringList, bases);
  QFETCH(QString, problem);
  QFETCH(QString, typed);
  QFETCH(QString, said);
  _fixer.usual = usual;
  _fixer.streets = {bases, problem};
  QTimer::singleShot(0, this, [this, &typed, &said] {
    QWidget* const dialog = QApplication::activeModalWidget();
    const auto leave = qScopeGuard([dialog] { dialog->close(); });
    QTest::keyClicks(find<QLineEdit>("server", dialog), typed);
    QCOMPARE(find<QLabel>("serverNote", dialog)->text(), said);
  });
  trigger("preferences");
}

// Until it is closed, or there are streets, or a service is asked instead.
void WindowTest::saysThatNoStreetsAreKnown() {
  auto* const bar = find<QWidget>("streetsBar");
  const auto comesBack = [this] {
    _window->setFocus();
    QEvent back(QEvent::ActivationChange);
    QApplication::sendEvent(_window.get(), &back);
  };
  QVERIFY(bar->isVisible());
  QVERIFY(find<QLabel>("messageText", bar)
              ->text()
              .startsWith("ZIP codes only: streets are not checked."));
  _fixer.streets.bases = QStringList{"texas.base"};
  comesBack();
  QVERIFY(!bar->isVisible());
  _fixer.streets = {{}, "/var: denied"};
  comesBack();
  QCOMPARE(find<QLabel>("messageText", bar)->text(), "/var: denied");
  _fixer.usual = "a.example";
  comesBack();
  QVERIFY(!bar->isVisible());
  _fixer.usual.clear();
  comesBack();
  QVERIFY(bar->isVisible());
  QTest::mouseClick(bar->findChildren<QToolButton*>().last(), Qt::LeftButton);
  comesBack();
  QVERIFY(!bar->isVisible());
}

void WindowTest::opensWhatIsDropped() {
  put("friends.vcf", "BEGIN:VCARD\nVERSION:4.0\nFN:Vi\nADR:;;1 A St;Reno;NV;89501;\nEND:VCARD\n");
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path("friends.vcf"))});
  QDragEnterEvent enter(QPoint(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(_window.get(), &enter);
  QVERIFY(enter.isAccepted());
  QDropEvent drop(QPointF(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(_window.get(), &drop);
  QCOMPARE(shown(0, EntryModel::Name), "Vi");
  QCOMPARE(RecentFiles::list(), QStringList({path("friends.vcf"), path("book.csv")}));
}

void WindowTest::saysWhyAFileDoesNotOpen() {
  put("broken.csv", "Name\nx" + QByteArray(2000000, 'x'));
  QString said;
  answer("Close", &said);
  QVERIFY(!_window->openPath(path("broken.csv")));
  QVERIFY2(said.contains("“broken.csv” cannot be opened.") && said.contains("line 2"),
           qPrintable(said));
  QCOMPARE(_table->model()->rowCount(), 3);  // the open book stays open
}

// A step whose cost grows with the square of the entries would not end before the time is up.
void WindowTest::takesBigBooks() {
  constexpr int kEntries = 100000;
  QByteArray book = kBook.first(kBook.indexOf('\n') + 1);
  _fixer.outcomes.clear();
  for (int entry = 0; entry < kEntries; ++entry) {
    const QByteArray number = QByteArray::number(entry);
    book += "Jane Doe," + number + " Main Street,Austin,TX,78701,\n";
    _fixer.outcomes.append({entry % 2 == 0 ? FixOutcome::Kind::Failed : FixOutcome::Kind::Corrected,
                            "JANE DOE\n" + number + " MAIN ST\nAUSTIN TX 78701"});
  }
  put("big.csv", book);
  QVERIFY(_window->openPath(path("big.csv")));
  QTest::keyClick(_table, Qt::Key_A, Qt::ControlModifier);
  trigger("fixSelected");
  QCOMPARE(_window->document().book().count(CheckState::Failed), kEntries / 2);
  trigger("undo");
  trigger("redo");
  _table->sortByColumn(EntryModel::Street, Qt::DescendingOrder);
  QCOMPARE(shown(0, EntryModel::Street), "99999 MAIN ST");
  find<QLineEdit>("searchField")->setText("9999");
  QCOMPARE(_table->model()->rowCount(), 19);
  trigger("showAll");
  QTest::keyClick(_table, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(_table, Qt::Key_Delete);
  QCOMPARE(_table->model()->rowCount(), 0);
  trigger("undo");
  QCOMPARE(_table->selectedBookRows().size(), kEntries);
  trigger("save");
  QCOMPARE(bytes("big.csv").count("Main Street"), kEntries / 2);
}

}  // namespace postwright::addressbook

QTEST_MAIN(postwright::addressbook::WindowTest)
#include "WindowTest.moc"
