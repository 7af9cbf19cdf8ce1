#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINESOURCE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINESOURCE_H_

#include <string_view>

#include "apps/postwright/stream/LabelLine.h"

namespace postwright {

// Where the lines come from that want a record, one after another.
class LineSource {
 public:
  virtual ~LineSource() = default;

  // Whether Next will return without waiting.
  virtual bool IsAtHand() const = 0;

  // Goes to the next line, waiting for it where none has arrived. False at the end. Throws Failure.
  virtual bool Next() = 0;

  // The label of the line, its problem said where it is none; and the line itself, without its line
  // feed. Until the next call of Next.
  virtual const LabelLine& Label() const = 0;
  virtual std::string_view Line() const = 0;

  // The record that the line has already; empty where it has none.
  virtual std::string_view Record() const { return {}; }

  // For a caller that waits for several things at once: where lines come from, and one read of it,
  // which does not wait once the system finds the descriptor readable.
  virtual int Descriptor() const = 0;
  virtual void ReadSome() = 0;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINESOURCE_H_
