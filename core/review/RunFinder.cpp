#include "core/review/RunFinder.h"

#include "core/parser/Vocabulary.h"
#include "core/review/Digits.h"
#include "core/review/QuestionMaker.h"

#include <postwright/Utils.h>

#include <algorithm>
#include <iterator>

namespace postwright {

using namespace LabelLines;

namespace {

constexpr std::wstring_view kEnds = L" ,.;:";

// The end of `piece` from `at` on, a place in its `typed`.
LabelPiece Behind(std::wstring_view text, LabelPiece piece, std::size_t at) {
  std::size_t place = 0;
  bool blank = false;
  while (place < at && piece.begin < piece.end) {
    const bool isBlank = IsBlank(text[piece.begin]);
    place += isBlank && blank ? 0 : 1;
    blank = isBlank;
    ++piece.begin;
  }
  while (piece.begin < piece.end && IsBlank(text[piece.begin])) {
    ++piece.begin;
  }
  piece.startsLine = piece.startsLine && at == 0;
  return ReadPiece(text, std::move(piece));
}

LabelPiece WithText(LabelPiece piece, const std::wstring& typed) {
  piece.typed = typed;
  piece.upper = Utils::ToUpper(typed);
  return piece;
}

bool IsDelivery(LineKind kind) {
  switch (kind) {
    case LineKind::kHouse:
    case LineKind::kHouseInWords:
    case LineKind::kHouseBehind:
    case LineKind::kBlockHouse:
    case LineKind::kBox:
    case LineKind::kLetteredBox:
    case LineKind::kGeneralDelivery:
    case LineKind::kRoute:
      return true;
    default:
      return false;
  }
}

}  // namespace

std::optional<AddressRun> RunFinder::Find() {
  end_ = pieces_.back().end;
  const std::optional<Place> place = ReadPlace(pieces_);
  if (!place) {
    return std::nullopt;
  }
  place_ = *place;
  LabelPiece first = pieces_[place_.first];
  pieces_.resize(place_.first);
  if (!place_.ahead.empty()) {
    pieces_.push_back(WithText(std::move(first), place_.ahead));
    if (!SplitAhead()) {
      return FindAllInOne();
    }
  }
  return IsMilitary() ? FindMilitary() : FindStreetOrBox();
}

// "PO Box 12 Austin", "Apt 4 Austin", "PSC 12 Box 34 APO" in front of the state: a box, unit or
// military line in the same piece as the city. A street's end cannot be told from a city's
// beginning.
bool RunFinder::SplitAhead() {
  LabelPiece& piece = pieces_.back();
  for (std::size_t blank = piece.typed.rfind(L' '); blank != piece.typed.npos && blank > 0;
       blank = piece.typed.rfind(L' ', blank - 1)) {
    const std::wstring city = piece.typed.substr(blank + 1);
    LabelPiece front = WithText(piece, piece.typed.substr(0, blank));
    const LineKind kind = KindOf(front);
    if (HasDigit(city)) {
      return false;
    }
    if (kind == LineKind::kBox || kind == LineKind::kUnit || kind == LineKind::kMilitary) {
      piece = std::move(front);
      place_.city = city;
      return true;
    }
  }
  return false;
}

bool RunFinder::IsMilitary() const {
  return std::ranges::find(Vocabulary::kMilitaryCities, LettersAndDigits(place_.city)) !=
             std::end(Vocabulary::kMilitaryCities) &&
         std::ranges::find(Vocabulary::kMilitaryStates, place_.stateCode) !=
             std::end(Vocabulary::kMilitaryStates);
}

// The unit's line, or the unit and its box on two.
std::optional<AddressRun> RunFinder::FindMilitary() {
  const auto isUnit = [this](std::size_t at) {
    const LineKind kind = KindOf(pieces_[at]);
    return kind == LineKind::kMilitary ||
           (kind == LineKind::kUnit && pieces_[at].upper.starts_with(L"UNIT"));
  };
  if (pieces_.empty()) {
    return std::nullopt;
  }
  std::size_t at = pieces_.size() - 1;
  std::wstring line(TrimEnd(pieces_[at].typed, kEnds));
  if (KindOf(pieces_[at]) == LineKind::kBox && at > 0 && isUnit(at - 1)) {
    --at;
    const std::wstring unit(TrimEnd(pieces_[at].typed, kEnds));
    if (pieces_[at + 1].startsLine) {
      place_.respellings.push_back(
          {AddressRespellingMilitary, unit + L"\n" + line, unit + L" " + line});
    }
    line = unit + L" " + line;
  } else if (!isUnit(at)) {
    return std::nullopt;
  }
  AddressRun run = RunFrom(at);
  run.question = line + L"\n" + place_.Text();
  run.respellings = place_.respellings;
  if ((!pieces_[at].startsLine && !mayCut_) || !QuestionMaker(place_).Reads(run.question, L"")) {
    return std::nullopt;
  }
  return run;
}

// "12 Main St Austin TX 78701": where the city begins, the parser alone can say.
std::optional<AddressRun> RunFinder::FindAllInOne() {
  const std::size_t at = FindDelivery(pieces_.back());
  if (at == pieces_.back().upper.npos) {
    return std::nullopt;
  }
  if ((at > 0 || !pieces_.back().startsLine) && !mayCut_) {
    return std::nullopt;
  }
  line_ = Behind(text_, pieces_.back(), at);
  const std::wstring rest = pieces_.back().typed.substr(at);
  const LabelPiece piece = WithText(line_, rest);
  AddressRun run = RunFrom(pieces_.size() - 1);
  run.begin = line_.begin;
  const LineKind kind = KindOf(piece);
  if (kind == LineKind::kRoute) {
    run.leftAlone = LeftAloneRuralRoute;
    return run;
  }
  const auto question = QuestionMaker(place_).ComposeAllInOne(piece, kind, run.respellings);
  run.question = question.value_or(L"");
  return question ? std::optional(run) : std::nullopt;
}

std::optional<AddressRun> RunFinder::FindStreetOrBox() {
  if (!FindDeliveryLine() || (!line_.startsLine && !mayCut_)) {
    return std::nullopt;
  }
  if (const LeftAloneReason reason = ReasonToLeave(); reason != LeftAloneNot) {
    AddressRun run = RunFrom(delivery_);
    run.leftAlone = reason;
    return run;
  }
  if (IsDoubtful()) {
    return std::nullopt;
  }
  return Ask();
}

// Walks up from the city, past units and lines that are not part of an address.
bool RunFinder::FindDeliveryLine() {
  constexpr std::size_t kMostLines = 4;
  for (std::size_t step = 0; step < std::min(kMostLines, pieces_.size()); ++step) {
    const std::size_t at = pieces_.size() - 1 - step;
    if (TakeLine(at)) {
      delivery_ = at;
      return true;
    }
    if (kind_ != LineKind::kOther) {
      return false;
    }
  }
  return false;
}

// Takes the line `at`: true for the delivery line. Sets kind_ to something else than kOther where
// the search must end here.
bool RunFinder::TakeLine(std::size_t at) {
  const LabelPiece& piece = pieces_[at];
  const LineKind kind = KindAt(at);
  if (IsDelivery(kind) && (kind != LineKind::kHouseInWords || !HasStreetAbove(at))) {
    kind_ = kind;
    line_ = piece;
    return true;
  }
  if (kind == LineKind::kUnit) {
    units_.insert(units_.begin(), piece);
    return false;
  }
  const bool isName =
      EndsAsCompany(piece.upper) || (!HasDigit(piece.upper) && !EndsAsStreet(piece.upper));
  if (kind == LineKind::kAside || (kind == LineKind::kOther && isName)) {
    between_.insert(between_.begin(), piece);
    return false;
  }
  const std::size_t inside = mayCut_ ? FindDelivery(piece) : piece.upper.npos;
  if (inside == piece.upper.npos) {
    kind_ = kind == LineKind::kOther ? LineKind::kAside : kind;
    return false;
  }
  line_ = Behind(text_, piece, inside);
  kind_ = KindOf(line_);
  return true;
}

// The forms of Puerto Rico are names elsewhere.
LineKind RunFinder::KindAt(std::size_t at) const {
  const LineKind kind = KindOf(pieces_[at]);
  const bool isSpanish = kind == LineKind::kBlockHouse || kind == LineKind::kHouseBehind;
  return isSpanish && place_.stateCode != L"PR" ? LineKind::kOther : kind;
}

// A building's name may begin with a number in words, One Liberty Place: below a street it is none.
bool RunFinder::HasStreetAbove(std::size_t at) const {
  for (std::size_t i = at; i > 0; --i) {
    const LineKind kind = KindAt(i - 1);
    const bool isStreet = kind == LineKind::kHouse && EndsAsStreet(pieces_[i - 1].upper);
    if (isStreet || (kind != LineKind::kHouse && IsDelivery(kind))) {
      return true;
    }
  }
  return false;
}

// A box after its route, on the same line or the next.
bool RunFinder::IsRouteAt(std::size_t at) const {
  const bool isBox = kind_ == LineKind::kBox || kind_ == LineKind::kLetteredBox;
  return kind_ == LineKind::kRoute || (isBox && at > 0 && line_.upper.starts_with(L"BOX") &&
                                       KindOf(pieces_[at - 1]) == LineKind::kRoute);
}

LeftAloneReason RunFinder::ReasonToLeave() const {
  return IsRouteAt(delivery_)                  ? LeftAloneRuralRoute
         : kind_ == LineKind::kLetteredBox     ? LeftAloneBox
         : kind_ == LineKind::kGeneralDelivery ? LeftAloneGeneralDelivery
         : kind_ == LineKind::kBlockHouse      ? LeftAlonePuertoRico
                                               : LeftAloneNot;
}

// A number and a word that is not a street's ("24 Hour Fitness") below something that is one.
bool RunFinder::IsDoubtful() const {
  if (kind_ != LineKind::kHouse || EndsAsStreet(line_.upper)) {
    return false;
  }
  const bool words = std::any_of(between_.begin(), between_.end(), [](const LabelPiece& piece) {
    return KindOf(piece) == LineKind::kOther;
  });
  const std::size_t above = delivery_ == 0 ? pieces_.size() : delivery_ - 1;
  if (words || above == pieces_.size()) {
    return words;
  }
  const LineKind kind = KindOf(pieces_[above]);
  return kind == LineKind::kBox || (kind == LineKind::kHouse && EndsAsStreet(pieces_[above].upper));
}

std::optional<AddressRun> RunFinder::Ask() {
  if (kind_ == LineKind::kBox) {  // the grammar knows no unit after a box
    between_.insert(between_.end(), units_.begin(), units_.end());
    std::sort(
        between_.begin(), between_.end(),
        [](const LabelPiece& left, const LabelPiece& right) { return left.begin < right.begin; });
    units_.clear();
  }
  AddressRun run = RunFrom(delivery_);
  run.begin = line_.begin;
  QuestionMaker maker(place_);
  const std::optional<std::wstring> question = maker.Compose(line_, kind_, units_, run.respellings);
  if (!question) {
    return std::nullopt;
  }
  run.question = *question;
  for (const LabelPiece& piece : between_) {
    run.between.emplace_back(text_.substr(piece.begin, piece.end - piece.begin));
  }
  if (units_.empty() && !maker.ReadsUnit()) {
    TakeUnitAbove(run);
  }
  return run;
}

bool RunFinder::TakeUnitAbove(AddressRun& run) {
  if (kind_ == LineKind::kBox || delivery_ == 0 || line_.begin != pieces_[delivery_].begin ||
      KindOf(pieces_[delivery_ - 1]) != LineKind::kUnit) {
    return false;
  }
  const LabelPiece& unit = pieces_[delivery_ - 1];
  const bool isBuilding = unit.upper.starts_with(L'B');  // as good as a name, above a street
  if (isBuilding || (!unit.startsLine && !mayCut_)) {
    return false;
  }
  units_.push_back(unit);
  std::vector<RespelledWords> respellings;
  QuestionMaker maker(place_);
  const std::optional<std::wstring> question = maker.Compose(line_, kind_, units_, respellings);
  if (!question || !maker.ReadsUnit()) {
    return false;
  }
  const std::wstring street(TrimEnd(line_.typed, kEnds));
  const std::wstring number(TrimEnd(unit.typed, kEnds));
  respellings.insert(respellings.begin(),
                     {AddressRespellingUnitLine, number + L"\n" + street, street + L", " + number});
  run.begin = unit.begin;
  run.question = *question;
  run.respellings = std::move(respellings);
  return true;
}

AddressRun RunFinder::RunFrom(std::size_t at) const {
  AddressRun run;
  run.begin = pieces_[at].begin;
  run.end = end_;
  return run;
}

}  // namespace postwright
