#ifndef POSTWRIGHT_SERVICE_PAGE_TABLECOLUMNS_H_
#define POSTWRIGHT_SERVICE_PAGE_TABLECOLUMNS_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "service/page/TableText.h"

namespace postwright::service {

// Which columns of a table make the address, and their cells again from the corrected address.
class TableColumns {
 public:
  // Finds them by their titles ("Address 1", "Apt", "City", "State", "ZIP"; one column "Address" or
  // "Label" may hold all of it). Nothing where these name no address.
  static std::optional<TableColumns> Find(const tabletext::Cells& titles);

  // Those of a table without titles, whose rows are labels.
  static TableColumns OfLabels();

  // The columns, ascending.
  const std::vector<size_t>& Places() const { return places_; }

  // The address of a row; empty where it has none. Of missing cells nothing is said.
  std::wstring LabelOf(const tabletext::Cells& row) const;

  // The row with the corrected `label` in its cells; nothing where it cannot be divided among them,
  // so that a part would be lost. The unit goes where the row had its own, a ZIP code of five
  // digits stays one, and `zip` is told the whole of it. Uses AddressParser::GetInstance(): one
  // thread at a time.
  std::optional<tabletext::Cells> WithLabel(const tabletext::Cells& row, const std::wstring& label,
                                            std::string& zip) const;

 private:
  enum class Role { kNone, kLabel, kStreet, kUnit, kCity, kState, kZip };

  static Role RoleOf(std::string_view title);
  std::wstring CellOf(const tabletext::Cells& row, Role role) const;
  std::wstring UnitOf(const tabletext::Cells& row) const;
  bool IsBareUnit(const std::wstring& unit) const;
  void Put(Role role, const std::wstring& text, tabletext::Cells& row) const;

  std::vector<Role> roles_;
  std::vector<size_t> places_;
  std::wstring designator_ = L"#";  // of a bare number in the unit's column
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_TABLECOLUMNS_H_
