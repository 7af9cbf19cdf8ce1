// Counts how often each spelling of a word occurs on labels, and how many labels come out of mixed
// case as a person writes them; writes both to docs/mixed-case.md. Run by mixed-case-counts.sh.
//
//   mixed-case-counts --update|--check ZIPS.tsv LABELS.tsv PAGE.md
//
// --check changes nothing, and exits with 1 if the page is out of date or the dictionary has the
// rarer spelling of a word.

#include <postwright/PostwrightClient.h>

#include <QFile>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <optional>

using postwright::PostwrightClient;

namespace {

using Rows = QList<QStringList>;
using Readings = QMap<QString, double>;  // a spelling, and on how many of 10,000 labels it occurs

constexpr double kLabels = 10000;
const QString kBegin = QStringLiteral("<!-- counts begin -->\n");
const QString kEnd = QStringLiteral("<!-- counts end -->\n");

std::optional<QString> ReadText(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "mixed-case-counts: cannot read %s\n", qPrintable(path));
    return std::nullopt;
  }
  return QString::fromUtf8(file.readAll());
}

Rows ReadRows(const QString& text) {
  Rows rows;
  for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
    rows.append(line.split(u'\t'));
  }
  return rows;
}

// A word of a city name as a person writes it. The list capitalizes every word, so it shows where a
// word occurs but not that small words are written small inside a name.
QString CityWord(const QString& word, bool first) {
  static const QSet<QString> small = {
      QStringLiteral("And"), QStringLiteral("By"), QStringLiteral("Del"),
      QStringLiteral("Du"),  QStringLiteral("In"), QStringLiteral("Of"),
      QStringLiteral("On"),  QStringLiteral("Or"), QStringLiteral("The")};
  return !first && small.contains(word) ? word.toLower() : word;
}

// The spellings of each word, by the word in upper case.
QMap<QString, Readings> CountReadings(const Rows& zips, const Rows& labels) {
  QMap<QString, Readings> words;
  const auto count = [&words](const QString& spelling, double labelsEach) {
    words[spelling.toUpper()][spelling] += labelsEach;
  };
  for (const QStringList& row : zips) {  // ZIP, city, state
    const QStringList city = row[1].split(u' ');
    for (qsizetype i = 0; i < city.size(); ++i) {
      count(CityWord(city[i], i == 0), kLabels / static_cast<double>(zips.size()));
    }
    count(row[2], kLabels / static_cast<double>(zips.size()));
  }
  const auto streets = static_cast<double>(std::count_if(
      labels.begin(), labels.end(), [](const auto& row) { return row[0] != QString(); }));
  for (const QStringList& row : labels) {  // street line, city, state, ZIP
    for (const QString& word : row[0].split(u' ', Qt::SkipEmptyParts)) {
      count(word, kLabels / streets);
    }
  }
  return words;
}

// A row for each word with more than one spelling.
QString ReadingsTable(const QMap<QString, Readings>& words, const PostwrightClient& client,
                      bool& agrees) {
  QString table =
      QStringLiteral("| word | readings, on so many of 10,000 labels | written |\n|---|---|---|\n");
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (word->size() < 2) {
      continue;
    }
    QStringList readings;
    QString frequent;
    for (auto reading = word->begin(); reading != word->end(); ++reading) {
      readings.append(QStringLiteral("%1 %2").arg(reading.key()).arg(*reading, 0, 'f', 1));
      frequent = word->value(frequent) < *reading ? reading.key() : frequent;
    }
    const QString written = client.fixMixedCaseOneWord(word.key());
    if (written != frequent) {
      agrees = false;
      std::fprintf(stderr, "mixed-case-counts: %s is more often written %s\n", qPrintable(written),
                   qPrintable(frequent));
    }
    table += QStringLiteral("| %1 | %2 | %3 |\n")
                 .arg(word.key(), readings.join(QStringLiteral(", ")), written);
  }
  return table;
}

QString LabelText(const QStringList& row) {
  const QString cityLine = QStringLiteral("%1, %2 %3").arg(row[1], row[2], row[3]);
  return row[0].isEmpty() ? cityLine : row[0] + u'\n' + cityLine;
}

// How many labels, put into upper case first, come out as they are written, and which do not.
QString LabelsReport(const Rows& labels, PostwrightClient& client, bool removePunctuation) {
  client.setRemovePunctuation(removePunctuation);
  QStringList wrong;
  for (const QStringList& row : labels) {
    const QString expected = client.fixPunctuation(LabelText(row));
    const QString result = client.capitalizeAddress(LabelText(row).toUpper());
    if (result != expected) {
      wrong.append(
          QStringLiteral("| %1 | %2 |\n").arg(expected, result).replace(u'\n', u' ').trimmed());
    }
  }
  return QStringLiteral(
             "Punctuation %1: **%2 of %3** come out as a person writes them. The others:\n\n"
             "| as a person writes it | as it comes out |\n|---|---|\n%4\n")
      .arg(removePunctuation ? QStringLiteral("removed") : QStringLiteral("kept"))
      .arg(labels.size() - wrong.size())
      .arg(labels.size())
      .arg(wrong.join(u'\n'));
}

int Run(const QStringList& arguments) {
  const std::optional<QString> zips = ReadText(arguments[1]);
  const std::optional<QString> labels = ReadText(arguments[2]);
  const std::optional<QString> page = ReadText(arguments[3]);
  if (!zips || !labels || !page) {
    return 2;
  }
  const qsizetype begin = page->indexOf(kBegin) + kBegin.size();
  const qsizetype end = page->indexOf(kEnd);
  if (begin < kBegin.size() || end < begin) {
    std::fprintf(stderr, "mixed-case-counts: %s has no place for the counts, from %s to %s",
                 qPrintable(arguments[3]), qPrintable(kBegin), qPrintable(kEnd));
    return 2;
  }
  PostwrightClient client;
  client.setCapitalization(postwright::CapitalizationMixed);
  const Rows labelRows = ReadRows(*labels);
  bool agrees = true;
  const QString counts = u'\n' +
                         ReadingsTable(CountReadings(ReadRows(*zips), labelRows), client, agrees) +
                         u'\n' + LabelsReport(labelRows, client, true) + u'\n' +
                         LabelsReport(labelRows, client, false) + u'\n';
  const QString fresh = page->left(begin) + counts + page->mid(end);
  if (arguments[0] == QStringLiteral("--update")) {
    QFile file(arguments[3]);
    const QByteArray bytes = fresh.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
      std::fprintf(stderr, "mixed-case-counts: cannot write %s\n", qPrintable(arguments[3]));
      return 2;
    }
  } else if (fresh != *page) {
    std::fprintf(stderr, "mixed-case-counts: %s is out of date; run scripts/mixed-case-counts.sh\n",
                 qPrintable(arguments[3]));
    return 1;
  }
  return agrees ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) {
    arguments.append(QString::fromLocal8Bit(argv[i]));
  }
  if (arguments.size() != 4 ||
      (arguments[0] != QStringLiteral("--update") && arguments[0] != QStringLiteral("--check"))) {
    std::fprintf(stderr, "usage: mixed-case-counts --update|--check ZIPS.tsv LABELS.tsv PAGE.md\n");
    return 2;
  }
  return Run(arguments);
}
