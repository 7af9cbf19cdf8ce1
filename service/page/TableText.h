#ifndef POSTWRIGHT_SERVICE_PAGE_TABLETEXT_H_
#define POSTWRIGHT_SERVICE_PAGE_TABLETEXT_H_

#include <string>
#include <string_view>
#include <vector>

// A table as it is pasted and as it is saved.
namespace postwright::service::tabletext {

using Cells = std::vector<std::string>;

struct Row {
  Cells cells;          // of a row that cannot be read its text, in one
  std::string problem;  // why it cannot, for a person; empty where it can
};

// Reads CSV (RFC 4180), or rows separated by tabs, semicolons or strokes, whichever the first line
// has most of; empty rows are passed over, and no more than `most` are read. A row has up to
// kMostLines lines: where a quotation mark is not closed by then, its first line alone cannot be
// read. Takes time in proportion to the text. Pure, for any thread.
inline constexpr int kMostLines = 12;
std::vector<Row> Read(std::string_view text, size_t most);

// The sign that sets the cells apart.
char DelimiterOf(std::string_view text);

// Appends a record of CSV, with its line end.
void Append(const Cells& cells, std::string& csv);

}  // namespace postwright::service::tabletext

#endif  // POSTWRIGHT_SERVICE_PAGE_TABLETEXT_H_
