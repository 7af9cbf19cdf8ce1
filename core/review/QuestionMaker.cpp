#include "core/review/QuestionMaker.h"

#include "core/review/LineRespelling.h"

#include <postwright/AddressParser.h>

#include <algorithm>

namespace postwright {

using namespace LabelLines;

namespace {

// One in front of a number sign stays: without it, the E of "Oak St, #E" is a directional.
std::wstring WithoutCommas(const std::wstring& text) {
  std::wstring kept;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t next = text.find_first_not_of(L' ', at + 1);
    if (text[at] != L',' || (next != text.npos && text[next] == L'#')) {
      kept += text[at];
    }
  }
  return kept;
}

// "12" of "12-B Main St" and of "12 1/2"; "" of a grid number.
std::wstring FirstDigits(std::wstring_view text) {
  text = text.substr(0, std::min(text.find_first_not_of(L"0123456789"), text.size()));
  return std::wstring(text);
}

}  // namespace

// Puts the question together. A comma after the street tells the grammar where the city begins
// ("12 Hill Ave / Glen Burnie", where Glen can be a suffix); one in front of the unit tells where
// the street ends. Of several units the grammar reads the last alone: the others stay with the
// street, and so does whatever else a comma sets apart there.
std::optional<std::wstring> QuestionMaker::Compose(const LabelPiece& street, LineKind kind,
                                                   const std::vector<LabelPiece>& units,
                                                   std::vector<RespelledWords>& respellings) {
  hasUnits_ = !units.empty();
  std::wstring line = Respell(street, kind, respellings);
  const std::wstring delivery = line;
  for (const LabelPiece& unit : units) {
    line += L", " + Respell(unit, LineKind::kUnit, respellings);
  }
  std::optional<std::wstring> question = ComposeLine(line, delivery);
  if (!question && !LetterOfNumber(line).empty()) {
    const std::wstring apart = WithLetterApart(line, respellings);
    question = ComposeLine(apart, apart);
  }
  respellings.insert(respellings.end(), place_.respellings.begin(), place_.respellings.end());
  if (question && question->ends_with(place_.TextWithCity()) && place_.city.empty()) {
    respellings.push_back({AddressRespellingCity, L"", place_.stateCode});
  }
  return question;
}

std::optional<std::wstring> QuestionMaker::ComposeLine(const std::wstring& line,
                                                       const std::wstring& delivery) {
  if (HasCityBehindComma(line, delivery)) {
    return line + L",\n" + place_.Text();
  }
  for (const std::wstring& tried : {line, WithoutCommas(line)}) {
    const std::wstring question = tried + L",\n" + place_.TextWithCity();
    if (Reads(question, delivery)) {
      return question;
    }
  }
  return std::nullopt;
}

// "12 Main St, Austin" above "TX 78701".
bool QuestionMaker::HasCityBehindComma(const std::wstring& line, const std::wstring& delivery) {
  const std::size_t comma = line.rfind(L',');
  return place_.city.empty() && comma != line.npos &&
         Reads(line + L",\n" + place_.Text(), delivery) &&
         LettersAndDigits(info_.city) == LettersAndDigits(line.substr(comma));
}

bool QuestionMaker::Reads(const std::wstring& question, const std::wstring& delivery) {
  constexpr std::size_t kLongestQuestion = 1500;
  if (question.size() >= kLongestQuestion) {
    return false;
  }
  info_ = AddressParser::GetInstance()->Parse(question);
  return !info_.zip.empty() && LettersAndDigits(info_.prefix).empty() &&
         LettersAndDigits(info_.suffix).empty() &&
         LettersAndDigits(info_.zip) == LettersAndDigits(place_.zip) &&
         (place_.city.empty() || ReadsCity()) &&
         info_.streetLine.find(L'\n') == std::wstring::npos &&
         (delivery.empty() || FirstDigits(info_.streetLine) == FirstDigits(delivery)) &&
         (LetterOfNumber(delivery).empty() ||
          (info_.secondaryUnit == L"APT" &&
           info_.secondaryNumber == L"-" + LetterOfNumber(delivery)));
}

// The city as typed. The grammar takes UPPER of UPPER DARBY for a unit and FL of FLAT LICK for a
// floor, where the street has no unit of its own; who knows the cities can put that right.
bool QuestionMaker::ReadsCity() const {
  const std::wstring typed = LettersAndDigits(place_.city);
  const std::wstring read = LettersAndDigits(info_.city);
  return read == typed || (!hasUnits_ && !read.empty() && !info_.secondaryUnit.empty() &&
                           typed.ends_with(read) && typed.front() == info_.secondaryUnit.front());
}

// Where the city begins in a line with everything in it, the parser alone can say.
std::optional<std::wstring> QuestionMaker::ComposeAllInOne(
    const LabelPiece& line, LineKind kind, std::vector<RespelledWords>& respellings) {
  const std::wstring delivery = Respell(line, kind, respellings);
  std::wstring question = delivery + L" " + place_.Text();
  if (!Reads(question, delivery)) {
    const std::wstring apart = WithLetterApart(delivery, respellings);
    question = apart + L" " + place_.Text();
    if (apart == delivery || !Reads(question, apart)) {
      return std::nullopt;
    }
  }
  respellings.insert(respellings.end(), place_.respellings.begin(), place_.respellings.end());
  return question;
}

}  // namespace postwright
