#ifndef POSTWRIGHT_POSTAL_FETCH_INDEXPAGE_H_
#define POSTWRIGHT_POSTAL_FETCH_INDEXPAGE_H_

#include <string>
#include <string_view>
#include <vector>

namespace postwright::postal {

// An entry of a folder, as a web server lists it.
struct IndexEntry {
  std::string name;   // "tl_2024_48453_addrfeat.zip"; a folder's ends in "/"
  std::string stamp;  // what comes after it, as time and size: "2024-09-11 10:44 3.1M"
};

// Reads the HTML in which a web server lists a folder: its links to what is directly in it, each
// with the text up to the next. Any bytes give a list, of nothing where there is no such link.
std::vector<IndexEntry> ReadIndexPage(std::string_view html);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_INDEXPAGE_H_
