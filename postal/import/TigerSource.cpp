#include "postal/import/TigerSource.h"

#include <algorithm>
#include <utility>

namespace postwright::postal {

TigerSource::TigerSource(SourceFile file) : file_(std::move(file)) {
  Open();
}

void TigerSource::Open() {
  table_ = std::make_unique<DbfTable>(ByteStream::Open(file_), file_.Name());
  name_ = FindField("FULLNAME");
  sides_ = {FindSide('L'), FindSide('R')};
  nextSide_ = sides_.size();
}

TigerSource::Side TigerSource::FindSide(char side) const {
  const std::string letter(1, side);
  return {FindField(letter + "FROMHN"), FindField(letter + "TOHN"), FindField("ZIP" + letter),
          FindField("PARITY" + letter), table_->FindField("PLUS4" + letter)};
}

size_t TigerSource::FindField(const std::string& name) const {
  const std::optional<size_t> field = table_->FindField(name);
  if (!field) {
    throw SourceError(file_.Name() + ": is not a table of address ranges (ADDRFEAT): it has no " +
                      name);
  }
  return *field;
}

bool TigerSource::Next(AddressRow& row) {
  while (true) {
    if (nextSide_ == sides_.size()) {
      if (!table_->Next()) {
        return false;
      }
      nextSide_ = 0;
    }
    if (Read(sides_[nextSide_++], row)) {
      return true;
    }
  }
}

// Returns false for a side without numbers.
bool TigerSource::Read(const Side& side, AddressRow& row) const {
  if (table_->Field(side.from).empty() && table_->Field(side.to).empty()) {
    return false;
  }
  row.Clear();
  row[Field::Street] = table_->Field(name_);
  row[Field::Low] = table_->Field(side.from);
  row[Field::High] = table_->Field(side.to);
  row[Field::Zip] = table_->Field(side.zip);
  row[Field::Parity] = table_->Field(side.parity);
  row[Field::Zip4] = side.zip4 ? table_->Field(*side.zip4) : std::string_view();
  return true;
}

RowPlace TigerSource::Place() const {
  const auto left = static_cast<int64_t>(sides_.size() - nextSide_);
  return {2 * table_->RecordsRead() - left, table_->RecordsRead()};
}

double TigerSource::Share() const {
  return static_cast<double>(table_->RecordsRead()) /
         static_cast<double>(std::max<int64_t>(table_->Records(), 1));
}

void TigerSource::GoTo(const RowPlace& place) {
  Open();
  for (AddressRow row; Place().position < place.position && Next(row);) {
  }
}

}  // namespace postwright::postal
