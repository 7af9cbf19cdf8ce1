#include "apps/postwright/table/ScratchFile.h"

#include <cerrno>
#include <system_error>

#include "apps/postwright/stream/Failure.h"

namespace postwright {

ScratchFile::ScratchFile() : file_(std::tmpfile(), std::fclose) {
  if (file_ == nullptr) {
    throw Failure("cannot make a temporary file: " + std::generic_category().message(errno));
  }
}

}  // namespace postwright
