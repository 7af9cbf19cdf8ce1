#ifndef POSTWRIGHT_TESTS_CLIENT_BATCH_PERSON_H_
#define POSTWRIGHT_TESTS_CLIENT_BATCH_PERSON_H_

// The batch window as a person sees it: entries, answers, and somebody who presses keys.

#include <postwright/PostwrightController.h>

#include <QAbstractItemModelTester>
#include <QHash>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSemaphore>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>
#include <QtTest>
#include <memory>
#include <utility>

#include "tests/client/batch/Entries.h"

namespace postwright {

// The window as a person uses it: finds what is shown and presses keys and buttons.
class Person {
 public:
  explicit Person(QWidget& window) : _window(window) {}

  template <typename Widget>
  Widget* find(const QString& name) const {
    return _window.findChild<Widget*>(name);
  }
  QTableView* table() const { return find<QTableView>(u"tvAddresses"_qs); }
  QString text(int row, int column) const {
    return table()->model()->index(row, column).data().toString();
  }
  QStringList column(int column) const {
    QStringList texts;
    for (int row = 0; row < table()->model()->rowCount(); ++row) {
      texts.append(text(row, column));
    }
    return texts;
  }
  int selectedRow() const {
    const QModelIndexList rows = table()->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
  }
  QString label(const QString& name) const { return find<QLabel>(name)->text(); }
  QString detail() const {
    return find<QStackedWidget>(u"vwContent"_qs)->currentWidget()->objectName();
  }
  bool hasFinished() const { return find<QPushButton>(u"bnUpdate"_qs)->isEnabled(); }

  void clickRow(int row) {
    const QModelIndex cell = table()->model()->index(row, 0);
    table()->scrollTo(cell);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, table()->visualRect(cell).center());
  }
  void click(const QString& button) {
    QTest::mouseClick(find<QAbstractButton>(button), Qt::LeftButton);
  }
  void clickSegment(int segment) {
    const auto segments = find<QWidget>(u"scFilter"_qs)->findChildren<QToolButton*>();
    QTest::mouseClick(segments.at(segment), Qt::LeftButton);
  }
  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(_window.focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  void type(const QString& text) {
    auto* field = qobject_cast<QPlainTextEdit*>(_window.focusWidget());
    QVERIFY(field != nullptr);
    field->selectAll();
    for (const QChar character : text) {
      character == u'\n' ? QTest::keyClick(field, Qt::Key_Return)
                         : QTest::keyClick(field, character.toLatin1());
    }
  }

 private:
  QWidget& _window;
};

// The test's own answers, given one by one if the test wants that.
struct Oracle {
  bool waits = false;
  QSemaphore asked;
  QSemaphore answers;
  QHash<QString, AddressOutcome> outcomes;  // not touched while a worker runs

  AskFunction ask() {
    return [this](PostwrightClient&, const QString& address) {
      asked.release();
      if (waits) {
        (void)answers.tryAcquire(1, 20000);  // a failed test must not hang
      }
      return outcomes.value(address, {AddressFix{address.toUpper() + u" FIXED"_qs, {}}, {}});
    };
  }
};

inline PostwrightSelectorPointer Candidate(const QString& pattern, const QString& shown,
                                           const QString& low, const QString& high) {
  return PostwrightSelector::postwrightSelectorWithAddressPattern(pattern, shown, low, high);
}

inline AddressOutcome Candidates() {
  return {AddressFix{{},
                     {Candidate(u"1 N OAK %@"_qs, u"1 N OAK (1A - 1F)"_qs, u"1A"_qs, u"1F"_qs),
                      Candidate(u"1 S OAK"_qs, u"1 S OAK"_qs, {}, {})}},
          {}};
}

// Opens a window without a modal run, its model under a model tester.
class OpenWindow {
 public:
  OpenWindow(const Entries& entries, AskFunction ask, const BatchOptions& options = {})
      : window(entries, true, CapitalizationUpper, std::nullopt), person(window) {
    window.setAsk(std::move(ask));
    window.setOptions(options);
    _tester = std::make_unique<QAbstractItemModelTester>(person.table()->model());
    window.show();
    window.activateWindow();
  }

  PostwrightController window;
  Person person;

 private:
  std::unique_ptr<QAbstractItemModelTester> _tester;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CLIENT_BATCH_PERSON_H_
