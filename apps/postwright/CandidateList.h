#ifndef POSTWRIGHT_APPS_POSTWRIGHT_CANDIDATELIST_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_CANDIDATELIST_H_

#include <postwright/AddressMatch.h>

#include <QList>
#include <string>

namespace postwright {

// How the command shows what could have been meant.

// A line for each candidate after its number, for a person to read.
std::string CandidatesInWords(const QList<AddressMatch>& candidates);

// The candidates as a JSON array of an object for each: address, the label with its ranges in
// parentheses; for a range of house or box numbers number_low, number_high and number_parity, for
// one of units unit_low, unit_high and unit_parity: "even", "odd", "both", or "" where nothing is
// said of it.
std::string CandidatesInJson(const QList<AddressMatch>& candidates);

// "even", "odd", "both" or "".
const char* ParityName(AddressRangeType type);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_CANDIDATELIST_H_
