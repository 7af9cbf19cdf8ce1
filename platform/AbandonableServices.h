#ifndef POSTWRIGHT_PLATFORM_ABANDONABLESERVICES_H_
#define POSTWRIGHT_PLATFORM_ABANDONABLESERVICES_H_

#include <postwright/MacPlatformServices.h>

#include <atomic>

namespace postwright {

// The platform services for a caller that may lose interest: a window that is closed must not wait
// a minute for a service that has fallen silent.
//
//   std::atomic<bool> abandoned = false;  // another thread sets it
//   AbandonableServices services(&abandoned);
//   Postwright::Fix(text, false, &services);  // FixResultBadReply soon after
class POSTWRIGHT_CORE_EXPORT AbandonableServices : public MacPlatformServices {
 public:
  // `abandoned` may be null and otherwise outlives the object.
  explicit AbandonableServices(const std::atomic<bool>* abandoned) : abandoned_(abandoned) {}

  // As in the base, and fails within about a second once `abandoned` holds true.
  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override;

 protected:
  const std::atomic<bool>* Abandoned() const { return abandoned_; }

 private:
  const std::atomic<bool>* abandoned_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_ABANDONABLESERVICES_H_
