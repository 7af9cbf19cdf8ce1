#ifndef POSTWRIGHT_COMMON_WRITINGLOCK_H_
#define POSTWRIGHT_COMMON_WRITINGLOCK_H_

#include <string>

namespace postwright {

// What tells a file that a program is writing from one that a killed program has left: the first is
// locked (flock(2)) for as long as it is open there.

// Locks the file that was just made at `path` and is open as `descriptor`. False where somebody has
// taken it for one that was left, and removed it: make another. Where the system has no locks,
// true.
bool LockNewFile(int descriptor, const std::string& path);

// Removes the file at `path` unless it is locked, or it cannot be told whether it is.
void RemoveUnlessLocked(const std::string& path);

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_WRITINGLOCK_H_
