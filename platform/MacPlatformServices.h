#ifndef POSTWRIGHT_PLATFORM_MACPLATFORMSERVICES_H_
#define POSTWRIGHT_PLATFORM_MACPLATFORMSERVICES_H_

#include <postwright/Export.h>
#include <postwright/IPlatformServices.h>

#include <cstdarg>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace postwright {

// The platform services on the C library and libcurl. The name is that of the system for which the
// seam was cut; escaping and fetching behave as that system's did.
//
//   MacPlatformServices services;
//   const std::unique_ptr<FixedAddress> fixed = Postwright::Fix(text, true, &services);
//
// A class that replaces one form of a conversion hides the other; it says so:
//
//   using MacPlatformServices::UCS2ToUTF8;
//   std::string UCS2ToUTF8(const wchar_t* text) override;
//
// Has no state: one object serves any number of threads, and is made and dropped for nothing. The
// operations call one another through the virtual table, so a derived class that replaces a
// conversion changes escaping and fetching with it.
//
// The conversions follow the C library's character locale (setlocale, LC_CTYPE), which must be
// UTF-8 and is the host's business. In a process that sets none, only ASCII text converts. A
// QApplication sets it again, from the environment.
class POSTWRIGHT_CORE_EXPORT MacPlatformServices : public IPlatformServices {
 public:
  MacPlatformServices() = default;
  virtual ~MacPlatformServices() = default;

  // Text whose converted form has more than 2^31 - 1 elements counts as one that cannot be
  // converted. Code points above U+FFFF pass in both directions; surrogates do not.
  std::string UCS2ToUTF8(const std::wstring& text) override;
  std::string UCS2ToUTF8(const wchar_t* text) override;
  std::wstring UTF8ToUCS2(const std::string& text) override;
  std::wstring UTF8ToUCS2(const char* text) override;

  // Letters, digits and the marks and reserved characters of RFC 2396 (- _ . ! ~ * ' ( ) and
  // ; / ? : @ & = + $ ,) stay; each byte of anything else becomes a percent sign and two upper-case
  // hexadecimal digits. Then, over the escaped text, "&amp;" becomes "%26amp%3b", "&apos;" becomes
  // "%26apos%3b" and "&%23x09;", the escaped reference of a tab, becomes "%20". The other entities
  // stay as they are, bare ampersand and all: a service reads the document only up to it. That is
  // how the requests have always been sent, lower-case digits of "%3b" included.
  std::wstring UrlEscape(const wchar_t* text) override;
  std::wstring UrlEscape(const std::wstring& text) override;

  // As the interface says, then cut to whole characters whose UTF-8 fits in one byte more than the
  // text has UTF-16 units. ASCII always fits; other text comes back short: L"%C3%A9%C3%A9a" gives
  // L"éé". The bound is that of the system's own buffer and is kept.
  std::wstring UrlUnescape(const wchar_t* text) override;

  // GET over http or https, on one kept-alive connection a thread. Up to 20 redirects are followed,
  // to http and https only; the proxy is that of the environment (http_proxy, https_proxy,
  // no_proxy). No header is sent but Host. Fails, and so returns the empty vector, where connecting
  // takes 30 s, where nothing arrives for 60 s, where the whole takes longer than GetFetchTimeout()
  // (2 minutes unless set), where the answer breaks off, where it has a transfer coding other than
  // chunked, where a head with its trailers has more than 64 KiB or where more than 16 MiB arrive,
  // heads, redirects and all. After a fork only for the same reasons: a child opens its own
  // connection. Where local answers are set (LocalAnswers.h) they are asked, and nobody else.
  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override;

  // A number that a long cannot hold is read as the nearest that it can, then cut to its lower 32
  // bits.
  std::int32_t StringToInt(const wchar_t* text) override;

  // These three do the same: format the message and drop it, as LogMessage says.
  void LogError(const wchar_t* format, ...) override;
  void LogWarning(const wchar_t* format, ...) override;
  void LogInfo(const wchar_t* format, ...) override;

  // Formats the message, drops its last character, converts it with UCS2ToUTF8 and writes it
  // nowhere: a loadable library owns no log. The lost character is that of the system's formatter,
  // whose limit counts the terminator; a derived class that replaces UCS2ToUTF8 sees the text.
  void LogMessage(const wchar_t* format, va_list arguments);
};

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_MACPLATFORMSERVICES_H_
