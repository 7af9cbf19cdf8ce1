#ifndef POSTWRIGHT_POSTAL_IMPORT_FIXEDRECORDS_H_
#define POSTWRIGHT_POSTAL_IMPORT_FIXEDRECORDS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "postal/import/ByteReader.h"
#include "postal/import/SourceFile.h"

namespace postwright::postal {

// A file of records of one length, whose first byte says what each is, as the postal service
// delivers its products. There is nothing between them; copies with a line break after each are
// read alike.
class FixedRecords {
 public:
  // Says by the first bytes of a file whether it is such records: C for a copyright, or one of
  // `kinds` with a ZIP code after it.
  static bool IsLikely(std::string_view head, size_t length, std::string_view kinds);

  // Throws SourceError where the file cannot be read.
  FixedRecords(const SourceFile& file, size_t length);

  // Reads the next record; false at the end. Throws RowError for one that is cut short.
  bool Next();

  // Returns what the record has from the byte `from`, counted from 0, without blanks at its ends.
  std::string_view Field(size_t from, size_t width) const;

  // Returns such a field without the zeros in front of a number.
  std::string NumberField(size_t from, size_t width) const;

  // Returns a street, of four elements one after the other: "N MAIN ST".
  std::string StreetField(size_t from) const;

  // How many records were read, and how much of the file, 0 to 1.
  int64_t Read() const { return read_; }
  double Share() const { return bytes_.Share(); }

  // Has the next record be the one after `records`.
  void GoTo(int64_t records);

 private:
  void Fill(size_t size);

  const size_t length_;
  ByteReader bytes_;
  size_t step_ = 0;  // from one record to the next
  std::string record_;
  int64_t read_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_FIXEDRECORDS_H_
