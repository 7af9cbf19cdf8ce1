#include <gtest/gtest.h>
#include <signal.h>

#include <atomic>
#include <thread>

#include "service/UserList.h"
#include "tests/service/Daemon.h"
#include "tests/service/Socket.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

std::string Ask(Socket& client, const std::string& line = "12 main street") {
  client.Send(AskForMain(line));
  return client.ReceiveResponse();
}

bool IsGood(const std::string& response) {
  return response.starts_with("HTTP/1.1 200 OK\r\n") &&
         response.find("<Address2>12 MAIN ST</Address2><City>AUSTIN</City>") != std::string::npos;
}

TEST(DaemonTest, LogsALineARequestAndNoAddress) {
  for (const bool logged : {false, true}) {
    std::vector<std::string> arguments = {"--listen", "127.0.0.1:0"};
    if (logged) {
      arguments.emplace_back("--log-addresses");
    }
    Daemon daemon(arguments);
    Socket client(daemon.ReadAddress());
    EXPECT_TRUE(IsGood(Ask(client)));
    const std::string line = daemon.ReadLine();
    EXPECT_TRUE(line.starts_with("postwright-verifyd: 127.0.0.1 GET 200 ")) << line;
    EXPECT_NE(line.find(" api=Verify addresses=1 rejected=0"), std::string::npos) << line;
    EXPECT_EQ(line.find("78701") != std::string::npos, logged) << line;
    client.Send("GET /12+MAIN+ST HTTP/1.1\r\nHost: a\r\n\r\n");
    EXPECT_TRUE(client.ReceiveResponse().starts_with("HTTP/1.1 404"));
    EXPECT_EQ(daemon.ReadLine().find("MAIN"), std::string::npos);
    daemon.Signal(logged ? SIGINT : SIGTERM);
    EXPECT_EQ(daemon.Wait(), 0);
    EXPECT_EQ(daemon.ReadLine(), "");
  }
}

// Reads the log up to a line that ends with this.
void AwaitLine(Daemon& daemon, const std::string& end) {
  std::string line = daemon.ReadLine();
  while (!line.empty() && !line.ends_with(end)) {
    line = daemon.ReadLine();
  }
  EXPECT_NE(line, "") << end;
}

// Beyond loopback too: a connection to the address 0.0.0.0 reaches this machine.
TEST(DaemonTest, AnswersItsUsersAlone) {
  const TempFolder folder;
  const std::string users = folder.Write("users", "# ours\n\n 1\r\n22\n");
  Daemon daemon({"--listen", "0.0.0.0:0", "--users", users});
  Socket client(daemon.ReadAddress());
  EXPECT_TRUE(IsGood(Ask(client)));
  folder.Write("users", "11\n");
  daemon.Signal(SIGHUP);
  AwaitLine(daemon, "the list of users was read again");
  EXPECT_NE(Ask(client).find("<Number>80040B1A</Number>"), std::string::npos);
  AwaitLine(daemon, " api=Verify fault=unknown-user");
  folder.Write("users", "1\nJane Doe\n");
  daemon.Signal(SIGHUP);
  AwaitLine(daemon,
            "users: line 2: is not a USERID of up to 100 letters without a blank; the old "
            "list of users stays in use");
  EXPECT_FALSE(IsGood(Ask(client)));
  folder.Write("users", std::string(UserList::kLongestName, 'a') + "\n1\n");
  daemon.Signal(SIGHUP);
  AwaitLine(daemon, "the list of users was read again");
  EXPECT_TRUE(IsGood(Ask(client)));
  folder.Write("users", std::string(UserList::kLongestName + 1, 'a') + '\n');
  daemon.Signal(SIGHUP);
  AwaitLine(daemon, "the old list of users stays in use");
}

// A client's text can neither end the quotation marks around it nor control a terminal.
TEST(DaemonTest, LogsAddressesInTheirQuotes) {
  Daemon daemon({"--listen", "127.0.0.1:0", "--log-addresses"});
  Socket client(daemon.ReadAddress());
  Ask(client, "1\"|\\%C2%9B2J%C2%85%E2%80%AE");
  const std::string line = daemon.ReadLine();
  EXPECT_NE(line.find(" asked=\"1\\\"\\|\\\\?2J??|"), std::string::npos) << line;
}

