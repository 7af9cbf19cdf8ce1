#include "postal/cut/LineCutter.h"

#include <algorithm>

#include "postal/cut/CutQuestion.h"
#include "postal/cut/KnownStreet.h"
#include "postal/cut/LineCollector.h"
#include "postal/cut/SentWords.h"
#include "postal/lines/BoxLine.h"
#include "postal/lines/Standardiser.h"
#include "postal/places/CityName.h"
#include "postal/places/LastLine.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

constexpr size_t kShortestStreet = 2;  // words: a number and a name

std::string Folded(const std::string& field) {
  return TidyLine(FoldToAscii(field).value_or(""));
}

bool ReadsAsDeliveryLine(const Words& words, const std::string& state) {
  return words.size() >= kShortestStreet &&
         Standardiser::Standardise({"", JoinWords(words), ""}, state).has_value();
}

}  // namespace

std::optional<CutAddress> LineCutter::Cut(const SentAddress& sent) const {
  auto lines = SplitSentLines(sent.address2);
  auto cityLines = SplitSentLines(sent.city);
  if (!lines || !cityLines || lines->empty()) {
    return CutAddress{"", sent.address2, sent.city};
  }
  Question question;
  question.lines = std::move(*lines);
  question.cityLines = std::move(*cityLines);
  question.zip5 = LastLineChecker::Zip5Of(Folded(sent.zip));
  const ZipList::City* const ofZip = zips_.FindZip(question.zip5);
  const std::string lastLine =
      question.cityLines.empty() ? "" : JoinWords(question.cityLines.back().words);
  const bool isPlain = question.lines.size() == 1 && question.cityLines.size() == 1;
  if (reader_ == nullptr && isPlain && ofZip != nullptr && lastLine == ofZip->name) {
    return CutAddress{"", JoinWords(question.lines[0].words), sent.city};  // nearly always
  }
  question.state = LastLineChecker::StateOf(Folded(sent.state));
  if (LastLineChecker::IsMilitary(lastLine, question.state)) {
    return CutMilitary(question, sent.city);
  }
  if (!question.SetStreetAbove()) {
    return std::nullopt;
  }
  if (question.state.empty() && ofZip != nullptr) {
    question.state = ofZip->state;
  }
  question.names = NamesOf(question.zip5);
  question.TakeLetter(reader_);
  if (!question.state.empty() && lastLine == question.state) {
    return CutWithoutCity(question);
  }
  for (size_t i = 1; i < question.lines.size(); ++i) {
    if (PlaceOfNext(question.lines[i].words) == LinePlace::Unsure) {
      return std::nullopt;
    }
  }
  return question.cityLines.size() > 1 ? CutAtBreak(question) : CutAtName(question, sent.city);
}

// Names, ranks and units come above a military delivery line, and come with it.
CutAddress LineCutter::CutMilitary(const Question& question, const std::string& city) {
  const size_t first = FirstMilitaryLine(question.lines);
  LineCollector collector({}, "");
  Words delivery;
  for (size_t i = 0; i < question.lines.size(); ++i) {
    const SentLine& line = question.lines[i];
    if (i < first) {
      collector.Add(line, LinePlace::Above);
    } else {
      Append(delivery, line.words);
    }
  }
  return {collector.Above(), JoinWords(delivery), city};
}

// A client that knows of no city, and whose parser needs one, sends the state's code in its place.
std::optional<CutAddress> LineCutter::CutWithoutCity(const Question& question) const {
  if (question.cityLines.size() > 1) {
    return std::nullopt;
  }
  Question street = question;
  street.cityLines.clear();
  street.words = street.All();
  const bool isKnown = reader_ != nullptr && KnowsStreet(street, street.words);
  const auto cut = isKnown ? std::nullopt : FindCut(street);
  return cut ? Compose(street, *cut, CityOf(street, From(street.words, *cut)))
             : Compose(street, street.words.size(), "");
}

