#ifndef POSTWRIGHT_CORE_REVIEW_PLACELINE_H_
#define POSTWRIGHT_CORE_REVIEW_PLACELINE_H_

#include "core/review/LabelLines.h"

#include <postwright/AddressLines.h>

#include <optional>
#include <string>
#include <vector>

namespace postwright {

// City, state and ZIP code at the end of an address.
struct Place {
  std::size_t first = 0;  // index of the first piece that is part of it
  std::wstring city;      // as typed; "" where none was found
  std::wstring ahead;     // what comes before the state in the first piece, street and all,
                          // where it holds digits; then `city` is empty
  std::wstring state;     // as typed, or its code where the grammar cannot read that
  std::wstring stateCode;
  std::wstring zip;  // "78701" or "78701-1234"
  std::vector<RespelledWords> respellings;

  // "Austin, TX 78701", or without a city "TX 78701".
  std::wstring Text() const;

  // The same, but without a city "TX, TX 78701": the grammar needs one, and would take the street's
  // last words for it.
  std::wstring TextWithCity() const;
};

// Takes a ZIP code, with or without add-on, from the end of `text`, and the punctuation around it.
// Returns it in standard form; "" where `text` ends in none.
std::wstring TakeZip(std::wstring_view& text);

// Where the ZIP code at the end of a line of `text` ends: at its end, or in front of a name of the
// United States. `line.begin` where there is none.
std::size_t EndOfZip(std::wstring_view text, const LabelPiece& line);

// Reads the place that `pieces` end in, the last of them with the ZIP code. The city may be a piece
// of its own.
std::optional<Place> ReadPlace(const std::vector<LabelPiece>& pieces);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_PLACELINE_H_
