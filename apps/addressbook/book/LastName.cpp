#include "apps/addressbook/book/LastName.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <algorithm>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

using Words = QSet<QString>;

Words wordsOf(const char* words) {
  const QStringList list = QString::fromUtf8(words).split(u' ');
  return {list.begin(), list.end()};
}

bool isOf(const Words& words, const QString& word) {
  return words.contains(tables::lettersOf(word));
}

bool isTitle(const QString& word) {
  static const Words kTitles = wordsOf(
      "MR MRS MS MISS MX DR PROF REV REVEREND FR FATHER SR SRA SRTA DON DOÑA HON SIR CAPT COL "
      "MAJ LT SGT RABBI PASTOR SISTER BROTHER THE ATTN");
  return isOf(kTitles, word);
}

bool isSuffix(const QString& word) {
  static const Words kSuffixes =
      wordsOf("JR SR II III IV V ESQ ESQUIRE MD PHD FAMILY FAMILIES HOUSEHOLD FAMILIA");
  return isOf(kSuffixes, word);
}

// Those that are names as well, where no comma stands before them.
bool isDegree(const QString& word) {
  static const Words kDegrees = wordsOf(
      "EDD DO DDS DMD DVM CPA RN NP PE JD LLM MBA MA MS BA BS DMIN DPT OD SJ OP OSB OFM CSC USA "
      "USN USMC USAF RET");
  return isOf(kDegrees, word);
}

bool isParticle(const QString& word) {
  static const Words kParticles = wordsOf(
      "VAN VON VOM ZU ZUM ZUR DER DEN DEM DE DEL DELA DELLA DELLE DEGLI DI DA DAL DAS DO DOS DU "
      "DES LA LAS LE LES LO LOS EL AL BIN BEN IBN BINT ABU TEN TER TE SAN SANTA ST MAC MC AP AF "
      "AV");
  return isOf(kParticles, word);
}

bool isOfCompany(const QString& word) {
  static const Words kCompanies = wordsOf(
      "INC INCORPORATED LLC LLP LP LTD LIMITED CO CORP CORPORATION COMPANY PLC PC BANK CHURCH "
      "PARISH TEMPLE SYNAGOGUE MOSQUE CHAPEL CATHEDRAL MINISTRIES SCHOOL ACADEMY UNIVERSITY "
      "COLLEGE INSTITUTE HOSPITAL CLINIC CENTER CENTRE FOUNDATION SOCIETY ASSOCIATION ASSN "
      "ASSOCIATES CLUB LEAGUE TRUST GROUP PARTNERS SERVICES SERVICE OFFICE OFFICES DEPARTMENT "
      "DEPT AGENCY LIBRARY MUSEUM STORE SHOP MARKET COUNTY DISTRICT AUTHORITY SONS BROTHERS "
      "BROS DAUGHTERS HOTEL RESTAURANT CAFE PHARMACY INSURANCE REALTY PROPERTIES INDUSTRIES "
      "ENTERPRISES SYSTEMS SOLUTIONS OF FOR");
  return isOf(kCompanies, word);
}

bool isAnd(const QString& word) {
  static const Words kAnd = {QStringLiteral("&"), QStringLiteral("+"), QStringLiteral("AND"),
                             QStringLiteral("OR"), QStringLiteral("C/O")};
  return word == u"y" || kAnd.contains(word.toUpper());
}

// "c/o" has the letters of a company.
bool isCompany(const QStringList& words) {
  return std::any_of(words.begin(), words.end(), [](const QString& word) {
    return (isOfCompany(word) && !word.contains(u'/')) ||
           std::any_of(word.begin(), word.end(), [](QChar c) { return c.isDigit(); });
  });
}

QString withoutArticle(QStringList words) {
  static const Words kArticles = wordsOf("THE A AN EL LA LOS LAS");
  if (words.size() > 1 && isOf(kArticles, words.first())) {
    words.removeFirst();
  }
  return words.join(u' ');
}

// The words of one person, without titles and suffixes.
QStringList bare(QStringList words) {
  while (words.size() > 1 && isTitle(words.first())) {
    words.removeFirst();
  }
  while (words.size() > 1 && isSuffix(words.last())) {
    words.removeLast();
  }
  return words;
}

// Where the last name begins among `words`; the first word is a given name where there are several.
qsizetype lastNameIn(const QStringList& words) {
  qsizetype first = words.size() - 1;
  while (first > 1 && isParticle(words[first - 1])) {
    --first;
  }
  const bool isBare = first == 1 && words.first().front().isLower() && isParticle(words.first());
  return isBare ? 0 : first;  // "de la Cruz" alone
}

// The persons of "John and Mary Smith", each in words.
QList<QStringList> personsIn(const QString& name) {
  QList<QStringList> persons{{}};
  static const QRegularExpression kSign(QStringLiteral("([&+])"));
  for (const QString& word :
       QString(name).replace(kSign, QStringLiteral(" \\1 ")).split(u' ', Qt::SkipEmptyParts)) {
    if (isAnd(word)) {
      persons.append(QStringList());
    } else {
      persons.last().append(word);
    }
  }
  return persons;
}

// "Smith, John" is written the other way round; what follows the comma of "King, Jr." is a suffix.
bool isTurned(const QString& name, qsizetype comma) {
  const QStringList after = name.sliced(comma + 1).split(u' ', Qt::SkipEmptyParts);
  return comma > 0 && !after.isEmpty() && !isSuffix(after.first()) && !isDegree(after.first());
}

}  // namespace

QString lastNameKey(const QString& name, const QString& told) {
  const QString whole = name.simplified();
  const QStringList words = whole.split(u' ', Qt::SkipEmptyParts);
  if (!told.isEmpty() && tables::lettersOf(whole).contains(tables::lettersOf(told))) {
    return tables::sameLetters(whole, told) ? withoutArticle(words)
                                            : told.simplified() + u' ' + bare(words).join(u' ');
  }
  if (words.size() < 2 || isCompany(words)) {
    return withoutArticle(words);
  }
  const qsizetype comma = whole.indexOf(u',');
  if (isTurned(whole, comma)) {
    return whole.first(comma) + u' ' + whole.sliced(comma + 1).trimmed();
  }
  for (const QStringList& person : personsIn(comma < 0 ? whole : whole.first(comma))) {
    const QStringList names = bare(person);
    const bool isLastNameAlone = person.size() > 1 && isSuffix(person.last());
    if (names.size() > 1 || (names.size() == 1 && isLastNameAlone)) {
      return names.mid(lastNameIn(names)).join(u' ') + u' ' + bare(words).join(u' ');
    }
  }
  return withoutArticle(words);
}

}  // namespace postwright::addressbook
