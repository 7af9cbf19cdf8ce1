#ifndef POSTWRIGHT_TESTS_CORE_PARSER_PLAINPARSER_H_
#define POSTWRIGHT_TESTS_CORE_PARSER_PLAINPARSER_H_

#include <postwright/AddressInfo.h>

#include <string>

namespace postwright {

// Parses `text` in the plainest way: the pattern engine searches for the three patterns in turn,
// and every other pattern is compiled where it is used. AddressParser's answers must agree with it,
// and its speed is measured against it. Takes minutes for some texts of a few hundred characters.
// AddressParser::GetInstance() must have been called before.
AddressInfo ParsePlainly(const std::wstring& text);

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CORE_PARSER_PLAINPARSER_H_
