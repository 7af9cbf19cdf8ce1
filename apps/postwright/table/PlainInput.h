#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_PLAININPUT_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_PLAININPUT_H_

#include <optional>
#include <string>

#include "apps/postwright/InputBytes.h"
#include "apps/postwright/table/AddressTable.h"

namespace postwright {

// What a command is given without --jsonl: the text of one label, or a table.
class PlainInput {
 public:
  // Reads the file `name` ("-": standard input). It is a table where `isTable` or `columns`, the
  // value of --columns, says so, or where its header names the columns of an address. Throws
  // Failure where it cannot be read, is too large a table, or is plainly neither: JSON lines, or
  // rows without a header. They would be mangled as one label.
  PlainInput(const std::string& name, bool isTable, const std::string& columns);

  // The table; nothing where it is a label.
  const std::optional<AddressTable>& Table() const { return table_; }

  // The bytes of what is a label, as far as one can be long.
  const InputBytes& Bytes() const { return input_; }

 private:
  InputBytes input_;
  std::optional<AddressTable> table_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_PLAININPUT_H_
