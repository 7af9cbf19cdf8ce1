#ifndef POSTWRIGHT_CLIENT_SUITE_CLIENTEXPORT_H_
#define POSTWRIGHT_CLIENT_SUITE_CLIENTEXPORT_H_

// Marks what libpostwright offers besides the core; everything else in the library is hidden.
#define POSTWRIGHT_CLIENT_EXPORT __attribute__((visibility("default")))

#endif  // POSTWRIGHT_CLIENT_SUITE_CLIENTEXPORT_H_
