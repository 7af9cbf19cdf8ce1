#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_SAMEADDRESS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_SAMEADDRESS_H_

#include <QString>
#include <QStringList>

namespace postwright::addressbook {

// Returns what the address of a label comes to, whoever lives there: equal for two labels whose
// delivery lines say the same in words or abbreviations of USPS Publication 28 ("12 Main Street,
// Apt. 4" and "12 MAIN ST # 4") in the same ZIP code, the four digits after its hyphen left out.
// Empty where no street or box and no ZIP code are found.
QString addressKey(const QString& label);

// Returns one label for entries of one address: the first of `labels` with the names of the others,
// each once, below its own.
QString mergedLabel(const QStringList& labels);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_SAMEADDRESS_H_
