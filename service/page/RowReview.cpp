#include "service/page/RowReview.h"

#include <postwright/VerifyCandidate.h>

#include <algorithm>

#include "common/WideText.h"
#include "service/page/FixView.h"

namespace postwright::service {
namespace {

std::string OneLine(const std::wstring& label) {
  std::string line;
  for (const char c : Utf8FromAnyWide(label)) {
    c == '\n' ? line.append(", ") : line.append(1, c);
  }
  return line;
}

}  // namespace

void RowReview::Set(std::string_view status, std::string reason, std::string reasonText) {
  status_ = status;
  reason_ = std::move(reason);
  reasonText_ = std::move(reasonText);
}

void RowReview::Ask(const TableColumns& columns) {
  if (!row_.problem.empty()) {
    return Set("not-asked", "unreadable", row_.problem);
  }
  typed_ = columns.LabelOf(row_.cells);
  if (typed_.empty()) {
    return Set("not-asked", "empty", "The row holds no address.");
  }
  if (typed_.size() > kLongestAddress) {
    return Set("not-asked", "too-long",
               "The address has more than " + std::to_string(kLongestAddress) + " characters.");
  }
  CarefulFix::Asking asking;
  asking.candidates = VerifyCandidate::kMost;
  const CarefulFix fix(typed_, asking, nullptr);
  Take(columns, fix);
  TakeChoices(columns, fix);
}

void RowReview::TakeChoices(const TableColumns& columns, const CarefulFix& fix) {
  for (const AddressMatch& candidate : fix.Candidates()) {
    if (candidate.HasPrimaryRange() || candidate.HasSecondaryRange()) {
      choices_.push_back({candidate.GetAddressTemplate(true), std::nullopt});
      continue;
    }
    const std::wstring text = candidate.ComposeAddressBlock(true);
    std::string zip;
    choices_.push_back({text, columns.WithLabel(row_.cells, text, zip)});
  }
}

void RowReview::Take(const TableColumns& columns, const CarefulFix& fix) {
  Set(CodeOf(fix.Status()), fix.Reason(), fix.ReasonText());
  confirmation_ = fix.Confirmed().Code();
  confirmedHtml_ = fixview::Confirmed(fix);
  if (fix.Status() == FixStatus::kUnchanged) {
    return;
  }
  corrected_ = fix.Status() == FixStatus::kFixed ? fix.Text() : fix.Proposed();
  if (corrected_.empty()) {
    return;
  }
  review_ = fix.Review();
  made_ = columns.WithLabel(row_.cells, corrected_, zip4_);
  if (!made_ && fix.Status() == FixStatus::kFixed) {
    Set("to-decide", "columns",
        "The corrected address does not divide into the columns of the table.");
  } else if (made_ == row_.cells && fix.Status() == FixStatus::kFixed) {
    made_.reset();
    corrected_.clear();
    review_ = CorrectionReview();
    status_ = "unchanged";
  }
}

tabletext::Cells RowReview::Added() const {
  const bool hasZip4 = status_ != "to-decide" && zip4_.find('-') != std::string::npos;
  return {std::string(status_), confirmation_, reason_, hasZip4 ? zip4_ : "",
          status_ == "to-decide" ? OneLine(corrected_) : ""};
}

}  // namespace postwright::service
