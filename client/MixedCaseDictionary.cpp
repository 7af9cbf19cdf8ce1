#include "client/MixedCaseDictionary.h"

#include "client/suite/StringHelpers.h"

namespace postwright {

QString mixedCaseKey(const QString& word) {
  constexpr QStringView kPrefix = u"O'";
  const QString capitalized = StringHelpers::capitalized(word);
  const QString rest = capitalized.mid(kPrefix.size());
  if (rest.size() >= 2 && capitalized.startsWith(kPrefix) && StringHelpers::isAllLetters(rest)) {
    return StringHelpers::stringWithFormat(QStringLiteral("O'%@"),
                                           {StringHelpers::capitalized(rest)});
  }
  return capitalized;
}

MixedCaseDictionary parseDefaultSpellings(const QString& resource) {
  const QStringList fields = resource.split(u'|');
  MixedCaseDictionary spellings;
  spellings.reserve(fields.size() / 2);
  for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
    spellings.insert(StringHelpers::trim(fields[i]), StringHelpers::trim(fields[i + 1]));
  }
  return spellings;
}

MixedCaseDictionary parseUserSpellings(const std::optional<QString>& spellings) {
  MixedCaseDictionary dictionary;
  if (spellings) {
    for (const QString& element : spellings->split(u';')) {
      const QString spelling = StringHelpers::trim(element);
      dictionary.insert(StringHelpers::capitalized(spelling), spelling);
    }
  }
  return dictionary;
}

}  // namespace postwright
