// A label's text to the parser. What it reads must be what plain searches with the patterns read;
// for the longer texts, which plain searches may take hours for, that it comes back at all.

#include "tests/core/parser/PlainParser.h"

#include <postwright/AddressParser.h>

#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <locale>
#include <string>

namespace {

constexpr size_t kLongestForPlainSearch = 60;

std::wstring Widen(const std::string& bytes) {
  std::wstring text(bytes.size(), L'\0');
  const char* from = bytes.c_str();
  std::mbstate_t state{};
  const size_t length = std::mbsrtowcs(text.data(), &from, text.size(), &state);
  return length <= text.size() ? text.substr(0, length) : std::wstring();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::locale locale =
      std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  const std::wstring text = Widen(std::string(data, data + size));
  const postwright::AddressInfo info = postwright::AddressParser::GetInstance()->Parse(text);
  if (text.size() <= kLongestForPlainSearch && info != postwright::ParsePlainly(text)) {
    std::abort();
  }
  return 0;
}
