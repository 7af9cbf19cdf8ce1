#ifndef POSTWRIGHT_CORE_PARSER_DESIGNATORPATTERN_H_
#define POSTWRIGHT_CORE_PARSER_DESIGNATORPATTERN_H_

#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// The vocabulary's pattern of a unit designator, taken apart, to be followed at a place in a text
// without a pattern engine. Such patterns hold letters, "(?:", ")", "?" and "*" alone. Constant
// once made.
class DesignatorPattern {
 public:
  explicit DesignatorPattern(std::wstring_view pattern);

  // The letter that every text of the designator begins with.
  wchar_t Initial() const { return initial_; }

  // Appends to `ends` where the designator may end if it begins at `at`, in the order in which a
  // backtracking engine would try it.
  void FindEnds(std::wstring_view text, int at, std::vector<int>& ends) const;

  // Whether the designator stands anywhere in `text`.
  bool IsIn(std::wstring_view text) const;

 private:
  // What may stand at a step, the likelier text first, or a letter any number of times.
  struct Step {
    std::vector<std::wstring> choices;
    bool repeated = false;
  };

  static std::vector<Step> TakeApart(std::wstring_view pattern);
  template <typename TakeEnd>
  bool Follow(size_t step, std::wstring_view text, int at, const TakeEnd& takeEnd) const;

  std::vector<Step> steps_;
  wchar_t initial_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_DESIGNATORPATTERN_H_
