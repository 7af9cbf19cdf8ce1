#ifndef POSTWRIGHT_CORE_C_HOSTSERVICES_H_
#define POSTWRIGHT_CORE_C_HOSTSERVICES_H_

#include <postwright/ReportingServices.h>
#include <postwright/postwright.h>

#include <atomic>

// The bytes of one reply, on the way from the host.
struct postwright_body {
  std::vector<std::uint8_t> bytes;
  bool failed = false;  // whatever the fetch returns
};

namespace postwright {

// The platform services of a caller in C: its callbacks where it gives any, else the library's own
// network. Converts text by itself, so that the locale plays no part.
//
//   HostServices services(callbacks, &cancelled);
//   Postwright::Fix(text, true, &services);
class HostServices final : public ReportingServices {
 public:
  // `callbacks` may be null; both are borrowed for the object's life.
  HostServices(const postwright_services* callbacks, const std::atomic<bool>* cancelled)
      : ReportingServices(cancelled), callbacks_(callbacks) {}

  std::string UCS2ToUTF8(const std::wstring& text) override;
  std::string UCS2ToUTF8(const wchar_t* text) override;
  std::wstring UTF8ToUCS2(const std::string& text) override;
  std::wstring UTF8ToUCS2(const char* text) override;
  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override;
  void LogError(const wchar_t* format, ...) override;
  void LogWarning(const wchar_t* format, ...) override;
  void LogInfo(const wchar_t* format, ...) override;

 private:
  void Log(std::int32_t level, const wchar_t* format, va_list arguments);

  const postwright_services* callbacks_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_C_HOSTSERVICES_H_
