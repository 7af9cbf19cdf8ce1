#ifndef POSTWRIGHT_PYTHON_NATIVE_TURN_H_
#define POSTWRIGHT_PYTHON_NATIVE_TURN_H_

#include <pybind11/pybind11.h>

#include <clocale>
#include <mutex>

namespace postwright::python {

// The calling thread under a UTF-8 character locale, as the libraries want it; the process's own,
// and that of every other thread, stays as it is.
class Utf8Locale {
 public:
  Utf8Locale();
  ~Utf8Locale() { uselocale(before_); }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t before_;
};

// The process's only parser for one thread at a time, without the interpreter's lock while it
// waits and works.
//
//   const Turn turn;
//   info = AddressParser::GetInstance()->Parse(label);
//
// Who holds one and wants to touch Python takes the interpreter's lock for that long.
class Turn {
 public:
  Turn() : lock_(Mutex()) {}

  // Makes the parser, and what else looks at std::locale when it is first used, under UTF-8, and
  // puts the process's locales back. Once, before the first turn. Throws std::runtime_error where
  // the system has no UTF-8 locale.
  static void Prepare();

  // Around a fork, on the thread that forks, so that a child finds the parser at rest: the first
  // waits until no turn is taken and holds the others back, the second, in parent and child, lets
  // them go on.
  static void HoldBack();
  static void LetGo();

 private:
  static std::mutex& Mutex();

  pybind11::gil_scoped_release released_;
  std::lock_guard<std::mutex> lock_;
  Utf8Locale locale_;
};

}  // namespace postwright::python

#endif  // POSTWRIGHT_PYTHON_NATIVE_TURN_H_
