#ifndef POSTWRIGHT_SERVICE_EMBEDDED_POSTWRIGHT_LOCAL_H_
#define POSTWRIGHT_SERVICE_EMBEDDED_POSTWRIGHT_LOCAL_H_

#include <postwright/LocalExport.h>
#include <postwright/postwright.h>

// The service within the process, for programs in C: what UseLocalService does.
//
//   const char* files[] = {"/usr/share/postwright/us-zips.tsv", "texas.base"};
//   char problem[200];
//   if (postwright_use_local_service(files, 2, problem, sizeof problem) != POSTWRIGHT_NONE) {
//     puts(problem);
//   }

#ifdef __cplusplus
extern "C" {
#endif

// Has the process's corrections answered within the process, from `count` files: lists of ZIP codes
// and address bases. From then on no service is asked, except by a host's own `read_url`. The names
// are copied. A count of 0 goes back to the service that postwright_set_service names.
//
// Returns POSTWRIGHT_NONE, POSTWRIGHT_BAD_FILE where a file cannot be used, POSTWRIGHT_BAD_ARGUMENT
// for a null name, or POSTWRIGHT_NO_MEMORY. Unless it is POSTWRIGHT_NONE, nothing has changed. For
// a bad file `problem` receives its name and what is wrong with it, in UTF-8, cut to `size` bytes
// with the NUL; otherwise it receives the empty string. It may be null. Any thread.
POSTWRIGHT_LOCAL_EXPORT int32_t postwright_use_local_service(const char* const* files, size_t count,
                                                             char* problem, size_t size);

#ifdef __cplusplus
}
#endif

#endif  // POSTWRIGHT_SERVICE_EMBEDDED_POSTWRIGHT_LOCAL_H_