// A line break within the city: the last line begins after it.
std::optional<CutAddress> LineCutter::CutAtBreak(const Question& question) {
  Lines middle(question.cityLines.begin(), question.cityLines.end() - 1);
  Lines behind(question.lines.begin() + 1, question.lines.end());
  Words street = question.lines[0].words;
  if (!LetterAtEnd(street).empty() && IsCutAtType(UpTo(street, street.size() - 2))) {
    street = WithLetter(std::move(street));
  }
  const LinePlace place = PlaceBehind(street, middle[0].words, question.state);
  LineCollector collector(std::move(street), question.above);
  if (behind.empty()) {
    if (!collector.Add(middle[0], place)) {
      return std::nullopt;
    }
  } else {  // the first line of the city goes on where the last one of the street ended
    if (MayBeAbbreviated(behind.back().words.back())) {
      return std::nullopt;
    }
    behind.back().text += ' ' + middle[0].text;
    Append(behind.back().words, middle[0].words);
  }
  behind.insert(behind.end(), middle.begin() + 1, middle.end());
  for (const SentLine& line : behind) {
    if (!collector.Add(line, PlaceOfNext(line.words))) {
      return std::nullopt;
    }
  }
  return CutAddress{collector.Above(), JoinWords(collector.Street()),
                    question.cityLines.back().text};
}

std::optional<CutAddress> LineCutter::CutAtName(const Question& question,
                                                const std::string& city) const {
  if (!IsOwnCity(question)) {
    if (IsStreetEaten(question)) {
      return std::nullopt;
    }
    if (const auto cut = FindCut(question)) {
      return Compose(question, *cut, CityOf(question, From(question.words, *cut)));
    }
    const auto lettered = CutBeforeLetter(question);
    return lettered                  ? lettered
           : IsCityMissing(question) ? Compose(question, question.words.size(), "")
                                     : Compose(question, question.boundary, city);
  }
  const std::vector<size_t> others =
      reader_ != nullptr ? OtherCuts(question) : std::vector<size_t>();
  const Words& line = question.lines[0].words;
  const bool mayHaveLetter =
      reader_ != nullptr && question.lines.size() == 1 && !LetterAtEnd(line).empty();
  if ((others.empty() && !mayHaveLetter) || KnowsStreet(question, question.Street())) {
    return Compose(question, question.boundary, city);  // nearly always
  }
  for (const size_t cut : others) {
    if (KnowsStreet(question, UpTo(question.words, cut))) {
      return Compose(question, cut, CityOf(question, From(question.words, cut)));
    }
  }
  if (mayHaveLetter && KnowsStreet(question, WithLetter(line))) {
    return CutAddress{question.above, JoinWords(WithLetter(line)), city};
  }
  return Compose(question, question.boundary, city);
}

// Returns where another name of the ZIP code would begin.
std::vector<size_t> LineCutter::OtherCuts(const Question& question) {
  std::vector<size_t> cuts;
  for (size_t cut = kShortestStreet; cut < question.words.size(); ++cut) {
    if (cut != question.boundary && IsName(question, From(question.words, cut))) {
      cuts.push_back(cut);
    }
  }
  return cuts;
}

// Says whether the city's name leaves no more of the street than its number: 288 SAN; JUAN.
bool LineCutter::IsStreetEaten(const Question& question) {
  Words words = question.words;
  if (!LetterAtEnd(question.Street()).empty()) {
    const auto unit = words.begin() + static_cast<long>(question.boundary) - 2;
    words.erase(unit, unit + 2);
  }
  return words.size() > 1 && IsName(question, From(words, 1));
}

// Returns where the longest name begins that leaves a street: of the ZIP code, one letter off that,
// or, where what was sent is not a city of the state, any of the state.
std::optional<size_t> LineCutter::FindCut(const Question& question) const {
  const auto find = [&](size_t end, auto isCity) -> std::optional<size_t> {
    for (size_t cut = kShortestStreet; cut < end; ++cut) {
      if (isCity(From(question.words, cut)) &&
          ReadsAsDeliveryLine(UpTo(question.words, cut), question.state)) {
        return cut;
      }
    }
    return std::nullopt;
  };
  if (const auto cut = find(question.words.size(),
                            [&](const Words& words) { return IsName(question, words); })) {
    return cut;
  }
  const std::string city = JoinWords(question.City());
  if (city.empty() || zips_.FindCity(CityKey(city), question.state) != nullptr) {
    return std::nullopt;
  }
  const auto isNear = [&](const std::string& text) {
    return !HasDigit(text) &&
           std::any_of(question.names.begin(), question.names.end(),
                       [&](const auto& name) { return CompareCity(text, name) == CityFit::Near; });
  };
  if (isNear(city)) {
    return std::nullopt;
  }
  if (const auto cut =
          find(question.boundary, [&](const Words& words) { return isNear(JoinWords(words)); })) {
    return cut;
  }
  return find(question.boundary, [&](const Words& words) {
    return zips_.FindCity(CityKey(JoinWords(words)), question.state) != nullptr;
  });
}

