#ifndef POSTWRIGHT_POSTAL_FETCH_FETCHPLACES_H_
#define POSTWRIGHT_POSTAL_FETCH_FETCHPLACES_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace postwright::postal {

// A state (50, the District of Columbia, Puerto Rico) by its codes.
struct StateCodes {
  std::string_view name;  // "NEW YORK"
  std::string_view code;  // "NY", of Publication 28, appendix B
  std::string_view fips;  // "36" (FIPS 5-2)
};

const std::vector<StateCodes>& States();

// A state or a county that addresses are wanted of.
struct Place {
  std::string name;    // "texas", "travis-county-tx": a file may be called so
  std::string state;   // "TX"
  std::string prefix;  // what the FIPS codes of its counties begin with: "48", "48453"

  bool IsCounty() const { return prefix.size() == 5; }
};

// Reads what a user names: a state by name or code, or its two digits of FIPS; a county by its five
// digits, or as "Travis, TX" or "Travis County, Texas", or by its name alone where one state has
// it; "all", which alone gives all states. Case, and hyphens for blanks, do not count.
//
// `counties` is called where a county is named by its name, and returns the list of the Census
// Bureau: a heading, then STATE|STATEFP|COUNTYFP|COUNTYNS|COUNTYNAME|CLASSFP|FUNCSTAT. Throws
// FetchError for a name that is none, or is that of several.
std::vector<Place> ReadPlaces(const std::vector<std::string>& names,
                              const std::function<std::string()>& counties);

// What files of these places are called together: "texas", "oklahoma+texas", "all".
std::string NameOf(const std::vector<std::string>& names);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FETCHPLACES_H_
