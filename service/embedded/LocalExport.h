#ifndef POSTWRIGHT_SERVICE_EMBEDDED_LOCALEXPORT_H_
#define POSTWRIGHT_SERVICE_EMBEDDED_LOCALEXPORT_H_

// Marks what libpostwright-local offers; everything else in the library is hidden.
#define POSTWRIGHT_LOCAL_EXPORT __attribute__((visibility("default")))

#endif  // POSTWRIGHT_SERVICE_EMBEDDED_LOCALEXPORT_H_