// An apartment's letter after words of the city was after the house number.
std::optional<CutAddress> LineCutter::CutBeforeLetter(const Question& question) const {
  constexpr size_t kUnit = 2;
  const std::string letter = LetterAtEnd(question.lines[0].words);
  if (question.lines.size() > 1 || letter.empty()) {
    return std::nullopt;
  }
  Question without = question;
  without.lines[0].words.resize(question.boundary - kUnit);
  without.words = without.All();
  without.boundary -= kUnit;
  const auto cut = FindCut(without);
  if (!cut || *cut >= without.boundary) {
    return std::nullopt;
  }
  Words street = UpTo(without.words, *cut);
  street[0] += letter;
  return CutAddress{question.above, JoinWords(street), CityOf(question, From(without.words, *cut))};
}

// The address with the first `cut` words as its delivery lines.
std::optional<CutAddress> LineCutter::Compose(const Question& question, size_t cut,
                                              std::string city) {
  Lines kept;
  size_t left = cut;
  for (const SentLine& line : question.lines) {
    const size_t taken = std::min(left, line.words.size());
    if (taken > 0) {
      kept.push_back(line);
      kept.back().words.resize(taken);
      kept.back().text = taken == line.words.size() ? line.text : JoinWords(kept.back().words);
    }
    left -= taken;
  }
  LineCollector collector(kept[0].words, question.above);
  for (size_t i = 1; i < kept.size(); ++i) {
    const LinePlace place = PlaceOfNext(kept[i].words);
    const bool isLast = i + 1 == question.lines.size() && cut >= question.boundary;
    if ((isLast && place == LinePlace::Above && MayBeAbbreviated(kept[i].words.back())) ||
        !collector.Add(kept[i], place)) {
      return std::nullopt;
    }
  }
  if (left > 0) {
    const Words behind = From(UpTo(question.words, cut), question.boundary);
    if (!collector.Add({JoinWords(behind), behind}, LinePlace::Continues)) {
      return std::nullopt;
    }
  }
  return CutAddress{collector.Above(), JoinWords(collector.Street()), std::move(city)};
}

std::vector<std::string> LineCutter::NamesOf(const std::string& zip) const {
  std::vector<std::string> names;
  if (const ZipList::City* const city = zips_.FindZip(zip)) {
    names.push_back(city->name);
  }
  if (reader_ != nullptr && !zip.empty()) {
    const std::vector<std::string>& more = reader_->CityNames(zip);
    names.insert(names.end(), more.begin(), more.end());
  }
  return names;
}

// The name of the ZIP code that the words stand for.
std::optional<std::string> LineCutter::NameOf(const Question& question, const Words& words) {
  const auto name = std::find_if(question.names.begin(), question.names.end(),
                                 [&](const std::string& text) { return AreCity(words, text); });
  return name == question.names.end() ? std::nullopt : std::optional(*name);
}

bool LineCutter::IsName(const Question& question, const Words& words) {
  return NameOf(question, words).has_value();
}

std::string LineCutter::CityOf(const Question& question, const Words& words) {
  return NameOf(question, words).value_or(JoinWords(words));
}

// Says whether the city was sent whole, perhaps shortened.
bool LineCutter::IsOwnCity(const Question& question) {
  const std::string city = JoinWords(question.City());
  return !city.empty() &&
         std::any_of(question.names.begin(), question.names.end(), [&](const std::string& name) {
           const CityFit fit = CompareCity(city, name);
           return fit == CityFit::Same || fit == CityFit::Abbreviation;
         });
}

// Says whether the end of the street stands for the city: where there is none, a parser that needs
// one takes the last words.
bool LineCutter::IsCityMissing(const Question& question) const {
  if (question.words.size() <= kShortestStreet) {
    return false;
  }
  const auto type =
      question.words.end() - (Lexicon::Get().Direction(question.words.back()).empty() ? 1 : 2);
  return question.boundary < question.words.size() &&
         Lexicon::Get().IsPlainType(Lexicon::Get().Suffix(*type)) &&
         zips_.FindCity(CityKey(JoinWords(question.City())), question.state) == nullptr &&
         ReadsAsDeliveryLine(question.words, question.state);
}

bool LineCutter::KnowsStreet(const Question& question, const Words& line) const {
  return postal::KnowsStreet(*reader_, question.zip5, question.state, line);
}

}  // namespace postwright::postal
