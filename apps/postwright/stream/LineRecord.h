#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINERECORD_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINERECORD_H_

#include <chrono>
#include <string>
#include <string_view>

namespace postwright {

// What a line's question has shown of the service.
enum class Heard {
  kNothing,   // nobody was asked
  kAnswer,    // it is there
  kNoAnswer,  // it left the question without one
};

// What became of one input line.
struct LineRecord {
  // A record that nobody was asked for.
  LineRecord(std::string record = {}) : line(std::move(record)) {}

  std::string line;  // the record with its line feed
  Heard heard = Heard::kNothing;
  std::chrono::seconds retryAfter{0};  // without an answer: when to ask again, as the service says
  std::string why;                     // without an answer: what happened, in words
};

// The same as one line with its line feed, to be handed from process to process, and back.
std::string PackRecord(const LineRecord& record);
LineRecord UnpackRecord(std::string_view packed);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINERECORD_H_
