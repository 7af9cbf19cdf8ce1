#include "postal/cut/KnownStreet.h"

#include "postal/base/StreetMatcher.h"
#include "postal/lines/Standardiser.h"

namespace postwright::postal {

bool KnowsStreet(JoinedReader& reader, const std::string& zip5, const std::string& state,
                 const Words& line) {
  const auto lines = Standardiser::Standardise({"", JoinWords(line), ""}, state);
  if (!lines || !lines->street) {
    return false;
  }
  const StreetQuestion asked = {StreetNameOf(*lines->street, ""), JoinWords(lines->street->number),
                                ""};
  return StreetMatcher(reader, nullptr).MatchAsWritten(zip5, asked).kind ==
         StreetMatch::Kind::Found;
}

bool JoinKnownLetter(JoinedReader& reader, const std::string& zip5, const std::string& state,
                     Words& line) {
  constexpr size_t kShortest = 3;  // number, letter, name
  if (line.size() < kShortest || !AllDigits(line[0]) || line[1].size() != 1 ||
      !IsUpper(line[1][0])) {
    return false;
  }
  Words joined = line;
  joined[0] += joined[1];
  joined.erase(joined.begin() + 1);
  if (KnowsStreet(reader, zip5, state, line) || !KnowsStreet(reader, zip5, state, joined)) {
    return false;
  }
  line = std::move(joined);
  return true;
}

}  // namespace postwright::postal
