#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_MERGEPARTS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_MERGEPARTS_H_

#include <QString>
#include <QStringList>

namespace postwright::addressbook {

// A label in the pieces that a letter takes up one by one, each as it is written on the label.
struct MergeParts {
  QStringList names;  // the lines above the address; all lines where no place is found
  QString street;     // without the unit, where that can be told
  QString unit;       // "APT 4"
  QString city;
  QString state;
  QString zip;    // with its +4 where that is known
  QString below;  // lines below the place, such as a country
};

// Not for two threads at once: the address is found by AddressLines.
MergeParts mergePartsOf(const QString& label);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_MERGEPARTS_H_
