#ifndef POSTWRIGHT_CORE_PARSER_VALUEPATTERNS_H_
#define POSTWRIGHT_CORE_PARSER_VALUEPATTERNS_H_

#include "core/parser/CharacterClasses.h"
#include "core/parser/DesignatorPattern.h"

#include <boost/xpressive/xpressive_dynamic.hpp>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace postwright {

// The patterns that captured values go through, made once: they mean the same as long as the
// character locale stays, and making one takes longer than using it a hundred times.
class ValuePatterns {
 public:
  // The keys of `units` are the patterns of the unit designators.
  explicit ValuePatterns(const std::map<std::wstring, std::wstring>& units);

  // Removes from `value` the white space at its ends and at the ends of the lines in it, and every
  // character but letters, digits, "_", white space, "/", "-", "#" and "&".
  void Clean(std::wstring& value) const;

  // The first unit pattern, in the order of the keys, that is found anywhere in `value`; null where
  // none is.
  const std::wstring* UnitIn(const std::wstring& value) const;

 private:
  bool IsPlain(const std::wstring& value) const;
  bool IsKept(wchar_t c) const;

  CharacterClasses classes_;
  boost::xpressive::wsregex cleanValue_;
  std::vector<std::pair<std::wstring, DesignatorPattern>> units_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_VALUEPATTERNS_H_
