#ifndef POSTWRIGHT_PLATFORM_IPLATFORMSERVICES_H_
#define POSTWRIGHT_PLATFORM_IPLATFORMSERVICES_H_

#include <postwright/Export.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace postwright {

// The one seam between the verification engine and the system: network, character conversion, URL
// escaping, log. MacPlatformServices is the implementation to use; a host that needs another
// network or wants the log derives from it and replaces single operations:
//
//   class LoggingServices final : public MacPlatformServices {
//     void LogWarning(const wchar_t* format, ...) override;
//   };
//   LoggingServices services;
//   Postwright::Fix(text, true, &services);
//
// The engine borrows the object for one fix and calls it on the fix's thread. Several fixes may use
// one object at once only if its operations allow that; they keep no state between calls. Nothing
// here throws but std::bad_alloc, whatever the text: a failure is an empty result.
//
// Wide strings hold one code point an element, narrow strings UTF-8. A string ends at its first NUL
// in both forms of an operation: the reference form does to a string what the pointer form does to
// its c_str().
class POSTWRIGHT_CORE_EXPORT IPlatformServices {
 public:
  // Converts between wide text and UTF-8. Returns the empty string for null, for empty text, and
  // for text of which any part cannot be converted; never a part of the text.
  virtual std::string UCS2ToUTF8(const std::wstring& text) = 0;
  virtual std::string UCS2ToUTF8(const wchar_t* text) = 0;
  virtual std::wstring UTF8ToUCS2(const std::string& text) = 0;
  virtual std::wstring UTF8ToUCS2(const char* text) = 0;

  // Returns `text` as the value of a URL's query parameter: what RFC 2396 does not allow in a URL
  // becomes percent escapes of its UTF-8 bytes, and the entities that the request's XML printer
  // writes for an ampersand, an apostrophe and a tab are made safe. Empty on failure.
  virtual std::wstring UrlEscape(const wchar_t* text) = 0;
  virtual std::wstring UrlEscape(const std::wstring& text) = 0;

  // Returns `text` with every percent escape replaced by the character whose UTF-8 it encodes.
  // Empty where an escape is broken.
  virtual std::wstring UrlUnescape(const wchar_t* text) = 0;

  // Fetches an absolute URL with one blocking GET and returns the whole body, byte for byte, with
  // no terminator. Never null; the caller owns it. Empty on any failure (malformed URL, no
  // connection, half a body), whose cause is not told. The status code is not looked at: the body
  // of an error page is a body.
  virtual std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) = 0;

  // Reads an optionally signed decimal number from the start of `text`, after any white space, up
  // to the first character that is not a digit. 0 where there is none.
  virtual std::int32_t StringToInt(const wchar_t* text) = 0;

  // Takes a message as a wide printf-style format and its arguments. The engine's formats are those
  // of the system that it was made for: "%s" takes a wide string and "%S" a narrow one, the reverse
  // of the C library's wide formats: vswprintf() itself would print one letter of a message.
  // FormatLogMessage() (LogFormat.h) formats them.
  virtual void LogError(const wchar_t* format, ...) = 0;
  virtual void LogWarning(const wchar_t* format, ...) = 0;
  virtual void LogInfo(const wchar_t* format, ...) = 0;

 protected:
  // Objects belong to their concrete type and are never destroyed through the interface.
  ~IPlatformServices() = default;
};

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_IPLATFORMSERVICES_H_
