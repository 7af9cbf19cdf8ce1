#include "core/review/ReviewJudge.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>

#include "core/review/Digits.h"
#include "core/review/LineCheck.h"
#include "core/review/PhraseList.h"
#include "core/review/RuleFinder.h"
#include "core/review/WordForms.h"

namespace postwright {

namespace {

bool IsOpen(const AlignedPiece& piece) {
  return piece.match == Match::Unlike || piece.match == Match::OneSided;
}

// Puts together what is judged together: the words of another city or street name, and words that
// were left out or added side by side.
class Judge {
 public:
  Judge(ReadLabel& typed, const ReadLabel& corrected, std::string_view footnotes)
      : typed_(typed),
        corrected_(corrected),
        rules_(typed, corrected, footnotes),
        pieces_(AlignWords(typed.words, corrected.words, corrected.roles)) {}

  std::vector<AlignedPiece> Decide() {
    PlaceLostWords();
    FindCrossings();
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (crossings_[i]) {
        Add(pieces_[i], *crossings_[i]);
      } else if (pieces_[i].match == Match::Form) {
        Add(pieces_[i], pieces_[i].rule);
      } else if (pieces_[i].match != Match::Same) {
        i = AddRun(i);
      }
    }
    JudgeMoves();
    JudgeRoute();
    JudgeAddOn();
    return std::move(changes_);
  }

 private:
  void Add(AlignedPiece piece, CorrectionRule rule) {
    piece.rule = rule;
    changes_.push_back(piece);
  }

  // Returns the last piece of the run that begins with piece `first`.
  std::size_t AddRun(std::size_t first) {
    AlignedPiece run = pieces_[first];
    std::size_t last = first;
    while (IsOpen(pieces_[first]) && last + 1 < pieces_.size() && !crossings_[last + 1] &&
           IsOpen(pieces_[last + 1]) && BelongTogether(run, pieces_[last + 1])) {
      ++last;
      run.typedEnd = pieces_[last].typedEnd;
      run.correctedEnd = pieces_[last].correctedEnd;
    }
    Add(run, rules_.Find(run));
    return last;
  }

  bool BelongTogether(const AlignedPiece& one, const AlignedPiece& next) const {
    const Role role = rules_.RoleOf(one);
    if (role != rules_.RoleOf(next)) {
      return false;
    }
    const bool sameSides =
        one.HasTyped() == next.HasTyped() && one.HasCorrected() == next.HasCorrected();
    const bool isPair = one.HasTyped() && one.HasCorrected();
    return role == Role::City || role == Role::Street || role == Role::State ||
           (sameSides && !isPair);
  }

  // A typed word that was left out has the role of the corrected words around it: its own label may
  // be written in a way in which its delivery line is not known for one.
  void PlaceLostWords() {
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      const std::size_t word = pieces_[i].typedBegin;
      const bool isLost = pieces_[i].HasTyped() && !pieces_[i].HasCorrected();
      if (isLost && typed_.roles[word] == Role::Name && IsBesideStreet(i)) {
        const WordForms& forms = WordForms::Get();
        const std::wstring& text = typed_.words[word].text;
        typed_.roles[word] = !forms.Direction(text).empty() ? Role::Predirectional
                             : !forms.Suffix(text).empty()  ? Role::Suffix
                                                            : Role::Street;
      }
    }
  }
  bool IsBesideStreet(std::size_t lost) const {
    const auto isStreet = [&](const AlignedPiece& piece) {
      return piece.HasTyped() && piece.HasCorrected() &&
             typed_.words[piece.typedBegin].line == typed_.words[pieces_[lost].typedBegin].line &&
             IsDeliveryLine(corrected_.roles[piece.correctedBegin]);
    };
    return (lost > 0 && isStreet(pieces_[lost - 1])) ||
           (lost + 1 < pieces_.size() && isStreet(pieces_[lost + 1]));
  }

