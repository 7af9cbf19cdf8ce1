#include "apps/addressbook/formats/rows/ColumnMemory.h"

#include <QCryptographicHash>
#include <QSettings>
#include <algorithm>

#include "apps/tables/CsvReader.h"

namespace postwright::addressbook {

namespace {

const QLatin1Char kSeparator(' ');
const QString kKinds = QStringLiteral("-kinds");
const QString kKindColumns = QStringLiteral("-kindColumns");
const QString kHasHeader = QStringLiteral("-hasHeader");
const QString kSkippedRows = QStringLiteral("-skippedRows");
const QString kEncoding = QStringLiteral("-encoding");
const QString kMacRoman = QStringLiteral("macintosh");
const QString kWindows = QStringLiteral("windows-1252");
constexpr qsizetype kLetters = 26;

QString keyFor(const QByteArray& header) {
  const QByteArray digest =
      QCryptographicHash::hash(header.trimmed(), QCryptographicHash::Blake2b_160);
  return QStringLiteral("columns/") + QString::fromLatin1(digest.toHex());
}

}  // namespace

std::optional<tables::TableChoice> ColumnMemory::find(const QByteArray& header) {
  const QString key = keyFor(header);
  const QSettings settings;
  tables::TableChoice choice;
  // "44 1 2 4 5", one for each address of a row: the code of the delimiter and the roles.
  for (const QString& kept : settings.value(key).toStringList()) {
    QStringList numbers = kept.split(kSeparator, Qt::SkipEmptyParts);
    if (numbers.size() < 2) {
      return std::nullopt;
    }
    choice.delimiter = static_cast<char>(numbers.takeFirst().toInt());
    QList<tables::ColumnRole> roles;
    for (const QString& number : numbers) {
      const int role = number.toInt();
      roles.append(role > 0 && role < tables::kColumnRoles ? static_cast<tables::ColumnRole>(role)
                                                           : tables::ColumnRole::None);
    }
    choice.addresses.append({{}, -1, tables::ColumnMapping(roles)});
  }
  const QStringList kinds = settings.value(key + kKinds).toStringList();
  const QStringList kindColumns = settings.value(key + kKindColumns).toStringList();
  for (qsizetype each = 0; each < choice.addresses.size(); ++each) {
    choice.addresses[each].kind = kinds.value(each);
    choice.addresses[each].kindColumn = kindColumns.value(each, QStringLiteral("-1")).toInt();
  }
  choice.hasHeader = settings.value(key + kHasHeader, true).toBool();
  choice.skippedRows = settings.value(key + kSkippedRows, 0).toInt();
  // Others are told by the bytes of each file.
  choice.encoding = settings.value(key + kEncoding).toString() == kMacRoman
                        ? tables::TextEncoding::MacRoman
                        : tables::TextEncoding::Windows1252;
  const bool isUsable = std::any_of(choice.addresses.begin(), choice.addresses.end(),
                                    [](const auto& each) { return each.mapping.isUsable(); });
  if (!tables::CsvReader::isDelimiter(choice.delimiter) || !isUsable) {
    return std::nullopt;  // none, or settings that someone has edited
  }
  return choice;
}

void ColumnMemory::remember(const QByteArray& header, const tables::TableChoice& choice) {
  QStringList addresses;
  QStringList kinds;
  QStringList kindColumns;
  for (const tables::AddressColumns& address : choice.addresses) {
    QStringList numbers{QString::number(static_cast<int>(choice.delimiter))};
    for (const tables::ColumnRole role : address.mapping.roles()) {
      numbers.append(QString::number(static_cast<int>(role)));
    }
    addresses.append(numbers.join(kSeparator));
    kinds.append(address.kind);
    kindColumns.append(QString::number(address.kindColumn));
  }
  const QString key = keyFor(header);
  QSettings settings;
  settings.setValue(key, addresses);
  settings.setValue(key + kKinds, kinds);
  settings.setValue(key + kKindColumns, kindColumns);
  settings.setValue(key + kHasHeader, choice.hasHeader);
  settings.setValue(key + kSkippedRows, choice.skippedRows);
  settings.setValue(key + kEncoding,
                    choice.encoding == tables::TextEncoding::MacRoman ? kMacRoman : kWindows);
}

QStringList newHeader() {
  return QStringLiteral("Name,Company,Address 1,Address 2,City,State,ZIP").split(QLatin1Char(','));
}

QStringList columnLetters(qsizetype count) {
  QStringList letters;
  for (qsizetype column = 0; column < count; ++column) {
    QString name;
    for (qsizetype rest = column + 1; rest > 0; rest = (rest - 1) / kLetters) {
      name.prepend(QChar(u'A' + static_cast<char16_t>((rest - 1) % kLetters)));
    }
    letters.append(name);
  }
  return letters;
}

}  // namespace postwright::addressbook
