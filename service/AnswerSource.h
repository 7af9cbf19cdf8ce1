#ifndef POSTWRIGHT_SERVICE_ANSWERSOURCE_H_
#define POSTWRIGHT_SERVICE_ANSWERSOURCE_H_

#include <functional>
#include <string>

#include "service/protocol/VerifyReply.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

// Where answers come from: the local base (Verifier), or somebody who is asked (Gateway).
class AnswerSource {
 public:
  // Takes the answer, in the thread of the call or another.
  using Done = std::function<void(AddressAnswer)>;

  virtual ~AnswerSource() = default;

  // Answers `asked`, which is valid as long as the call, by one call of `done`, within this call or
  // later. Never waits. `asker` tells whom the address is asked for, to serve all alike; any text.
  // Any thread.
  virtual void Find(const RequestAddress& asked, const std::string& asker, Done done) = 0;

  // Ends: whatever is not answered yet is answered within this call, and what comes later at once.
  // Whoever asks with a `done` that touches itself stops the source in its destructor, so that no
  // answer can come when it is no more. For one thread; again, it does nothing.
  virtual void Stop() {}
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_ANSWERSOURCE_H_
