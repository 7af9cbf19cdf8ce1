#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_ROWS_COLUMNMEMORY_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_ROWS_COLUMNMEMORY_H_

#include <QByteArray>
#include <QStringList>
#include <optional>

#include "apps/tables/TableChoice.h"

namespace postwright::addressbook {

// Remembers the choice for each header that was met, in the settings of the application. Forms are
// told apart by the header as it was guessed and stands, or by the first row of a file without one.
// The number of skipped rows counts from the guess: what is above differs from file to file.
class ColumnMemory {
 public:
  static std::optional<tables::TableChoice> find(const QByteArray& header);
  static void remember(const QByteArray& header, const tables::TableChoice& choice);
};

// The columns of a file that the program makes; their meaning needs no answer.
QStringList newHeader();

// "A", "B" and so on: what the columns of a file without names are called.
QStringList columnLetters(qsizetype count);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_ROWS_COLUMNMEMORY_H_
