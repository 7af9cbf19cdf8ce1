#ifndef POSTWRIGHT_POSTAL_LINES_BOXLINE_H_
#define POSTWRIGHT_POSTAL_LINES_BOXLINE_H_

#include <optional>

#include "common/AsciiText.h"

namespace postwright::postal {

// A delivery line without a street, in standard form.
struct BoxLine {
  Words line;
  Words aside;  // what comes after it, in its order
};

// The delivery lines that name no street. Each returns nullopt for a line of another form.
//
//   ReadPostOfficeBox(SplitLine("P O DRAWER #12"));   // PO BOX 12
//   ReadRoute(SplitLine("RURAL ROUTE 03 BOX 9"));     // RR 3 BOX 9
//
// USPS Publication 28, sections 24 (rural route), 25 (highway contract), 26 (general delivery), 28
// (post-office box) and 225 (military).
std::optional<BoxLine> ReadPostOfficeBox(const Words& words);
std::optional<BoxLine> ReadRoute(const Words& words);
std::optional<BoxLine> ReadGeneralDelivery(const Words& words);

// Only for an address of a military post office: UNIT means something else elsewhere. Words in
// front of the box (a name that was typed into the line) stay in front of it.
std::optional<BoxLine> ReadMilitary(const Words& words);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_LINES_BOXLINE_H_
