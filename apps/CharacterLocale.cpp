#include "apps/CharacterLocale.h"

#include <langinfo.h>

#include <clocale>
#include <cstring>
#include <locale>
#include <string>

namespace postwright {

void SetCharacterLocale() {
  const char* const chosen = std::setlocale(LC_CTYPE, "");
  const bool isUtf8 = chosen != nullptr && std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
  const std::string name = isUtf8 ? chosen : "C.UTF-8";
  std::locale::global(std::locale(std::locale::classic(), name, std::locale::ctype));
}

}  // namespace postwright
