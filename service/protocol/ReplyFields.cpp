#include "service/protocol/ReplyFields.h"

namespace postwright::service {

void ReplyFields::PutAbove(const std::string& lines) {
  if (lines.empty()) {
    return;
  }
  address2.insert(0, lines + '\n');
  if (!address2Abbreviation.empty()) {
    address2Abbreviation.insert(0, lines + '\n');
  }
}

}  // namespace postwright::service
