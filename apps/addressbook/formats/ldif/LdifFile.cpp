#include "apps/addressbook/formats/ldif/LdifFile.h"

#include <QHash>
#include <algorithm>

#include "apps/addressbook/book/BookFormat.h"
#include "apps/tables/ColumnMapping.h"
#include "apps/tables/ColumnNames.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

// The attributes of a record by their names in lower case, the first value of each.
using Record = QHash<QByteArray, QString>;

struct Attribute {
  tables::ColumnRole role;
  QByteArrayList names;  // of which the first that the record has counts
};

// What makes the label of an address, in the order of its lines.
struct KindOfAddress {
  const char* kind;
  QList<Attribute> attributes;
};

const QList<KindOfAddress>& kinds() {
  using Role = tables::ColumnRole;
  static const QList<KindOfAddress> known = {
      {"Home",
       {{Role::Street, {"mozillahomestreet"}},
        {Role::Street, {"mozillahomestreet2"}},
        {Role::City, {"mozillahomelocalityname"}},
        {Role::State, {"mozillahomestate"}},
        {Role::Zip, {"mozillahomepostalcode"}},
        {Role::Country, {"mozillahomecountryname"}}}},
      {"Home", {{Role::Street, {"homepostaladdress"}}}},
      {"Work",
       {{Role::Company, {"o", "company", "organizationname"}},
        {Role::Street, {"street", "streetaddress"}},
        {Role::Street, {"mozillaworkstreet2"}},
        {Role::Street, {"postofficebox"}},
        {Role::City, {"l", "locality", "localityname"}},
        {Role::State, {"st", "region", "stateorprovincename"}},
        {Role::Zip, {"postalcode"}},
        {Role::Country, {"c", "co", "countryname"}}}},
      {"Work", {{Role::Company, {"o"}}, {Role::Street, {"postaladdress"}}}},
  };
  return known;
}

// A line goes on in those that begin with a blank.
QByteArrayList unfolded(const QByteArray& text) {
  QByteArrayList lines;
  for (QByteArray line : text.split('\n')) {
    if (line.endsWith('\r')) {
      line.chop(1);
    }
    if (line.startsWith(' ') && !lines.isEmpty()) {
      lines.last() += line.sliced(1);
    } else {
      lines.append(line);
    }
  }
  return lines;
}

// "sn: Doe", and "cn:: Sm9zw6k=" for what is not plain.
void takeLine(const QByteArray& line, Record& record) {
  const qsizetype colon = line.indexOf(':');
  if (colon <= 0 || line.startsWith('#')) {
    return;
  }
  const QByteArray name = line.first(colon).split(';').first().trimmed().toLower();
  const bool isCoded = line.sliced(colon).startsWith("::");
  const QByteArray value = line.sliced(colon + (isCoded ? 2 : 1)).trimmed();
  if (!record.contains(name)) {
    record.insert(name, QString::fromUtf8(isCoded ? QByteArray::fromBase64(value) : value));
  }
}

// A postal address is one value there, its lines separated by dollar signs (RFC 4517, 3.3.28).
QString linesOf(const QString& value) {
  QString lines = value;
  lines.replace(QStringLiteral(" $ "), QStringLiteral("\n")).replace(u'$', u'\n');
  return lines.replace(QStringLiteral("\\24"), QStringLiteral("$"), Qt::CaseInsensitive)
      .replace(QStringLiteral("\\5C"), QStringLiteral("\\"), Qt::CaseInsensitive);
}

QString firstOf(const Record& record, const QByteArrayList& names) {
  const auto found = std::find_if(names.begin(), names.end(), [&record](const QByteArray& name) {
    return !record.value(name).isEmpty();
  });
  if (found == names.end()) {
    return {};
  }
  const QString value = record.value(*found);
  if (*found == "postofficebox" &&
      std::all_of(value.begin(), value.end(), [](QChar c) { return c.isDigit(); })) {
    return QStringLiteral("PO Box ") + value;
  }
  return found->endsWith("postaladdress") ? linesOf(value) : value;
}

QString lastNameOf(const Record& record) {
  return firstOf(record, {"sn", "surname"});
}

QString nameOf(const Record& record) {
  const QString whole = firstOf(record, {"cn", "commonname", "displayname"});
  return whole.isEmpty()
             ? QString(firstOf(record, {"givenname"}) + u' ' + lastNameOf(record)).trimmed()
             : whole;
}

// The label of an address; empty where the record has none of its kind.
QString labelOf(const Record& record, const KindOfAddress& kind) {
  QList<tables::ColumnRole> roles{tables::ColumnRole::Name};
  QStringList cells{nameOf(record)};
  for (const Attribute& attribute : kind.attributes) {
    roles.append(attribute.role);
    cells.append(firstOf(record, attribute.names));
  }
  const tables::ColumnMapping mapping(roles);
  return mapping.hasAddress(cells) ? mapping.compose(cells) : QString();
}

void takeRecord(const Record& record, QList<Entry>& entries) {
  const qsizetype before = entries.size();
  const char* last = "";
  for (const KindOfAddress& kind : kinds()) {
    const QString label = labelOf(record, kind);
    if (!label.isEmpty() && qstrcmp(last, kind.kind) != 0) {
      last = kind.kind;
      entries.append({entries.size() + 1,
                      label,
                      {},
                      tables::kindText(QLatin1String(last)),
                      lastNameOf(record)});
    }
  }
  if (entries.size() == before + 1) {
    entries.last().kind.clear();  // there is nothing to tell it from
  }
  if (entries.size() == before && !nameOf(record).isEmpty()) {
    entries.append({entries.size() + 1, nameOf(record), {}, {}, lastNameOf(record)});
  }
}

bool isGroup(const Record& record) {
  return record.contains("member") || record.contains("uniquemember");
}

}  // namespace

const BookFormat& LdifFile::bookFormat() {
  static const BookFormat format = {
      [] { return tr("LDIF file"); },
      {QStringLiteral("ldif"), QStringLiteral("ldi")},
      {QStringLiteral("text/x-ldif")},
      [](const FileHead& head) {
        const QByteArray start =
            head.utf8.first(std::min<qsizetype>(head.utf8.size(), 8)).toLower();
        return start.startsWith("dn:") || start.startsWith("version:");
      },
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<LdifFile>(tables::TextFile::read(path));
      },
      nullptr};
  return format;
}

LdifFile::LdifFile(const tables::TextFile& text) {
  Record record;
  int records = 0;
  const auto end = [&] {
    if (record.contains("dn")) {
      ++records;
      if (!isGroup(record)) {
        takeRecord(record, _entries);
      }
    }
    record.clear();
  };
  for (const QByteArray& line : unfolded(text.utf8)) {
    if (line.isEmpty()) {
      end();
    } else {
      takeLine(line, record);
    }
  }
  end();
  if (records == 0) {
    throw tables::FileError(tr("The file holds no LDIF record: no line begins with “dn:”."));
  }
}

QStringList LdifFile::write(const QString& /*path*/, const QList<Entry>& /*entries*/) {
  throw tables::FileError(
      tr("LDIF is read and not written. Save the address book as another kind."));
}

}  // namespace postwright::addressbook
