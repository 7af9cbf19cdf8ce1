#ifndef POSTWRIGHT_CORE_REVIEW_RUNFINDER_H_
#define POSTWRIGHT_CORE_REVIEW_RUNFINDER_H_

#include "core/review/LabelLines.h"
#include "core/review/LineKind.h"
#include "core/review/PlaceLine.h"

#include <postwright/AddressLines.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace postwright {

// An address in a label's text.
struct AddressRun {
  LeftAloneReason leftAlone = LeftAloneNot;  // else nothing below but `begin` and `end` is set
  std::size_t begin = 0;
  std::size_t end = 0;
  std::wstring question;
  std::vector<std::wstring> between;  // the lines in it that are not asked about, as typed
  std::vector<RespelledWords> respellings;
};

// Finds the address that ends with the last of a few pieces of a label. One object looks once.
class RunFinder {
 public:
  // `mayCut` allows the address to begin within a line. `text` must outlive the finder.
  RunFinder(std::wstring_view text, std::vector<LabelPiece> pieces, bool mayCut)
      : text_(text), pieces_(std::move(pieces)), mayCut_(mayCut) {}

  // Calls the parser twelve times at most.
  std::optional<AddressRun> Find();

 private:
  bool SplitAhead();
  bool IsMilitary() const;
  std::optional<AddressRun> FindMilitary();
  std::optional<AddressRun> FindAllInOne();
  std::optional<AddressRun> FindStreetOrBox();
  bool FindDeliveryLine();
  bool TakeLine(std::size_t at);
  bool IsRouteAt(std::size_t at) const;
  LineKind KindAt(std::size_t at) const;
  bool HasStreetAbove(std::size_t at) const;
  LeftAloneReason ReasonToLeave() const;
  bool IsDoubtful() const;
  std::optional<AddressRun> Ask();
  bool TakeUnitAbove(AddressRun& run);
  AddressRun RunFrom(std::size_t at) const;

  std::wstring_view text_;
  std::vector<LabelPiece> pieces_;
  bool mayCut_;
  std::size_t end_ = 0;
  Place place_;
  LineKind kind_ = LineKind::kOther;  // of the delivery line
  std::size_t delivery_ = 0;          // its place among the pieces
  LabelPiece line_;                   // and its text
  std::vector<LabelPiece> units_;
  std::vector<LabelPiece> between_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_RUNFINDER_H_
