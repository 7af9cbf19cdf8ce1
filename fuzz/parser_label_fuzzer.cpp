// A label's text to the parser. What it reads must be what plain searches with the patterns read;
// for the texts that plain searches may take hours for, that it comes back at all.

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

// A process takes a hundred times as long as the parser: a hunt has one for every so many inputs,
// the first among them, and a replay for each.
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

// Blanks and signs alone make a plain search take minutes for a short text, too, so it has a
// process of its own, which ends when its time is over.
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
    // The hunt's own clock rang.
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
