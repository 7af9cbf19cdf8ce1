#ifndef POSTWRIGHT_TESTS_SUPPORT_FAULTRUNS_H_
#define POSTWRIGHT_TESTS_SUPPORT_FAULTRUNS_H_

#include <functional>
#include <string>

namespace postwright {

// Does the same work repeatedly, and each time the next of its calls goes wrong.
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

    // True if it has the cause in the words of the system or of SQLite.
    bool NamesCause() const;
  };

  std::string folder;             // whose files count; links resolved
  std::function<void()> prepare;  // what is in it before; it is empty then
  std::function<std::string()> work;
  std::function<std::string(const End&)> check;

  // With each call failing; with the disk full from each write on; with each call killing the
  // process, which is then a child. Returns what is wrong, with the call, or that no call went
  // wrong.
  std::string Run() const;

  // The names of the folder's files: "book.csv notes".
  std::string Files() const;

 private:
  std::string RunKind(const std::string& kind) const;
  End RunOne(bool isToDie) const;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_FAULTRUNS_H_
