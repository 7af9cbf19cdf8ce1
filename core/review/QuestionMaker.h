#ifndef POSTWRIGHT_CORE_REVIEW_QUESTIONMAKER_H_
#define POSTWRIGHT_CORE_REVIEW_QUESTIONMAKER_H_

#include "core/review/LabelLines.h"
#include "core/review/LineKind.h"
#include "core/review/PlaceLine.h"

#include <postwright/AddressInfo.h>
#include <postwright/AddressLines.h>

#include <optional>
#include <string>
#include <vector>

namespace postwright {

// Puts the question about an address together, in words that the grammar can read, and has the
// parser confirm that it reads all of it.
class QuestionMaker {
 public:
  // `place` must outlive the maker.
  explicit QuestionMaker(const Place& place) : place_(place) {}

  // Returns the question about a delivery line and the units on lines of their own, nullopt where
  // the grammar reads it otherwise. Adds what it respells. Calls the parser six times at most.
  std::optional<std::wstring> Compose(const LabelPiece& street, LineKind kind,
                                      const std::vector<LabelPiece>& units,
                                      std::vector<RespelledWords>& respellings);

  // The same of a line that holds the city too. Calls the parser twice at most.
  std::optional<std::wstring> ComposeAllInOne(const LabelPiece& line, LineKind kind,
                                              std::vector<RespelledWords>& respellings);

  // Says whether the question reads as one whole address and nothing more, the number of
  // `delivery` and the city as they are in the label.
  bool Reads(const std::wstring& question, const std::wstring& delivery);

  // Says whether the last question had a unit.
  bool ReadsUnit() const { return !info_.secondaryUnit.empty(); }

 private:
  std::optional<std::wstring> ComposeLine(const std::wstring& line, const std::wstring& delivery);
  bool HasCityBehindComma(const std::wstring& line, const std::wstring& delivery);
  bool ReadsCity() const;

  const Place& place_;
  bool hasUnits_ = false;  // of lines of their own
  AddressInfo info_;       // how the parser read the last question
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_QUESTIONMAKER_H_
