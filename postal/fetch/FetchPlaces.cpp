#include "postal/fetch/FetchPlaces.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "common/SmallText.h"
#include "postal/fetch/FetchError.h"

namespace postwright::postal {
namespace {

constexpr std::string_view kAll = "ALL";
constexpr size_t kStateDigits = 2;
constexpr size_t kCountyDigits = 5;
constexpr size_t kMostNamed = 8;  // of counties that have a name in common

// What comes after the name of a county or its equivalent.
constexpr std::string_view kKinds[] = {" COUNTY",           " PARISH",          " BOROUGH",
                                       " CENSUS AREA",      " MUNICIPALITY",    " MUNICIPIO",
                                       " CITY AND BOROUGH", " PLANNING REGION", " CITY"};

struct County {
  std::string name;  // "TRAVIS COUNTY"
  std::string state;
  std::string fips;
};

// In capitals, with single blanks for blanks and hyphens, and without dots and apostrophes.
std::string Plain(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    const bool isBlank = c == ' ' || c == '-' || c == '\t';
    if (isBlank && !plain.empty() && plain.back() != ' ') {
      plain += ' ';
    } else if (!isBlank && c != '.' && c != '\'') {
      plain += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
  }
  return std::string(Trim(plain));
}

// As the name of a file: "travis-county-tx".
std::string Slug(std::string_view text) {
  std::string slug;
  for (const char c : Plain(text)) {
    const bool isLetter = c >= 'A' && c <= 'Z';
    if (isLetter || (c >= '0' && c <= '9')) {
      slug += isLetter ? static_cast<char>(c - 'A' + 'a') : c;
    } else if (!slug.empty() && slug.back() != '-') {
      slug += '-';
    }
  }
  return slug;
}

const StateCodes* FindState(std::string_view text) {
  const auto found = std::ranges::find_if(States(), [text](const StateCodes& state) {
    return text == state.name || text == state.code || text == state.fips;
  });
  return found == States().end() ? nullptr : &*found;
}

std::vector<std::string_view> Cells(std::string_view line) {
  std::vector<std::string_view> cells;
  for (size_t bar = 0; bar != std::string_view::npos;) {
    bar = line.find('|');
    cells.push_back(Trim(line.substr(0, bar)));
    line.remove_prefix(bar == std::string_view::npos ? line.size() : bar + 1);
  }
  return cells;
}

std::vector<County> ReadCounties(std::string_view list) {
  std::vector<County> counties;
  while (!list.empty()) {
    const size_t end = std::min(list.find('\n'), list.size());
    const std::vector<std::string_view> cells = Cells(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
    if (cells.size() >= 5 && AllDigits(cells[1]) && AllDigits(cells[2]) &&
        cells[1].size() + cells[2].size() == kCountyDigits) {
      counties.push_back(
          {Plain(cells[4]), std::string(cells[0]), std::string(cells[1]) + std::string(cells[2])});
    }
  }
  return counties;
}

bool IsCalled(const County& county, const std::string& name) {
  return county.name == name ||
         std::any_of(std::begin(kKinds), std::end(kKinds), [&](std::string_view kind) {
           return county.name == name + std::string(kind);
         });
}

Place PlaceOf(const County& county) {
  return {Slug(county.name + " " + county.state), county.state, county.fips};
}

Place FindCounty(const std::string& asked, const std::vector<County>& counties) {
  const size_t comma = asked.find(',');
  const std::string name = Plain(asked.substr(0, comma));
  const StateCodes* const state =
      comma == std::string::npos ? nullptr : FindState(Plain(asked.substr(comma + 1)));
  std::vector<Place> found;
  std::string names;
  for (const County& county : counties) {
    if (IsCalled(county, name) &&
        (comma == std::string::npos || (state != nullptr && county.state == state->code))) {
      found.push_back(PlaceOf(county));
      names += found.size() <= kMostNamed ? " " + county.fips + " (" + county.state + ")" : "";
    }
  }
  if (found.size() == 1) {
    return found.front();
  }
  if (found.empty()) {
    throw FetchError("'" + asked +
                     "' is neither a state nor a county; places are such as texas, TX, "
                     "'travis, tx', 48453 or all");
  }
  throw FetchError("'" + asked + "' is the name of several counties:" + names +
                   (found.size() > kMostNamed ? " and more" : "") +
                   "; name the state after a comma, or the number");
}

Place PlaceOf(const StateCodes& state) {
  return {Slug(state.name), std::string(state.code), std::string(state.fips)};
}

}  // namespace

const std::vector<StateCodes>& States() {
  static const std::vector<StateCodes> states = {
      {"ALABAMA", "AL", "01"},
      {"ALASKA", "AK", "02"},
      {"ARIZONA", "AZ", "04"},
      {"ARKANSAS", "AR", "05"},
      {"CALIFORNIA", "CA", "06"},
      {"COLORADO", "CO", "08"},
      {"CONNECTICUT", "CT", "09"},
      {"DELAWARE", "DE", "10"},
      {"DISTRICT OF COLUMBIA", "DC", "11"},
      {"FLORIDA", "FL", "12"},
      {"GEORGIA", "GA", "13"},
      {"HAWAII", "HI", "15"},
      {"IDAHO", "ID", "16"},
      {"ILLINOIS", "IL", "17"},
      {"INDIANA", "IN", "18"},
      {"IOWA", "IA", "19"},
      {"KANSAS", "KS", "20"},
      {"KENTUCKY", "KY", "21"},
      {"LOUISIANA", "LA", "22"},
      {"MAINE", "ME", "23"},
      {"MARYLAND", "MD", "24"},
      {"MASSACHUSETTS", "MA", "25"},
      {"MICHIGAN", "MI", "26"},
      {"MINNESOTA", "MN", "27"},
      {"MISSISSIPPI", "MS", "28"},
      {"MISSOURI", "MO", "29"},
      {"MONTANA", "MT", "30"},
      {"NEBRASKA", "NE", "31"},
      {"NEVADA", "NV", "32"},
      {"NEW HAMPSHIRE", "NH", "33"},
      {"NEW JERSEY", "NJ", "34"},
      {"NEW MEXICO", "NM", "35"},
      {"NEW YORK", "NY", "36"},
      {"NORTH CAROLINA", "NC", "37"},
      {"NORTH DAKOTA", "ND", "38"},
      {"OHIO", "OH", "39"},
      {"OKLAHOMA", "OK", "40"},
      {"OREGON", "OR", "41"},
      {"PENNSYLVANIA", "PA", "42"},
      {"RHODE ISLAND", "RI", "44"},
      {"SOUTH CAROLINA", "SC", "45"},
      {"SOUTH DAKOTA", "SD", "46"},
      {"TENNESSEE", "TN", "47"},
      {"TEXAS", "TX", "48"},
      {"UTAH", "UT", "49"},
      {"VERMONT", "VT", "50"},
      {"VIRGINIA", "VA", "51"},
      {"WASHINGTON", "WA", "53"},
      {"WEST VIRGINIA", "WV", "54"},
      {"WISCONSIN", "WI", "55"},
      {"WYOMING", "WY", "56"},
      {"PUERTO RICO", "PR", "72"},
  };
  return states;
}

std::vector<Place> ReadPlaces(const std::vector<std::string>& names,
                              const std::function<std::string()>& counties) {
  std::vector<Place> places;
  std::vector<County> known;
  for (const std::string& name : names) {
    const std::string plain = Plain(name);
    if (plain == kAll) {
      if (names.size() > 1) {
        throw FetchError("'all' is all: name nothing else");
      }
      for (const StateCodes& state : States()) {
        places.push_back(PlaceOf(state));
      }
    } else if (const StateCodes* const state = FindState(plain)) {
      places.push_back(PlaceOf(*state));
    } else if (plain.size() == kCountyDigits && AllDigits(plain)) {
      const StateCodes* const of = FindState(plain.substr(0, kStateDigits));
      if (of == nullptr) {
        throw FetchError("'" + name + "' is the number of no county");
      }
      places.push_back({plain, std::string(of->code), plain});
    } else {
      known = known.empty() ? ReadCounties(counties()) : known;
      places.push_back(FindCounty(name, known));
    }
  }
  return places;
}

std::string NameOf(const std::vector<std::string>& names) {
  std::vector<std::string> slugs;
  for (const std::string& name : names) {
    const StateCodes* const state = FindState(Plain(name));
    slugs.push_back(Slug(state != nullptr ? state->name : name));
  }
  std::sort(slugs.begin(), slugs.end());
  std::string joined;
  for (const std::string& slug : slugs) {
    joined += (joined.empty() ? "" : "+") + slug;
  }
  return joined;
}

}  // namespace postwright::postal