  void FindCrossings() {
    const LineCheck check(typed_, corrected_);
    crossings_.resize(pieces_.size());
    const AlignedPiece* before = nullptr;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      const AlignedPiece& piece = pieces_[i];
      if (piece.HasTyped() && piece.HasCorrected() && piece.match != Match::Unread) {
        crossings_[i] = check.Check(before, piece);
        before = &piece;
      }
    }
  }

  // What was lost in one place and added in another went there.
  void JudgeMoves() {
    std::unordered_map<std::wstring, std::size_t> lost;
    for (std::size_t i = 0; i < changes_.size(); ++i) {
      if (changes_[i].HasTyped() && IsDoubt(changes_[i].rule)) {
        lost.emplace(Key(typed_, changes_[i].typedBegin, changes_[i].typedEnd), i);
      }
    }
    if (lost.empty()) {
      return;
    }
    std::vector<bool> isGone(changes_.size(), false);
    for (std::size_t i = 0; i < changes_.size(); ++i) {
      if (!changes_[i].HasCorrected() || !IsDoubt(changes_[i].rule)) {
        continue;
      }
      const auto found =
          lost.find(Key(corrected_, changes_[i].correctedBegin, changes_[i].correctedEnd));
      if (found != lost.end() && found->second != i && !isGone[found->second]) {
        TakeMove(changes_[found->second], changes_[i], isGone, found->second);
      }
    }
    std::size_t i = 0;
    std::erase_if(changes_, [&isGone, &i](const AlignedPiece&) { return isGone[i++]; });
  }

  void TakeMove(const AlignedPiece& from, AlignedPiece& to, std::vector<bool>& isGone,
                std::size_t index) const {
    to.rule = MoveRule(from, to);
    if (!from.HasCorrected() && !to.HasTyped()) {
      to.typedBegin = from.typedBegin;
      to.typedEnd = from.typedEnd;
      isGone[index] = true;
    }
  }

  // A unit that was typed in front of its street or on a line of its own goes after it, or its
  // street in front of it; in Puerto Rico the house number goes in front and the urbanization on
  // its line.
  CorrectionRule MoveRule(const AlignedPiece& from, const AlignedPiece& to) const {
    const Role role = rules_.RoleOf(to);
    const bool isPlain = !from.HasCorrected() && !to.HasTyped();
    const bool isUnit =
        role == Role::Unit ? IsUnit(from) : IsDeliveryLine(role) && IsPlainUnit(from);
    const bool isAtPlace = !IsPlainUnit(from) || EndsUnit(to);
    if (isPlain && ((isUnit && isAtPlace && StandsWithStreet(from)) || GoesBeforeUnit(from, to))) {
      return CorrectionRule::UnitPlace;
    }
    if (isPlain && IsPuertoRico() && (role == Role::Urbanization || role == Role::HouseNumber)) {
      return CorrectionRule::UrbPlace;
    }
    return HasDigit(corrected_.words[to.correctedBegin].text) ? CorrectionRule::NumberMoved
                                                              : CorrectionRule::WordMoved;
  }

  bool IsUnit(const AlignedPiece& change) const {
    const LabelWord& word = typed_.words[change.typedBegin];
    const bool isWhole = change.typedEnd - change.typedBegin > 1 || IsPlainUnit(change);
    return word.afterNumberSign || (isWhole && !WordForms::Get().Unit(word.text).empty());
  }
  // Whether nothing of the delivery line stands after, but for another unit.
  bool EndsUnit(const AlignedPiece& change) const {
    const std::size_t next = change.correctedEnd;
    return next == corrected_.roles.size() || !IsDeliveryLine(corrected_.roles[next]) ||
           !WordForms::Get().Unit(corrected_.words[next].text).empty();
  }
  bool IsPlainUnit(const AlignedPiece& change) const {
    return change.typedEnd - change.typedBegin == 1 &&
           !WordForms::Get().PlainUnit(typed_.words[change.typedBegin].text).empty();
  }

  // Whether a street's word was typed below the line of its unit, and stands in front of it now.
  bool GoesBeforeUnit(const AlignedPiece& from, const AlignedPiece& to) const {
    const std::vector<Role>& roles = corrected_.roles;
    const auto isUnit = [](Role role) { return role == Role::Unit; };
    const auto unit = std::find_if(roles.begin(), roles.end(), isUnit);
    const auto unitEnd = std::find_if_not(unit, roles.end(), isUnit);
    std::size_t line = from.typedBegin;
    while (line > 0 && typed_.words[line - 1].line == typed_.words[from.typedBegin].line) {
      --line;
    }
    std::size_t above = line;
    while (above > 0 && typed_.words[above - 1].line == typed_.words[line - 1].line) {
      --above;
    }
    const auto at = [&roles](auto place) {
      return static_cast<std::size_t>(place - roles.begin());
    };
    const bool unitStays = std::any_of(pieces_.begin(), pieces_.end(), [&](const auto& piece) {
      return piece.HasTyped() && piece.HasCorrected() && piece.correctedEnd > at(unit) &&
             piece.correctedBegin <= at(unit);
    });
    return above < line && unitStays && !IsLastLine(typed_.roles[from.typedBegin]) &&
           at(unit) >= to.correctedEnd && IsDeliveryLine(rules_.RoleOf(to)) &&
           Key(typed_, above, line) == Key(corrected_, at(unit), at(unitEnd));
  }

  // Whether the words have a typed line to themselves, or share it with words of a street.
  bool StandsWithStreet(const AlignedPiece& change) const {
    const std::vector<LabelWord>& words = typed_.words;
    const std::size_t end = change.typedEnd;
    const bool begins = change.typedBegin == 0 ||
                        words[change.typedBegin - 1].line != words[change.typedBegin].line;
    const bool ends = end == words.size() || words[end].line != words[end - 1].line;
    return (begins && ends) || (begins && IsDeliveryLine(typed_.roles[end])) ||
           IsDeliveryLine(typed_.roles[change.typedBegin]);
  }

  bool IsPuertoRico() const {
    for (std::size_t i = 0; i < corrected_.words.size(); ++i) {
      if (corrected_.roles[i] == Role::State) {
        return corrected_.words[i].text == L"PR";
      }
    }
    return false;
  }

  // The words in the form in which they are found again elsewhere.
  static std::wstring Key(const ReadLabel& label, std::size_t begin, std::size_t end) {
    std::wstring key;
    for (std::size_t i = begin; i < end; ++i) {
      const std::wstring& word = label.words[i].text;
      const std::wstring_view unit = WordForms::Get().Unit(word);
      key += unit.empty() ? WithoutSigns(word) : std::wstring(unit);
      key += L' ';
    }
    return key;
  }

  // RR 3 BOX 14 is one address; PO BOX 14 below RR 3 is another.
  void JudgeRoute() {
    for (AlignedPiece& change : changes_) {
      const bool isBox =
          change.rule == CorrectionRule::Box || change.rule == CorrectionRule::LineCut;
      if (isBox && change.HasCorrected() && FollowsRoute(change.correctedBegin)) {
        change.rule = CorrectionRule::RouteLeft;
      }
    }
  }
  bool FollowsRoute(std::size_t box) const {
    if (box < 2 || !HasDigit(corrected_.words[box - 1].text)) {
      return false;
    }
    const std::size_t route = box - 2;
    const std::vector<Phrase> phrases = FindPhrases(corrected_.words, route);
    const bool isRoute = std::any_of(phrases.begin(), phrases.end(), [](const Phrase& phrase) {
      return phrase.words == 1 && phrase.rule == CorrectionRule::Route;
    });
    return corrected_.words[route].line != corrected_.words[box].line && isRoute;
  }

  // An add-on belongs to one address: where that has changed, the add-on goes.
  void JudgeAddOn() {
    const bool hasMoved =
        std::any_of(changes_.begin(), changes_.end(), [this](const AlignedPiece& change) {
          const Role role = rules_.RoleOf(change);
          return change.rule >= CorrectionRule::SpellingOfStreet &&
                 (IsDeliveryLine(role) || role == Role::Zip);
        });
    for (AlignedPiece& change : changes_) {
      if (change.rule == CorrectionRule::Zip4Lost && hasMoved) {
        change.rule = CorrectionRule::Zip4Dropped;
      }
    }
  }

  ReadLabel& typed_;
  const ReadLabel& corrected_;
  RuleFinder rules_;
  std::vector<AlignedPiece> pieces_;
  std::vector<std::optional<CorrectionRule>> crossings_;  // by piece
  std::vector<AlignedPiece> changes_;
};

}  // namespace

std::vector<AlignedPiece> JudgeCorrection(ReadLabel typed, const ReadLabel& corrected,
                                          std::string_view footnotes) {
  return Judge(typed, corrected, footnotes).Decide();
}

}  // namespace postwright
