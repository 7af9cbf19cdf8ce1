#include "core/review/PhraseList.h"

#include <algorithm>
#include <iterator>

#include "core/review/Digits.h"
#include "core/review/WordForms.h"

namespace postwright {

namespace {

constexpr std::size_t kLongestPhrase = 5;

struct PhraseRow {
  const wchar_t* written;
  const wchar_t* meaning;
  CorrectionRule rule;
};

// USPS Publication 28: 24 (rural routes), 25 (highway contract routes), 26 (general delivery),
// 28 (post-office boxes) and 284 (private mailboxes).
constexpr PhraseRow kPhrases[] = {
    {L"PO BOX", L"PO BOX", CorrectionRule::Box},
    {L"P O BOX", L"PO BOX", CorrectionRule::Box},
    {L"POST OFFICE BOX", L"PO BOX", CorrectionRule::Box},
    {L"POB", L"PO BOX", CorrectionRule::Box},
    {L"POBOX", L"PO BOX", CorrectionRule::Box},
    {L"BOX", L"PO BOX", CorrectionRule::Box},
    {L"CALLER", L"PO BOX", CorrectionRule::Box},
    {L"FIRM CALLER", L"PO BOX", CorrectionRule::Box},
    {L"BIN", L"PO BOX", CorrectionRule::Box},
    {L"LOCKBOX", L"PO BOX", CorrectionRule::Box},
    {L"LOCK BOX", L"PO BOX", CorrectionRule::Box},
    {L"DRAWER", L"PO BOX", CorrectionRule::Box},
    {L"PO DRAWER", L"PO BOX", CorrectionRule::Box},
    {L"PRIVATE MAILBOX", L"PMB", CorrectionRule::Unit},
    {L"PRIVATE MAIL BOX", L"PMB", CorrectionRule::Unit},
    {L"PMB", L"PMB", CorrectionRule::Unit},
    {L"RR", L"RR", CorrectionRule::Route},
    {L"R R", L"RR", CorrectionRule::Route},
    {L"RURAL ROUTE", L"RR", CorrectionRule::Route},
    {L"RURAL RT", L"RR", CorrectionRule::Route},
    {L"RURAL RTE", L"RR", CorrectionRule::Route},
    {L"RURAL DELIVERY", L"RR", CorrectionRule::Route},
    {L"RFD", L"RR", CorrectionRule::Route},
    {L"RFD ROUTE", L"RR", CorrectionRule::Route},
    {L"RD", L"RR", CorrectionRule::Route},
    {L"ROUTE", L"RR", CorrectionRule::Route},
    {L"RTE", L"RR", CorrectionRule::Route},
    {L"RT", L"RR", CorrectionRule::Route},
    {L"HC", L"HC", CorrectionRule::Route},
    {L"H C", L"HC", CorrectionRule::Route},
    {L"HCR", L"HC", CorrectionRule::Route},
    {L"HC ROUTE", L"HC", CorrectionRule::Route},
    {L"HIGHWAY CONTRACT", L"HC", CorrectionRule::Route},
    {L"HIGHWAY CONTRACT ROUTE", L"HC", CorrectionRule::Route},
    {L"STAR ROUTE", L"HC", CorrectionRule::Route},
    {L"GENERAL DELIVERY", L"GENERAL DELIVERY", CorrectionRule::Box},
    {L"GEN DELIVERY", L"GENERAL DELIVERY", CorrectionRule::Box},
    {L"GD", L"GENERAL DELIVERY", CorrectionRule::Box},
};

// The words of a highway's name (appendix F) with what they say of it: which kind it is, or, "",
// nothing.
constexpr std::pair<const wchar_t*, const wchar_t*> kHighwayWords[] = {
    {L"INTERSTATE", L"I"}, {L"I", L"I"},       {L"IH", L"I"},          {L"US", L"US"},
    {L"U", L"US"},         {L"S", L"US"},      {L"STATE", L"STATE"},   {L"ST", L"STATE"},
    {L"SR", L"STATE"},     {L"SH", L"STATE"},  {L"COUNTY", L"COUNTY"}, {L"CNTY", L"COUNTY"},
    {L"CO", L"COUNTY"},    {L"CR", L"COUNTY"}, {L"CH", L"COUNTY"},     {L"TOWNSHIP", L"TWP"},
    {L"TWP", L"TWP"},      {L"TSR", L"TWP"},   {L"FM", L"FM"},         {L"FARM", L"FM"},
    {L"TO", L"FM"},        {L"MARKET", L"FM"}, {L"RANCH", L"RANCH"},   {L"RM", L"RANCH"}};

bool IsHighwayType(std::wstring_view word) {
  const std::wstring_view suffix = WordForms::Get().Suffix(word);
  return suffix == L"HWY" || suffix == L"RTE" || suffix == L"RD" || word == L"RT";
}

// What the word says of the highway's kind; nullptr for a word that is none of a highway's.
const wchar_t* HighwayKind(std::wstring_view word) {
  for (const auto& [written, kind] : kHighwayWords) {
    if (word == written) {
      return kind;
    }
  }
  if (IsHighwayType(word)) {
    return L"";
  }
  return WordForms::Get().State(word).empty() ? nullptr : L"STATE";
}

// Whether words are in no order in which a highway's name is written: a word twice, a type in front
// of its kind, or none where the kind needs one. A state may come first.
bool IsOddHighway(const std::vector<LabelWord>& words, std::size_t begin, std::size_t end) {
  static constexpr std::wstring_view kNeedType[] = {L"STATE",    L"ST",  L"COUNTY", L"CNTY",
                                                    L"TOWNSHIP", L"TWP", L"RANCH"};
  std::wstring_view kind;
  bool hasType = false;
  bool needsType = false;
  for (std::size_t i = begin; i < end; ++i) {
    const std::wstring& word = words[i].text;
    const wchar_t* const known = HighwayKind(word);
    if (known == nullptr) {
      break;  // its number
    }
    const std::wstring_view said = known;
    const bool isOfSeveral =
        (said == L"FM" && (kind == L"FM" || kind == L"RANCH")) || (said == L"US" && kind == said);
    if (hasType || (i > begin && word == words[i - 1].text) ||
        (!said.empty() && !kind.empty() && !isOfSeveral)) {
      return true;
    }
    hasType = said.empty();
    needsType = std::ranges::find(kNeedType, word) != std::end(kNeedType);
    const bool isStateName = i == begin && !WordForms::Get().State(word).empty();
    kind = isStateName || hasType ? kind : said;
  }
  return needsType && !hasType;
}

bool IsNoise(const LabelWord& word) {
  return word.text == L"NO" || word.text == L"NUM" || word.text == L"NUMBER" || word.text == L"NR";
}

class PhraseFinder {
 public:
  PhraseFinder(const std::vector<LabelWord>& words, std::size_t at) : words_(words), at_(at) {}

