// Printing as users see it, in real windows at 200 % on a screen of 1280 by 720.

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QTranslator>

#include "apps/addressbook/formats/rows/ColumnMemory.h"
#include "apps/addressbook/printing/PageButtons.h"
#include "apps/addressbook/printing/PrintDialog.h"
#include "apps/addressbook/settings/Translations.h"
#include "apps/addressbook/window/AddressBookWindow.h"
#include "apps/addressbook/window/EntryTable.h"
#include "apps/tables/ColumnGuess.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

namespace {

const QByteArray kBook =
    "Name,Street,City,State,Zip\n"
    "Jane Doe,12 Main St.,Reno,NV,89501\n"
    "Al Roe,9 Elm St,Austin,TX,78701-1234\n"
    "Zoe Li,100 Oak St,Boston,MA,02110\n"
    "Nobody,,,,\n";

class NoFixer final : public AddressFixer {
 public:
  QList<FixOutcome> fix(const QStringList&, const FixSettings&, QWidget*) override { return {}; }
  QString serverFor(const QString&) const override { return QStringLiteral("verify.example:80"); }
  OwnStreets ownStreets() const override { return {}; }
};

template <typename Widget = QWidget>
Widget* find(QWidget* in, const char* name) {
  auto* const found = in->findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) {
    qFatal("no %s", name);
  }
  return found;
}

// Does something once a window is up, and closes the window in any case.
void whenUp(const std::function<void(QWidget*)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    QWidget* const window = QApplication::activeModalWidget();
    QVERIFY(window != nullptr);
    const auto leave = qScopeGuard([window] { window->close(); });
    act(window);
  });
}

// Has the user press a button of the question that is about to come up.
void answer(const QString& button, QString* said) {
  whenUp([button, said](QWidget* window) {
    auto* const box = qobject_cast<QMessageBox*>(window);
    QVERIFY(box != nullptr);
    *said = box->text() + "\n" + box->informativeText();
    for (QAbstractButton* const each : box->buttons()) {
      if (each->text().remove('&') == button) {
        each->click();
        return;
      }
    }
    QFAIL(qPrintable("no button " + button));
  });
}

QString textOf(const QString& pdf) {
  QProcess process;
  process.start("pdftotext", {"-layout", pdf, "-"});
  process.waitForFinished();
  return QString::fromUtf8(process.readAllStandardOutput());
}

bool isScrolled(const QWidget* widget) {
  for (const QWidget* above = widget->parentWidget(); above != nullptr && !above->isWindow();
       above = above->parentWidget()) {
    if (qobject_cast<const QAbstractScrollArea*>(above) != nullptr) {
      return true;
    }
  }
  return false;
}

// The Alt letter of a button, a tab or a label's field; null if it has none.
QChar letterOf(const QString& text) {
  const qsizetype sign = text.indexOf(u'&');
  return sign < 0 || sign + 1 == text.size() || text[sign + 1] == u'&' ? QChar()
                                                                       : text[sign + 1].toLower();
}

// No two reachable controls share a letter.
void checkLetters(const QWidget* window) {
  QMap<QChar, QString> letters;
  const auto take = [&](const QString& text) {
    const QChar letter = letterOf(text);
    QVERIFY2(letter.isNull() || !letters.contains(letter),
             qPrintable(window->windowTitle() + ": " + text + ", " + letters.value(letter)));
    letters.insert(letter, text);
  };
  for (const QWidget* const child : window->findChildren<QWidget*>()) {
    const auto* const label = qobject_cast<const QLabel*>(child);
    const auto* const button = qobject_cast<const QAbstractButton*>(child);
    const auto* const tabs = qobject_cast<const QTabBar*>(child);
    if (child->isVisible() && child->window() == window) {
      take(label != nullptr && label->buddy() != nullptr ? label->text() : QString());
      take(button != nullptr ? button->text() : QString());
      for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab) {
        take(tabs->tabText(tab));
      }
    }
  }
}

