#include "service/page/TableReview.h"

#include <algorithm>
#include <utility>

namespace postwright::service {
namespace {

using tabletext::Cells;
using tabletext::Row;

bool IsAdded(const std::string& title) {
  return std::count(kAddedTitles.begin(), kAddedTitles.end(), title) > 0;
}

// A label that was pasted as it is, its commas taken for those of a table.
void JoinCells(Row& row) {
  std::string label;
  for (const std::string& cell : row.cells) {
    label += (label.empty() || cell.empty() ? "" : ", ") + cell;
  }
  row.cells = {label};
}

}  // namespace

TableReview::TableReview(std::string_view text) {
  std::vector<Row> rows = tabletext::Read(text, kMostRows + 2);
  if (rows.empty()) {
    problem_ = "There is no row.";
    return;
  }
  const bool areCells =
      std::all_of(rows.begin(), rows.end(), [](const Row& row) { return row.cells.size() <= 1; });
  TakeTitles(rows, areCells || tabletext::DelimiterOf(text) == ',');
  if (problem_.empty() && rows.empty()) {
    problem_ = "There is no row under the names of the columns.";
  } else if (problem_.empty() && rows.size() > kMostRows) {
    problem_ =
        "There are more than 1,000 rows. The command line takes any number: postwright fix "
        "list.csv";
  }
  if (titles_.size() > kMostColumns) {
    problem_ = "There are more than 200 columns.";
  }
  if (problem_.empty()) {
    DropAdded(rows);
    for (Row& row : rows) {
      rows_.emplace_back(std::move(row));
    }
  }
}

void TableReview::TakeTitles(std::vector<Row>& rows, bool mayBeLabels) {
  columns_ = TableColumns::Find(rows.front().cells);
  if (columns_) {
    titles_ = rows.front().cells;
    rows.erase(rows.begin());
  } else if (mayBeLabels) {
    titles_ = {"address"};
    columns_ = TableColumns::OfLabels();
    std::for_each(rows.begin(), rows.end(), JoinCells);
  } else {
    problem_ =
        "No column of an address was found. The first row names them: street, unit, city, state "
        "and ZIP, or address for all in one.";
  }
}

void TableReview::DropAdded(std::vector<Row>& rows) {
  const size_t own = titles_.size() - std::min(kAddedTitles.size(), titles_.size() - 1);
  const bool isEarlier =
      std::all_of(titles_.begin() + static_cast<std::ptrdiff_t>(own), titles_.end(), IsAdded) &&
      titles_.size() - own == kAddedTitles.size();
  for (Row& row : rows) {
    if (row.cells.size() > titles_.size()) {
      row.problem = "The row has more cells than there are names of columns.";
    } else if (row.problem.empty()) {
      row.cells.resize(isEarlier ? own : titles_.size());
    }
  }
  titles_.resize(isEarlier ? own : titles_.size());
}

void TableReview::Ask(std::chrono::steady_clock::time_point until) {
  for (RowReview& row : rows_) {
    if (std::chrono::steady_clock::now() > until) {
      return;
    }
    row.Ask(*columns_);
  }
}

std::string TableReview::Csv() const {
  std::string csv;
  const auto append = [&csv, this](Cells cells, const Cells& added) {
    if (cells.size() <= titles_.size()) {  // else what is added would stand under no name
      cells.resize(titles_.size());
      cells.insert(cells.end(), added.begin(), added.end());
    }
    tabletext::Append(cells, csv);
  };
  append(titles_, {kAddedTitles.begin(), kAddedTitles.end()});
  for (const RowReview& row : rows_) {
    append(row.Status() == "fixed" ? *row.Made() : row.Cells(), row.Added());
  }
  return csv;
}

}  // namespace postwright::service
