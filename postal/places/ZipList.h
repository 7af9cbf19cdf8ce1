#ifndef POSTWRIGHT_POSTAL_PLACES_ZIPLIST_H_
#define POSTWRIGHT_POSTAL_PLACES_ZIPLIST_H_

#include <cstdint>
#include <deque>
#include <filesystem>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace postwright::postal {

// A file of ZIP codes that cannot be used; what() names the file, the line and what is wrong with
// it.
class ZipListError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Which ZIP codes there are, and the city and state of each.
//
//   ZipList zips;
//   zips.Load("us-zips.tsv");
//   zips.FindZip("78701")->name;                        // "AUSTIN"
//   zips.FindCity(CityKey("HUTTO"), "TX")->zips.size();  // 1
//
// Loading is for one thread; once loaded, any number of threads may read. The cities that it hands
// out live as long as the list.
class ZipList {
 public:
  struct City {
    std::string name;   // standard: "SAINT PAUL"
    std::string key;    // CityKey(name)
    std::string state;  // two-letter code
    std::vector<std::string> zips;
  };

  ZipList();

  // Adds the rows of `file`: ZIP, city, state, separated by tabs, UTF-8, no header; empty lines are
  // passed over. A later row for a ZIP replaces an earlier one, also one of another file. Throws
  // ZipListError for a file that cannot be read or holds anything else; what was loaded stays.
  void Load(const std::filesystem::path& file);

  // The same of a stream; `name` stands for it in what a ZipListError says.
  void Read(std::istream& rows, const std::string& name);

  // Returns the city of a ZIP code of five digits; nullptr for any other text and an unknown ZIP.
  const City* FindZip(std::string_view zip5) const;

  // Returns the city of that key in that state, or nullptr.
  const City* FindCity(const std::string& key, std::string_view state) const;

  // Returns the city of the state whose key is the nearest spelling of `key`; nullptr where none is
  // near and where several are equally so.
  const City* FindNearCity(const std::string& key, std::string_view state) const;

  // Says whether any state has a city of that key.
  bool IsCityAnywhere(const std::string& key) const;

  size_t ZipCount() const { return zipCount_; }

 private:
  static constexpr size_t kZips = 100'000;

  void AddRow(std::string_view line);
  City& CityOf(std::string_view name, std::string_view state);
  void Forget(uint32_t zip);

  std::deque<City> cities_;       // never moves what it holds
  std::vector<City*> cityOfZip_;  // by ZIP code, nullptr where there is none
  size_t zipCount_ = 0;
  std::unordered_map<std::string, std::vector<City*>> citiesByKey_;
  std::unordered_map<std::string, std::vector<City*>> citiesByState_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_PLACES_ZIPLIST_H_
