#include "service/page/TableColumns.h"

#include <postwright/AddressParser.h>
#include <postwright/TextForm.h>

#include <algorithm>
#include <array>
#include <utility>

#include "common/SmallText.h"
#include "common/WideText.h"

namespace postwright::service {
namespace {

using tabletext::Cells;

constexpr size_t kShortZip = 5;

// Letters and digits alone, upper case, a blank before and after each.
constexpr std::string_view kLabels = " LABEL ADDRESSLABEL FULLADDRESS MAILINGLABEL ADDRESSBLOCK ";
constexpr std::string_view kStreets =
    " ADDRESS ADDRESS1 ADDRESSLINE ADDRESSLINE1 ADDR ADDR1 ADD1 STREET STREET1 STREETADDRESS "
    "STREETADDRESS1 STREETLINE1 LINE1 DELIVERYADDRESS MAILINGADDRESS HOMEADDRESS SHIPPINGADDRESS ";
constexpr std::string_view kUnits =
    " UNIT UNITNO UNITNUMBER APT APTNO APTNUMBER APTSUITE APARTMENT SUITE STE ADDRESS2 "
    "ADDRESSLINE2 ADDR2 ADD2 STREET2 STREETADDRESS2 STREETLINE2 LINE2 ";
constexpr std::string_view kCities = " CITY TOWN CITYTOWN LOCALITY CITYNAME POSTOFFICE ";
constexpr std::string_view kStates = " STATE ST STATECODE STATEPROVINCE STATEABBREVIATION ";
constexpr std::string_view kZips = " ZIP ZIPCODE ZIP5 POSTALCODE POSTCODE POSTAL ZIPPOSTALCODE ";

std::string PlainName(std::string_view title) {
  std::string name = " ";
  for (const char c : title) {
    const bool isLower = c >= 'a' && c <= 'z';
    if (isLower || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
      name += isLower ? static_cast<char>(c - 'a' + 'A') : c;
    }
  }
  return name + " ";
}

std::wstring Joined(const std::wstring& first, std::wstring_view between,
                    const std::wstring& second) {
  return first.empty() || second.empty() ? first + second : first + std::wstring(between) + second;
}

std::wstring Joined(std::initializer_list<std::wstring> words) {
  std::wstring all;
  for (const std::wstring& word : words) {
    all = Joined(all, L" ", word);
  }
  return all;
}

std::wstring AddressOf(const std::wstring& street, const std::wstring& unit,
                       const std::wstring& city, const std::wstring& state,
                       const std::wstring& zip) {
  const std::wstring place = Joined(city, L", ", Joined({state, zip}));
  return Joined(Joined(street, L"\n", unit), L"\n", place);
}

}  // namespace

TableColumns::Role TableColumns::RoleOf(std::string_view title) {
  constexpr std::array kRoles = {
      std::pair{kLabels, Role::kLabel}, std::pair{kStreets, Role::kStreet},
      std::pair{kUnits, Role::kUnit},   std::pair{kCities, Role::kCity},
      std::pair{kStates, Role::kState}, std::pair{kZips, Role::kZip},
  };
  const std::string name = PlainName(title);
  const auto* const found = std::find_if(kRoles.begin(), kRoles.end(), [&name](const auto& each) {
    return name.size() > 2 && each.first.find(name) != std::string_view::npos;
  });
  return found == kRoles.end() ? Role::kNone : found->second;
}

std::optional<TableColumns> TableColumns::Find(const Cells& titles) {
  TableColumns columns;
  std::array<bool, static_cast<size_t>(Role::kZip) + 1> taken = {};
  for (const std::string& title : titles) {
    const Role role = RoleOf(title);  // of two columns with one role the first counts
    const bool isTaken = std::exchange(taken.at(static_cast<size_t>(role)), true);
    columns.roles_.push_back(isTaken ? Role::kNone : role);
    if (role == Role::kUnit && !isTaken) {
      const std::string name = PlainName(title);
      columns.designator_ = name.starts_with(" AP")  ? L"APT"
                            : name.starts_with(" S") ? L"STE"
                                                     : L"#";
    }
  }
  const auto has = [&taken](Role role) { return taken.at(static_cast<size_t>(role)); };
  const bool hasPlace = has(Role::kCity) || has(Role::kZip);
  const bool isWhole = has(Role::kStreet) && !hasPlace && !has(Role::kLabel);
  if (isWhole) {
    std::replace(columns.roles_.begin(), columns.roles_.end(), Role::kStreet, Role::kLabel);
  }
  if (isWhole || has(Role::kLabel)) {
    std::replace_if(
        columns.roles_.begin(), columns.roles_.end(),
        [](Role role) { return role != Role::kLabel; }, Role::kNone);
  } else if (!has(Role::kStreet)) {
    return std::nullopt;
  }
  for (size_t i = 0; i < columns.roles_.size(); ++i) {
    if (columns.roles_[i] != Role::kNone) {
      columns.places_.push_back(i);
    }
  }
  return columns;
}

TableColumns TableColumns::OfLabels() {
  TableColumns columns;
  columns.roles_ = {Role::kLabel};
  columns.places_ = {0};
  return columns;
}

std::wstring TableColumns::CellOf(const Cells& row, Role role) const {
  for (const size_t place : places_) {
    if (roles_[place] == role && place < row.size()) {
      return WideFromUtf8(Trim(row[place]));
    }
  }
  return L"";
}

bool TableColumns::IsBareUnit(const std::wstring& unit) const {
  return !unit.empty() && unit.size() <= kShortZip &&
         std::any_of(unit.begin(), unit.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; }) &&
         std::all_of(unit.begin(), unit.end(), [](wchar_t c) {
           return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
         });
}

