#include "core/parser/CompiledPattern.h"

namespace postwright {

boost::xpressive::wsregex CompiledPattern(
    const std::wstring& pattern, boost::xpressive::regex_constants::syntax_option_type options) {
  return boost::xpressive::wsregex::compile(pattern, options);
}

}  // namespace postwright
