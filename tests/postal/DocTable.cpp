#include "tests/postal/DocTable.h"

#include <fstream>

namespace postwright::postal {
namespace {

std::string Trim(const std::string& text) {
  const size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> SplitCells(const std::string& line) {
  std::vector<std::string> cells;
  for (size_t at = 1, end; (end = line.find('|', at)) != std::string::npos; at = end + 1) {
    cells.push_back(Trim(line.substr(at, end - at)));
  }
  return cells;
}

}  // namespace

std::vector<DocRow> ReadDocTables(const std::string& page, const std::string& firstHeading,
                                  size_t columns) {
  std::ifstream input(POSTWRIGHT_SOURCE_DIR "/docs/" + page);
  std::vector<DocRow> rows;
  bool inTable = false;
  std::string line;
  for (int number = 1; std::getline(input, line); ++number) {
    const std::vector<std::string> cells =
        line.starts_with('|') ? SplitCells(line) : std::vector<std::string>();
    if (cells.size() != columns) {
      inTable = false;
    } else if (!inTable) {
      inTable = cells[0] == firstHeading;
    } else if (!cells[0].starts_with("---")) {
      rows.push_back({"docs/" + page + ":" + std::to_string(number), cells});
    }
  }
  return rows;
}

}  // namespace postwright::postal
