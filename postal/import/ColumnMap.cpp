#include "postal/import/ColumnMap.h"

#include <algorithm>
#include <stdexcept>

#include "common/SmallText.h"

namespace postwright::postal {
namespace {

struct FieldRow {
  Field field;
  std::vector<std::string> columns;
};

struct FormatRow {
  const char* format;
  std::vector<std::string> marks;  // columns that tell it from others
  std::vector<FieldRow> fields;
};

// The National Address Database has parts of a unit in several columns; those that a delivery line
// does not name (a room in a building that is named) are left where they are. Its columns had
// other names once: StreetName is St_Name now.
const std::vector<FormatRow>& Formats() {
  static const std::vector<FormatRow> formats = {
      {"OpenAddresses CSV",
       {"LON", "LAT", "NUMBER", "STREET", "POSTCODE", "HASH"},
       {{Field::Number, {"NUMBER"}},
        {Field::Street, {"STREET"}},
        {Field::Unit, {"UNIT"}},
        {Field::City, {"CITY"}},
        {Field::State, {"REGION"}},
        {Field::Zip, {"POSTCODE"}}}},
      {"National Address Database",
       {"Add_Number", "St_Name", "StNam_Full", "Zip_Code", "AddAuth"},
       {{Field::Number, {"AddNo_Full"}},
        {Field::Street,
         {"St_PreMod", "St_PreDir", "St_PreTyp", "St_PreSep", "St_Name", "St_PosTyp", "St_PosDir",
          "St_PosMod"}},
        {Field::Unit, {"Unit"}},
        {Field::City, {"Post_City"}},
        {Field::State, {"State"}},
        {Field::Zip, {"Zip_Code"}},
        {Field::Zip4, {"Plus_4"}},
        {Field::Urbanization, {"Urbnztn_PR"}}}},
      {"National Address Database",
       {"Add_Number", "StreetName", "StN_PosTyp", "Zip_Code", "AddAuth"},
       {{Field::Number, {"AddNum_Pre", "Add_Number", "AddNum_Suf"}},
        {Field::Street,
         {"StN_PreMod", "StN_PreDir", "StN_PreTyp", "StN_PreSep", "StreetName", "StN_PosTyp",
          "StN_PosDir", "StN_PosMod"}},
        {Field::Unit, {"Unit"}},
        {Field::City, {"Post_Comm"}},
        {Field::State, {"State"}},
        {Field::Zip, {"Zip_Code"}},
        {Field::Zip4, {"Plus_4"}}}},
  };
  return formats;
}

size_t IndexOf(std::span<const std::string> heading, const std::string& column) {
  return static_cast<size_t>(
      std::find_if(heading.begin(), heading.end(),
                   [&](const auto& name) { return EqualsIgnoringCase(name, column); }) -
      heading.begin());
}

std::vector<std::string> Split(const std::string& text, char at) {
  std::vector<std::string> parts = {""};
  for (const char c : text) {
    if (c == at) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

size_t FieldOf(const std::string& name) {
  const auto found = std::find(kFieldNames.begin(), kFieldNames.end(), name);
  if (found == kFieldNames.end()) {
    std::string message = "'" + name + "' is not a field; there are";
    for (const std::string_view known : kFieldNames) {
      message.append(" ").append(known);
    }
    throw std::invalid_argument(message);
  }
  return static_cast<size_t>(found - kFieldNames.begin());
}

}  // namespace

ColumnMap ColumnMap::Parse(const std::string& text) {
  ColumnMap map;
  map.text_ = text;
  for (const std::string& pair : Split(text, ',')) {
    const size_t sign = pair.find('=');
    if (sign == std::string::npos || sign + 1 == pair.size()) {
      throw std::invalid_argument("'" + pair + "' is not FIELD=COLUMN");
    }
    map.names_[FieldOf(pair.substr(0, sign))] = Split(pair.substr(sign + 1), '+');
  }
  return map;
}

std::optional<ColumnMap> ColumnMap::Recognise(std::span<const std::string> heading) {
  const auto stands = [&](const std::string& column) {
    return IndexOf(heading, column) < heading.size();
  };
  ColumnMap map;
  map.optional_ = true;
  for (const FormatRow& row : Formats()) {
    if (std::all_of(row.marks.begin(), row.marks.end(), stands)) {
      map.format_ = row.format;
      for (const FieldRow& field : row.fields) {
        map.names_[static_cast<size_t>(field.field)] = field.columns;
      }
      return map;
    }
  }
  for (size_t field = 0; field < kFields; ++field) {
    map.names_[field] = {std::string(kFieldNames[field])};
  }
  const bool plain = stands("street") && (stands("number") || (stands("low") && stands("high")));
  return plain ? std::optional(map) : std::nullopt;
}

std::string ColumnMap::Bind(std::span<const std::string> heading) {
  for (size_t field = 0; field < kFields; ++field) {
    indices_[field].clear();
    for (const std::string& column : names_[field]) {
      const size_t index = IndexOf(heading, column);
      if (index < heading.size()) {
        indices_[field].push_back(index);
      } else if (!optional_) {
        return column;
      }
    }
  }
  return {};
}

void ColumnMap::Read(std::span<const std::string> cells, AddressRow& row) const {
  for (size_t field = 0; field < kFields; ++field) {
    std::string& text = row[static_cast<Field>(field)];
    text.clear();
    for (const size_t index : indices_[field]) {
      if (index < cells.size() && !cells[index].empty()) {
        if (!text.empty()) {
          text += ' ';
        }
        text += cells[index];
      }
    }
  }
}

}  // namespace postwright::postal
