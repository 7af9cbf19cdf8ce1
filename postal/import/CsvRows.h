#ifndef POSTWRIGHT_POSTAL_IMPORT_CSVROWS_H_
#define POSTWRIGHT_POSTAL_IMPORT_CSVROWS_H_

#include <csv.h>

#include <span>
#include <string>
#include <vector>

#include "postal/import/ByteReader.h"
#include "postal/import/RowSource.h"

namespace postwright::postal {

// The rows of a CSV file (RFC 4180) of any size, packed or not, cell by cell. Memory is that of one
// row, of which a bound keeps an unclosed quotation mark from taking the rest of the file with it.
//
//   CsvRows rows(SourceFile{"houses.csv"});
//   while (rows.Next()) { … rows.Cells() … }
//
// Next and the rest as RowSource has them; positions are bytes, unpacked.
class CsvRows {
 public:
  static constexpr size_t kLongestRow = 64 * 1024;  // bytes

  // The delimiter is a comma, or what stands there in the first line more often: a tab, a vertical
  // bar, a semicolon. A byte-order mark is passed over; that of UTF-16 has the rows turned into
  // UTF-8 (what is not a character there into U+FFFD). A line ends in LF, CR LF or CR, whatever the
  // others end in. Throws SourceError.
  explicit CsvRows(const SourceFile& file);
  ~CsvRows();
  CsvRows(const CsvRows&) = delete;
  CsvRows& operator=(const CsvRows&) = delete;

  bool Next();
  std::span<const std::string> Cells() const { return {cells_.data(), cellCount_}; }

  int64_t Line() const { return rowBegin_.line; }
  RowPlace Place() const { return {position_, line_}; }
  void GoTo(const RowPlace& place);
  double Share() const { return bytes_.Share(); }

 private:
  static void OnCell(void* text, size_t length, void* self);
  static void OnRow(int, void* self);

  void ReadMark();
  int ReadUnit();
  int TakeUnit();
  bool ReadRow(bool* hasPassed);
  bool PassOpenLines();
  bool ReadLine();
  void Feed();
  bool IsBetweenRows() const;
  bool IsWithinQuotes() const;
  void Restart();
  void Seek(const RowPlace& place);
  [[noreturn]] void GiveUpRow(const RowPlace& line);
  [[noreturn]] void RefuseRow(const char* why);
  char GuessDelimiter();

  ByteReader bytes_;
  std::string mark_;  // of byte order, at the beginning of the file
  bool isUtf16_ = false;
  int ahead_ = 0;         // the byte at position_, or the unit of UTF-16; kEnd at the end
  int64_t position_ = 0;  // after the lines that were read
  int64_t line_ = 1;
  std::string text_;  // the line that was read last
  csv_parser parser_{};
  std::vector<std::string> cells_;
  size_t cellCount_ = 0;
  bool rowDone_ = false;
  RowPlace rowBegin_{0, 0};   // of the row that is being read,
  RowPlace behindFirstLine_;  // and the end of its first line
  int64_t openFrom_ = 0;      // what was read of the row that was given up last
  RowPlace openUntil_;
  bool isOpenForGood_ = false;  // what follows is a line that makes any row too long
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_CSVROWS_H_
