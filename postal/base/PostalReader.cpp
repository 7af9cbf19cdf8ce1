#include "postal/base/PostalReader.h"

#include "postal/base/HouseNumber.h"
#include "postal/base/PostalTables.h"

namespace postwright::postal {

bool PostalReader::IsIn(SqliteFile& file) {
  for (const std::string_view name : PostalTables::kNames) {
    const std::string table(name);
    if (file.Number("SELECT count(*) FROM sqlite_schema WHERE name='" + table + "'") == 0) {
      return false;
    }
  }
  return file.Number(
             "SELECT EXISTS(SELECT 1 FROM delivery) OR EXISTS(SELECT 1 FROM unit_range) OR "
             "EXISTS(SELECT 1 FROM firm) OR "
             "EXISTS(SELECT 1 FROM city_use) OR EXISTS(SELECT 1 FROM alias)") != 0;
}

std::unordered_map<std::string, std::string> PostalReader::ReadPreferredCities(SqliteFile& file) {
  std::unordered_map<std::string, std::string> preferred;
  SqliteStatement rows(file, "SELECT zip,key,preferred FROM city_use");
  while (rows.Step()) {
    preferred.emplace(rows.Text(0) + ' ' + rows.Text(1), rows.Text(2));
  }
  return preferred;
}

PostalReader::PostalReader(SqliteFile& file)
    : deliveries_(file, "SELECT low,high,parity,route,place FROM delivery WHERE street=?"),
      units_(file,
             "SELECT designator,low,high,parity,zip4 FROM unit_range WHERE street=? AND number=?"),
      firms_(file,
             "SELECT DISTINCT zip4 FROM firm WHERE street=?1 AND number=?2 AND name=?3 AND "
             "(?4='' OR unit='' OR unit=?4) LIMIT 2"),
      aliases_(file,
               "SELECT low,high,parity,is_preferred,of_predirectional,of_name,of_suffix,"
               "of_postdirectional FROM alias WHERE zip=? AND key=? AND predirectional=? AND "
               "name=? AND suffix=? AND postdirectional=?") {}

DeliveryFacts PostalReader::DeliveryOf(int64_t street, const std::string& number) {
  std::optional<DeliveryFacts> facts;
  const auto asked = HouseNumber::Read(number);
  for (SqliteQuery query(deliveries_, street); query.Step();) {
    const std::string low = deliveries_.Text(0);
    const auto range = NumberRange::Read(low, deliveries_.Text(1), deliveries_.Text(2));
    if (asked && range ? !range->Holds(*asked) : low != number) {
      continue;
    }
    DeliveryFacts read{deliveries_.Text(3), deliveries_.Text(4)};
    if (!facts) {
      facts = std::move(read);
      continue;
    }
    facts->route = facts->route == read.route ? read.route : "";
    facts->place = facts->place == read.place ? read.place : "";
  }
  return facts.value_or(DeliveryFacts());
}

std::vector<UnitRange> PostalReader::UnitsOf(int64_t street, const std::string& number) {
  std::vector<UnitRange> units;
  for (SqliteQuery query(units_, street, number); query.Step();) {
    units.push_back(
        {units_.Text(0), units_.Text(1), units_.Text(2), units_.Text(3), units_.Text(4)});
  }
  return units;
}

std::string PostalReader::FirmZip4(int64_t street, const std::string& number,
                                   const std::string& unit, const std::string& firm) {
  SqliteQuery query(firms_, street, number, firm, unit);
  std::string zip4 = query.Step() ? firms_.Text(0) : std::string();
  return query.Step() ? std::string() : zip4;
}

std::optional<StreetAlias> PostalReader::FindAlias(const std::string& zip, const StreetName& street,
                                                   const std::string& number) {
  const auto asked = HouseNumber::Read(number);
  const std::string key = StreetKey(street.name);
  for (SqliteQuery query(aliases_, zip, key, street.predirectional, street.name, street.suffix,
                         street.postdirectional);
       query.Step();) {
    const auto range = NumberRange::Read(aliases_.Text(0), aliases_.Text(1), aliases_.Text(2));
    if (!range || (asked && range->Holds(*asked))) {
      return StreetAlias{{aliases_.Text(4), aliases_.Text(5), aliases_.Text(6), aliases_.Text(7),
                          street.urbanization},
                         aliases_.Number(3) != 0};
    }
  }
  return std::nullopt;
}

}  // namespace postwright::postal
