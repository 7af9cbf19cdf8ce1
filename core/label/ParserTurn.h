#ifndef POSTWRIGHT_CORE_LABEL_PARSERTURN_H_
#define POSTWRIGHT_CORE_LABEL_PARSERTURN_H_

#include <clocale>
#include <mutex>

namespace postwright {

// For modules in processes that are not ours, an interpreter's or a database's: the locale is
// theirs, and so are the threads.

// The calling thread under a UTF-8 character locale, as the libraries want it; the process's own,
// and that of every other thread, stays as it is. After ParserTurn::Prepare().
class Utf8Locale {
 public:
  Utf8Locale();
  ~Utf8Locale() { uselocale(before_); }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t before_;
};

// The process's only parser, and what stands on it, for one thread at a time.
//
//   const ParserTurn turn;
//   info = AddressParser::GetInstance()->Parse(label);
class ParserTurn {
 public:
  ParserTurn() : lock_(Mutex()) {}

  // Makes the parser, and what else looks at std::locale when it is first used, under UTF-8, and
  // puts the process's locales back. Once, before the first turn, while no other thread asks for
  // the locale. Throws std::runtime_error where the system has no UTF-8 locale.
  static void Prepare();

  // What a turn holds, for who forks: taken before and given back after, in parent and child, so
  // that a child finds the parser at rest. One for the process, whatever modules it has loaded that
  // have this code: being visible makes its static a unique one.
  __attribute__((visibility("default"))) static std::mutex& Mutex() {
    static std::mutex* const mutex = new std::mutex;  // held at exit by a thread that still works
    return *mutex;
  }

 private:
  std::lock_guard<std::mutex> lock_;
  Utf8Locale locale_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_LABEL_PARSERTURN_H_
