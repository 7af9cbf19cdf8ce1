#ifndef POSTWRIGHT_POSTAL_BASE_JOINEDBASES_H_
#define POSTWRIGHT_POSTAL_BASE_JOINEDBASES_H_

#include <cstddef>
#include <deque>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "postal/base/AddressBase.h"

namespace postwright::postal {

// Address bases that are asked as one, such as a base for each state.
//
//   const JoinedBases bases({"texas.base", "ohio.base"});
//   JoinedReader(bases).FindStreets("78701", StreetKey("MAIN"));
//
// The streets of a ZIP code are those of the first base that has any there. Any thread may read.
class JoinedBases {
 public:
  static constexpr size_t kNone = static_cast<size_t>(-1);

  // Opens the files, as AddressBase does. They are copied where all together have no more than
  // `mostInMemory` bytes, and mapped otherwise. Up to `mostStreets` of what is read of their
  // streets are kept (StreetCache).
  explicit JoinedBases(const std::vector<std::filesystem::path>& files, size_t mostInMemory = 0,
                       size_t mostStreets = StreetCache::kMostStreets);

  size_t Size() const { return bases_.size(); }
  const AddressBase& operator[](size_t place) const { return bases_[place]; }

  // Says whether they were copied into memory, which goes with an index of their streets.
  bool IsInMemory() const { return isInMemory_; }

  // Where there are several: returns the place of the one whose streets of the ZIP code count;
  // kNone where none has any.
  size_t PlaceOf(const std::string& zip) const;

  // Where there are several: returns the names that any of them gives a place of the ZIP code, and
  // the ZIP codes in which any has a place of that key.
  const std::vector<std::string>& CityNames(const std::string& zip) const;
  const std::vector<std::string>& ZipsOfCity(const std::string& key) const;

  // Where there are several: as BaseReader::PreferredCity, of the first that knows.
  std::string PreferredCity(const std::string& zip, const std::string& key) const;

  // The places of those that have anything of the postal service's own.
  const std::vector<size_t>& Postal() const { return postal_; }

 private:
  using Lists = std::unordered_map<std::string, std::vector<std::string>>;

  void Join(size_t place);

  const bool isInMemory_;
  std::deque<AddressBase> bases_;
  std::unordered_map<std::string, size_t> places_;
  Lists cityNames_;
  Lists zipsOfCity_;
  std::unordered_map<std::string, std::string> preferredCities_;
  std::vector<size_t> postal_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_JOINEDBASES_H_
