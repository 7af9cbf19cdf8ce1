#ifndef POSTWRIGHT_CORE_EXPORT_H_
#define POSTWRIGHT_CORE_EXPORT_H_

// Marks what libpostwright-core offers; everything else in the library is hidden.
#define POSTWRIGHT_CORE_EXPORT __attribute__((visibility("default")))

#endif  // POSTWRIGHT_CORE_EXPORT_H_
