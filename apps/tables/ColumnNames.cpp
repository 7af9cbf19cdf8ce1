// The names that columns have in the files of other programs.

#include <QHash>
#include <algorithm>

#include "apps/tables/ColumnMapping.h"
#include "apps/tables/LabelText.h"

namespace postwright::tables {

namespace {

struct NamedRole {
  ColumnRole role;
  const char* names;  // letters and digits alone, upper case
};

constexpr NamedRole kNamedRoles[] = {
    {ColumnRole::Given,
     "FIRSTNAME FIRST GIVENNAME GIVEN FORENAME MIDDLENAME MIDDLE MIDDLEINITIAL MI SALUTATION "
     "PREFIX "
     "NAMEPREFIX NOMBRE NOMBRES TRATAMIENTO"},
    {ColumnRole::Name,
     "NAME FULLNAME DISPLAYNAME LASTNAME LAST SURNAME FAMILYNAME FAMILY CONTACT CONTACTNAME "
     "RECIPIENT ADDRESSEE NOMBRECOMPLETO APELLIDO APELLIDOS DESTINATARIO"},
    {ColumnRole::Company,
     "COMPANY COMPANYNAME ORGANIZATION ORGANISATION ORGANIZATIONNAME ORG FIRM FIRMNAME BUSINESS "
     "BUSINESSNAME EMPRESA ORGANIZACION COMPANIA"},
    {ColumnRole::Street,
     "ADDRESS ADDRESS1 ADDRESS2 ADDRESS3 ADDRESSLINE ADDRESSLINE1 ADDRESSLINE2 ADDRESSLINE3 ADDR "
     "ADDR1 ADDR2 ADDR3 LINE1 LINE2 LINE3 STREET STREET1 STREET2 STREET3 STREETADDRESS "
     "STREETADDRESS1 STREETADDRESS2 DELIVERYADDRESS LABEL ADDRESSLABEL APT APARTMENT UNIT SUITE "
     "STE "
     "POBOX EXTENDEDADDRESS DIRECCION DIRECCION1 DIRECCION2 CALLE ETIQUETA"},
    {ColumnRole::City,
     "CITY TOWN CITYTOWN LOCALITY POSTTOWN POSTOFFICE CITYSTATEZIP CITYSTATEANDZIP CITYSTZIP "
     "CIUDAD "
     "LOCALIDAD MUNICIPIO"},
    {ColumnRole::State, "STATE ST STATECODE PROVINCE STATEPROVINCE REGION ESTADO"},
    {ColumnRole::Zip,
     "ZIP ZIPCODE ZIP5 ZIP4 ZIPPLUS4 PLUS4 POSTALCODE POSTCODE POSTAL CODIGOPOSTAL CP"},
};

// What stands before the names where a file has several addresses a row; the first one found is
// taken.
constexpr const char* kPrefixes[] = {"",     "MAILING",  "SHIPPING", "HOME",
                                     "WORK", "BUSINESS", "BILLING",  "ADDRESS1"};

QHash<QString, ColumnRole> rolesByName() {
  QHash<QString, ColumnRole> roles;
  for (const NamedRole& named : kNamedRoles) {
    for (const QString& name : QString::fromLatin1(named.names).split(QLatin1Char(' '))) {
      roles.insert(name, named.role);
    }
  }
  return roles;
}

// "Código postal" gives CODIGOPOSTAL.
QString plainName(const QString& title) {
  QString name = title.normalized(QString::NormalizationForm_D);
  name.removeIf([](QChar c) { return c.isMark(); });
  return lettersOf(name);
}

bool isFullName(const QString& name) {
  return name == u"NAME" || name == u"FULLNAME" || name == u"DISPLAYNAME" ||
         name == u"NOMBRECOMPLETO";
}

bool isPersonal(ColumnRole role) {
  return role == ColumnRole::Given || role == ColumnRole::Name || role == ColumnRole::Company;
}

QList<ColumnRole> rolesWithPrefix(const QStringList& names, const QString& prefix) {
  static const QHash<QString, ColumnRole> known = rolesByName();
  QList<ColumnRole> roles;
  for (const QString& name : names) {
    const ColumnRole plain = known.value(name, ColumnRole::None);
    const ColumnRole prefixed = name.startsWith(prefix)
                                    ? known.value(name.sliced(prefix.size()), ColumnRole::None)
                                    : ColumnRole::None;
    roles.append(isPersonal(plain) ? plain : prefixed);
  }
  return roles;
}

// A column with the full name makes those with its pieces superfluous.
void preferFullName(const QStringList& names, QList<ColumnRole>& roles) {
  const bool hasFull = std::any_of(names.begin(), names.end(), isFullName);
  for (qsizetype column = 0; hasFull && column < roles.size(); ++column) {
    const bool isPiece = roles[column] == ColumnRole::Given ||
                         (roles[column] == ColumnRole::Name && !isFullName(names[column]));
    roles[column] = isPiece ? ColumnRole::None : roles[column];
  }
}

}  // namespace

ColumnMapping ColumnMapping::guess(const QStringList& header) {
  QStringList names;
  for (const QString& title : header) {
    names.append(plainName(title));
  }
  QList<ColumnRole> roles;
  for (const char* const prefix : kPrefixes) {
    roles = rolesWithPrefix(names, QString::fromLatin1(prefix));
    if (roles.contains(ColumnRole::Street)) {
      break;
    }
  }
  if (header.size() == 1) {
    roles = {ColumnRole::Street};
  }
  preferFullName(names, roles);
  return ColumnMapping(roles);
}

}  // namespace postwright::tables
