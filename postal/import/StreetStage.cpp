#include "postal/import/StreetStage.h"

#include <array>
#include <charconv>

#include "postal/base/BoxAddress.h"
#include "postal/base/StreetName.h"
#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

constexpr size_t kMostKept = 500'000;  // of what rows write
constexpr size_t kMostNames = 2'000'000;
constexpr size_t kMostStreets = 10'000'000;  // the country has some seven million
constexpr uint32_t kNone = 0;                // is the number of what is no street
constexpr uint64_t kBoxes = 100'000;         // is added to a ZIP code's number
constexpr unsigned kNameBits = 32;

// Each element ends with a line feed, which none has.
std::string TextOf(const StreetName& street) {
  std::string text = StreetKey(street.name);
  for (const std::string* element : {&street.name, &street.predirectional, &street.suffix,
                                     &street.postdirectional, &street.urbanization}) {
    text.append(1, '\n').append(*element);
  }
  return text.append(1, '\n');
}

// Reads what TextOf has written: the key, then the elements.
std::array<std::string_view, 6> ElementsOf(std::string_view text) {
  std::array<std::string_view, 6> elements;
  for (std::string_view& element : elements) {
    element = text.substr(0, text.find('\n'));
    text.remove_prefix(element.size() + 1);
  }
  return elements;
}

}  // namespace

StreetStage::StreetStage(SqliteFile& stage, RowReader& reader, int64_t source)
    : stage_(stage),
      reader_(reader),
      source_(source),
      add_(stage, "INSERT INTO street VALUES(NULL,?,?,?,?,?,?,?)"),
      addCity_(stage, "INSERT OR IGNORE INTO city VALUES(?,?,?,?)"),
      addZip_(stage, "INSERT OR IGNORE INTO zip VALUES(?,?)"),
      texts_(kNone + 1) {
  if (stage.Number("SELECT EXISTS(SELECT 1 FROM street)") != 0) {
    LookInStage();
  }
}

// From here on a street that is not remembered may be there all the same.
void StreetStage::LookInStage() {
  if (!find_) {
    stage_.Run(
        "CREATE INDEX IF NOT EXISTS street_by_name ON "
        "street(zip,name,predirectional,suffix,postdirectional,urbanization)");
    find_.emplace(stage_,
                  "SELECT id FROM street WHERE zip=? AND key=? AND name=? AND predirectional=? "
                  "AND suffix=? AND postdirectional=? AND urbanization=?");
  }
}

std::optional<int64_t> StreetStage::Find(const AddressRow& row, std::optional<RowFault>& fault) {
  if (ids_.size() >= kMostStreets || standardNames_.size() >= kMostNames) {
    LookInStage();
    ids_.clear();
    names_.clear();
    standardNames_.clear();
    texts_.resize(kNone + 1);
  }
  Place& place = PlaceOf(row);
  const uint32_t name = place.city.zip.empty() ? kNone : NameOf(row, place.city.state);
  if (name == kNone) {
    fault = place.city.zip.empty() ? RowFault::NoZip : RowFault::NoStreet;
    return std::nullopt;
  }
  if (!place.isNoted) {
    Note(place);
  }
  const bool isBox = row.postal.IsBox();
  const uint64_t zip = place.number + (isBox ? kBoxes : 0);
  const auto [known, isNew] = ids_.try_emplace(zip << kNameBits | name);
  if (isNew) {
    known->second = IdOf(isBox ? BoxAddress::ZipOf(place.city.zip) : place.city.zip, *texts_[name]);
  }
  return known->second;
}

StreetStage::Place& StreetStage::PlaceOf(const AddressRow& row) {
  key_.clear();
  for (const Field field : {Field::Zip, Field::City, Field::State}) {
    key_.append(row[field]).append(1, '\0');
  }
  if (const auto known = places_.find(std::string_view(key_)); known != places_.end()) {
    return known->second;
  }
  if (places_.size() >= kMostKept) {
    places_.clear();
  }
  Place place;
  place.city = reader_.ReadCity(row);
  const std::string& zip = place.city.zip;
  std::from_chars(zip.data(), zip.data() + zip.size(), place.number);
  return places_.emplace(key_, std::move(place)).first->second;
}

uint32_t StreetStage::NameOf(const AddressRow& row, const std::string& state) {
  key_.assign(1, row.postal.IsBox() ? static_cast<char>(row.postal.kind) : ' ');
  key_.append(state).append(1, '\0').append(row[Field::Street]).append(1, '\0');
  key_.append(row[Field::Urbanization]);
  if (const auto known = names_.find(std::string_view(key_)); known != names_.end()) {
    return known->second;
  }
  if (names_.size() >= kMostKept) {
    names_.clear();
  }
  uint32_t number = kNone;
  if (const auto street = reader_.ReadStreet(row, state)) {
    const auto [name, isNew] =
        standardNames_.try_emplace(TextOf(*street), static_cast<uint32_t>(texts_.size()));
    if (isNew) {
      texts_.push_back(&name->first);
    }
    number = name->second;
  }
  names_.emplace(key_, number);
  return number;
}

int64_t StreetStage::IdOf(const std::string& zip, std::string_view name) {
  const std::array<std::string_view, 6> of = ElementsOf(name);
  const auto ask = [&](SqliteStatement& statement) {
    return SqliteQuery(statement, std::string_view(zip), of[0], of[1], of[2], of[3], of[4], of[5]);
  };
  if (find_) {
    if (SqliteQuery query = ask(*find_); query.Step()) {
      return find_->Number(0);
    }
  }
  ask(add_).Step();
  return stage_.LastRow();
}

void StreetStage::Note(Place& place) {
  place.isNoted = true;
  SqliteQuery(addZip_, place.city.zip, source_).Step();
  if (!place.city.name.empty()) {
    AddCity(place.city.zip, place.city.name);
  }
}

void StreetStage::AddCity(const std::string& zip, const std::string& name) {
  SqliteQuery(addCity_, zip, CityKey(name), name, source_).Step();
}

}  // namespace postwright::postal