// A window fits if the screen has room for it and nothing in it is cut off or squeezed, except what
// can be scrolled to.
void checkFits(QWidget* window) {
  checkLetters(window);
  const QSize room = window->screen()->availableSize();
  const QString name = window->windowTitle() + " " + window->metaObject()->className();
  QVERIFY2(window->width() <= room.width() && window->height() <= room.height(), qPrintable(name));
  for (const QWidget* const child : window->findChildren<QWidget*>()) {
    if (!child->isVisible() || child->isWindow() || isScrolled(child)) {
      continue;
    }
    const QRect place(child->mapTo(window, QPoint()), child->size());
    const QString what = name + ": " + child->metaObject()->className() + child->objectName();
    QVERIFY2(window->rect().contains(place), qPrintable(what));
    if (const auto* const button = qobject_cast<const QAbstractButton*>(child)) {
      QVERIFY2(button->width() >= button->minimumSizeHint().width() &&
                   button->height() >= button->minimumSizeHint().height(),
               qPrintable(what + button->text()));
    }
  }
}

}  // namespace

class PrintTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void init();
  void cleanup() { _window.reset(); }
  void leavesOutTheRefused_data();
  void leavesOutTheRefused();
  void beginsWhereChosen();
  void namesWhatDoesNotFit();
  void keepsOwnMeasures();
  void countsSerialNumbers();
  void writesAllAlike();
  void countsForPresorting();
  void everyDialogFits_data();
  void everyDialogFits();

 private:
  // Opens the print dialog and acts in it.
  void printing(const std::function<void(PrintDialog*)>& act);
  QString pdf() const { return _folder->path("labels.pdf"); }

  QTemporaryDir _settings;
  std::unique_ptr<TestFolder> _folder;
  NoFixer _fixer;
  std::unique_ptr<AddressBookWindow> _window;
};

void PrintTest::initTestCase() {
  QCoreApplication::setOrganizationName("PostwrightTest");
  QStandardPaths::setTestModeEnabled(true);
  installTranslations();
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _settings.path());
}

// The second address was refused, the fourth entry has none.
void PrintTest::init() {
  QFile::remove(CheckHistory::usualPath());
  QSettings().clear();
  _folder = std::make_unique<TestFolder>();
  ColumnMemory::remember(
      kBook.first(kBook.indexOf('\n')),
      {',', true, 0, tables::guessColumns({"Name", "Street", "City", "State", "Zip"}, {})});
  _window = std::make_unique<AddressBookWindow>(_fixer);
  _window->show();
  QVERIFY(_window->openPath(_folder->put("book.csv", kBook)));
  Entry refused = _window->document().book().at(1);
  refused.check = {QDate::currentDate(), textFingerprint(refused.label), "Not found"};
  // An unanswered request says nothing about an address.
  Entry unanswered = _window->document().book().at(2);
  unanswered.check = {
      QDate::currentDate(), textFingerprint(unanswered.label), "Away", Known::NotTold, {}, true};
  _window->document().keepChecks({{1, refused}, {2, unanswered}});
}

void PrintTest::printing(const std::function<void(PrintDialog*)>& act) {
  whenUp([act](QWidget* window) {
    auto* const dialog = qobject_cast<PrintDialog*>(window);
    QVERIFY(dialog != nullptr);
    act(dialog);
  });
  find<QAction>(_window.get(), "print")->trigger();
}

void PrintTest::leavesOutTheRefused_data() {
  QTest::addColumn<bool>("asked");
  QTest::addColumn<QString>("button");
  QTest::addColumn<QString>("printed");
  QTest::newRow("unasked") << false << ""
                           << "Jane, Zoe";
  QTest::newRow("asked for") << true << "Print Them"
                             << "Jane, Al, Zoe";
  QTest::newRow("thought better of") << true << "Leave Them Out"
                                     << "Jane, Zoe";
  QTest::newRow("cancelled") << true << "Cancel"
                             << "";
}

void PrintTest::leavesOutTheRefused() {
  QFETCH(bool, asked);
  QFETCH(QString, button);
  QFETCH(QString, printed);
  QString said;
  printing([&](PrintDialog* dialog) {
    QCOMPARE(find<QLabel>(dialog, "summary")->text(),
             "2 labels to print. 1 left out: the address was refused. 1 left out: no address.");
    if (asked) {
      find<QCheckBox>(dialog, "refused")->click();
      answer(button, &said);
    }
    dialog->savePdfTo(pdf());
  });
  QVERIFY(said.contains("Print 1 label whose address was refused?") == asked);
  QStringList names;
  for (const char* const name : {"Jane", "Al", "Zoe"}) {
    if (textOf(pdf()).contains(name)) {
      names.append(name);
    }
  }
  QCOMPARE(names.join(", "), printed);
}