TEST(DaemonTest, ReadsItsBaseAgainUnderRequests) {
  const TempFolder folder;
  const std::string base = folder.Write("base.tsv", "78701\tAustin\tTX\n");
  // Quiet: if the log grows faster than it is read here, the awaited line may be left out.
  Daemon daemon({"--listen", "127.0.0.1:0", "--base", base, "--quiet"});
  const std::string address = daemon.ReadAddress();
  std::atomic<bool> isOver = false;
  std::atomic<int> lost = 0;
  std::vector<std::thread> clients;
  for (int i = 0; i < 2; ++i) {
    clients.emplace_back([&] {
      for (Socket client(address); !isOver;) {
        const std::string answer = Ask(client);
        lost += IsGood(answer) || answer.find("<City>HUTTO</City>") < answer.size() ? 0 : 1;
      }
    });
  }
  Socket client(address);
  for (const char* city : {"Hutto", "Austin", "Hutto", "broken"}) {
    folder.Write("base.tsv", std::string("78701\t") + city + "\tTX\n");
    if (city == std::string("broken")) {
      folder.Write("base.tsv", "78701,Austin,TX\n");
    }
    daemon.Signal(SIGHUP);
    AwaitLine(daemon, city == std::string("broken") ? "; the old base stays in use"
                                                    : "the base was read again");
    EXPECT_EQ(IsGood(Ask(client)), city == std::string("Austin"));
  }
  isOver = true;
  for (std::thread& thread : clients) {
    thread.join();
  }
  EXPECT_EQ(lost, 0);
}

TEST(DaemonTest, SaysWhatWouldBeRight) {
  Daemon holder({"--listen", "127.0.0.1:0"});
  const std::string taken = holder.ReadAddress();
  const TempFolder folder;
  const std::string keys = folder.Write("credentials", "client_id = a\nclient_secret = b");
  const std::string notABase = folder.Write("base.tsv", "78701,Austin,TX\n");
  const struct {
    std::vector<std::string> arguments;
    int status;
    std::string text;  // in the first line
  } rows[] = {
      {{"--help"}, 0, "A local service that answers"},
      {{"--version"}, 0, "postwright-verifyd 0."},
      {{"--listen", "nowhere"}, 2, "'nowhere' is not ADDRESS:PORT, as in 127.0.0.1:8470"},
      {{"--listen"}, 2, "--listen"},
      {{"--frobnicate"}, 2, "--frobnicate"},
      {{"more"}, 2, "more"},
      {{"--listen", taken}, 1, "cannot listen on " + taken + ": Address already in use"},
      {{"--listen", "127.0.0.1:0", "--base", "/nonexistent.tsv"},
       1,
       "/nonexistent.tsv: cannot be read"},
      {{"--listen", "127.0.0.1:0", "--base", notABase}, 1, notABase + ": line 1: is not ZIP, city"},
      {{"--path-prefix", "usps", "--listen", "127.0.0.1:0"},
       2,
       "'usps' does not begin with a slash"},
      {{"--listen", "[::]:0"}, 2, "--users: is needed to listen on [::]:0, where other machines"},
      {{"--users", "/dev/null"}, 1, "/dev/null: holds no USERID; it has one a line"},
      {{"--users", "/nonexistent"}, 1, "/nonexistent: cannot be read: No such file"},
      {{"--connections", "0"}, 2, "--connections: Value 0 not in range"},
      {{"--body-size", "1K"}, 2, "--body-size"},
      {{"--idle-time", "60s"}, 2, "--request-time: must be longer than a silence"},
      {{"--upstream", "postal-v3"}, 2, "--credentials: is needed with --upstream"},
      {{"--upstream", "postal-v4", "--credentials", keys}, 2, "takes 'postal-v3' or 'verify-xml"},
      {{"--upstream", "verify-xml", "a@b", "--credentials", keys}, 2, "is not HOST[:PORT]"},
      {{"--upstream", "postal-v3", "--upstream-url", "http://example.com"}, 2, "is not https://"},
      {{"--budget", "60"}, 2, "'60' is not as 60/h, 5/min or none"},
      {{"--deadline", "20"}, 2, "'20' is not as 30d, 12h or 20s"},
      {{"--upstream", "postal-v3", "--credentials", keys, "--deadline", "30s"},
       2,
       "--request-time: must be longer than a silence and an answer together, which may take 60s"},
      {{"--credentials", "/nonexistent", "--fallback", "base"}, 2, " requires --upstream"},
      {{"--trusted-proxy", "localhost"}, 2, "'localhost' is not an address"},
      {{"--fallback", "cache"}, 2, "takes 'base' or 'none'"},
      {{"--upstream", "postal-v3", "--credentials", "/nonexistent"}, 1, "/nonexistent: cannot be"},
      {{"--upstream", "postal-v3", "--credentials", keys, "--cache", "/dev/null/a"},
       1,
       "/dev/null/a: "},
      {{"--upstream", "verify-xml", "127.0.0.1:1", "--credentials", keys}, 1, "needs user_id"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    Daemon daemon(row.arguments);
    EXPECT_EQ(daemon.Wait(), row.status);
    EXPECT_NE(daemon.ReadLine().find(row.text), std::string::npos);
  }
}

}  // namespace
}  // namespace postwright::service
