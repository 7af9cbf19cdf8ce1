// A label's text, into the parser. It must read what plain searches with the patterns read; for
// texts on which plain searches may take hours, it must return at all.

#include "tests/core/parser/PlainParser.h"

#include <postwright/AddressParser.h>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cwchar>

#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;

constexpr size_t kLongestForPlainSearch = 60;
constexpr suseconds_t kPatience = 200'000;  // microseconds of the processor
constexpr int kDiffers = 77;

// A process takes a hundred times as long as the parser: a fuzzing run starts one for the first
// input and then for every so many, a replay for each.
#ifdef POSTWRIGHT_HUNTS
constexpr size_t kJudgedOneIn = 64;
#else
constexpr size_t kJudgedOneIn = 1;
#endif

std::wstring Widen(const std::string& bytes) {
  std::wstring text(bytes.size(), L'\0');
  const char* from = bytes.c_str();
  std::mbstate_t state{};
  const size_t length = std::mbsrtowcs(text.data(), &from, text.size(), &state);
  return length <= text.size() ? text.substr(0, length) : std::wstring();
}

// Spaces and signs alone can make a plain search take minutes even for a short text, so it has a
// process of its own, which ends when its time is up.
bool IsShownToDiffer(const std::wstring& text, const AddressInfo& info) {
  static const AddressInfo tablesMadeOnce = ParsePlainly(L"1 A ST APT 4\nAUSTIN TX 78701");
  const pid_t child = fork();
  if (child == 0) {
    const itimerval patience = {{0, 0}, {0, kPatience}};
    setitimer(ITIMER_PROF, &patience, nullptr);
    _exit(info == ParsePlainly(text) ? 0 : kDiffers);
  }
  fuzz::Require(child > 0, "there is room for a process");
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    // The fuzzer's own time limit was reached.
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == kDiffers;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::UseCharacterLocale();
  const std::wstring text = Widen(std::string(fuzz::TextOf(data, size)));
  const AddressInfo info = AddressParser::GetInstance()->Parse(text);
  static size_t inputs = 0;
  const bool isJudged = inputs++ % kJudgedOneIn == 0 && text.size() <= kLongestForPlainSearch;
  fuzz::Require(!isJudged || !IsShownToDiffer(text, info),
                "the parser reads what plain searches read");
  return 0;
}
