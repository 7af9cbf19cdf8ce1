#ifndef POSTWRIGHT_SERVICE_PAGE_TABLEREVIEW_H_
#define POSTWRIGHT_SERVICE_PAGE_TABLEREVIEW_H_

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "service/page/RowReview.h"
#include "service/page/TableColumns.h"
#include "service/page/TableText.h"

namespace postwright::service {

// A table that was pasted, and what became of each row.
//
//   TableReview table(text);
//   table.Ask(until);
//   reply.body = table.Csv();
//
// A row that cannot be read or asked about stays as it is, and costs no other anything.
class TableReview {
 public:
  static constexpr size_t kMostRows = 1000;  // without the one of the titles
  static constexpr size_t kMostColumns = 200;

  // Reads UTF-8 text (tabletext::Read). Its first row names the columns; where it does not, each
  // row is a label, in one cell or with its lines separated by commas. Columns of an earlier review
  // are replaced.
  explicit TableReview(std::string_view text);

  // Why nothing can be asked about, for a person; empty where something can.
  const std::string& Problem() const { return problem_; }

  // Asks about row after row, each blocking as RowReview::Ask does; about none that would begin
  // after `until`.
  void Ask(std::chrono::steady_clock::time_point until);

  const tabletext::Cells& Titles() const { return titles_; }
  const TableColumns& Columns() const { return *columns_; }
  const std::vector<RowReview>& Rows() const { return rows_; }

  // The table with the corrections that are accounted for in their cells, and the columns of
  // kAddedTitles. CSV, RFC 4180.
  std::string Csv() const;

 private:
  void TakeTitles(std::vector<tabletext::Row>& rows, bool mayBeLabels);
  void DropAdded(std::vector<tabletext::Row>& rows);

  std::string problem_;
  tabletext::Cells titles_;
  std::optional<TableColumns> columns_;
  std::vector<RowReview> rows_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_TABLEREVIEW_H_