std::wstring TableColumns::UnitOf(const Cells& row) const {
  const std::wstring unit = CellOf(row, Role::kUnit);
  return IsBareUnit(unit) ? designator_ + L" " + unit : unit;
}

std::wstring TableColumns::LabelOf(const Cells& row) const {
  const std::wstring label = CellOf(row, Role::kLabel);
  return !label.empty()
             ? label
             : AddressOf(CellOf(row, Role::kStreet), UnitOf(row), CellOf(row, Role::kCity),
                         CellOf(row, Role::kState), CellOf(row, Role::kZip));
}

void TableColumns::Put(Role role, const std::wstring& text, Cells& row) const {
  for (const size_t place : places_) {
    if (roles_[place] == role) {
      row.resize(std::max(row.size(), place + 1));
      row[place] = Utf8FromAnyWide(text);
    }
  }
}

std::optional<Cells> TableColumns::WithLabel(const Cells& row, const std::wstring& label,
                                             std::string& zip) const {
  Cells made = row;
  const AddressInfo info = AddressParser::GetInstance()->Parse(label);
  zip = Utf8FromAnyWide(info.zip);
  if (roles_[places_.front()] == Role::kLabel) {
    Put(Role::kLabel, label, made);
    return made;
  }
  const std::wstring typedUnit = CellOf(row, Role::kUnit);
  const std::wstring unit = Joined({info.secondaryUnit, info.secondaryNumber});
  const std::wstring line = Joined(
      {info.number, info.predirectional, info.street, info.streetSuffix, info.postdirectional});
  const std::wstring street = typedUnit.empty() ? Joined({line, unit}) : line;
  if (!TextForm::SaysTheSame(
          AddressOf(street, typedUnit.empty() ? L"" : unit, info.city, info.state, info.zip),
          label)) {
    return std::nullopt;
  }
  Put(Role::kStreet, street, made);
  if (!typedUnit.empty()) {
    const bool stays =
        IsBareUnit(typedUnit) && TextForm::SaysTheSame(typedUnit, info.secondaryNumber);
    Put(Role::kUnit, stays ? typedUnit : unit, made);
  }
  Put(Role::kCity, info.city, made);
  Put(Role::kState, info.state, made);
  const std::wstring typedZip = CellOf(row, Role::kZip);
  Put(Role::kZip, typedZip.size() > kShortZip ? info.zip : info.zip.substr(0, kShortZip), made);
  return made;
}

}  // namespace postwright::service
