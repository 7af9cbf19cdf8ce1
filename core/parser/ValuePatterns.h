#ifndef POSTWRIGHT_CORE_PARSER_VALUEPATTERNS_H_
#define POSTWRIGHT_CORE_PARSER_VALUEPATTERNS_H_

#include "core/parser/CharacterClasses.h"

#include <boost/xpressive/xpressive_dynamic.hpp>

#include <map>
#include <string>

namespace postwright {

// The patterns that captured values go through, compiled once: they mean the same as long as the
// character locale stays, and compiling one takes longer than using it a hundred times.
class ValuePatterns {
 public:
  // Compiles the keys of `units`.
  explicit ValuePatterns(const std::map<std::wstring, std::wstring>& units);

  // Returns `value` without white space at its ends and at the ends of the lines in it, and without
  // any character but letters, digits, "_", white space, "/", "-", "#" and "&".
  std::wstring Clean(const std::wstring& value) const;

  // Is the unit pattern `key`, one of those given to the constructor, found anywhere in `value`?
  bool Finds(const std::wstring& key, const std::wstring& value);

 private:
  bool IsClean(const std::wstring& value) const;

  CharacterClasses classes_;
  boost::xpressive::wsregex cleanValue_;
  std::map<std::wstring, boost::xpressive::wsregex> units_;
  boost::xpressive::wsmatch found_;  // kept to use its memory again
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_VALUEPATTERNS_H_
