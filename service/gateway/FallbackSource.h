#ifndef POSTWRIGHT_SERVICE_GATEWAY_FALLBACKSOURCE_H_
#define POSTWRIGHT_SERVICE_GATEWAY_FALLBACKSOURCE_H_

#include <atomic>
#include <cstdint>
#include <string>

#include "service/AnswerSource.h"

namespace postwright::service {

// Asks one source, and a second one for what the first cannot answer now.
//
//   FallbackSource source(gateway, verifier);
//
// What the second one says of an address is not confirmed, whatever it knows: DPVConfirmation is N,
// and nothing is said of the delivery point. Borrows both. Any thread.
class FallbackSource final : public AnswerSource {
 public:
  FallbackSource(AnswerSource& first, AnswerSource& second) : first_(first), second_(second) {}

  ~FallbackSource() override { Stop(); }
  FallbackSource(const FallbackSource&) = delete;
  FallbackSource& operator=(const FallbackSource&) = delete;

  void Find(const RequestAddress& asked, const std::string& asker, Done done) override;

  // Stops the first source, then the second.
  void Stop() override;

  // Returns how many addresses the second one was asked for.
  uint64_t Count() const { return count_; }

 private:
  AnswerSource& first_;
  AnswerSource& second_;
  std::atomic<uint64_t> count_ = 0;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_FALLBACKSOURCE_H_
