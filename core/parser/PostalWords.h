#ifndef POSTWRIGHT_CORE_PARSER_POSTALWORDS_H_
#define POSTWRIGHT_CORE_PARSER_POSTALWORDS_H_

#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "common/StringHash.h"

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

  // The names and codes of the states, with plain blanks.
  const std::vector<std::wstring>& States() const { return states_; }

  // Where a unit designator that begins at `at` may end, in the order in which the alternation of
  // the designators would try it; the list is overwritten. Empty where there is none.
  void FindNumberedUnits(std::wstring_view text, int at, std::vector<int>& ends) const {
    FindUnits(numberedUnits_, text, at, ends);
  }
  void FindPlainUnits(std::wstring_view text, int at, std::vector<int>& ends) const {
    FindUnits(plainUnits_, text, at, ends);
  }

 private:
  // One step of a designator's pattern: what may stand there, the likelier text first, or a letter
  // any number of times. The table of the designators holds letters, "(?:", ")", "?" and "*" alone.
  struct Step {
    std::vector<std::wstring> choices;
    bool repeated = false;
  };
  using Steps = std::vector<Step>;

  struct Unit {
    wchar_t initial;  // which every text of the designator begins with
    Steps steps;
  };

  static Steps TakeApart(std::wstring_view pattern);
  static std::vector<Unit> TakeApart(const Table& units);
  static void FindUnits(const std::vector<Unit>& units, std::wstring_view text, int at,
                        std::vector<int>& ends);
  static void Follow(const Steps& steps, size_t step, std::wstring_view text, int at,
                     std::vector<int>& ends);

  using Words = std::unordered_set<std::wstring, StringHash<wchar_t>, std::equal_to<>>;

  Words suffixes_;
  std::vector<std::wstring> directions_;
  Words directionWords_;
  std::vector<std::wstring> states_;
  std::vector<Unit> numberedUnits_;
  std::vector<Unit> plainUnits_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_POSTALWORDS_H_
