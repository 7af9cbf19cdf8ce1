#ifndef POSTWRIGHT_APPS_STANDARDSTREAMS_H_
#define POSTWRIGHT_APPS_STANDARDSTREAMS_H_

namespace postwright {

// Sees to it that no file or connection is taken for a standard stream that came closed, and
// written into. Such a stream is opened the wrong way round, so that its use is still an error. To
// be called first thing in a program, before anything is opened.
void OccupyStandardStreams();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_STANDARDSTREAMS_H_
