#ifndef POSTWRIGHT_TESTS_CORE_PARSER_PLAINPARSER_H_
#define POSTWRIGHT_TESTS_CORE_PARSER_PLAINPARSER_H_

#include <postwright/AddressInfo.h>

#include <string>

namespace postwright {

// Parses `text` in the plainest way: the three patterns searched for one after another by the
// pattern engine, every other pattern compiled where it is used. The judge of what AddressParser
// answers, and the mark for its speed. Takes minutes for some texts of a few hundred characters.
// AddressParser::GetInstance() must have been called before.
AddressInfo ParsePlainly(const std::wstring& text);

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CORE_PARSER_PLAINPARSER_H_
