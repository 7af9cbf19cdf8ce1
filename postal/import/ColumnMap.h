#ifndef POSTWRIGHT_POSTAL_IMPORT_COLUMNMAP_H_
#define POSTWRIGHT_POSTAL_IMPORT_COLUMNMAP_H_

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "postal/import/AddressRow.h"

namespace postwright::postal {

// Which columns of a table make up which field. A field of several has them one after the other,
// separated by blanks: the National Address Database has a street's name in eight.
class ColumnMap {
 public:
  using Columns = std::array<std::vector<std::string>, kFields>;

  // Reads "street=PREDIR+NAME+TYPE,number=HOUSENO". Throws std::invalid_argument that says what is
  // wrong with it.
  static ColumnMap Parse(const std::string& text);

  // The columns of a table that is known by its heading: OpenAddresses, the National Address
  // Database, or one whose columns are called as our fields; nullopt for any other.
  static std::optional<ColumnMap> Recognise(std::span<const std::string> heading);

  // The text that Parse read; empty for a table that was recognised.
  const std::string& Text() const { return text_; }

  // What Recognise took it for: "OpenAddresses CSV".
  const std::string& Format() const { return format_; }

  // Finds the columns in a table's heading, in capitals or not. Returns the name of one that is
  // not there; the empty text where all are.
  std::string Bind(std::span<const std::string> heading);

  // Puts a row's cells in their fields. Cells that the row lacks are empty.
  void Read(std::span<const std::string> cells, AddressRow& row) const;

 private:
  std::string format_ = "CSV";
  std::string text_;
  Columns names_;
  bool optional_ = false;  // a column that is missing is an empty one
  std::array<std::vector<size_t>, kFields> indices_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_COLUMNMAP_H_
