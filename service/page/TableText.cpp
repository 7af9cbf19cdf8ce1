#include "service/page/TableText.h"

#include <csv.h>

#include <algorithm>
#include <new>

#include "common/SmallText.h"

namespace postwright::service::tabletext {
namespace {

// Reads the text of one row.
class RowParser {
 public:
  explicit RowParser(char delimiter) {
    if (csv_init(&parser_, CSV_APPEND_NULL) != 0) {
      throw std::bad_alloc();
    }
    csv_set_delim(&parser_, static_cast<unsigned char>(delimiter));
  }
  ~RowParser() { csv_free(&parser_); }
  RowParser(const RowParser&) = delete;
  RowParser& operator=(const RowParser&) = delete;

  Cells Read(std::string_view text) {
    cells_.clear();
    csv_parse(&parser_, text.data(), text.size(), OnCell, nullptr, this);
    csv_fini(&parser_, OnCell, nullptr, this);
    return cells_;
  }

 private:
  static void OnCell(void* text, size_t length, void* self) {
    static_cast<RowParser*>(self)->cells_.emplace_back(static_cast<const char*>(text), length);
  }

  csv_parser parser_ = {};
  Cells cells_;
};

// Takes the row that `text` begins with: its lines until every quotation mark has its second.
std::string_view TakeRow(std::string_view& text, bool& isRead) {
  size_t end = 0;
  size_t first = 0;
  bool isOpen = false;
  isRead = false;
  for (int lines = 0; lines < kMostLines && end < text.size() && !isRead; ++lines) {
    const size_t begin = end;
    end = std::min(text.find('\n', begin), text.size() - 1) + 1;
    isOpen ^= std::count(text.begin() + static_cast<std::ptrdiff_t>(begin),
                         text.begin() + static_cast<std::ptrdiff_t>(end), '"') %
                  2 ==
              1;
    first = lines == 0 ? end : first;
    isRead = !isOpen;
  }
  end = isRead ? end : first;
  const std::string_view row = text.substr(0, end);
  text.remove_prefix(end);
  return row;
}

// A mark that begins a cell opens it; another is literal, as in 12" PIPE ST.
bool OpensACell(std::string_view line, char delimiter) {
  for (size_t at = line.find('"'); at != line.npos; at = line.find('"', at + 1)) {
    if (at == 0 || line[at - 1] == delimiter) {
      return true;
    }
  }
  return false;
}

bool NeedsQuotes(std::string_view cell) {
  return cell.find_first_of(",\"\r\n") != cell.npos || Trim(cell).size() < cell.size();
}

}  // namespace

char DelimiterOf(std::string_view text) {
  constexpr std::string_view kDelimiters = ",\t;|";
  const std::string_view line = text.substr(0, text.find('\n'));
  return *std::max_element(kDelimiters.begin(), kDelimiters.end(), [line](char a, char b) {
    return std::count(line.begin(), line.end(), a) < std::count(line.begin(), line.end(), b);
  });
}

std::vector<Row> Read(std::string_view text, size_t most) {
  std::vector<Row> rows;
  const char delimiter = DelimiterOf(text);
  RowParser parser(delimiter);
  while (!text.empty() && rows.size() < most) {
    bool isRead = true;
    const std::string_view row = TakeRow(text, isRead);
    if (Trim(row).empty()) {
      continue;
    }
    if (isRead || !OpensACell(row, delimiter)) {
      rows.push_back({parser.Read(row), ""});
    } else {
      rows.push_back({{std::string(Trim(row, "\r\n"))}, "A quotation mark is not closed."});
    }
  }
  return rows;
}

void Append(const Cells& cells, std::string& csv) {
  for (size_t i = 0; i < cells.size(); ++i) {
    csv += i == 0 ? "" : ",";
    if (!NeedsQuotes(cells[i])) {
      csv += cells[i];
      continue;
    }
    csv += '"';
    for (const char c : cells[i]) {
      csv.append(c == '"' ? 2 : 1, c);
    }
    csv += '"';
  }
  csv += "\r\n";
}

}  // namespace postwright::service::tabletext
