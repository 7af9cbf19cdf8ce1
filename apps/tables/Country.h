#ifndef POSTWRIGHT_APPS_TABLES_COUNTRY_H_
#define POSTWRIGHT_APPS_TABLES_COUNTRY_H_

#include <QString>

namespace postwright::tables {

// Tells whether a text names the United States, in English or Spanish, or by its code.
bool isHomeCountry(const QString& name);

// The name to print for a country as a file has it: a code of two or three letters (ISO 3166-1)
// becomes the English name, all else stays.
QString countryName(const QString& text);

// Tells whether the last line of a label of several names another country than the United States
// and their territories. Georgia, which is a state, too, does not count.
bool isForeignLabel(const QString& label);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_COUNTRY_H_
