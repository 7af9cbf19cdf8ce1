#ifndef POSTWRIGHT_POSTAL_BASE_HOUSENUMBER_H_
#define POSTWRIGHT_POSTAL_BASE_HOUSENUMBER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace postwright::postal {

// A standard house number in its parts: what comes before the number that counts, the number, and
// what comes after it. 112-10 is {"112-", 10}, 12A is {"", 12, "A"}, N6W23001 {"N6W", 23001}.
struct HouseNumber {
  std::string prefix;
  int64_t value = 0;
  std::string letters;
  bool fraction = false;

  bool operator==(const HouseNumber&) const = default;

  // Returns nullopt for a text without a digit, and for more digits than any house has.
  static std::optional<HouseNumber> Read(std::string_view text);
};

enum class Parity : char { Even = 'E', Odd = 'O', Both = 'B' };

// Numbers from one end to the other, both among them, of one side of a street or of both.
struct NumberRange {
  HouseNumber low;
  HouseNumber high;
  Parity parity = Parity::Both;

  // Reads ends in either order. `parity` is E, O or B; anything else leaves it to the ends, which
  // also decide where they contradict it: from 1 to 10 both sides are meant. nullopt where an end
  // is not a number, or the two are not of one pattern.
  static std::optional<NumberRange> Read(std::string_view low, std::string_view high,
                                         std::string_view parity);

  // Says whether a house of that number lies in the range (USPS Publication 28, appendix E). One
  // letter after a number and a fraction do not take it out of a range of plain numbers, as long
  // as it is not beyond the end: 102B is in 100 to 198, 99 1/2 not in 1 to 99. In a range with
  // letters the pattern must be the same: 15A is in 10A to 20A, 115D in 115C to 115F.
  bool Holds(const HouseNumber& number) const;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_HOUSENUMBER_H_
