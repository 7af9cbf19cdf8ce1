#ifndef POSTWRIGHT_POSTAL_IMPORT_DBFTABLE_H_
#define POSTWRIGHT_POSTAL_IMPORT_DBFTABLE_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "postal/import/ByteStream.h"

namespace postwright::postal {

// The records of a dBASE table, as the Census Bureau's shapefiles have one: texts of fixed width,
// one after the other. Read as a stream, since a table may be compressed in an archive. Memory is
// that of one record.
class DbfTable {
 public:
  // Says by the first bytes of a file whether it is such a table.
  static bool IsLikely(std::string_view head);

  // Reads the heading. `name` stands for the table in what a SourceError says; throws it for a
  // heading that contradicts itself.
  DbfTable(std::unique_ptr<ByteStream> stream, std::string name);

  // Returns the index of a field; nullopt where there is none of that name.
  std::optional<size_t> FindField(std::string_view name) const;

  // Reads the next record that is not deleted; false at the end. Throws SourceError where the table
  // ends in the middle of one.
  bool Next();

  // Returns a field of the record without the blanks around it.
  std::string_view Field(size_t index) const;

  // How many records were read, and how many there are by the heading.
  int64_t RecordsRead() const { return read_; }
  int64_t Records() const { return records_; }

 private:
  struct FieldPlace {
    std::string name;
    size_t offset;
    size_t length;
  };

  void ReadFields(std::string_view descriptions);
  [[noreturn]] void Refuse(const std::string& why) const;

  std::unique_ptr<ByteStream> stream_;
  std::string name_;
  std::vector<FieldPlace> fields_;
  std::string record_;
  int64_t records_ = 0;
  int64_t read_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_DBFTABLE_H_
