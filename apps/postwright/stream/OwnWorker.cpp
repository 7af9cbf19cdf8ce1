#include "apps/postwright/stream/OwnWorker.h"

#include <poll.h>

#include <utility>

namespace postwright {

void OwnWorker::Give(std::size_t ticket, const LabelLine& label, std::string_view) {
  ticket_ = ticket;
  label_ = label;
}

LineWorkers::Events OwnWorker::Wait(int descriptor, int milliseconds) {
  Events events;
  if (ticket_) {
    events.answers.push_back({*std::exchange(ticket_, std::nullopt), answer_(label_), ""});
  } else if (descriptor == -1 && milliseconds >= 0) {
    clock_.Sleep(std::chrono::milliseconds(milliseconds));
  } else {
    pollfd polled{descriptor, POLLIN, 0};
    events.isReadable = poll(&polled, 1, milliseconds) == 1;
  }
  return events;
}

}  // namespace postwright
