#include "apps/addressbook/book/SameAddress.h"

#include <QHash>
#include <QSet>
#include <QVarLengthArray>
#include <algorithm>

#include "apps/tables/LabelText.h"
#include "core/parser/UnitWords.h"
#include "core/parser/Vocabulary.h"

namespace postwright::addressbook {

namespace {

constexpr qsizetype kZipDigits = 5;
constexpr qsizetype kZipPlusDigits = 9;

// The standard form of street types and directions.
const QHash<QString, QString>& standardForms() {
  static const QHash<QString, QString> forms = [] {
    QHash<QString, QString> read;
    for (const Vocabulary::SuffixRow& row : Vocabulary::Suffixes()) {
      for (const wchar_t* const written : row.written) {
        read.insert(QString::fromWCharArray(written), QString::fromWCharArray(row.standard));
      }
    }
    for (const Vocabulary::VocabularyRow& row : Vocabulary::Directions()) {
      read.insert(QString::fromWCharArray(row.written), QString::fromWCharArray(row.standard));
    }
    return read;
  }();
  return forms;
}

// A word to look up, which is not copied.
QString rawText(QStringView word) {
  return QString::fromRawData(word.data(), word.size());
}

QString standardForm(QStringView word) {
  const auto found = standardForms().constFind(rawText(word));
  return found == standardForms().cend() ? word.toString() : *found;
}

// How a unit is called says nothing besides its number.
bool isDesignator(QStringView word) {
  static const QSet<QString> words = [] {
    QSet<QString> read = {QStringLiteral("NO"), QStringLiteral("PH"), QStringLiteral("PENTHOUSE")};
    const auto add = [&read](std::wstring_view unit) {
      read.insert(QString::fromWCharArray(unit.data(), static_cast<qsizetype>(unit.size())));
    };
    for (const Vocabulary::VocabularyRow& row : Vocabulary::NumberedUnits()) {
      if (row.standard == std::wstring_view(L"BOX")) {
        continue;  // an address of its own
      }
      const std::vector<std::wstring> written = UnitWords(row.written);
      std::for_each(written.begin(), written.end(), add);
      add(StandardUnit(row.standard));
    }
    return read;
  }();
  return words.contains(rawText(word));
}

using Words = QVarLengthArray<QStringView, 8>;

// The lines of a label with their letters and digits alone, upper case, blanks between the words. A
// hyphen parts no word, so that 12-4 is not 12 # 4.
QString plainLines(const QString& label) {
  QString plain;
  plain.reserve(label.size());
  for (const QChar c : label) {
    if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate()) {
      plain += c.toUpper();
    } else if (c == u'\n') {
      plain += c;
    } else if (c.isSpace() || c == u',' || c == u'#') {
      plain += u' ';
    }
  }
  return plain;
}

Words wordsOf(QStringView line) {
  Words words;
  for (qsizetype begin = 0; begin < line.size();) {
    const qsizetype blank = line.indexOf(u' ', begin);
    const qsizetype end = blank < 0 ? line.size() : blank;
    if (end > begin) {
      words.append(line.sliced(begin, end - begin));
    }
    begin = end + 1;
  }
  return words;
}

bool isDigits(QStringView word) {
  return std::all_of(word.begin(), word.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// The five digits of the ZIP code that ends a line after a city and a state; empty for another.
QStringView zipOf(const Words& words) {
  const bool isPlace = words.size() > 2 && isDigits(words.last()) && !isDigits(words.first()) &&
                       (words.last().size() == kZipDigits || words.last().size() == kZipPlusDigits);
  return isPlace ? words.last().first(kZipDigits) : QStringView();
}

bool isUnit(const Words& words) {
  return words.size() < 4 && (isDesignator(words.first()) || isDesignator(words.last()));
}

// "PO Box 12", "P. O. BOX 12", "Box 12".
bool isBox(const Words& words) {
  const qsizetype box = words[0] == u"BOX" ? 0 : words[0] == u"P" && words[1] == u"O" ? 2 : 1;
  const bool isPost = box == 0 || box == 2 || words[0] == u"PO";
  return isPost && words.size() > box + 1 && words[box] == u"BOX";
}

bool startsDelivery(const Words& words) {
  return words.size() > 1 && (words.first().front().isDigit() || isBox(words) ||
                              words.first() == u"RR" || words.first() == u"HC");
}

// Where among the lines above `place` the address begins: at the street or box nearest to it.
// `place` where there is none.
qsizetype deliveryAbove(qsizetype place, const QList<QStringView>& lines) {
  for (qsizetype line = place - 1; line >= 0; --line) {
    const Words words = wordsOf(lines[line]);
    if (!words.isEmpty() && !isUnit(words) && startsDelivery(words)) {
      return line;
    }
  }
  return place;
}

// The last line that ends with a ZIP code; -1 where there is none.
qsizetype placeIn(const QList<QStringView>& lines) {
  qsizetype place = lines.size() - 1;
  while (place >= 0 && zipOf(wordsOf(lines[place])).isEmpty()) {
    --place;
  }
  return place;
}

}  // namespace

QString addressKey(const QString& label) {
  const QString plain = plainLines(label);
  const QList<QStringView> lines = QStringView(plain).split(u'\n');
  const qsizetype place = placeIn(lines);
  const qsizetype first = deliveryAbove(place, lines);
  if (place < 0 || first == place) {
    return {};
  }
  QString key;
  key.reserve(plain.size());
  for (const QStringView line : lines.sliced(first, place - first)) {
    for (const QStringView word : wordsOf(line)) {
      if (!isDesignator(word)) {
        key += standardForm(word);
        key += u' ';
      }
    }
  }
  key += u'|';
  key += zipOf(wordsOf(lines[place]));
  return key;
}

QString mergedLabel(const QStringList& labels) {
  const auto namesOf = [](const QString& label) {
    const QString plain = plainLines(label);
    const QList<QStringView> lines = QStringView(plain).split(u'\n');
    return label.split(u'\n').first(std::max<qsizetype>(0, deliveryAbove(placeIn(lines), lines)));
  };
  const QStringList own = namesOf(labels.value(0));
  QStringList names = own;
  for (const QString& label : labels) {
    for (const QString& name : namesOf(label)) {
      const bool isThere = std::any_of(names.begin(), names.end(), [&name](const QString& each) {
        return tables::sameLetters(each, name);
      });
      if (!isThere) {
        names.append(name);
      }
    }
  }
  return (names + labels.value(0).split(u'\n').mid(own.size())).join(u'\n');
}

}  // namespace postwright::addressbook