  std::vector<Phrase> Find() {
    FindListed();
    FindUnits();
    FindNames();
    FindNumbers();
    FindHighway();
    return std::move(found_);
  }

 private:
  std::size_t Left() const { return std::min(words_.size() - at_, kLongestPhrase); }
  const std::wstring& Text(std::size_t i) const { return words_[at_ + i].text; }

  void Add(std::size_t words, std::wstring meaning, CorrectionRule rule, bool vague = false) {
    found_.push_back({words, std::move(meaning), rule, vague});
  }

  void FindListed() {
    std::wstring run;
    for (std::size_t i = 0; i < Left(); ++i) {
      run += (i == 0 ? L"" : L" ") + Text(i);
      for (const PhraseRow& row : kPhrases) {
        if (run == row.written) {
          Add(i + 1, row.meaning, row.rule);
          if (i + 1 < Left() && IsNoise(words_[at_ + i + 1])) {
            Add(i + 2, row.meaning, row.rule);
          }
        }
      }
    }
  }

  // A designator and its number: SUITE NO 5, APT4B, 2ND FLOOR.
  void FindUnits() {
    const WordForms& forms = WordForms::Get();
    const std::wstring_view unit = forms.NumberedUnit(Text(0));
    if (!unit.empty() && Left() > 1) {
      const std::size_t value = Left() > 2 && IsNoise(words_[at_ + 1]) ? 2 : 1;
      AddUnit(value + 1, unit, Text(value));
    }
    const std::size_t digit = Text(0).find_first_of(L"0123456789");
    if (digit != std::wstring::npos && digit > 0) {
      std::wstring_view glued = std::wstring_view(Text(0)).substr(0, digit);
      glued = glued.ends_with(L'-') ? glued.substr(0, glued.size() - 1) : glued;
      AddUnit(1, forms.NumberedUnit(glued), std::wstring_view(Text(0)).substr(digit));
    }
    const std::wstring number = forms.Number(Text(0));
    if (Left() > 1 && number.size() > 2 && forms.NumberedUnit(Text(1)) == L"FL") {
      AddUnit(2, L"FL", number.substr(0, number.find_first_not_of(L"0123456789")));
    }
  }
  void AddUnit(std::size_t words, std::wstring_view unit, std::wstring_view value) {
    if (!unit.empty() && !value.empty()) {
      const std::wstring number = WordForms::Get().Number(value);
      Add(words, std::wstring(unit) + L" " + WithoutSigns(number.empty() ? value : number),
          CorrectionRule::Unit);
    }
  }

