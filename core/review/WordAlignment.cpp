#include "core/review/WordAlignment.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "core/review/Digits.h"
#include "core/review/PhraseList.h"

namespace postwright {

namespace {

constexpr std::size_t kMostCells = 257 * 257;
constexpr std::size_t kLongestRead = 64;  // letters of a word that is looked into
constexpr std::size_t kMargin = 4;
constexpr std::size_t kMostJoined = 4;  // words that may be written in one

// What it costs to leave a piece so. A pair of unlike words is dearer than a form of any length and
// a little cheaper than a word lost and another added.
constexpr std::uint32_t kFormCost = 2;
constexpr std::uint32_t kSpellingCost = 3;
constexpr std::uint32_t kMayFormCost = 4;
constexpr std::uint32_t kUnlikeCost = 11;
constexpr std::uint32_t kOneSidedCost = 6;
constexpr std::uint32_t kOneSidedNumberCost = 7;  // words move sooner than numbers

struct Step {
  std::uint32_t cost = UINT32_MAX;
  std::uint8_t typed = 0;  // how many words of each text the step takes
  std::uint8_t corrected = 0;
  Match match = Match::Unlike;
  CorrectionRule rule = CorrectionRule::Word;
};

// What is known of a word before it is aligned.
struct KnownWord {
  std::size_t id = 0;                // the same for the same text
  std::optional<ComparedWord> word;  // of one that is not too long to be looked into
  std::vector<Phrase> phrases;
};

class WordAligner {
 public:
  WordAligner(const std::vector<LabelWord>& typed, const std::vector<LabelWord>& corrected,
              const std::vector<Role>& roles)
      : typed_(typed), corrected_(corrected), roles_(roles) {}

  std::vector<AlignedPiece> Align() {
    PassEqualEnds();
    const std::size_t typed = typedEnd_ - begin_;
    const std::size_t corrected = correctedEnd_ - begin_;
    for (std::size_t i = 0; i < begin_; ++i) {
      Take(1, 1, Match::Same, {});
    }
    if (typed == 0 || corrected == 0) {
      TakeOneSided(typed, corrected);
    } else if (typed + 1 > kMostCells / (corrected + 1)) {
      Take(typed, corrected, Match::Unread, CorrectionRule::TooLong);
    } else {
      Know();
      FillTable();
      FollowTable();
    }
    while (at_ < corrected_.size()) {
      Take(1, 1, Match::Same, {});
    }
    return std::move(pieces_);
  }

 private:
  void PassEqualEnds() {
    typedEnd_ = typed_.size();
    correctedEnd_ = corrected_.size();
    while (begin_ < std::min(typedEnd_, correctedEnd_) &&
           typed_[begin_].text == corrected_[begin_].text) {
      ++begin_;
    }
    while (typedEnd_ > begin_ && correctedEnd_ > begin_ &&
           typed_[typedEnd_ - 1].text == corrected_[correctedEnd_ - 1].text) {
      --typedEnd_;
      --correctedEnd_;
    }
    // A phrase may begin or end with words that are equal: BOX and PO BOX.
    const std::size_t margin = begin_ < std::max(typedEnd_, correctedEnd_) ? kMargin : 0;
    begin_ -= std::min(begin_, margin);
    const std::size_t behind = std::min(typed_.size() - typedEnd_, margin);
    typedEnd_ += behind;
    correctedEnd_ += behind;
  }

  void Take(std::size_t typed, std::size_t corrected, Match match, CorrectionRule rule) {
    const std::size_t typedAt = pieces_.empty() ? 0 : pieces_.back().typedEnd;
    pieces_.push_back({typedAt, typedAt + typed, at_, at_ + corrected, match, rule});
    at_ += corrected;
  }
  void TakeOneSided(std::size_t typed, std::size_t corrected) {
    for (std::size_t i = 0; i < typed; ++i) {
      Take(1, 0, Match::OneSided, {});
    }
    for (std::size_t i = 0; i < corrected; ++i) {
      Take(0, 1, Match::OneSided, {});
    }
  }

  void Know() {
    std::unordered_map<std::wstring_view, std::size_t> ids;
    const auto know = [&ids](const std::vector<LabelWord>& words, std::size_t i) {
      const std::wstring& text = words[i].text;
      KnownWord word;
      word.id = ids.emplace(text, ids.size()).first->second;
      if (text.size() <= kLongestRead) {
        word.word.emplace(text);
      }
      return word;
    };
    for (std::size_t i = begin_; i < typedEnd_; ++i) {
      knownTyped_.push_back(know(typed_, i));
      knownTyped_.back().phrases = PhrasesAt(typed_, i, typedEnd_);
    }
    for (std::size_t j = begin_; j < correctedEnd_; ++j) {
      knownCorrected_.push_back(know(corrected_, j));
      if (roles_[j] != Role::Name) {
        knownCorrected_.back().phrases = PhrasesAt(corrected_, j, correctedEnd_);
      }
    }
  }

