#ifndef POSTWRIGHT_APPS_TABLES_PACKEDADDRESS_H_
#define POSTWRIGHT_APPS_TABLES_PACKEDADDRESS_H_

#include <QString>
#include <QStringList>

namespace postwright::tables {

// An address that one cell holds with two blanks between its parts, as programs for newsletters
// write it: "12 Main St  Apt 4  Austin  TX  78701  US".

// The lines that it makes on a label, "Austin, TX 78701" and another country than the United States
// among them; nothing where the cell does not part so.
QStringList unpackedAddress(const QString& cell);

// Lines written in the way of `cell`, which has such an address; its country stays as it is there.
// Empty where the lines do not end with a place, or with a country, as it does.
QString packedAddress(const QStringList& lines, const QString& cell);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_PACKEDADDRESS_H_