  // States of several words, and directions.
  void FindNames() {
    const WordForms& forms = WordForms::Get();
    std::wstring letters;
    for (std::size_t i = 0; i < Left(); ++i) {
      letters += Text(i);
      if (const std::wstring_view state = forms.State(letters); !state.empty()) {
        Add(i + 1, L"STATE OF " + std::wstring(state), CorrectionRule::State);
      }
    }
    const std::wstring_view first = forms.Direction(Text(0));
    if (first.empty()) {
      return;
    }
    Add(1, L"TO THE " + std::wstring(first), CorrectionRule::Directional);
    const std::wstring_view second = Left() > 1 ? forms.Direction(Text(1)) : std::wstring_view();
    const std::wstring both = std::wstring(first) + std::wstring(second);
    if (first.size() == 1 && second.size() == 1 && !forms.Direction(both).empty()) {
      Add(2, L"TO THE " + both, CorrectionRule::Directional);
    }
  }

  // TWENTY FIRST and 21ST.
  void FindNumbers() {
    const WordForms& forms = WordForms::Get();
    for (std::size_t count = 1; count <= std::min<std::size_t>(Left(), 2); ++count) {
      const std::wstring number = forms.Number(count == 1 ? Text(0) : Text(0) + Text(1));
      if (!number.empty() && (count == 1 || !HasDigit(Text(0)))) {
        Add(count, L"NUMBER " + number, CorrectionRule::Number);
      }
    }
  }

  // Words of a highway's name and its number or letter after them; I-10 in one.
  void FindHighway() {
    std::wstring_view kind;
    for (std::size_t i = 0; i < Left(); ++i) {
      const std::wstring_view word = Text(i);
      if (words_[at_ + i].afterNumberSign || (i > 0 && words_[at_ + i].afterComma)) {
        return;  // a unit, or a city: Mill Road, O Brien
      }
      const std::size_t digit = word.find_first_of(L"0123456789");
      if (digit != std::wstring_view::npos) {
        std::wstring_view glued = word.substr(0, digit);
        glued = glued.ends_with(L'-') ? glued.substr(0, glued.size() - 1) : glued;
        const wchar_t* const said = glued.empty() ? L"" : HighwayKind(glued);
        if (said != nullptr && (i > 0 || !glued.empty())) {
          AddHighway(i + 1, Stronger(kind, said), word.substr(digit));
          AddHighwayWithDirection(i + 1, Stronger(kind, said), word.substr(digit));
        }
        return;
      }
      const wchar_t* const said = HighwayKind(word);
      if (i > 0 && word.size() <= 2 && IsHighwayType(Text(i - 1)) && said == nullptr) {
        AddHighway(i + 1, kind, word);  // COUNTY ROAD EE
      }
      if (said == nullptr) {
        return;
      }
      kind = Stronger(kind, said);
    }
  }
  static std::wstring_view Stronger(std::wstring_view before, std::wstring_view now) {
    const bool keeps = now.empty() || before == L"COUNTY" || before == L"I" || before == L"FM";
    return before.empty() || !keeps ? now : before;
  }
  void AddHighway(std::size_t words, std::wstring_view kind, std::wstring_view number) {
    Add(words, L"HIGHWAY " + std::wstring(number) + L" " + std::wstring(kind),
        CorrectionRule::Highway, kind.empty());
    found_.back().odd = IsOddHighway(words_, at_, at_ + words);
  }

  // I-35N is INTERSTATE 35 N.
  void AddHighwayWithDirection(std::size_t words, std::wstring_view kind,
                               std::wstring_view number) {
    const auto isDirection = [](std::wstring_view word) {
      return word.size() == 1 && !WordForms::Get().Direction(word).empty();
    };
    const std::wstring_view digits = number.substr(0, number.size() - 1);
    if (IsNumber(digits) && isDirection(number.substr(digits.size()))) {
      AddHighway(words, std::wstring(kind) + L" TO THE " + number.back(), digits);
    } else if (words < Left() && IsNumber(number) && isDirection(Text(words))) {
      AddHighway(words + 1, std::wstring(kind) + L" TO THE " + Text(words), number);
    }
  }

  const std::vector<LabelWord>& words_;
  std::size_t at_;
  std::vector<Phrase> found_;
};

}  // namespace

bool MeanTheSame(const Phrase& typed, const Phrase& corrected) {
  return typed.meaning == corrected.meaning;
}

bool MayMeanTheSame(const Phrase& typed, const Phrase& corrected) {
  return typed.rule == CorrectionRule::Highway && corrected.rule == CorrectionRule::Highway &&
         typed.vague && corrected.meaning.starts_with(typed.meaning);
}

std::vector<Phrase> FindPhrases(const std::vector<LabelWord>& words, std::size_t at) {
  return PhraseFinder(words, at).Find();
}

}  // namespace postwright
