#include "postal/base/BaseReader.h"

namespace postwright::postal {
namespace {

template <typename... Texts>
std::vector<KnownStreet> ReadStreets(SqliteStatement& rows, int64_t first, const Texts&... texts) {
  std::vector<KnownStreet> streets;
  for (SqliteQuery query(rows, texts...); query.Step();) {
    streets.push_back({first + rows.Number(0),
                       {rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(5)}});
  }
  return streets;
}

}  // namespace

BaseReader::BaseReader(SqliteFile file, std::shared_ptr<const Facts> facts,
                       std::shared_ptr<StreetCache> streets, int64_t place)
    : file_(std::move(file)),
      facts_(std::move(facts)),
      cache_(std::move(streets)),
      first_(place * kStreets),
      street_(file_,
              "SELECT id FROM street WHERE zip=? AND key=? AND name=? AND predirectional=? AND "
              "suffix=? AND postdirectional=? AND urbanization=?"),
      streets_(file_,
               "SELECT id,predirectional,name,suffix,postdirectional,urbanization "
               "FROM street WHERE zip=? AND key=?"),
      allStreets_(file_,
                  "SELECT id,predirectional,name,suffix,postdirectional,urbanization "
                  "FROM street WHERE zip=?"),
      points_(file_, "SELECT unit,zip4 FROM point WHERE street=? AND number=?"),
      ranges_(file_, "SELECT low,high,parity,zip4 FROM number_range WHERE street=?"),
      // From each number to the next: a building's units are passed over.
      numbers_(file_,
               "WITH RECURSIVE next(number) AS ("
               "SELECT min(number) FROM point WHERE street=?1 UNION ALL "
               "SELECT (SELECT min(number) FROM point WHERE street=?1 AND number>next.number) "
               "FROM next WHERE number IS NOT NULL LIMIT ?2) "
               "SELECT number FROM next WHERE number IS NOT NULL"),
      unitZip4_(file_,
                "SELECT zip4 FROM point WHERE street=? AND number=? AND unit=? AND zip4<>''"),
      cityName_(file_, "SELECT name FROM city WHERE zip=? AND key=? LIMIT 1"),
      zipsOfCity_(file_, "SELECT DISTINCT zip FROM city WHERE key=?") {
  if (facts_->hasPostal) {
    postal_.emplace(file_);
  }
}

BaseReader::Facts BaseReader::ReadFacts(SqliteFile& file, bool withStreets) {
  Facts facts;
  facts.hasRanges = file.Number("SELECT EXISTS(SELECT 1 FROM number_range)") != 0;
  SqliteStatement rows(file,
                       "SELECT zip.zip,max(whole) FROM zip JOIN source ON source.id=zip.source "
                       "GROUP BY zip.zip");
  while (rows.Step()) {
    facts.zips.emplace(rows.Text(0), rows.Number(1) != 0);
  }
  SqliteStatement names(file, "SELECT DISTINCT zip,name FROM city");
  while (names.Step()) {
    facts.cityNames[names.Text(0)].push_back(names.Text(1));
  }
  facts.hasPostal = PostalReader::IsIn(file);
  if (facts.hasPostal) {
    facts.preferredCities = PostalReader::ReadPreferredCities(file);
  }
  if (withStreets) {
    facts.streets.emplace(file);
  }
  return facts;
}

bool BaseReader::HoldsAllStreetsOf(const std::string& zip) const {
  const auto found = facts_->zips.find(zip);
  return found != facts_->zips.end() && found->second;
}

std::optional<int64_t> BaseReader::FindStreet(const std::string& zip, const StreetName& street) {
  if (facts_->streets) {
    const auto found = facts_->streets->Find(zip, street);
    return found ? std::optional(first_ + *found) : std::nullopt;
  }
  const std::string key = StreetKey(street.name);
  SqliteQuery query(street_, zip, key, street.name, street.predirectional, street.suffix,
                    street.postdirectional, street.urbanization);
  return query.Step() ? std::optional(first_ + street_.Number(0)) : std::nullopt;
}

std::vector<KnownStreet> BaseReader::FindStreets(const std::string& zip, const std::string& key) {
  return ReadStreets(streets_, first_, zip, key);
}

std::optional<StreetIndex::Written> BaseReader::FindWritten(const Words& writings) const {
  return facts_->streets ? std::optional(facts_->streets->FindWritten(writings, first_))
                         : std::nullopt;
}

StreetCache::Streets BaseReader::StreetsOf(const std::string& zip) {
  StreetCache::Streets streets = cache_->Find(zip);
  return streets ? streets : cache_->Keep(zip, ZipStreets(ReadStreets(allStreets_, first_, zip)));
}

NumberFacts BaseReader::FindNumber(int64_t street, const std::string& number) {
  NumberFacts facts;
  for (SqliteQuery query(points_, street - first_, number); query.Step();) {
    facts.isPoint = true;
    std::string unit = points_.Text(0);
    if (unit.empty()) {
      facts.isBuilding = true;
      facts.zip4 = facts.zip4.empty() ? points_.Text(1) : facts.zip4;
    } else {
      facts.units.push_back(std::move(unit));
    }
  }
  if (postal_) {
    facts.unitRanges = postal_->UnitsOf(street - first_, number);
    facts.delivery = postal_->DeliveryOf(street - first_, number);
  }
  if (!facts_->hasRanges) {
    return facts;
  }
  const auto read = HouseNumber::Read(number);
  for (SqliteQuery query(ranges_, street - first_); query.Step();) {
    facts.hasRanges = true;
    const auto range = NumberRange::Read(ranges_.Text(0), ranges_.Text(1), ranges_.Text(2));
    if (read && range && range->Holds(*read)) {
      facts.inRange = true;
      facts.zip4 = facts.zip4.empty() ? ranges_.Text(3) : facts.zip4;
    }
  }
  return facts;
}

std::vector<KnownRange> BaseReader::RangesOf(int64_t street) {
  std::vector<KnownRange> known;
  for (SqliteQuery query(ranges_, street - first_); known.size() < kMostNumbers && query.Step();) {
    std::string low = ranges_.Text(0);
    std::string high = ranges_.Text(1);
    if (const auto range = NumberRange::Read(low, high, ranges_.Text(2))) {
      if (HouseNumber::Read(low) != range->low) {
        low.swap(high);
      }
      known.push_back({*range, std::move(low), std::move(high)});
    }
  }
  return known;
}

std::vector<std::string> BaseReader::NumbersOf(int64_t street) {
  std::vector<std::string> numbers;
  for (SqliteQuery query(numbers_, street - first_, int64_t{kMostNumbers}); query.Step();) {
    numbers.push_back(numbers_.Text(0));
  }
  return numbers;
}

std::string BaseReader::UnitZip4(int64_t street, const std::string& number,
                                 const std::string& unit) {
  SqliteQuery query(unitZip4_, street - first_, number, unit);
  return query.Step() ? unitZip4_.Text(0) : std::string();
}

std::string BaseReader::CityName(const std::string& zip, const std::string& key) {
  SqliteQuery query(cityName_, zip, key);
  return query.Step() ? cityName_.Text(0) : std::string();
}

std::string BaseReader::PreferredCity(const std::string& zip, const std::string& key) const {
  const auto found = facts_->preferredCities.find(zip + ' ' + key);
  return found == facts_->preferredCities.end() ? std::string() : found->second;
}

std::string BaseReader::FirmZip4(int64_t street, const std::string& number, const std::string& unit,
                                 const std::string& firm) {
  return postal_ ? postal_->FirmZip4(street - first_, number, unit, firm) : std::string();
}

std::optional<StreetAlias> BaseReader::FindAlias(const std::string& zip, const StreetName& street,
                                                 const std::string& number) {
  return postal_ ? postal_->FindAlias(zip, street, number) : std::nullopt;
}

const std::vector<std::string>& BaseReader::CityNames(const std::string& zip) const {
  static const std::vector<std::string> kNone;
  const auto found = facts_->cityNames.find(zip);
  return found == facts_->cityNames.end() ? kNone : found->second;
}

std::vector<std::string> BaseReader::ZipsOfCity(const std::string& key) {
  std::vector<std::string> zips;
  for (SqliteQuery query(zipsOfCity_, key); query.Step();) {
    zips.push_back(zipsOfCity_.Text(0));
  }
  return zips;
}

std::vector<BaseReader::Source> BaseReader::Sources() {
  std::vector<Source> sources;
  SqliteStatement rows(file_,
                       "SELECT name,format,licence,attribution,imported,whole,rows,left_out "
                       "FROM source ORDER BY name");
  while (rows.Step()) {
    sources.push_back({rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4),
                       rows.Number(5) != 0, rows.Number(6), rows.Number(7)});
  }
  return sources;
}

}  // namespace postwright::postal
