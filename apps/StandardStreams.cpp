#include "apps/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace postwright {

void OccupyStandardStreams() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) == -1) {
      open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
}

}  // namespace postwright
