#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_COLUMNMEMORY_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_COLUMNMEMORY_H_

#include <QByteArray>
#include <optional>

#include "apps/tables/TableChoice.h"

namespace postwright::addressbook {

// Remembers the choice for each header that was met, in the settings of the application. Forms are
// told apart by the header as it stands, or by the first row of a file without one.
class ColumnMemory {
 public:
  static std::optional<tables::TableChoice> find(const QByteArray& header);
  static void remember(const QByteArray& header, const tables::TableChoice& choice);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_COLUMNMEMORY_H_
