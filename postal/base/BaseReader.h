#ifndef POSTWRIGHT_POSTAL_BASE_BASEREADER_H_
#define POSTWRIGHT_POSTAL_BASE_BASEREADER_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "postal/base/HouseNumber.h"
#include "postal/base/PostalReader.h"
#include "postal/base/StreetCache.h"
#include "postal/base/StreetIndex.h"
#include "postal/base/StreetName.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// A range of a street's numbers, and its ends as the source writes them.
struct KnownRange {
  NumberRange range;
  std::string low;
  std::string high;
};

// What the base knows of a house number on a street.
struct NumberFacts {
  bool isPoint = false;  // a source names this very address
  bool inRange = false;  // or a range that it lies in
  bool hasRanges = false;
  bool isBuilding = false;         // a source names the address without a unit
  std::string zip4;                // of the address without a unit, where a source gives it
  std::vector<std::string> units;  // of the building, standard: "APT 4"
  std::vector<UnitRange> unitRanges;
  DeliveryFacts delivery;

  bool IsKnown() const { return isPoint || inRange; }
};

// One connection to an address base, for one thread at a time. Nothing is ever written. Throws
// StoreError where the file is damaged. A street is told from those of other bases by the place of
// its base among them.
class BaseReader {
 public:
  // What every question asks for, and is small: read once for all connections to a file.
  struct Facts {
    // Whether a source knows all streets of a ZIP code, for the ZIP codes that have any.
    std::unordered_map<std::string, bool> zips;
    // The names that sources give the place of a ZIP code.
    std::unordered_map<std::string, std::vector<std::string>> cityNames;
    bool hasRanges = false;
    bool hasPostal = false;  // anything that a PostalReader reads
    std::unordered_map<std::string, std::string> preferredCities;
    std::optional<StreetIndex> streets;  // where the file is in memory, too
  };
  static Facts ReadFacts(SqliteFile& file, bool withStreets);

  // `facts` are the file's own, and `streets` what all connections keep of the bases.
  BaseReader(SqliteFile file, std::shared_ptr<const Facts> facts,
             std::shared_ptr<StreetCache> streets, int64_t place = 0);

  const Facts& Known() const { return *facts_; }

  // Returns the place of the base that a street is from.
  static size_t PlaceOf(int64_t street) { return static_cast<size_t>(street / kStreets); }

  // Says whether the base has streets of the ZIP code, and whether a source knows all of them.
  bool HoldsStreetsOf(const std::string& zip) const { return facts_->zips.contains(zip); }
  bool HoldsAllStreetsOf(const std::string& zip) const;

  // Returns the row of the street of exactly that name in the ZIP code; nullopt where there is
  // none.
  std::optional<int64_t> FindStreet(const std::string& zip, const StreetName& street);

  // Returns the streets of the ZIP code that have the key.
  std::vector<KnownStreet> FindStreets(const std::string& zip, const std::string& key);

  // Returns where streets of those writings are; nullopt where the base is not in memory.
  std::optional<StreetIndex::Written> FindWritten(const Words& writings) const;

  // Returns all streets of the ZIP code.
  StreetCache::Streets StreetsOf(const std::string& zip);

  NumberFacts FindNumber(int64_t street, const std::string& number);

  // What is known of a street's numbers as a whole: its ranges, and the numbers of its own points
  // in the order of their text. Of each the first kMostNumbers.
  static constexpr int kMostNumbers = 2000;
  std::vector<KnownRange> RangesOf(int64_t street);
  std::vector<std::string> NumbersOf(int64_t street);

  // Returns the ZIP+4 add-on of a building's unit; empty where no source gives it.
  std::string UnitZip4(int64_t street, const std::string& number, const std::string& unit);

  // Returns the name by which a source calls the place of that key in the ZIP code; empty where
  // none does.
  std::string CityName(const std::string& zip, const std::string& key);

  // Returns the name to write in the place of one that must not be used in an address of the ZIP
  // code, or with an empty key the preferred one there; empty where nothing is known.
  std::string PreferredCity(const std::string& zip, const std::string& key) const;

  // As PostalReader; nothing where the base has none of it.
  std::string FirmZip4(int64_t street, const std::string& number, const std::string& unit,
                       const std::string& firm);
  std::optional<StreetAlias> FindAlias(const std::string& zip, const StreetName& street,
                                       const std::string& number);

  // Returns every name that a source gives a place of the ZIP code.
  const std::vector<std::string>& CityNames(const std::string& zip) const;

  // Returns the ZIP codes in which a source has a place of that key.
  std::vector<std::string> ZipsOfCity(const std::string& key);

  // For people: how many rows a table has, and the sources one after the other.
  struct Source {
    std::string name;
    std::string format;
    std::string licence;
    std::string attribution;
    std::string imported;
    bool whole = true;
    int64_t rows = 0;
    int64_t leftOut = 0;
  };
  std::vector<Source> Sources();
  int64_t Count(const std::string& what) { return file_.Number("SELECT count(*) FROM " + what); }

 private:
  static constexpr int64_t kStreets = int64_t{1} << 48;  // more than a base can have

  SqliteFile file_;
  const std::shared_ptr<const Facts> facts_;
  const std::shared_ptr<StreetCache> cache_;
  const int64_t first_;  // what is added to the numbers of the file's streets
  SqliteStatement street_;
  SqliteStatement streets_;
  SqliteStatement allStreets_;
  SqliteStatement points_;
  SqliteStatement ranges_;
  SqliteStatement numbers_;
  SqliteStatement unitZip4_;
  SqliteStatement cityName_;
  SqliteStatement zipsOfCity_;
  std::optional<PostalReader> postal_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_BASEREADER_H_
