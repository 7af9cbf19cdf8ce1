// The table's model under a model tester, through everything that happens to a book.

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QTest>

#include "apps/addressbook/document/EntryModel.h"

namespace postwright::addressbook {

namespace {

QList<int> randomRows(QRandomGenerator& random, int size) {
  QList<int> rows;
  for (int row = 0; row < size; ++row) {
    if (random.bounded(3) == 0) {
      rows.append(row);
    }
  }
  return rows;
}

QStringList labelsOf(const Book& book, const QList<int>& rows) {
  QStringList labels;
  for (const int row : rows) {
    labels.append(book.at(row).label);
  }
  return labels;
}

}  // namespace

class EntryModelTest : public QObject {
  Q_OBJECT

 private slots:
  void followsTheBook_data();
  void followsTheBook();
};

void EntryModelTest::followsTheBook_data() {
  QTest::addColumn<int>("column");
  QTest::addColumn<QString>("search");
  QTest::addColumn<int>("size");
  QTest::newRow("order of the book") << static_cast<int>(EntryModel::kBookOrder) << "" << 20;
  QTest::newRow("sorted") << static_cast<int>(EntryModel::Name) << "" << 20;
  QTest::newRow("searched") << static_cast<int>(EntryModel::kBookOrder) << "7" << 60;
  QTest::newRow("sorted and searched") << static_cast<int>(EntryModel::Name) << "1" << 60;
  QTest::newRow("many scattered rows") << static_cast<int>(EntryModel::kBookOrder) << "" << 400;
}

void EntryModelTest::followsTheBook() {
  QFETCH(int, column);
  QFETCH(QString, search);
  QFETCH(int, size);
  Book book;
  EntryModel model(book);
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
  QList<Entry> entries;
  for (int id = 1; id <= size; ++id) {
    entries.append({id, QString::number(id * 7919 % 1000), {}});
  }
  book.reset(entries, QDate::currentDate());
  model.search(search, {});
  model.sort(column, Qt::DescendingOrder);
  const QStringList before = labelsOf(book, model.shownBookRows());
  QRandomGenerator random(3);
  for (int round = 0; round < 20; ++round) {
    const QList<int> rows = randomRows(random, book.size());
    const QStringList gone = labelsOf(book, rows);
    QStringList left = labelsOf(book, model.shownBookRows());
    const QList<PlacedEntry> taken = book.remove(rows);
    left.removeIf([&gone](const QString& label) { return gone.contains(label); });
    QCOMPARE(labelsOf(book, model.shownBookRows()), left);
    book.insert(taken);
  }
  book.remove(QList<int>{0});
  book.reset(entries, QDate::currentDate());
  QCOMPARE(labelsOf(book, model.shownBookRows()), before);
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::EntryModelTest)
#include "EntryModelTest.moc"
