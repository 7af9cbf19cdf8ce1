#ifndef POSTWRIGHT_POSTAL_BASE_POSTALTABLES_H_
#define POSTWRIGHT_POSTAL_BASE_POSTALTABLES_H_

#include <array>
#include <string_view>

namespace postwright::postal::PostalTables {

// What the postal service's own products say and no other source does. A base that was made before
// there were any of these lacks the tables.
//
// `delivery` is the carrier route that brings mail to numbers from one to another, and the place
// that their last line is to name where it is another than that of their ZIP code; each may be
// empty. `unit_range` are the units of a building from one to another, `firm` who is at an address
// and has a ZIP+4 of its own. `city_use` says of a name that must not be used in an address which
// one does, and by an empty key which one the postal service prefers in the ZIP code. `alias` are
// other names of streets, and what they stand for.
constexpr std::string_view kTables = R"(
CREATE TABLE delivery(
  street INTEGER NOT NULL, low TEXT NOT NULL, high TEXT NOT NULL, parity TEXT NOT NULL,
  source INTEGER NOT NULL, route TEXT NOT NULL, place TEXT NOT NULL,
  PRIMARY KEY(street, low, high, parity, source)) WITHOUT ROWID;
CREATE TABLE unit_range(
  street INTEGER NOT NULL, number TEXT NOT NULL, designator TEXT NOT NULL, low TEXT NOT NULL,
  high TEXT NOT NULL, parity TEXT NOT NULL, source INTEGER NOT NULL, zip4 TEXT NOT NULL,
  PRIMARY KEY(street, number, designator, low, high, parity, source)) WITHOUT ROWID;
CREATE TABLE firm(
  street INTEGER NOT NULL, number TEXT NOT NULL, unit TEXT NOT NULL, name TEXT NOT NULL,
  source INTEGER NOT NULL, zip4 TEXT NOT NULL,
  PRIMARY KEY(street, number, name, unit, source)) WITHOUT ROWID;
CREATE TABLE city_use(
  zip TEXT NOT NULL, key TEXT NOT NULL, preferred TEXT NOT NULL, source INTEGER NOT NULL,
  PRIMARY KEY(zip, key, source)) WITHOUT ROWID;
CREATE TABLE alias(
  zip TEXT NOT NULL, key TEXT NOT NULL, predirectional TEXT NOT NULL, name TEXT NOT NULL,
  suffix TEXT NOT NULL, postdirectional TEXT NOT NULL, low TEXT NOT NULL, high TEXT NOT NULL,
  parity TEXT NOT NULL, is_preferred INTEGER NOT NULL, of_predirectional TEXT NOT NULL,
  of_name TEXT NOT NULL, of_suffix TEXT NOT NULL, of_postdirectional TEXT NOT NULL,
  source INTEGER NOT NULL);
CREATE INDEX alias_in_zip ON alias(zip, key);
)";

constexpr std::array<std::string_view, 5> kNames = {"delivery", "unit_range", "firm", "city_use",
                                                    "alias"};

}  // namespace postwright::postal::PostalTables

#endif  // POSTWRIGHT_POSTAL_BASE_POSTALTABLES_H_