  static std::vector<Phrase> PhrasesAt(const std::vector<LabelWord>& words, std::size_t at,
                                       std::size_t end) {
    std::vector<Phrase> phrases;
    if (words[at].text.size() <= kLongestRead) {
      phrases = FindPhrases(words, at);
      std::erase_if(phrases, [at, end](const Phrase& phrase) { return at + phrase.words > end; });
    }
    return phrases;
  }

  // The table holds for each pair of places the cheapest step that leads there.
  Step& Cell(std::size_t i, std::size_t j) { return table_[i * (knownCorrected_.size() + 1) + j]; }

  void FillTable() {
    table_.assign((knownTyped_.size() + 1) * (knownCorrected_.size() + 1), Step());
    Cell(0, 0).cost = 0;
    for (std::size_t i = 0; i <= knownTyped_.size(); ++i) {
      for (std::size_t j = 0; j <= knownCorrected_.size(); ++j) {
        StepFrom(i, j);
      }
    }
  }

  void Reach(std::size_t i, std::size_t j, std::size_t typed, std::size_t corrected,
             std::uint32_t cost, Match match, CorrectionRule rule) {
    if (i + typed > knownTyped_.size() || j + corrected > knownCorrected_.size()) {
      return;
    }
    Step& to = Cell(i + typed, j + corrected);
    const std::uint32_t whole = Cell(i, j).cost + cost;
    if (whole < to.cost) {
      to = {whole, static_cast<std::uint8_t>(typed), static_cast<std::uint8_t>(corrected), match,
            rule};
    }
  }

  static std::uint32_t OneSidedCost(const KnownWord& word) {
    return word.word && word.word->hasDigit ? kOneSidedNumberCost : kOneSidedCost;
  }

  void StepFrom(std::size_t i, std::size_t j) {
    if (i < knownTyped_.size()) {
      Reach(i, j, 1, 0, OneSidedCost(knownTyped_[i]), Match::OneSided, {});
    }
    if (j < knownCorrected_.size()) {
      Reach(i, j, 0, 1, OneSidedCost(knownCorrected_[j]), Match::OneSided, {});
    }
    if (i == knownTyped_.size() || j == knownCorrected_.size()) {
      return;
    }
    const KnownWord& typed = knownTyped_[i];
    const KnownWord& corrected = knownCorrected_[j];
    if (typed.id == corrected.id) {
      Reach(i, j, 1, 1, 0, Match::Same, {});
    } else if (!typed.word || !corrected.word) {
      Reach(i, j, 1, 1, kUnlikeCost, Match::Unlike, {});
    } else {
      if (MayStandFor(typed_[begin_ + i].text, typed.word->hasDigit == corrected.word->hasDigit,
                      roles_[begin_ + j])) {
        Reach(i, j, 1, 1, kUnlikeCost, Match::Unlike, {});
      }
      StepOverForm(i, j);
      StepOverJoined(i, j);
    }
    StepOverPhrases(i, j);
  }

  void StepOverPhrases(std::size_t i, std::size_t j) {
    const KnownWord& typed = knownTyped_[i];
    const KnownWord& corrected = knownCorrected_[j];
    const bool isBehindPo = begin_ + j > 0 && corrected_[begin_ + j - 1].text == L"PO";
    for (const Phrase& before : typed.phrases) {
      for (const Phrase& after : corrected.phrases) {
        if (!Fits(before, after, roles_[begin_ + j]) ||
            (isBehindPo && after.rule == CorrectionRule::Box)) {
          continue;
        }
        if (MeanTheSame(before, after)) {
          Reach(i, j, before.words, after.words, kFormCost, Match::Form, before.rule);
        } else if (MayMeanTheSame(before, after)) {
          Reach(i, j, before.words, after.words, kMayFormCost, Match::MayForm, before.rule);
        }
      }
    }
  }

  // Says whether a word that is unlike the corrected one may stand in its place at all.
  static bool MayStandFor(const std::wstring& typed, bool alike, Role role) {
    constexpr std::size_t kZipDigits = 5;
    constexpr std::size_t kAddOnDigits = 4;
    if (role == Role::Zip || role == Role::Zip4) {
      return IsNumber(typed) && typed.size() == (role == Role::Zip ? kZipDigits : kAddOnDigits);
    }
    return alike;
  }

