#include "apps/addressbook/lists/MergeParts.h"

#include <postwright/AddressLines.h>
#include <postwright/AddressParser.h>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

using tables::lettersOf;

QStringList linesOf(const std::wstring& text) {
  return tables::tidyLabel(QString::fromStdWString(text)).split(u'\n', Qt::SkipEmptyParts);
}

// Letters and digits of the unit in `question`, which the parser reads whole.
QString unitIn(const std::wstring& question) {
  const AddressInfo info = AddressParser::GetInstance()->Parse(question);
  return lettersOf(QString::fromStdWString(info.secondaryUnit + info.secondaryNumber));
}

// Cuts `unit` off the end of a delivery line, at a word; false where it does not end so.
bool cutUnit(const QString& line, const QString& unit, MergeParts& parts) {
  const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
  for (qsizetype first = words.size() - 1; first > 0; --first) {
    const QString end = words.mid(first).join(u' ');
    if (lettersOf(end).size() < unit.size() || lettersOf(words[first]).isEmpty()) {
      continue;
    }
    if (lettersOf(end) != unit) {
      return false;
    }
    const bool hasSign = lettersOf(words[first - 1]).isEmpty();  // "# 4"
    const qsizetype cut = first - (hasSign ? 1 : 0);
    parts.street = words.first(cut).join(u' ');
    parts.unit = words.mid(cut).join(u' ');
    while (parts.street.endsWith(u',')) {
      parts.street.chop(1);
    }
    return true;
  }
  return false;
}

// `lines` are street and unit, on one line or on two.
void takeDelivery(QStringList lines, const QString& unit, MergeParts& parts) {
  for (qsizetype line = 0; line < lines.size() && lines.size() > 1 && !unit.isEmpty(); ++line) {
    if (lettersOf(lines[line]) == unit) {
      parts.unit = lines.takeAt(line);
    }
  }
  const bool isCut = parts.unit.isEmpty() && lines.size() == 1 && !unit.isEmpty() &&
                     cutUnit(lines.first(), unit, parts);
  if (!isCut) {
    parts.street = lines.join(QStringLiteral(", "));
  }
}

}  // namespace

MergeParts mergePartsOf(const QString& label) {
  tables::LabelParts lines = tables::partLabel(label);
  MergeParts parts;
  parts.below = lines.below.join(QStringLiteral(", "));
  if (!lines.place) {
    parts.names = lines.above;
    return parts;
  }
  parts.city = lines.place->city;
  parts.state = lines.place->state;
  parts.zip = lines.place->zip;
  const AddressLines address(label.toStdWString());
  if (address.GetOutcome() != AddressLinesFound) {
    if (!lines.above.isEmpty()) {
      parts.street = lines.above.takeLast();
    }
    parts.names = lines.above;
    return parts;
  }
  const qsizetype names = linesOf(address.GetAbove()).size();
  parts.names = lines.above.first(std::min(names, lines.above.size()));
  QStringList delivery = lines.above.mid(names);
  for (const QString& between : linesOf(address.GetBetween())) {
    parts.names += delivery.removeOne(between) ? between : QString();
  }
  parts.names.removeAll(QString());
  takeDelivery(delivery, unitIn(address.GetQuestion()), parts);
  return parts;
}

}  // namespace postwright::addressbook
