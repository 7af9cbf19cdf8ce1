#ifndef POSTWRIGHT_POSTAL_FETCH_PACKEDCHECK_H_
#define POSTWRIGHT_POSTAL_FETCH_PACKEDCHECK_H_

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace postwright::postal {

// How a fetched file is packed.
enum class Packing { Zip, Gzip };

// Says by its first bytes whether what comes is so packed, and not a page that says "later".
bool IsPacked(std::string_view head, Packing packing);

// Reads a fetched file to its end and compares its checksums. Returns what is wrong with it;
// empty where nothing is. Wrong, too, is what unpacks to more than `mostUnpacked` bytes, and an
// archive with a name that leads out of a folder: nothing here would follow it, but it is not what
// was asked for. Throws FetchStopped where `stop` becomes true.
std::string CheckPacked(const std::filesystem::path& file, Packing packing, uint64_t mostUnpacked,
                        const std::atomic<bool>* stop);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_PACKEDCHECK_H_
