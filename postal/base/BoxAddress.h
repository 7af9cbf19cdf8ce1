#ifndef POSTWRIGHT_POSTAL_BASE_BOXADDRESS_H_
#define POSTWRIGHT_POSTAL_BASE_BOXADDRESS_H_

#include <optional>
#include <string>
#include <string_view>

namespace postwright::postal {

// A delivery line without a street, as a base has it: a street of its own, PO BOX, RR 2, GENERAL
// DELIVERY, whose numbers are the boxes. It is filed under a made-up ZIP code, so that no search
// for streets meets it.
struct BoxAddress {
  std::string name;
  std::string number;  // empty for general delivery

  // Reads a standard line, "RR 2 BOX 15"; nullopt for any other.
  static std::optional<BoxAddress> Read(std::string_view line);

  // Returns what takes the place of a ZIP code for its boxes.
  static std::string ZipOf(const std::string& zip) { return "BOX " + zip; }
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_BOXADDRESS_H_
