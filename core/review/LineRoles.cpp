#include "core/review/LineRoles.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "core/parser/Vocabulary.h"
#include "core/review/Digits.h"
#include "core/review/WordForms.h"

namespace postwright {

namespace {

// A run of words: [begin, end).
struct Range {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t Size() const { return end - begin; }
};

constexpr std::size_t kZipDigits = 5;
constexpr std::size_t kAddOnDigits = 4;

bool IsNumberOf(const LabelWord& word, std::size_t digits) {
  return word.text.size() == digits && IsNumber(word.text);
}

class RoleFinder {
 public:
  explicit RoleFinder(const std::vector<LabelWord>& words)
      : words_(words), roles_(words.size(), Role::Name) {}

  std::vector<Role> Find() {
    std::optional<Range> last = FindLastLine();
    if (last) {
      last = WithLinesAbove(*last);
      const Range above = LineAbove(*last);
      const std::size_t city = ReadLastLine(*last, above.Size() == 0);
      ReadDeliveryLine(above.Size() == 0 ? Range{last->begin, city} : PassUrbanization(above));
    }
    return std::move(roles_);
  }

 private:
  const std::wstring& Text(std::size_t i) const { return words_[i].text; }

  // The line that ends after its last word, `end` - 1.
  Range LineBefore(std::size_t end) const {
    std::size_t begin = end;
    while (begin > 0 && words_[begin - 1].line == words_[end - 1].line) {
      --begin;
    }
    return {begin, end};
  }
  Range LineAbove(Range line) const { return line.begin == 0 ? Range{} : LineBefore(line.begin); }

  // Where the ZIP code of a line begins; its end where there is none.
  std::size_t ZipOf(Range line) const {
    if (line.Size() >= 2 && IsNumberOf(words_[line.end - 1], kAddOnDigits) &&
        IsNumberOf(words_[line.end - 2], kZipDigits)) {
      return line.end - 2;
    }
    return IsNumberOf(words_[line.end - 1], kZipDigits) ? line.end - 1 : line.end;
  }

  // Where the state that ends at `end` begins; `end` where there is none.
  std::size_t StateBefore(std::size_t begin, std::size_t end) const {
    constexpr std::size_t kLongestName = 4;
    std::wstring letters;
    std::size_t found = end;
    for (std::size_t i = end; i > begin && end - i < kLongestName; --i) {
      letters.insert(0, Text(i - 1));
      if (!WordForms::Get().State(letters).empty()) {
        found = i - 1;
      }
    }
    return found;
  }

  std::optional<Range> FindLastLine() const {
    std::optional<Range> withZip;
    std::optional<Range> withState;
    for (std::size_t end = words_.size(); end > 0;) {
      const Range line = LineBefore(end);
      const std::size_t zip = ZipOf(line);
      const bool hasState = StateBefore(line.begin, zip) < zip;
      if (zip < line.end && hasState) {
        return line;
      }
      if (zip < line.end && !withZip) {
        withZip = line;
      } else if (hasState && line.begin > 0 && !withState) {
        withState = line;
      }
      end = line.begin;
    }
    return withZip ? withZip : withState;
  }

  // The same with the lines above that belong to it, where the ZIP code, or the state, has a line
  // of its own.
  Range WithLinesAbove(Range line) const {
    const std::size_t zip = ZipOf(line);
    Range above = LineAbove(line);
    if (zip == line.begin && above.Size() > 0 && !HasDigit(Text(above.begin)) &&
        StateBefore(above.begin, above.end) < above.end) {
      line.begin = above.begin;
      above = LineAbove(line);
    }
    const bool isCity = above.begin > 0 && StateBefore(line.begin, zip) == line.begin &&
                        zip > line.begin && !HasDigitIn(above) && HasDigitIn(LineAbove(above));
    return isCity ? Range{above.begin, line.end} : line;
  }
  bool HasDigitIn(Range line) const {
    return std::any_of(words_.begin() + static_cast<std::ptrdiff_t>(line.begin),
                       words_.begin() + static_cast<std::ptrdiff_t>(line.end),
                       [](const LabelWord& word) { return HasDigit(word.text); });
  }