void PrintTest::beginsWhereChosen() {
  find<EntryTable>(_window.get(), "entryTable")->selectAll();
  printing([&](PrintDialog* dialog) {
    auto* const sheet = find(dialog, "sheetView");
    sheet->setFocus();
    QTest::keyClick(sheet, Qt::Key_Down);
    QTest::keyClick(sheet, Qt::Key_Right);
    QCOMPARE(find<QSpinBox>(dialog, "start")->value(), 5);  // three labels across
    auto* const number = find<QComboBox>(dialog, "sheet")->lineEdit();
    for (const char* const typed : {"8163", "no such number"}) {
      number->setFocus();
      number->selectAll();
      QTest::keyClicks(number, typed);
      QTest::keyClick(number, Qt::Key_Tab);
      number->clearFocus();
      emit number->editingFinished();
      QVERIFY2(number->text().startsWith("5163"), qPrintable(number->text()));
    }
    dialog->savePdfTo(pdf());
  });
  QCOMPARE(Preferences::load().print.sheet.name, "5163");
}

void PrintTest::namesWhatDoesNotFit() {
  _window->document().edit(0, "Jane Doe\n" + QString(100, 'W') + "\nReno, NV 89501");
  QString said;
  printing([&](PrintDialog* dialog) {
    answer("Leave Them Out", &said);
    dialog->savePdfTo(pdf());
  });
  QVERIFY2(said.startsWith("1 label does not fit, even in 7-point type.\nJane Doe\n"),
           qPrintable(said));
  QVERIFY(textOf(pdf()).contains("Zoe") && !textOf(pdf()).contains("Jane"));
  _window->document().undoStack().setClean();
}

void PrintTest::keepsOwnMeasures() {
  printing([&](PrintDialog* dialog) {
    whenUp([](QWidget* own) {
      auto* const keep = find<QAbstractButton>(own, "keepSheet");
      auto* const problem = find<QLabel>(own, "sheetProblem");
      QVERIFY(!keep->isEnabled());  // no name yet
      find<QLineEdit>(own, "sheetName")->setText("8160");
      QVERIFY(problem->text().contains("known already"));
      find<QLineEdit>(own, "sheetName")->setText("Herbarium");
      QVERIFY(keep->isEnabled());
      find<QDoubleSpinBox>(own, "across")->setValue(2.5);
      QVERIFY(problem->text().contains("overlap") && !keep->isEnabled());
      find<QDoubleSpinBox>(own, "across")->setValue(2.75);
      find<QSpinBox>(own, "rows")->setValue(11);
      QVERIFY(problem->text().contains("do not fit") && !keep->isEnabled());
      find<QSpinBox>(own, "rows")->setValue(9);
      find<QSpinBox>(own, "columns")->setValue(2);
      find<QComboBox>(own, "paper")->setCurrentIndex(1);
      QCOMPARE(find<QDoubleSpinBox>(own, "across")->value(), 69.85);  // the same, in millimetres
      keep->click();
    });
    find<QAbstractButton>(dialog, "ownMeasures")->click();
    QVERIFY(
        find<QComboBox>(dialog, "sheet")->currentText().startsWith("Herbarium: 66.7 x 25.4 mm"));
  });  // closed without printing
  const QList<LabelSheet> own = Preferences::load().print.ownSheets;
  QCOMPARE(own.size(), 1);
  QCOMPARE(own[0].size(), 18);
  QVERIFY(own[0].paper == Paper::A4 && qAbs(own[0].pitch.width() - 2.75) < 0.001);
}

void PrintTest::countsSerialNumbers() {
  for (const char* const expected : {"12", "14"}) {
    printing([&](PrintDialog* dialog) {
      find<QComboBox>(dialog, "sheet")->setCurrentIndex(1);
      auto* const bars = find<QCheckBox>(dialog, "hasBarcode");
      auto* const note = find<QLabel>(dialog, "barcodeNote");
      if (!bars->isChecked()) {  // off by default
        bars->click();
        QVERIFY(note->text().contains("three digits"));
        find<QLineEdit>(dialog, "serviceType")->setText("040");
        QVERIFY(note->text().contains("six digits, or nine"));
        find<QLineEdit>(dialog, "mailerId")->setText("123456");
        find<QLineEdit>(dialog, "nextSerial")->setText("10");
      }
      QCOMPARE(note->text(), "0 of 2 labels have a ZIP+4 and get a barcode.");
      dialog->savePdfTo(pdf());
    });
    QCOMPARE(QString::number(Preferences::load().print.mail.serial), expected);
  }
}

