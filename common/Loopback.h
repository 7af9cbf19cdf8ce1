#ifndef POSTWRIGHT_COMMON_LOOPBACK_H_
#define POSTWRIGHT_COMMON_LOOPBACK_H_

#include <string_view>

namespace postwright {

// Says whether `host` is this machine's own loopback, over which nothing leaves it: "localhost" in
// any case, an address of 127.0.0.0/8 (RFC 1122, section 3.2.1.3), ::1 (RFC 4291, section 2.5.3),
// also in brackets, or the former in the form of the latter (::ffff:127.0.0.1). An address is
// parsed and no name is looked up: "127.example.com" is somebody else's. For any thread.
bool IsLoopback(std::string_view host);

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_LOOPBACK_H_