  // Returns where the city begins.
  std::size_t ReadLastLine(Range line, bool isOnlyLine) {
    const std::size_t zip = ZipOf(line);
    const std::size_t state = StateBefore(line.begin, zip);
    std::size_t city = line.begin;
    if (isOnlyLine) {
      city = state;
      for (std::size_t i = line.begin; i < state; ++i) {
        city = words_[i].afterComma ? i : city;
      }
    }
    Set({city, state}, Role::City);
    Set({state, zip}, Role::State);
    for (std::size_t i = zip; i < line.end; ++i) {
      roles_[i] = i == zip ? Role::Zip : Role::Zip4;
    }
    return city;
  }

  // In Puerto Rico the urbanization stands between the two lines.
  Range PassUrbanization(Range line) {
    if (WordForms::Get().Common(Text(line.begin)) != L"URB" || line.begin == 0) {
      return line;
    }
    Set(line, Role::Urbanization);
    return LineAbove(line);
  }

  void ReadDeliveryLine(Range line) {
    static constexpr std::wstring_view kFirstWords[] = {
        L"PO", L"POB", L"POBOX", L"RR", L"HC", L"BOX", L"RURAL", L"USS", L"GENERAL"};
    if (line.Size() == 0) {
      return;
    }
    const auto isFirstOf = [this, &line](const auto& words) {
      return std::ranges::find(words, Text(line.begin)) != std::end(words);
    };
    if (isFirstOf(kFirstWords) || isFirstOf(Vocabulary::kMilitaryUnits)) {
      Set(line, Role::Box);
      return;
    }
    std::size_t street = line.begin;
    if (HasDigit(Text(street))) {
      ++street;
      street += street < line.end && Text(street).find(L'/') != std::wstring::npos ? 1 : 0;
    }
    Set({line.begin, street}, Role::HouseNumber);
    const std::size_t unit = FindUnit({street, line.end});
    Set({unit, line.end}, Role::Unit);
    ReadStreet({street, unit});
  }

  // Where the units of a line begin; `rest` is the line after the house number.
  std::size_t FindUnit(Range rest) const {
    const WordForms& forms = WordForms::Get();
    for (std::size_t i = rest.begin + 1; i < rest.end; ++i) {
      const bool numbered = !forms.NumberedUnit(Text(i)).empty() && i + 1 < rest.end &&
                            (HasDigit(Text(i + 1)) || Text(i + 1).size() == 1);
      const bool plain = !forms.PlainUnit(Text(i)).empty() && forms.IsStreetWord(Text(i - 1));
      if (numbered || plain || words_[i].afterNumberSign) {
        return i;
      }
    }
    return rest.end;
  }

  void ReadStreet(Range street) {
    const WordForms& forms = WordForms::Get();
    Set(street, Role::Street);
    if (street.Size() >= 2 && !forms.Direction(Text(street.end - 1)).empty()) {
      roles_[--street.end] = Role::Postdirectional;
    }
    if (street.Size() >= 2 && !forms.Suffix(Text(street.end - 1)).empty()) {
      roles_[--street.end] = Role::Suffix;
    }
    if (street.Size() >= 2 && !forms.Direction(Text(street.begin)).empty()) {
      roles_[street.begin] = Role::Predirectional;
    }
  }

  void Set(Range range, Role role) {
    std::fill(roles_.begin() + static_cast<std::ptrdiff_t>(range.begin),
              roles_.begin() + static_cast<std::ptrdiff_t>(range.end), role);
  }

  const std::vector<LabelWord>& words_;
  std::vector<Role> roles_;
};

}  // namespace

std::vector<Role> FindRoles(const std::vector<LabelWord>& words) {
  return RoleFinder(words).Find();
}

}  // namespace postwright
