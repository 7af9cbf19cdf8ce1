#ifndef POSTWRIGHT_CORE_PARSER_ADDRESSGRAMMAR_H_
#define POSTWRIGHT_CORE_PARSER_ADDRESSGRAMMAR_H_

#include <boost/xpressive/xpressive_dynamic.hpp>

namespace postwright {

// The three patterns that define what an address is. They are empty, and match nothing, until the
// parser is created; afterwards they never change.
//
// They are the definition, not the way in which a label is read: searching a label of a few hundred
// characters with them can take minutes. AddressReader gives the answers that three searches with
// regex_search() would give, in time that grows with the text alone.
extern boost::xpressive::wsregex gAddressRegex;          // house number and street
extern boost::xpressive::wsregex gPoBoxAddressRegex;     // post-office box
extern boost::xpressive::wsregex gMilitaryAddressRegex;  // APO, FPO, DPO

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_ADDRESSGRAMMAR_H_
