#ifndef POSTWRIGHT_POSTAL_IMPORT_STAGEDPOINT_H_
#define POSTWRIGHT_POSTAL_IMPORT_STAGEDPOINT_H_

#include <cstdint>
#include <string_view>

namespace postwright::postal {

// An address of a street, as an import gathers it. Borrows its texts.
struct StagedPoint {
  int64_t street = 0;
  std::string_view number;
  std::string_view unit;
  std::string_view zip4;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_STAGEDPOINT_H_
