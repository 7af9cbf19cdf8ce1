#ifndef POSTWRIGHT_POSTAL_BASE_BASESCHEMA_H_
#define POSTWRIGHT_POSTAL_BASE_BASESCHEMA_H_

#include <cstdint>
#include <string_view>

namespace postwright::postal::BaseSchema {

// What marks an SQLite file as an address base (PRAGMA application_id): "PWab".
constexpr int64_t kApplicationId = 0x50576162;

// PRAGMA user_version. A base of another version is refused, and made again from its files.
constexpr int64_t kVersion = 1;

// Where SQLite keeps application_id in a file, and how it is told from any other file.
constexpr std::string_view kMagic{"SQLite format 3\0", 16};

// What a base and a half-done import have alike. `city` holds the names that a source gives the
// places of a ZIP code.
constexpr std::string_view kTables = R"(
CREATE TABLE source(
  id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, format TEXT NOT NULL, licence TEXT NOT NULL,
  attribution TEXT NOT NULL, imported TEXT NOT NULL, whole INTEGER NOT NULL,
  rows INTEGER NOT NULL, left_out INTEGER NOT NULL);
CREATE TABLE city(
  zip TEXT NOT NULL, key TEXT NOT NULL, name TEXT NOT NULL, source INTEGER NOT NULL,
  PRIMARY KEY(zip, key, source)) WITHOUT ROWID;
CREATE INDEX city_by_key ON city(key, zip);
CREATE TABLE zip(
  zip TEXT NOT NULL, source INTEGER NOT NULL, PRIMARY KEY(zip, source)) WITHOUT ROWID;
)";

// A street belongs to one ZIP code; a street that goes on in the next is another row there. Points
// and ranges are what makes it known, and name the source that says so, since sources are replaced
// one by one. Streets are looked up by their names alone: bases that were made before have them in
// a table by their numbers, and the names once more in an index of it.
constexpr std::string_view kFacts = R"(
CREATE TABLE street(
  id INTEGER NOT NULL, zip TEXT NOT NULL, key TEXT NOT NULL, name TEXT NOT NULL,
  predirectional TEXT NOT NULL, suffix TEXT NOT NULL, postdirectional TEXT NOT NULL,
  urbanization TEXT NOT NULL,
  PRIMARY KEY(zip, key, name, predirectional, suffix, postdirectional, urbanization)) WITHOUT ROWID;
CREATE TABLE point(
  street INTEGER NOT NULL, number TEXT NOT NULL, unit TEXT NOT NULL, source INTEGER NOT NULL,
  zip4 TEXT NOT NULL, PRIMARY KEY(street, number, unit, source)) WITHOUT ROWID;
CREATE TABLE number_range(
  street INTEGER NOT NULL, low TEXT NOT NULL, high TEXT NOT NULL, parity TEXT NOT NULL,
  source INTEGER NOT NULL, zip4 TEXT NOT NULL,
  PRIMARY KEY(street, low, high, parity, source)) WITHOUT ROWID;
)";

// What an import gathers, in the order in which it comes, and how far it has got.
constexpr std::string_view kStage = R"(
CREATE TABLE street(
  id INTEGER PRIMARY KEY, zip TEXT NOT NULL, key TEXT NOT NULL, name TEXT NOT NULL,
  predirectional TEXT NOT NULL, suffix TEXT NOT NULL, postdirectional TEXT NOT NULL,
  urbanization TEXT NOT NULL);
CREATE TABLE staged_range(
  street INTEGER NOT NULL, low TEXT NOT NULL, high TEXT NOT NULL, parity TEXT NOT NULL,
  zip4 TEXT NOT NULL);
CREATE TABLE place(
  job TEXT NOT NULL, source INTEGER NOT NULL, file INTEGER NOT NULL, position INTEGER NOT NULL,
  line INTEGER NOT NULL, points INTEGER NOT NULL, ranges INTEGER NOT NULL,
  names INTEGER NOT NULL, left_out INTEGER NOT NULL);
)";

}  // namespace postwright::postal::BaseSchema

#endif  // POSTWRIGHT_POSTAL_BASE_BASESCHEMA_H_
