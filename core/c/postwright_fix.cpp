#include <postwright/CandidateFix.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/VerifyReport.h>

#include "core/c/Guard.h"
#include "core/c/Handles.h"
#include "core/c/HostServices.h"

#include <chrono>
#include <memory>
#include <new>

namespace postwright {

namespace {

constexpr std::size_t kLargestBody = std::size_t{16} << 20U;
constexpr std::chrono::milliseconds kCancelCheck(100);

// What a caller gets of one fix.
struct Fixed {
  std::int32_t result = POSTWRIGHT_NONE;
  std::unique_ptr<postwright_address> address;
  std::unique_ptr<postwright_candidates> candidates;
  std::unique_ptr<postwright_report> report;
};

std::timed_mutex& Turn() {
  static std::timed_mutex turn;
  return turn;
}

void Ask(const std::wstring& text, std::int32_t most, HostServices& services, Fixed& fixed) {
  const std::unique_ptr<FixedAddress> found = most > 0
                                                  ? FixWithCandidates(text, false, most, &services)
                                                  : Postwright::Fix(text, true, &services);
  if (found->IsAddressMatchesValid()) {
    fixed.candidates = NewCandidates(*found);
  }
  if (found->IsExactMatchAddressValid()) {
    fixed.address = NewAddress(*found);
  }
  fixed.result = found->GetResult();
}

Fixed Fix(const std::wstring& text, std::int32_t most, bool reports,
          const postwright_services* services, const std::atomic<bool>* cancelled) {
  Fixed fixed;
  HostServices host(services, cancelled);
  if (reports) {
    host.WantSource();
  }
  const auto turn = TakeTurn(cancelled);
  if (!turn) {
    fixed.result = POSTWRIGHT_CANCELLED;
    return fixed;
  }
  try {
    Ask(text, most, host, fixed);
  } catch (const PostwrightException& failure) {
    if (cancelled != nullptr && cancelled->load()) {
      fixed.result = POSTWRIGHT_CANCELLED;  // a fetch given up looks like one without a reply
      return fixed;
    }
    fixed.result = failure.GetResult();
  }
  fixed.report = NewReport(VerifyReport(host.Reply(), host.Fetch()), fixed.address == nullptr);
  return fixed;
}

}  // namespace

std::optional<std::unique_lock<std::timed_mutex>> TakeTurn(const std::atomic<bool>* cancelled) {
  std::unique_lock lock(Turn(), std::defer_lock);
  while (cancelled == nullptr || !cancelled->load()) {
    if (lock.try_lock_for(kCancelCheck)) {
      return lock;
    }
  }
  return std::nullopt;
}

}  // namespace postwright

int32_t postwright_body_append(postwright_body* body, const void* data, size_t size) {
  if (body == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  return postwright::Guard([&]() -> std::int32_t {
    const bool isBad = data == nullptr && size > 0;
    body->failed = body->failed || isBad || size > postwright::kLargestBody - body->bytes.size();
    if (body->failed) {
      return isBad ? POSTWRIGHT_BAD_ARGUMENT : POSTWRIGHT_NO_MEMORY;
    }
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    body->bytes.insert(body->bytes.end(), bytes, bytes + size);
    return 0;
  });
}

postwright_canceller* postwright_canceller_new(void) {
  return new (std::nothrow) postwright_canceller;
}

void postwright_canceller_free(postwright_canceller* canceller) {
  delete canceller;
}

void postwright_cancel(postwright_canceller* canceller) {
  if (canceller != nullptr) {
    canceller->cancelled = true;
  }
}

int32_t postwright_fix(const char* text, size_t length, const postwright_services* services,
                       postwright_canceller* canceller, postwright_address** fixed) {
  return postwright_fix_report(text, length, services, canceller, 0, fixed, nullptr, nullptr);
}

int32_t postwright_fix_candidates(const char* text, size_t length,
                                  const postwright_services* services,
                                  postwright_canceller* canceller, int32_t most,
                                  postwright_address** fixed, postwright_candidates** candidates) {
  if (most < 1) {
    most = -1;  // to be refused
  }
  return postwright_fix_report(text, length, services, canceller, most, fixed, candidates, nullptr);
}

int32_t postwright_fix_report(const char* text, size_t length, const postwright_services* services,
                              postwright_canceller* canceller, int32_t most,
                              postwright_address** fixed, postwright_candidates** candidates,
                              postwright_report** report) {
  if (candidates != nullptr) {
    *candidates = nullptr;
  }
  if (report != nullptr) {
    *report = nullptr;
  }
  return postwright::MakeOfText(text, length, fixed, [&](const std::wstring& label) -> int32_t {
    const bool isServices = services == nullptr || services->size == sizeof *services;
    if (!isServices || most < 0 || (most > 0 && candidates == nullptr)) {
      return POSTWRIGHT_BAD_ARGUMENT;
    }
    postwright::Fixed made =
        postwright::Fix(label, most, report != nullptr, services,
                        canceller != nullptr ? &canceller->cancelled : nullptr);
    *fixed = made.address.release();
    if (candidates != nullptr) {
      *candidates = made.candidates.release();
    }
    if (report != nullptr) {
      *report = made.report.release();
    }
    return made.result;
  });
}
