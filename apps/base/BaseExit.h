#ifndef POSTWRIGHT_APPS_BASE_BASEEXIT_H_
#define POSTWRIGHT_APPS_BASE_BASEEXIT_H_

namespace postwright::postal {

// How the command ended. Scripts branch on these: they never change their meaning.
enum BaseExit : int {
  kExitDone = 0,
  kExitNotConfirmed = 1,  // the address is not confirmed, or turned down
  kExitFailed = 2,        // wrong usage, or a file that cannot be read, written or used
  kExitStopped = 130      // a signal stopped a fetch or an import; the same command goes on
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_BASEEXIT_H_
