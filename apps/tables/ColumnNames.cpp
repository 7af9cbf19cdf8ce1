#include "apps/tables/ColumnNames.h"

#include <QCoreApplication>
#include <QHash>
#include <algorithm>

#include "apps/tables/LabelText.h"

namespace postwright::tables {

namespace {

struct NamedRole {
  ColumnRole role;
  const char* names;  // letters and digits alone, upper case
};

constexpr NamedRole kNamedRoles[] = {
    {ColumnRole::Title, "SALUTATION PREFIX NAMEPREFIX HONORIFIC TITLE TRATAMIENTO"},
    {ColumnRole::Given,
     "FIRSTNAME FIRSTNAMES FIRST FNAME GIVENNAME GIVENNAMES GIVEN FORENAME MIDDLENAME MIDDLE "
     "MIDDLEINITIAL MI ADDITIONALNAME NOMBRE NOMBRES"},
    {ColumnRole::Name,
     "NAME FULLNAME DISPLAYNAME MAILINGNAME LABELNAME ENVELOPENAME HOUSEHOLDNAME LASTNAME LAST "
     "LNAME SURNAME FAMILYNAME FAMILY CONTACT CONTACTNAME RECIPIENT ADDRESSEE NOMBRECOMPLETO "
     "APELLIDO "
     "APELLIDOS DESTINATARIO"},
    {ColumnRole::Suffix, "SUFFIX NAMESUFFIX SUFIJO"},
    {ColumnRole::Company,
     "COMPANY COMPANYNAME ORGANIZATION ORGANISATION ORGANIZATIONNAME "
     "ORGANIZATION1NAME ORGNAME ORG FIRM FIRMNAME BUSINESS "
     "BUSINESSNAME ACCOUNTNAME ASSOCIATEDCOMPANY EMPRESA ORGANIZACION COMPANIA"},
    {ColumnRole::Street,
     "ADDRESS ADDRESS1 ADDRESS2 ADDRESS3 ADDRESSLINE ADDRESSLINE1 ADDRESSLINE2 ADDRESSLINE3 ADDR "
     "ADDR1 ADDR2 ADDR3 ADDRLINE1 ADDRLINE2 ADDRLINE3 ADD1 ADD2 STREETLINE1 STREETLINE2 LINE1 "
     "LINE2 LINE3 STREET STREET1 STREET2 STREET3 STREETADDRESS "
     "STREETADDRESS1 STREETADDRESS2 STREETADDRESSLINE1 STREETADDRESSLINE2 DELIVERYADDRESS LABEL "
     "ADDRESSLABEL APT APTNO APTNUMBER APTSUITE APTUNIT APARTMENT UNIT UNITNO UNITNUMBER SUITE STE "
     "POBOX ADDRESSPOBOX EXTENDEDADDRESS DIRECCION "
     "DIRECCION1 DIRECCION2 CALLE ETIQUETA"},
    {ColumnRole::City,
     "CITY TOWN CITYTOWN LOCALITY POSTTOWN POSTOFFICE CITYSTATEZIP CITYSTATEANDZIP CITYSTZIP "
     "CIUDAD LOCALIDAD MUNICIPIO"},
    {ColumnRole::State,
     "STATE ST STATECODE PROVINCE PROVINCECODE STATEPROV STATEPROVINCE STATEREGION REGION ESTADO"},
    {ColumnRole::Zip,
     "ZIP ZIPCODE ZIP5 ZIP4 ZIPPLUS4 PLUS4 ZIPPOSTALCODE ZIPPOSTAL POSTALZIP POSTALCODE POSTCODE "
     "POSTAL CODIGOPOSTAL "
     "CP"},
    {ColumnRole::Country, "COUNTRY COUNTRYREGION COUNTRYCODE NATION PAIS"},
};

// What a customer database says of a column whose cells it does not take from a list of its own.
constexpr QLatin1String kTextOnly("TEXTONLY");

constexpr const char* kFullNames =
    " NAME FULLNAME DISPLAYNAME MAILINGNAME LABELNAME ENVELOPENAME HOUSEHOLDNAME NOMBRECOMPLETO ";

// What comes before or after the names where a file has several addresses a row, and what such an
// address is called. ADDRESS1 and so on are those of web mail, whose own column tells the kind.
struct Group {
  const char* name;
  const char* kind;
};
constexpr Group kGroups[] = {
    {"HOME", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Home")},
    {"WORK", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Work")},
    {"BUSINESS", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Business")},
    {"MAILING", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Mailing")},
    {"SHIPPING", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Shipping")},
    {"BILLING", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Billing")},
    {"SHIPTO", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Shipping")},
    {"SHIP", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Shipping")},
    {"BILLTO", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Billing")},
    {"BILL", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Billing")},
    {"OTHER", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Other")},
    {"PRIMARY", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Primary")},
    {"SECONDARY", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Secondary")},
    {"PERMANENT", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Permanent")},
    {"PHYSICAL", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Physical")},
    {"ALTERNATE", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Alternate")},
    {"SEASONAL", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Seasonal")},
    {"DELIVERY", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Delivery")},
    {"POSTAL", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Postal")},
    {"CASA", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Home")},
    {"TRABAJO", QT_TRANSLATE_NOOP("postwright::tables::ColumnNames", "Work")},
    {"DEFAULTADDRESS", ""},
    {"ADDRESS1", ""},
    {"ADDRESS2", ""},
    {"ADDRESS3", ""},
    {"ADDRESS4", ""},
};

const QHash<QString, ColumnRole>& rolesByName() {
  static const QHash<QString, ColumnRole> roles = [] {
    QHash<QString, ColumnRole> read;
    for (const NamedRole& named : kNamedRoles) {
      for (const QString& name : QString::fromLatin1(named.names).split(QLatin1Char(' '))) {
        read.insert(name, named.role);
      }
    }
    return read;
  }();
  return roles;
}

}  // namespace

QString plainName(const QString& title) {
  QString name = title.normalized(QString::NormalizationForm_D);
  name.removeIf([](QChar c) { return c.isMark(); });
  return lettersOf(name);
}

bool isFullName(const QString& name) {
  return QString::fromLatin1(kFullNames).contains(QLatin1Char(' ') + name + QLatin1Char(' '));
}

bool isPersonal(ColumnRole role) {
  return role == ColumnRole::Title || role == ColumnRole::Given || role == ColumnRole::Name ||
         role == ColumnRole::Suffix || role == ColumnRole::Company;
}

NamedColumn readColumnName(const QString& title) {
  QString name = plainName(title);
  if (name.endsWith(kTextOnly)) {
    name.chop(kTextOnly.size());
  }
  const auto& known = rolesByName();
  if (const auto found = known.constFind(name); found != known.cend()) {
    return {*found, {}, name, false};
  }
  for (const Group& each : kGroups) {
    const QString group = QString::fromLatin1(each.name);
    const bool isBefore = name.startsWith(group);
    if (!isBefore && !name.endsWith(group)) {
      continue;
    }
    const QString rest = isBefore ? name.sliced(group.size()) : name.chopped(group.size());
    if (*each.kind == '\0' && (rest == u"LABEL" || rest == u"TYPE")) {
      return {ColumnRole::None, group, rest, true};
    }
    const ColumnRole role = known.value(rest, ColumnRole::None);
    if (role != ColumnRole::None) {
      return {role, group, rest, false};
    }
  }
  return {};
}

QString kindOfGroup(const QString& group) {
  const auto* const found =
      std::find_if(std::begin(kGroups), std::end(kGroups),
                   [&](const Group& g) { return group == QLatin1String(g.name); });
  return found == std::end(kGroups) ? QString() : QString::fromLatin1(found->kind);
}

QString kindText(const QString& kind) {
  return QCoreApplication::translate("postwright::tables::ColumnNames", kind.toUtf8().constData());
}

int knownNames(const QStringList& cells) {
  return static_cast<int>(std::count_if(cells.begin(), cells.end(), [](const QString& cell) {
    return readColumnName(cell).role != ColumnRole::None;
  }));
}

}  // namespace postwright::tables
