#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_COLUMNMEMORY_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_COLUMNMEMORY_H_

#include <QByteArray>
#include <optional>

#include "apps/tables/TableChoice.h"

namespace postwright::addressbook {

// Remembers the choice for each header that was met, in the settings of the application. Forms are
// told apart by the first line of the file as it stands.
class ColumnMemory {
 public:
  static std::optional<tables::TableChoice> find(const QByteArray& firstLine);
  static void remember(const QByteArray& firstLine, const tables::TableChoice& choice);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_COLUMNMEMORY_H_
