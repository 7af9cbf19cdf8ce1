#ifndef POSTWRIGHT_PLATFORM_LOGFORMAT_H_
#define POSTWRIGHT_PLATFORM_LOGFORMAT_H_

#include <postwright/Export.h>

#include <cstdarg>
#include <string>

namespace postwright {

// Returns the message that IPlatformServices::LogError and the like are given, for a class that
// replaces them:
//
//   void LogWarning(const wchar_t* format, ...) override {
//     va_list arguments;
//     va_start(arguments, format);
//     Show(FormatLogMessage(format, arguments));
//     va_end(arguments);
//   }
//
// In `format` the conversions "%s" and "%S", flags, width and precision included, take a wide and a
// narrow string; every other conversion is the C library's, one with a length of its own ("%ls",
// "%hs") too. Null arguments print as the C library prints them. Empty for a null format, for an
// empty message, and for one that cannot be formatted, such as one with a narrow string that is not
// in the locale's encoding.
POSTWRIGHT_CORE_EXPORT std::wstring FormatLogMessage(const wchar_t* format, va_list arguments);

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_LOGFORMAT_H_