  // Says whether a phrase may stand where the corrected one does.
  static bool Fits(const Phrase& before, const Phrase& after, Role role) {
    if (before.rule != after.rule) {
      return false;
    }
    switch (after.rule) {
      case CorrectionRule::State:
        return role == Role::State;
      case CorrectionRule::Route:
      case CorrectionRule::Box:
        return role == Role::Box;
      case CorrectionRule::Highway:
        return IsDeliveryLine(role) && role != Role::HouseNumber && !after.odd;
      case CorrectionRule::Directional:
        return before.words != after.words && (IsDeliveryLine(role) || role == Role::City);
      default:
        return IsDeliveryLine(role);
    }
  }

  // Two words that are one word written differently.
  void StepOverForm(std::size_t i, std::size_t j) {
    const std::optional<WordMatch> likeness =
        FindLikeness(*knownTyped_[i].word, *knownCorrected_[j].word, roles_[begin_ + j]);
    if (likeness) {
      const std::uint32_t cost = likeness->match == Match::Same   ? 0
                                 : likeness->match == Match::Form ? kFormCost
                                                                  : kSpellingCost;
      Reach(i, j, 1, 1, cost, likeness->match, likeness->rule);
    }
  }

  // Words that are written in one on the other side: MAC ARTHUR, P O, N6 W23001. Two numbers that
  // become one are another number.
  void StepOverJoined(std::size_t i, std::size_t j) {
    const Role role = roles_[begin_ + j];
    std::wstring before = knownTyped_[i].word->plain;
    std::wstring after = knownCorrected_[j].word->plain;
    std::size_t typed = 1;
    std::size_t corrected = 1;
    while (before != after) {
      const bool growTyped = after.starts_with(before);
      if ((!growTyped && !before.starts_with(after)) || typed + corrected > kMostJoined ||
          !Grow(growTyped ? knownTyped_ : knownCorrected_, growTyped ? i + typed : j + corrected,
                growTyped ? before : after)) {
        return;
      }
      ++(growTyped ? typed : corrected);
    }
    if (typed + corrected == 2) {
      return;
    }
    if (role == Role::Name ||
        IsGlued(typed_, begin_ + i, typed, corrected_, begin_ + j, corrected)) {
      Reach(i, j, typed, corrected, 1, Match::Same, {});  // P.O. and PO
    } else if (role != Role::Zip && role != Role::Zip4) {
      Reach(i, j, typed, corrected, kFormCost, Match::Form, CorrectionRule::Spacing);
    }
  }

  // Whether punctuation alone separates the words of either side.
  static bool IsGlued(const std::vector<LabelWord>& typed, std::size_t i, std::size_t typedCount,
                      const std::vector<LabelWord>& corrected, std::size_t j,
                      std::size_t correctedCount) {
    const auto isGlued = [](const LabelWord& word) { return word.isGlued && !HasDigit(word.text); };
    const auto inTyped = typed.begin() + static_cast<std::ptrdiff_t>(i);
    const auto inCorrected = corrected.begin() + static_cast<std::ptrdiff_t>(j);
    return !HasDigit(inTyped->text) && !HasDigit(inCorrected->text) &&
           std::all_of(inTyped + 1, inTyped + static_cast<std::ptrdiff_t>(typedCount), isGlued) &&
           std::all_of(inCorrected + 1, inCorrected + static_cast<std::ptrdiff_t>(correctedCount),
                       isGlued);
  }

  static bool Grow(const std::vector<KnownWord>& words, std::size_t next, std::wstring& text) {
    if (next >= words.size() || !words[next].word || words[next].word->plain.empty() ||
        (IsDigit(text.empty() ? L' ' : text.back()) && IsDigit(words[next].word->plain.front()))) {
      return false;
    }
    text += words[next].word->plain;
    return true;
  }

  void FollowTable() {
    std::vector<Step> steps;
    for (std::size_t i = knownTyped_.size(), j = knownCorrected_.size(); i > 0 || j > 0;) {
      steps.push_back(Cell(i, j));
      i -= steps.back().typed;
      j -= steps.back().corrected;
    }
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
      Take(step->typed, step->corrected, step->match, step->rule);
    }
  }

  const std::vector<LabelWord>& typed_;
  const std::vector<LabelWord>& corrected_;
  const std::vector<Role>& roles_;
  std::size_t begin_ = 0;  // the stretch that differs
  std::size_t typedEnd_ = 0;
  std::size_t correctedEnd_ = 0;
  std::vector<KnownWord> knownTyped_;  // of that stretch
  std::vector<KnownWord> knownCorrected_;
  std::vector<Step> table_;
  std::size_t at_ = 0;
  std::vector<AlignedPiece> pieces_;
};

}  // namespace

std::vector<AlignedPiece> AlignWords(const std::vector<LabelWord>& typed,
                                     const std::vector<LabelWord>& corrected,
                                     const std::vector<Role>& roles) {
  return WordAligner(typed, corrected, roles).Align();
}

}  // namespace postwright
