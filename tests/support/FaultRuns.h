#ifndef POSTWRIGHT_TESTS_SUPPORT_FAULTRUNS_H_
#define POSTWRIGHT_TESTS_SUPPORT_FAULTRUNS_H_

#include <functional>
#include <string>

namespace postwright {

// Does something again and again, and each time another of its calls goes wrong.
//
//   FaultRuns runs;
//   runs.folder = folder.File("");
//   runs.prepare = [] { what is in the folder before };
//   runs.work = [] { save; return what it says, "" where it has saved; };
//   runs.check = [](const FaultRuns::End& end) { return what is wrong, or ""; };
//   EXPECT_EQ(runs.Run(), "");
struct FaultRuns {
  struct End {
    bool isKilled = false;
    std::string said;

    // True where it has the cause in the words of the system or of SQLite.
    bool NamesCause() const;
  };

  std::string folder;             // whose files count; links resolved
  std::function<void()> prepare;  // what is in it before; it is empty then
  std::function<std::string()> work;
  std::function<std::string(const End&)> check;

  // Each call failing; the disk being full from each write on; each call killing the process, which
  // is another one then. Returns what is wrong, with the call; also where no call went wrong.
  std::string Run() const;

  // The names of the folder's files: "book.csv notes".
  std::string Files() const;

 private:
  std::string RunKind(const std::string& kind) const;
  End RunOne(bool isToDie) const;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_FAULTRUNS_H_
