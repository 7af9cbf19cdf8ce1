#include "postal/import/StreetStage.h"

#include "postal/base/BoxAddress.h"
#include "postal/base/StreetName.h"
#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

constexpr size_t kMostKept = 500'000;

}  // namespace

StreetStage::StreetStage(SqliteFile& stage, RowReader& reader, int64_t source)
    : stage_(stage),
      reader_(reader),
      source_(source),
      find_(stage,
            "SELECT id FROM street WHERE zip=? AND key=? AND name=? AND predirectional=? "
            "AND suffix=? AND postdirectional=? AND urbanization=?"),
      add_(stage, "INSERT OR IGNORE INTO street VALUES(NULL,?,?,?,?,?,?,?)"),
      addCity_(stage, "INSERT OR IGNORE INTO city VALUES(?,?,?,?)"),
      addZip_(stage, "INSERT OR IGNORE INTO zip VALUES(?,?)") {}

std::optional<int64_t> StreetStage::Find(const AddressRow& row, std::optional<RowFault>& fault) {
  key_.assign(1, row.postal.IsBox() ? static_cast<char>(row.postal.kind) : ' ');
  for (const Field field :
       {Field::Street, Field::Zip, Field::City, Field::State, Field::Urbanization}) {
    key_.append(row[field]).append(1, '\0');
  }
  auto known = known_.find(std::string_view(key_));
  if (known == known_.end()) {
    if (known_.size() >= kMostKept) {
      known_.clear();
    }
    const auto read = row.postal.IsBox() ? reader_.ReadBox(row) : reader_.ReadStreet(row);
    const auto* const street = std::get_if<RowStreet>(&read);
    known = known_
                .emplace(key_, street != nullptr
                                   ? std::variant<int64_t, RowFault>(IdOf(*street))
                                   : std::variant<int64_t, RowFault>(std::get<RowFault>(read)))
                .first;
  }
  if (const auto* id = std::get_if<int64_t>(&known->second)) {
    return *id;
  }
  fault = std::get<RowFault>(known->second);
  return std::nullopt;
}

int64_t StreetStage::IdOf(const RowStreet& read) {
  NotePlace(read);
  const StreetName& street = read.street;
  const std::string key = StreetKey(street.name);
  const std::string zip = read.isBox ? BoxAddress::ZipOf(read.zip) : read.zip;
  const auto ask = [&](SqliteStatement& statement) {
    return SqliteQuery(statement, zip, key, street.name, street.predirectional, street.suffix,
                       street.postdirectional, street.urbanization);
  };
  ask(add_).Step();
  if (stage_.Changes() > 0) {
    return stage_.LastRow();
  }
  SqliteQuery query = ask(find_);
  query.Step();
  return find_.Number(0);
}

void StreetStage::NotePlace(const RowStreet& read) {
  if (notedPlaces_.size() >= kMostKept) {
    notedPlaces_.clear();
  }
  if (!notedPlaces_.insert(read.zip + read.city).second) {
    return;
  }
  SqliteQuery(addZip_, read.zip, source_).Step();
  if (!read.city.empty()) {
    AddCity(read.zip, read.city);
  }
}

void StreetStage::AddCity(const std::string& zip, const std::string& name) {
  SqliteQuery(addCity_, zip, CityKey(name), name, source_).Step();
}

}  // namespace postwright::postal
