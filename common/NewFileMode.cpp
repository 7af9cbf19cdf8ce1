#include "common/NewFileMode.h"

#include <sys/stat.h>

namespace postwright {

mode_t NewFileMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666U & ~mask;
}

}  // namespace postwright
