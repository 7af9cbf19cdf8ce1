// Writes made-up addresses in the form of OpenAddresses to standard output, over a million a
// second, to measure address bases with. The same arguments give the same addresses.
//
//   make-addresses COUNT        one city: 91,000 streets of 48 ZIP codes of Austin TX
//   make-addresses COUNT ZIPS   a country: the ZIP codes of a list such as data/us-zips.tsv
//
// The country's addresses are spread like the real ones: a tenth of the ZIP codes have half of
// them. A large ZIP code has some 500 streets, the others 111, and the average is 150; three in ten
// addresses of the large ones have a unit, one in twenty of the others. The 13 ZIP codes of a
// county come together, and their rows in no order.

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kFirst[] = {"Oak",   "Elm",    "Maple", "Cedar",  "Pine",   "River", "Lake",
                                  "Hill",  "Stone",  "Mill",  "Ash",    "Bear",   "Birch", "Brook",
                                  "Clay",  "Deer",   "Eagle", "Fern",   "Forest", "Fox",   "Glen",
                                  "Green", "Hawk",   "Holly", "Iron",   "Ivy",    "King",  "Laurel",
                                  "Long",  "Meadow", "Moss",  "Orchard"};
constexpr const char* kSecond[] = {"",       "wood",  "view", "ton",   "field",  "dale",
                                   "hurst",  "land",  "ford", " Park", " Creek", " Ridge",
                                   " Grove", " Bend", "ley",  "mont"};
constexpr const char* kTypes[] = {"St", "St", "St", "Ave", "Ave",  "Rd",  "Rd", "Dr",
                                  "Dr", "Ln", "Ln", "Ct",  "Blvd", "Way", "Pl", "Cir"};
constexpr const char* kDirections[] = {"", "", "", "", "",   "",       "",   "",
                                       "", "", "", "", "N ", "South ", "E ", "W "};

struct Zip {
  std::string place;     // the columns CITY to POSTCODE
  uint64_t names = 0;    // decides which names its streets have
  uint64_t streets = 0;  // how many are drawn from; a few are the same
  uint64_t units = 0;    // addresses with a unit, in a hundred
  size_t weight = 1;     // how often it is drawn
};

// Turns a number into one unrelated to those of its neighbours (splitmix64).
uint64_t Mix(uint64_t number) {
  number += 0x9E3779B97F4A7C15U;
  number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
  number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
  return number ^ (number >> 31U);
}

std::string Place(const std::string& city, const std::string& state, const std::string& zip) {
  return city + ",," + state + ',' + zip;
}

// Each ZIP code has every street name.
std::vector<Zip> City() {
  constexpr int kZips = 48;
  constexpr uint64_t kStreets = 2'180;
  std::vector<Zip> zips;
  for (int i = 1; i <= kZips; ++i) {
    const int number = 78'700 + (i <= 5 ? i : i + 11);
    zips.push_back({Place("Austin", "TX", std::to_string(number)), 0, kStreets, 20, 1});
  }
  return zips;
}

std::vector<Zip> Country(const char* file) {
  constexpr size_t kLargeWeight = 9;  // a tenth with half of all
  std::vector<Zip> zips;
  std::ifstream list(file);
  for (std::string zip, city, state; std::getline(list, zip, '\t') &&
                                     std::getline(list, city, '\t') && std::getline(list, state);) {
    const bool isLarge = zips.size() % 10 == 7;
    zips.push_back({Place(city, state, zip), zips.size() + 1, isLarge ? 500U : 111U,
                    isLarge ? 30U : 5U, isLarge ? kLargeWeight : 1});
  }
  return zips;
}

void AppendNumber(uint64_t number, std::string& rows) {
  char digits[20];
  rows.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

// Appends a row of `zip`; `chance` decides everything in it.
void AppendRow(const Zip& zip, uint64_t chance, std::string& rows) {
  const uint64_t street = Mix(zip.names * 1000 + chance % zip.streets);
  const uint64_t house = Mix(chance);
  rows += "-97.7431,30.2672,";
  AppendNumber(house % 9999 + 1, rows);
  rows += ',';
  rows += kDirections[street % std::size(kDirections)];
  rows += kFirst[(street >> 8U) % std::size(kFirst)];
  rows += kSecond[(street >> 16U) % std::size(kSecond)];
  rows += ' ';
  rows += kTypes[(street >> 24U) % std::size(kTypes)];
  rows += ',';
  if ((house >> 32U) % 100 < zip.units) {
    rows += "Apt ";
    AppendNumber((house >> 48U) % 40 + 1, rows);
  }
  rows += ',';
  rows += zip.place;
  rows += ",,\n";
}

// Writes `count` rows from the ZIP codes from `begin` to `end`.
void WriteCounty(const std::vector<Zip>& zips, size_t begin, size_t end, uint64_t count) {
  constexpr size_t kFull = size_t{1} << 20U;
  std::vector<size_t> drawn;  // each as often as its weight
  for (size_t i = begin; i < end; ++i) {
    drawn.insert(drawn.end(), zips[i].weight, i);
  }
  std::string rows;
  for (uint64_t i = 0; i < count; ++i) {
    const uint64_t chance = Mix((uint64_t{begin} << 40U) + i);
    AppendRow(zips[drawn[(chance >> 32U) % drawn.size()]], chance, rows);
    if (rows.size() > kFull || i + 1 == count) {
      std::fwrite(rows.data(), 1, rows.size(), stdout);
      rows.clear();
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const uint64_t count = argc == 2 || argc == 3 ? std::strtoull(argv[1], nullptr, 10) : 0;
  const std::vector<Zip> zips = argc == 2   ? City()
                                : argc == 3 ? Country(argv[2])
                                            : std::vector<Zip>();
  if (count == 0 || zips.empty()) {
    std::cerr << "usage: make-addresses COUNT [ZIPS]\n";
    return EXIT_FAILURE;
  }
  const size_t county = argc == 2 ? zips.size() : 13;
  std::puts("LON,LAT,NUMBER,STREET,UNIT,CITY,DISTRICT,REGION,POSTCODE,ID,HASH");
  for (size_t begin = 0; begin < zips.size(); begin += county) {
    const size_t end = std::min(begin + county, zips.size());
    WriteCounty(zips, begin, end, count * end / zips.size() - count * begin / zips.size());
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    std::cerr << "make-addresses: the addresses could not be written\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
