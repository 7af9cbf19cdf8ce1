#include "apps/tables/LabelText.h"

#include <QRegularExpression>

namespace postwright::tables {

namespace {

// Longer lines are no place; the bound keeps the pattern's backtracking short.
constexpr qsizetype kLongestPlace = 200;

QString joinedFrom(const QStringList& lines, qsizetype first) {
  return QStringList(lines.mid(first)).join(QStringLiteral(", "));
}

}  // namespace

QString tidyLabel(const QString& text) {
  static const QRegularExpression lineBreak(QStringLiteral("\r\n?|\u2028|\u2029|\u0085|\v|\f"));
  QString unified = text;
  QStringList lines = unified.replace(lineBreak, QStringLiteral("\n")).split(QLatin1Char('\n'));
  for (QString& line : lines) {
    while (!line.isEmpty() && line.back().isSpace()) {
      line.chop(1);
    }
  }
  while (!lines.isEmpty() && lines.first().isEmpty()) {
    lines.removeFirst();
  }
  while (!lines.isEmpty() && lines.last().isEmpty()) {
    lines.removeLast();
  }
  return lines.join(QLatin1Char('\n'));
}

QString lettersOf(QStringView text) {
  QString letters;
  letters.reserve(text.size());
  for (const QChar character : text) {
    // Halves of characters beyond 16 bits count as letters: dropping them would make texts equal
    // that are not.
    if (character.isLetterOrNumber() || character.isMark() || character.isSurrogate()) {
      letters.append(character);
    }
  }
  return letters.toUpper();
}

bool sameLetters(QStringView a, QStringView b) {
  return lettersOf(a) == lettersOf(b);
}

std::optional<PlaceParts> readPlace(const QString& line) {
  // The short state comes first: in "12 Main St, Austin TX 78701" it is not "Austin TX".
  static const QRegularExpression shortState(
      QStringLiteral(R"(^\s*(\S.*?)[\s,]+([A-Za-z]{2})[\s,]+(\d{5}(?:[- ]?\d{4})?)\s*$)"));
  static const QRegularExpression fullState(QStringLiteral(
      R"(^\s*(\S.*?)\s*,\s*([A-Za-z][A-Za-z. ]+?)[\s,]+(\d{5}(?:[- ]?\d{4})?)\s*$)"));
  if (line.size() > kLongestPlace) {
    return std::nullopt;
  }
  for (const QRegularExpression* pattern : {&shortState, &fullState}) {
    const QRegularExpressionMatch match = pattern->match(line);
    if (match.hasMatch()) {
      return PlaceParts{match.captured(1), match.captured(2), match.captured(3)};
    }
  }
  return std::nullopt;
}

LabelParts partLabel(const QString& label) {
  const QStringList lines = label.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  for (qsizetype row = lines.size() - 1; row >= 0; --row) {
    if (std::optional<PlaceParts> place = readPlace(lines[row])) {
      return {lines.first(row), std::move(place), lines.mid(row + 1)};
    }
  }
  return {lines, std::nullopt, {}};
}

LabelSummary summarizeLabel(const QString& label) {
  const LabelParts parts = partLabel(label);
  LabelSummary summary;
  const QStringList lines = parts.above + parts.below;
  if (!lines.isEmpty()) {
    summary.name = lines.first();
    summary.street = joinedFrom(lines, 1);
  }
  if (parts.place) {
    summary.place = parts.place->city + QStringLiteral(", ") + parts.place->state;
    summary.zip = parts.place->zip;
  }
  return summary;
}

}  // namespace postwright::tables
