#include "core/label/ParserTurn.h"

#include <postwright/AddressLines.h>
#include <postwright/AddressParser.h>

#include <locale>
#include <stdexcept>
#include <string>

namespace postwright {

namespace {

constexpr const char* kUtf8 = "C.UTF-8";

locale_t Utf8() {
  static const locale_t utf8 = newlocale(LC_CTYPE_MASK, kUtf8, nullptr);
  return utf8;
}

// std::locale's locale, and with it the C library's, which it sets along, put back at the end.
class KeptLocales {
 public:
  ~KeptLocales() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, ofC_.c_str());
  }

 private:
  const std::string ofC_ = std::setlocale(LC_ALL, nullptr);
  const std::locale before_;
};

}  // namespace

Utf8Locale::Utf8Locale() : before_(uselocale(Utf8())) {}

void ParserTurn::Prepare() {
  if (Utf8() == nullptr) {
    throw std::runtime_error(std::string("the system has no locale ") + kUtf8);
  }
  const KeptLocales kept;
  std::locale::global(std::locale(std::locale::classic(), kUtf8, std::locale::ctype));
  AddressParser::GetInstance();
  const AddressLines lines(L"12 Main St\n2nd Floor\nPO Box 1\nAustin TX 78701");  // its patterns
}

}  // namespace postwright
