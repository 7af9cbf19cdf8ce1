#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_LASTNAME_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_LASTNAME_H_

#include <QString>

namespace postwright::addressbook {

// Returns what `name`, the first line of a label, is sorted by: the last name, and after it the
// name without titles and suffixes, "van der Berg Ludwig van der Berg" of "Dr. Ludwig van der Berg
// Jr.".
//
// The last name is the last word with the particles before it, under the first of which it is
// sorted; suffixes and degrees are passed over. Of a couple it is that of the first who has one
// ("John and Mary Smith"), of "The Smith Family" Smith, of "Smith, John" what comes before the
// comma. A company is sorted by its name without an article.
//
// `told` is the last name where a file says it apart; it counts where `name` holds it.
QString lastNameKey(const QString& name, const QString& told);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_LASTNAME_H_
