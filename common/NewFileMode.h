#ifndef POSTWRIGHT_COMMON_NEWFILEMODE_H_
#define POSTWRIGHT_COMMON_NEWFILEMODE_H_

#include <sys/types.h>

namespace postwright {

// Returns the mode that this process gives a file that everybody may read and write, which is 0666
// without its mask (umask(2)). For a file that is made under another name, as its owner's alone,
// and then takes a name that others know. Sets the mask for a moment to read it: no other thread
// may make files meanwhile.
mode_t NewFileMode();

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_NEWFILEMODE_H_
