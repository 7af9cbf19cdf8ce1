#include <postwright/LogFormat.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <memory>

namespace postwright {

namespace {

// Returns `format` with "%s" as "%ls" and "%S" as "%s": in the C library's wide output the bare
// "%s" takes a narrow string.
std::wstring ToLibraryFormat(const std::wstring& format) {
  std::wstring translated;
  size_t position = 0;
  for (size_t percent; (percent = format.find(L'%', position)) != std::wstring::npos;) {
    const size_t conversion = format.find_first_not_of(L"-+ #0123456789.*'$", percent + 1);
    if (conversion == std::wstring::npos) {
      break;
    }
    translated.append(format, position, conversion - position);
    switch (format[conversion]) {
      case L's':
        translated += L"ls";
        break;
      case L'S':
        translated += L's';
        break;
      default:
        translated += format[conversion];
    }
    position = conversion + 1;
  }
  return translated.append(format, position);
}

}  // namespace

std::wstring FormatLogMessage(const wchar_t* format, va_list arguments) {
  if (format == nullptr) {
    return {};
  }
  // A stream in memory measures and formats in one pass; vswprintf can only be given buffers until
  // one is long enough.
  wchar_t* text = nullptr;
  size_t length = 0;
  std::FILE* stream = open_wmemstream(&text, &length);
  if (stream == nullptr) {
    return {};
  }
  const bool formatted = std::vfwprintf(stream, ToLibraryFormat(format).c_str(), arguments) >= 0;
  const bool complete = std::fclose(stream) == 0 && formatted;
  const std::unique_ptr<wchar_t, decltype(&std::free)> owner(text, &std::free);
  return complete ? std::wstring(text, length) : std::wstring();
}

}  // namespace postwright
