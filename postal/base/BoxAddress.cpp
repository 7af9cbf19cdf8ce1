#include "postal/base/BoxAddress.h"

namespace postwright::postal {

std::optional<BoxAddress> BoxAddress::Read(std::string_view line) {
  constexpr std::string_view kGeneralDelivery = "GENERAL DELIVERY";
  constexpr std::string_view kBox = " BOX ";
  if (line == kGeneralDelivery) {
    return BoxAddress{std::string(line), ""};
  }
  const size_t box = line.rfind(kBox);
  if (box == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view of = line.substr(0, box);
  const std::string_view number = line.substr(box + kBox.size());
  if (of.empty() || number.empty() || number.find(' ') != std::string_view::npos) {
    return std::nullopt;
  }
  return BoxAddress{of == "PO" ? "PO BOX" : std::string(of), std::string(number)};
}

}  // namespace postwright::postal
