#include "core/review/LineCheck.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "core/review/WordForms.h"

namespace postwright {

namespace {

// 7-ELEVEN begins as a house number does, but N6W23001 is one.
bool IsName(const std::wstring& word) {
  constexpr std::ptrdiff_t kMostLetters = 3;
  return std::count_if(word.begin(), word.end(), [](wchar_t c) { return c >= L'A'; }) >
         kMostLetters;
}

}  // namespace

std::optional<CorrectionRule> LineCheck::Check(const AlignedPiece* before,
                                               const AlignedPiece& piece) const {
  if (before != nullptr) {
    if (const std::optional<CorrectionRule> doubt = CompareBreak(*before, piece)) {
      return doubt;
    }
  }
  if (IsCutWithin(piece)) {
    return CorrectionRule::LineCut;
  }
  if (LosesUnitSign(piece)) {
    return CorrectionRule::UnitSignLost;
  }
  if (SplitsDirection(piece) || ShortensName(piece)) {
    return CorrectionRule::DirectionalUnexplained;
  }
  if (TakesUnitForSuffix(piece)) {
    return CorrectionRule::SuffixUnexplained;
  }
  return std::nullopt;
}

// A line break that is gone or new is fine where addresses are written so; elsewhere a word is on
// another line than it was typed on.
std::optional<CorrectionRule> LineCheck::CompareBreak(const AlignedPiece& before,
                                                      const AlignedPiece& piece) const {
  const std::vector<LabelWord>& typed = typed_.words;
  const std::vector<LabelWord>& corrected = corrected_.words;
  const bool wasBroken = typed[before.typedEnd - 1].line != typed[piece.typedBegin].line;
  const bool isBroken =
      corrected[before.correctedEnd - 1].line != corrected[piece.correctedBegin].line;
  if (wasBroken && !isBroken && !MayJoin(before, piece)) {
    return CorrectionRule::WordCrossed;
  }
  if (!wasBroken && isBroken && !MayCut(before, piece)) {
    return CorrectionRule::LineCut;
  }
  return std::nullopt;
}

// D7 on one line that is D and 7 on two.
bool LineCheck::IsCutWithin(const AlignedPiece& piece) const {
  const auto isOneLine = [](const ReadLabel& label, std::size_t begin, std::size_t end) {
    return label.words[begin].line == label.words[end - 1].line;
  };
  return isOneLine(typed_, piece.typedBegin, piece.typedEnd) &&
         !isOneLine(corrected_, piece.correctedBegin, piece.correctedEnd);
}

// # 4 after a street is a unit; 4 alone may be anything.
bool LineCheck::LosesUnitSign(const AlignedPiece& piece) const {
  const std::size_t at = piece.correctedBegin;
  if (!typed_.words[piece.typedBegin].afterNumberSign || corrected_.words[at].afterNumberSign ||
      !IsDeliveryLine(corrected_.roles[at]) || corrected_.roles[at] == Role::HouseNumber ||
      corrected_.roles[at] == Role::Box || at == 0) {
    return false;
  }
  const std::wstring& before = corrected_.words[at - 1].text;
  const std::wstring_view type = WordForms::Get().Suffix(before);
  return WordForms::Get().Unit(before).empty() && type != L"HWY" && type != L"RTE";
}

// NORTH EAST COURT HOUSE WAY is in the northeast; N EAST COURT HOUSE WAY is in the north.
bool LineCheck::SplitsDirection(const AlignedPiece& piece) const {
  if (piece.match != Match::Form || piece.rule != CorrectionRule::Directional ||
      piece.typedEnd - piece.typedBegin != 1) {
    return false;
  }
  const std::size_t at = piece.correctedBegin;
  const bool inFront = corrected_.roles[at] == Role::Predirectional &&
                       IsOneDirection(piece.typedBegin) && at + 2 < corrected_.roles.size() &&
                       corrected_.roles[at + 1] == Role::Street &&
                       corrected_.roles[at + 2] == Role::Street;
  const bool behind = corrected_.roles[at] == Role::Postdirectional && piece.typedBegin > 0 &&
                      IsOneDirection(piece.typedBegin - 1);
  return inFront || behind;
}

// WEST LN is a street of that name; W LN may be another, as E ST is.
bool LineCheck::ShortensName(const AlignedPiece& piece) const {
  const std::size_t at = piece.correctedBegin;
  const std::vector<Role>& roles = corrected_.roles;
  return piece.match == Match::Form && piece.rule == CorrectionRule::Directional &&
         piece.typedEnd - piece.typedBegin == 1 && roles[at] == Role::Street &&
         corrected_.words[at].text.size() < typed_.words[piece.typedBegin].text.size() &&
         (at == 0 || roles[at - 1] != Role::Street) && at + 1 < roles.size() &&
         roles[at + 1] == Role::Suffix;
}

// MILL CT KEY # 3 is a unit of MILL CT, not a MILL COURT KY.
bool LineCheck::TakesUnitForSuffix(const AlignedPiece& piece) const {
  const std::size_t at = piece.typedBegin;
  const std::size_t next = piece.typedEnd;
  const WordForms& forms = WordForms::Get();
  return corrected_.roles[piece.correctedBegin] == Role::Suffix && at > 0 &&
         typed_.words[at - 1].line == typed_.words[at].line && next < typed_.words.size() &&
         typed_.words[next].afterNumberSign && !forms.NumberedUnit(typed_.words[at].text).empty() &&
         !forms.Suffix(typed_.words[at - 1].text).empty();
}

// Whether the typed word and the next one are one direction in two words.
bool LineCheck::IsOneDirection(std::size_t first) const {
  if (first + 1 >= typed_.words.size() ||
      typed_.words[first].line != typed_.words[first + 1].line) {
    return false;
  }
  const WordForms& forms = WordForms::Get();
  const std::wstring_view one = forms.Direction(typed_.words[first].text);
  const std::wstring_view other = forms.Direction(typed_.words[first + 1].text);
  const std::wstring both = std::wstring(one) + std::wstring(other);
  return one.size() == 1 && other.size() == 1 && !forms.Direction(both).empty();
}

// Whether two typed lines may be one line of an address.
bool LineCheck::MayJoin(const AlignedPiece& before, const AlignedPiece& piece) const {
  const Role left = corrected_.roles[before.correctedEnd - 1];
  const Role right = corrected_.roles[piece.correctedBegin];
  if (IsLastLine(left) && IsLastLine(right)) {
    return IsLineOf(before.typedEnd - 1, Role::City) ||
           (left != right && !(left == Role::City && BeginsAsStreetEnds(before.correctedEnd - 1)));
  }
  const LabelWord& word = corrected_.words[piece.correctedBegin];
  if (IsDeliveryLine(left) && typed_.roles[piece.typedBegin] != Role::City &&
      !WordForms::Get().PlainUnit(word.text).empty() && IsAloneOnLine(piece.typedBegin)) {
    return true;  // REAR below a street without a suffix
  }
  const bool isNumbered = !WordForms::Get().NumberedUnit(word.text).empty() || word.afterNumberSign;
  if (right == Role::Unit && typed_.roles[piece.typedBegin] == Role::City && !isNumbered) {
    return false;  // UPPER SANDUSKY is a city, not a unit UPPR with a city SANDUSKY
  }
  if (right == Role::Unit) {
    return left != Role::Unit || !WordForms::Get().Unit(word.text).empty() || word.afterNumberSign;
  }
  const bool isNumberAlone = left == Role::HouseNumber && right != Role::HouseNumber &&
                             !IsName(corrected_.words[before.correctedEnd - 1].text) &&
                             IsAloneOnLine(before.typedEnd - 1);
  return isNumberAlone || (left == Role::Box && right == Role::Box && word.text == L"BOX");
}

// Whether a typed line may be two lines of the corrected text.
bool LineCheck::MayCut(const AlignedPiece& before, const AlignedPiece& piece) const {
  const Role left = corrected_.roles[before.correctedEnd - 1];
  const Role right = corrected_.roles[piece.correctedBegin];
  if (IsLastLine(left)) {
    return !IsLastLine(right);
  }
  if (typed_.words[piece.typedBegin].afterComma) {
    return true;
  }
  if (IsDeliveryLine(left) || left == Role::Urbanization) {
    const std::vector<Role>& roles = corrected_.roles;
    const bool hasCity = std::find(roles.begin(), roles.end(), Role::City) != roles.end();
    return (IsLastLine(right) && hasCity) || right == Role::Urbanization;
  }
  // In a label of one line nothing separates the name from the street. But PO, HC or BOX is no
  // name.
  static constexpr std::wstring_view kLeaders[] = {L"PO", L"O",   L"OFFICE", L"BOX",   L"HC",
                                                   L"RR", L"R",   L"RFD",    L"ROUTE", L"RTE",
                                                   L"C",  L"HCR", L"NO",     L"POB"};
  const std::wstring& last = corrected_.words[before.correctedEnd - 1].text;
  return (right == Role::HouseNumber || right == Role::Box) &&
         typed_.words.front().line == typed_.words.back().line &&
         std::find(std::begin(kLeaders), std::end(kLeaders), last) == std::end(kLeaders);
}

// Whether the city begins with a word that may as well end its street: PARKWAY, N.
bool LineCheck::BeginsAsStreetEnds(std::size_t city) const {
  while (city > 0 && corrected_.roles[city - 1] == Role::City) {
    --city;
  }
  return WordForms::Get().IsStreetWord(corrected_.words[city].text);
}

bool LineCheck::IsAloneOnLine(std::size_t i) const {
  const std::vector<LabelWord>& words = typed_.words;
  return (i == 0 || words[i - 1].line != words[i].line) &&
         (i + 1 == words.size() || words[i + 1].line != words[i].line);
}

// Whether the typed line that ends with word `last` holds nothing but words of that role.
bool LineCheck::IsLineOf(std::size_t last, Role role) const {
  const std::vector<LabelWord>& words = typed_.words;
  for (std::size_t i = last + 1; i > 0 && words[i - 1].line == words[last].line; --i) {
    if (typed_.roles[i - 1] != role) {
      return false;
    }
  }
  return true;
}

}  // namespace postwright
