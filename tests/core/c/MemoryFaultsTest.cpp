// Whichever allocation fails, even for the tables that are made once: each call says so, and the
// same call afterwards succeeds.

#include <postwright/postwright.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "tests/support/FaultShim.h"

namespace postwright {

namespace {

constexpr char kLabel[] = "Zo\xC3\xAB Doe\n12 main street, apt 4\naustin tx 78701\nfragile";
constexpr char kFixed[] = "ZO\xC3\x8B DOE\n12 MAIN ST APT 4\nAUSTIN, TX 78701-1234\nFRAGILE";
constexpr char kReply[] =
    "<R><Address><Address2>12 MAIN ST APT 4</Address2><City>AUSTIN</City><State>TX</State>"
    "<Zip5>78701</Zip5><Zip4>1234</Zip4></Address></R>";

int32_t Reply(void*, const char*, postwright_body* body) {
  return postwright_body_append(body, kReply, sizeof kReply - 1);
}

// Each call's result, and whether what it returned is right. Allocates nothing itself.
struct Ends {
  std::array<int32_t, 5> results{};
  std::array<bool, 5> isRight{};
};

void UseCore(Ends& ends) {
  const size_t length = sizeof kLabel - 1;
  postwright_address* address = nullptr;
  ends.results[0] = postwright_parse(kLabel, length, &address);
  ends.isRight[0] =
      std::strcmp(postwright_address_element(address, POSTWRIGHT_CITY), "AUSTIN") == 0;
  postwright_address_free(address);

  postwright_lines* lines = nullptr;
  ends.results[1] = postwright_address_lines(kLabel, length, &lines);
  ends.isRight[1] =
      std::strcmp(postwright_lines_text(lines, POSTWRIGHT_LINES_BELOW), "\nfragile") == 0;
  postwright_lines_free(lines);

  const postwright_services services = {sizeof services, nullptr, Reply, nullptr};
  ends.results[2] = postwright_fix(kLabel, length, &services, nullptr, &address);
  ends.results[2] -= ends.results[2] == POSTWRIGHT_DEFAULT_MATCH ? POSTWRIGHT_DEFAULT_MATCH : 0;
  ends.isRight[2] = std::strcmp(postwright_address_text(address), kFixed) == 0;
  postwright_address_free(address);

  postwright_review* review = nullptr;
  ends.results[3] =
      postwright_review_new(kLabel, length, kFixed, sizeof kFixed - 1, nullptr, &review);
  ends.isRight[3] = postwright_review_count(review) > 0;
  postwright_review_free(review);

  postwright_report* report = nullptr;
  ends.results[4] = postwright_report_new(kReply, sizeof kReply - 1, &report);
  ends.isRight[4] = report != nullptr;
  postwright_report_free(report);
}

// The status of a process that meets the fault: 0, or 1 with the number of the call.
int UseCoreWithout(long piece) {
  const pid_t child = fork();
  if (child == 0) {
    Ends ends;
    Ends again;
    FaultShimFailMemory(piece);
    UseCore(ends);
    FaultShimFailMemory(0);
    UseCore(again);
    for (size_t call = 0; call < ends.results.size(); ++call) {
      const bool isTold = ends.results[call] == POSTWRIGHT_NO_MEMORY;
      if (!(isTold || (ends.results[call] == POSTWRIGHT_NONE && ends.isRight[call]))) {
        _exit(10 + static_cast<int>(call));
      }
      if (again.results[call] != POSTWRIGHT_NONE || !again.isRight[call]) {
        _exit(20 + static_cast<int>(call));
      }
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

// Counted in a process of its own, since the tables are made once in each.
long CountPieces() {
  int ends[2] = {-1, -1};
  if (pipe(ends) == 0 && fork() == 0) {
    Ends unused;
    FaultShimFailMemory(0);
    UseCore(unused);
    const long counted = FaultShimMemoryCalls();
    _exit(write(ends[1], &counted, sizeof counted) > 0 ? 0 : 1);
  }
  long counted = 0;
  const bool isRead = read(ends[0], &counted, sizeof counted) == sizeof counted;
  wait(nullptr);
  return isRead ? counted : 0;
}

TEST(MemoryFaultsTest, EachCallOutlivesEachPieceThatIsMissing) {
  constexpr long kFirst = 200;
  constexpr long kSpread = 200;
  const long all = CountPieces();
  if (all == 0) {
    GTEST_SKIP() << "A sanitizer's memory has no faults.";
  }
  ASSERT_GT(all, 2 * kFirst);
  for (long i = 0; i <= kFirst + kSpread; ++i) {
    const long piece = i <= kFirst ? i : kFirst + (all - kFirst) * (i - kFirst) / kSpread;
    EXPECT_EQ(UseCoreWithout(piece), 0) << piece << " of " << all;
  }
}

}  // namespace

}  // namespace postwright
