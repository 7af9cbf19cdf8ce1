#ifndef POSTWRIGHT_CORE_PARSER_ADDRESSCAPTURES_H_
#define POSTWRIGHT_CORE_PARSER_ADDRESSCAPTURES_H_

#include <array>
#include <cstddef>

namespace postwright {

// The named groups of the address patterns, in the order in which the parser reads them.
enum class Group {
  kNumber1,
  kNumber2,
  kNumber3,
  kNumber4,
  kPredirectional1,
  kStreet1,
  kStreet2,
  kStreet3,
  kStreet4,
  kSuffix1,
  kSuffix2,
  kSuffix3,
  kPostdirectional1,
  kPostdirectional2,
  kPostdirectional3,
  kSecondaryUnit1,
  kSecondaryUnit2,
  kSecondaryUnit3,
  kSecondaryNumber1,
  kSecondaryNumber2,
  kStreetLine,
  kCity,
  kState,
  kZip,
};

constexpr int kGroupCount = static_cast<int>(Group::kZip) + 1;

// A stretch of the text, [begin, end); empty where its group took no part in the match.
struct Span {
  int begin = 0;
  int end = 0;
};

// Where an address is in a text, and where each of its groups is.
struct AddressCaptures {
  Span match;
  std::array<Span, kGroupCount> groups{};

  Span& operator[](Group group) { return groups[static_cast<size_t>(group)]; }
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_ADDRESSCAPTURES_H_
