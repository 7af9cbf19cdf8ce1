#include <postwright/AddressEntry.h>

namespace postwright {

AddressEntry::~AddressEntry() = default;

}  // namespace postwright
