#ifndef POSTWRIGHT_POSTAL_IMPORT_ROWSOURCE_H_
#define POSTWRIGHT_POSTAL_IMPORT_ROWSOURCE_H_

#include <cstdint>
#include <stdexcept>
#include <string>

#include "postal/import/AddressRow.h"

namespace postwright::postal {

// A source's file that cannot be read or has another format; what() names it and says why.
class SourceError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A row that cannot be read as one; the next may be.
class RowError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Where a file is read on: a position, whose unit is the source's own, and the line or record that
// stands there, counted from 1.
struct RowPlace {
  int64_t position = 0;
  int64_t line = 1;
};

// The rows of one file, one after the other. One thread.
class RowSource {
 public:
  virtual ~RowSource() = default;

  // Reads the next row; false at the end. Throws RowError for a row that cannot be read as one, and
  // the next call goes on after it; throws SourceError where the file cannot be read.
  virtual bool Next(AddressRow& row) = 0;

  // What the file's format is called, as the base keeps it: "TIGER/Line ADDRFEAT".
  virtual std::string Format() const = 0;

  // Where the last row began, and where the next one does.
  virtual int64_t Line() const = 0;
  virtual RowPlace Place() const = 0;

  // Goes on at a place that Place told of the same file.
  virtual void GoTo(const RowPlace& place) = 0;

  // How much of the file was read, 0 to 1.
  virtual double Share() const = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_ROWSOURCE_H_
