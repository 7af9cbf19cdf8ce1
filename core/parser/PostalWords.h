#ifndef POSTWRIGHT_CORE_PARSER_POSTALWORDS_H_
#define POSTWRIGHT_CORE_PARSER_POSTALWORDS_H_

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "common/StringHash.h"
#include "core/parser/DesignatorPattern.h"

namespace postwright {

// The parser's vocabulary, arranged for looking up at a place in a text what the alternations of
// the address patterns would find there. Constant once made.
class PostalWords {
 public:
  using Table = std::map<std::wstring, std::wstring>;

  PostalWords(const Table& directions, const Table& suffixes, const Table& states,
              const Table& numberedUnits, const Table& plainUnits);

  bool IsSuffix(std::wstring_view word) const { return suffixes_.contains(word); }

  // A directional spelled out or abbreviated, without full stops.
  bool IsDirection(std::wstring_view word) const { return directionWords_.contains(word); }

  // The directionals in the order in which their alternation tries them, full stops and all.
  const std::vector<std::wstring>& Directions() const { return directions_; }

  // The names and codes of the states that end in `c`, with plain blanks, in the order of their
  // alternation.
  const std::vector<std::wstring>& StatesEndingIn(wchar_t c) const { return states_[c]; }

  // Where a unit designator that begins at `at` may end, in the order in which the alternation of
  // the designators would try it; the list is overwritten. Empty where there is none.
  void FindNumberedUnits(std::wstring_view text, int at, std::vector<int>& ends) const {
    FindUnits(numberedUnits_, text, at, ends);
  }
  void FindPlainUnits(std::wstring_view text, int at, std::vector<int>& ends) const {
    FindUnits(plainUnits_, text, at, ends);
  }

 private:
  // Lists by a letter from A to Z that their entries have in common; there is none of any other
  // character.
  template <typename Entry>
  class ByLetter {
   public:
    const std::vector<Entry>& operator[](wchar_t c) const { return lists_[Place(c)]; }
    void Add(wchar_t letter, Entry entry) { lists_[Place(letter)].push_back(std::move(entry)); }

   private:
    static constexpr size_t kLetters = 26;
    static size_t Place(wchar_t c) {
      return c >= L'A' && c <= L'Z' ? static_cast<size_t>(c - L'A') : kLetters;
    }

    std::array<std::vector<Entry>, kLetters + 1> lists_;
  };

  using Words = std::unordered_set<std::wstring, StringHash<wchar_t>, std::equal_to<>>;
  using Units = ByLetter<DesignatorPattern>;

  static Units ByInitial(const Table& units);
  static void FindUnits(const Units& units, std::wstring_view text, int at, std::vector<int>& ends);

  Words suffixes_;
  std::vector<std::wstring> directions_;
  Words directionWords_;
  ByLetter<std::wstring> states_;
  Units numberedUnits_;
  Units plainUnits_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_POSTALWORDS_H_
