#ifndef POSTWRIGHT_POSTAL_CUT_SENTLINES_H_
#define POSTWRIGHT_POSTAL_CUT_SENTLINES_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/AsciiText.h"

namespace postwright::postal {

// One line as it was sent, and its words.
struct SentLine {
  std::string text;  // UTF-8, without blanks around it
  Words words;
};

// Splits a field at its line feeds; lines without words are left out. nullopt where a letter has no
// Latin form.
std::optional<std::vector<SentLine>> SplitSentLines(std::string_view field);

// What a line is to the street in front of it.
enum class LinePlace {
  Continues,  // the rest of the street, or a unit of it
  Unit,       // a unit whose number sign was lost
  Above,      // a line of its own, which a postal clerk would set above the street: a firm, an
              // attention line
  Unsure,
};

// Decides on words that came between the delivery line and the city, after a break within the
// city's field: the street may have been cut too early, and they are the rest of it, or they are a
// line of their own.
LinePlace PlaceBehind(const Words& street, const Words& words, std::string_view state);

// Decides on a line that came after the delivery line, set apart from it by a line break.
LinePlace PlaceOfNext(const Words& words);

// Returns which of the lines above a military last line is the first of its delivery line: what
// stands in front is a name, a rank or a unit.
size_t FirstMilitaryLine(const std::vector<SentLine>& lines);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_CUT_SENTLINES_H_
