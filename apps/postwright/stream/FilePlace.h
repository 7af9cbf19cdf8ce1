#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_FILEPLACE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_FILEPLACE_H_

#include <string>

namespace postwright {

// What it takes to put a new file into the place of another.

// The file that `path` leads to, which may not be there yet.
std::string BehindLinks(const std::string& path);

// Gives the open file what a file that is created the ordinary way has, or where there is a file at
// `path`, what that one has: permissions, access list, owner and group. Where the system allows no
// more, or knows no such thing, it stays at that.
void TakeOver(int descriptor, const std::string& path);

// Gives the file `from`, which is open as `descriptor`, the name `to`, for good: bytes and name are
// on the disk. False, with errno set, where the system cannot.
bool PutInPlace(int descriptor, const std::string& from, const std::string& to);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_FILEPLACE_H_
