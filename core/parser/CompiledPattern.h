#ifndef POSTWRIGHT_CORE_PARSER_COMPILEDPATTERN_H_
#define POSTWRIGHT_CORE_PARSER_COMPILEDPATTERN_H_

#include <boost/xpressive/xpressive_dynamic.hpp>
#include <string>

namespace postwright {

// The regular expression that `pattern` is. Every other file has its patterns compiled here: the
// library's compiler of patterns is all templates, and each file with a copy takes the C++ compiler
// ten seconds more. Throws boost::xpressive::regex_error where the pattern is wrong.
boost::xpressive::wsregex CompiledPattern(
    const std::wstring& pattern, boost::xpressive::regex_constants::syntax_option_type options =
                                     boost::xpressive::regex_constants::ECMAScript);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_COMPILEDPATTERN_H_
