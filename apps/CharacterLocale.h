#ifndef POSTWRIGHT_APPS_CHARACTERLOCALE_H_
#define POSTWRIGHT_APPS_CHARACTERLOCALE_H_

namespace postwright {

// Sets the character locale of the process, for the C library and for std::locale alike: the one
// the user's environment names, or C.UTF-8 where that is not UTF-8. The parser and the platform
// services read and upper-case letters by it, so a program calls this first thing in main, before
// any thread and before any of them is used. Everything but LC_CTYPE stays as in "C": numbers and
// messages do not change with the user's language.
//
// Throws std::runtime_error where the system has no UTF-8 locale at all.
void SetCharacterLocale();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_CHARACTERLOCALE_H_
