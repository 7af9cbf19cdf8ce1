#include "postal/cut/CutQuestion.h"

#include <utility>

#include "postal/cut/KnownStreet.h"
#include "postal/cut/SentWords.h"
#include "postal/lines/BoxLine.h"
#include "postal/lines/StreetLine.h"

namespace postwright::postal {

Words CutQuestion::All() const {
  Words all;
  for (const std::vector<SentLine>* const field : {&lines, &cityLines}) {
    for (const SentLine& line : *field) {
      Append(all, line.words);
    }
  }
  return all;
}

Words CutQuestion::Street() const {
  return UpTo(words, boundary);
}

Words CutQuestion::City() const {
  return From(words, boundary);
}

bool CutQuestion::SetStreetAbove() {
  for (size_t at = 1; at < lines.size(); ++at) {
    const auto box = ReadPostOfficeBox(lines[at].words);
    if (!box) {
      continue;
    }
    const auto street = ReadStreet(lines[0].words, state);
    if (at > 1 || !box->aside.empty() || !street || street->suffix.empty()) {
      return false;
    }
    above = lines[0].text;
    lines.erase(lines.begin());
    break;
  }
  words = All();
  for (const SentLine& line : lines) {
    boundary += line.words.size();
  }
  return true;
}

void CutQuestion::TakeLetter(JoinedReader* reader) {
  Words street = Street();
  if (reader != nullptr && JoinKnownLetter(*reader, zip5, state, street)) {
    lines[0].words[0] = street[0];
    lines[0].words.erase(lines[0].words.begin() + 1);
    words = All();
    --boundary;
  }
}

}  // namespace postwright::postal