void PrintTest::writesAllAlike() {
  printing([&](PrintDialog* dialog) {
    find<QCheckBox>(dialog, "alike")->click();
    dialog->savePdfTo(pdf());
  });
  const QString text = textOf(pdf());
  QVERIFY2(
      text.contains("JANE DOE") && text.contains("12 MAIN ST ") && text.contains("BOSTON MA 02110"),
      qPrintable(text));
  QVERIFY(_window->document().book().at(0).label.startsWith("Jane Doe\n12 Main St."));
}

void PrintTest::countsForPresorting() {
  printing([&](PrintDialog* dialog) {
    find<QCheckBox>(dialog, "byZip")->click();
    find<QSpinBox>(dialog, "copies")->setValue(3);
    whenUp([&](QWidget* presort) {
      const auto* const table = find<QTableWidget>(presort, "prefixes");
      QCOMPARE(table->rowCount(), 2);
      QCOMPARE(table->item(0, 0)->text() + " " + table->item(0, 1)->text(), "021 3");
      presort->findChild<PageButtons*>()->savePdfTo(_folder->path("presort.pdf"));
    });
    find<QAbstractButton>(dialog, "presort")->click();
    dialog->savePdfTo(pdf());
  });
  const QString count = textOf(_folder->path("presort.pdf")).simplified();
  QVERIFY2(count.contains(" 021 3 895 3 All 6"), qPrintable(count));
  QVERIFY(textOf(pdf()).indexOf("Zoe") < textOf(pdf()).indexOf("Jane"));
}

void PrintTest::everyDialogFits_data() {
  QTest::addColumn<QString>("language");
  QTest::newRow("English") << "en";
  QTest::newRow("Spanish") << "es";
}

// Every menu item that opens a dialog, and the dialogs opened from there.
void PrintTest::everyDialogFits() {
  QFETCH(QString, language);
  QTranslator words;
  QVERIFY(words.load(":/addressbook/translations/addressbook_" + language));
  QCoreApplication::installTranslator(&words);
  AddressBookWindow window(_fixer);
  window.show();
  QVERIFY(window.openPath(_folder->path("book.csv")));
  QVERIFY(window.width() <= window.screen()->availableSize().width());
  int asked = 0;
  for (const QAction* const menu : window.menuBar()->actions()) {
    for (QAction* const action : menu->menu()->actions()) {
      if (!action->isEnabled() || action->menu() != nullptr ||
          !(action->text().endsWith(u'…') || action->objectName() == "about")) {
        continue;
      }
      QTimer::singleShot(0, qApp, [&asked, action] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) {
          return;  // it goes on to the batch window
        }
        const auto leave = qScopeGuard([dialog] { dialog->close(); });
        if (qobject_cast<QFileDialog*>(dialog) != nullptr) {
          return;  // the desktop's
        }
        ++asked;
        checkFits(dialog);
        if (action->objectName() == "print") {
          auto* const tabs = find<QTabWidget>(dialog, "tabs");
          for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            checkFits(dialog);
          }
          for (const char* const further : {"ownMeasures", "presort"}) {
            whenUp(checkFits);
            find<QAbstractButton>(dialog, further)->click();
          }
        }
      });
      action->trigger();
      QCoreApplication::processEvents();
    }
  }
  QVERIFY2(asked >= 5, qPrintable(QString::number(asked)));
  QCoreApplication::removeTranslator(&words);
}

}  // namespace postwright::addressbook

int main(int argc, char** argv) {
  const QTemporaryDir folder;
  QFile screen(folder.filePath("screen.json"));
  if (!screen.open(QIODevice::WriteOnly) ||
      screen.write(R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": 1280, "height": 720,
                    "logicalDpi": 96, "dpr": 1}]})") < 0) {
    return 1;
  }
  screen.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());
  qputenv("QT_SCALE_FACTOR", "2");
  QApplication application(argc, argv);
  postwright::addressbook::PrintTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "PrintTest.moc"
