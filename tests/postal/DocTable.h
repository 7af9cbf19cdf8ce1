#ifndef POSTWRIGHT_TESTS_POSTAL_DOCTABLE_H_
#define POSTWRIGHT_TESTS_POSTAL_DOCTABLE_H_

#include <string>
#include <vector>

namespace postwright::postal {

struct DocRow {
  std::string place;  // "docs/standardiser.md:17"
  std::vector<std::string> cells;
};

// The rows of every table in a page of docs/ whose heading begins with the given cell and has that
// many cells.
std::vector<DocRow> ReadDocTables(const std::string& page, const std::string& firstHeading,
                                  size_t columns);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_TESTS_POSTAL_DOCTABLE_H_
