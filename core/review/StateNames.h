#ifndef POSTWRIGHT_CORE_REVIEW_STATENAMES_H_
#define POSTWRIGHT_CORE_REVIEW_STATENAMES_H_

#include "core/parser/Vocabulary.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace postwright {

// A state at the end of a text.
struct StateAtEnd {
  std::size_t begin = 0;  // where it begins; the text's length where there is none
  std::wstring code;      // "TX"; "" where there is none
  bool isRead = false;    // the grammar reads it as it is written
};

// What stands for a state on older letters, without full stops: "CALIF" for CA, "W VA" for WV.
std::span<const Vocabulary::VocabularyRow> OlderStateForms();

// Finds the state that `text`, upper case and without punctuation at its end, ends with: a code, a
// name, a name's older abbreviation ("CALIF", "W VA"), any of them with full stops. AA, AE and AP
// are states.
StateAtEnd FindStateAtEnd(std::wstring_view text);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_STATENAMES_H_
