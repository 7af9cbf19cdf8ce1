#ifndef POSTWRIGHT_SERVICE_PAGE_ROWREVIEW_H_
#define POSTWRIGHT_SERVICE_PAGE_ROWREVIEW_H_

#include <postwright/CorrectionReview.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/label/CarefulFix.h"
#include "service/page/TableColumns.h"
#include "service/page/TableText.h"

namespace postwright::service {

// The columns that a reviewed table has after its own: those that the command line adds.
inline constexpr std::array<std::string_view, 5> kAddedTitles = {"status", "confirmation", "reason",
                                                                 "zip4", "proposed"};

// One row of a table, and what became of its address. A value.
class RowReview {
 public:
  static constexpr size_t kLongestAddress = 2000;  // characters

  // A row that nobody was asked about yet.
  explicit RowReview(tabletext::Row row) : row_(std::move(row)) {}

  // Asks about it, as CarefulFix does, and blocks until there is an answer.
  void Ask(const TableColumns& columns);

  const tabletext::Cells& Cells() const { return row_.cells; }

  // The row as corrected, or as it would be where a person must decide; nothing where no correction
  // is known, or none that the cells can hold.
  const std::optional<tabletext::Cells>& Made() const { return made_; }

  std::string_view Status() const { return status_; }  // "fixed", as the status column has it
  const std::string& ReasonText() const { return reasonText_; }

  // The text that was asked about, and as corrected or proposed; the latter may be empty.
  const std::wstring& Typed() const { return typed_; }
  const std::wstring& Corrected() const { return corrected_; }
  const CorrectionReview& Review() const { return review_; }
  const std::string& ConfirmedHtml() const { return confirmedHtml_; }

  // A row that could have been meant: what an address base or the upstream has instead.
  struct Choice {
    std::wstring text;
    std::optional<tabletext::Cells>
        cells;  // the row with it, where it is one address that they hold
  };

  // What could have been meant, where there was a choice.
  const std::vector<Choice>& Choices() const { return choices_; }

  // What the columns of kAddedTitles hold, where the cells are those of Made() as far as the status
  // is "fixed".
  tabletext::Cells Added() const;

 private:
  void Take(const TableColumns& columns, const CarefulFix& fix);
  void TakeChoices(const TableColumns& columns, const CarefulFix& fix);
  void Set(std::string_view status, std::string reason, std::string reasonText);

  tabletext::Row row_;
  std::optional<tabletext::Cells> made_;
  std::string_view status_ = "not-asked";
  std::string reason_;
  std::string reasonText_;
  std::wstring typed_;
  std::wstring corrected_;
  CorrectionReview review_;
  std::string confirmation_;
  std::string confirmedHtml_;
  std::string zip4_;
  std::vector<Choice> choices_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_ROWREVIEW_H_
