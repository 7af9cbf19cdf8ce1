#ifndef POSTWRIGHT_POSTAL_LINES_PUERTORICO_H_
#define POSTWRIGHT_POSTAL_LINES_PUERTORICO_H_

#include <optional>
#include <string>

#include "common/AsciiText.h"
#include "postal/lines/BoxLine.h"

namespace postwright::postal {

// Delivery lines of Puerto Rico: the Spanish type of a street comes first and belongs to its
// name. USPS Publication 28, section 29 and appendix I.

// Brings a line into the order of every delivery line, the house number first: "CALLE 1 # A-17"
// becomes "A17 CALLE 1", "BLQ 199 CASA 31 CALLE 19" "199-31 CALLE 19". Words that only announce a
// number are dropped. A line without a Spanish type is left as it is.
Words ArrangePuertoRico(Words words);

// Returns the standard form of a Spanish street type (AVENIDA -> AVE); empty for other words. CALLE
// stays CALLE: it is not ST.
std::string SpanishType(const std::string& word);

// A road and the kilometre on it, where there is no house number: "Carretera 129 Km 20.1". Returns
// nullopt for another line.
std::optional<BoxLine> ReadKilometre(const Words& words);

// Returns an urbanization's name in its standard form, URB LAS GLADIOLAS; what says another kind of
// settlement than a URB (VILLA, COND, …) is kept.
Words StandardUrbanization(Words words);

// Takes an urbanization off the front of a delivery line, "URB LOS OLMOS A17 CALLE 3"; empty where
// there is none and where it is not certain where its name ends.
Words TakeUrbanization(Words& line);

// Says whether a line names an urbanization and nothing else.
bool IsUrbanization(const Words& words);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_LINES_PUERTORICO_H_
