#include "apps/addressbook/sheet/Presort.h"

#include <QMap>
#include <algorithm>
#include <numeric>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr qsizetype kPrefix = 3;
const QString kLast = QStringLiteral("~");  // sorts after every digit

// The digits of a label's ZIP code.
QString zipOf(const QString& label) {
  const auto place = tables::partLabel(label).place;
  QString zip = place ? place->zip : kLast;
  return zip.remove(QLatin1Char('-')).remove(QLatin1Char(' '));
}

}  // namespace

QList<int> Presort::order(const QStringList& labels) {
  QStringList zips;
  zips.reserve(labels.size());
  for (const QString& label : labels) {
    zips.append(zipOf(label));
  }
  QList<int> places(labels.size());
  std::iota(places.begin(), places.end(), 0);
  std::stable_sort(places.begin(), places.end(),
                   [&zips](int a, int b) { return zips[a] < zips[b]; });
  return places;
}

QList<Presort::Count> Presort::count(const QStringList& labels, int copies) {
  QMap<QString, int> pieces;
  for (const QString& label : labels) {
    pieces[zipOf(label).left(kPrefix)] += copies;
  }
  QList<Count> counts;
  for (auto prefix = pieces.cbegin(); prefix != pieces.cend(); ++prefix) {
    counts.append({prefix.key() == kLast ? QString() : prefix.key(), prefix.value()});
  }
  return counts;
}

QString Presort::page(const QList<Count>& counts) {
  const QString row =
      QStringLiteral("<tr><td width='60%'>%1</td><td align='right' width='40%'>%2</td></tr>");
  QString rows;
  int whole = 0;
  for (const Count& count : counts) {
    rows += row.arg(count.prefix.isEmpty() ? tr("No ZIP code") : count.prefix).arg(count.pieces);
    whole += count.pieces;
  }
  return QStringLiteral(
             "<h2>%1</h2><table width='50%' cellpadding='3'><thead>%2</thead>%3%4</table>")
      .arg(tr("Pieces by three-digit ZIP code prefix"),
           row.arg(QStringLiteral("<b>%1</b>").arg(tr("Prefix")),
                   QStringLiteral("<b>%1</b>").arg(tr("Pieces"))),
           rows,
           row.arg(QStringLiteral("<b>%1</b>").arg(tr("All")),
                   QStringLiteral("<b>%1</b>").arg(whole)));
}

}  // namespace postwright::addressbook
