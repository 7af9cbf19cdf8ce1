#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>

#include "tests/service/Daemon.h"
#include "tests/service/Socket.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

using service::Daemon;
using service::Socket;

constexpr const char* kSample = POSTWRIGHT_SOURCE_DIR "/data/sample/";

struct Ended {
  int status = -1;
  std::string output;  // both streams
};

// Runs a command in bash, where $base is the program, $folder a folder and $sample the sample's.
Ended RunInBash(const std::string& command, const TempFolder& folder) {
  const std::string line = "cd '" + folder.File("") +
                           "'; base=" POSTWRIGHT_BASE "; sample=" + kSample + "; exec 2>&1; " +
                           command;
  const std::string path = folder.Write("command", line);
  FILE* const pipe = popen(("bash " + path).c_str(), "r");
  Ended ended;
  std::array<char, 4096> buffer{};
  for (size_t count = 0; (count = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    ended.output.append(buffer.data(), count);
  }
  const int status = pclose(pipe);
  ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return ended;
}

constexpr const char* kImport =
    "$base import town $sample/town.csv --source Town --licence 'CC BY 4.0' --attribution 'By us'";

TEST(BaseProgramTest, EndsAndSaysWhatItShould) {
  struct Row {
    std::string command;
    int status;
    const char* said;
  };
  const std::string lookup = " Millrace OH 00011 --zips $sample/zips.tsv";
  const Row rows[] = {
      {kImport, 0, "town: 64 addresses and 6 ranges of Town, 0 rows left out"},
      {"$base info town", 0, "licence        CC BY 4.0\nattribution    By us\n"},
      {"$base import town $sample/town-part.csv --source part --partial", 0, "1 addresses"},
      {"$base info town", 0, "attribution    not stated when it was imported\n"},
      {"$base lookup town '40 main st'" + lookup, 0, "- only 'S MAIN ST' fits\n\n40 S MAIN ST\n"},
      {"$base lookup town '14 n main st'" + lookup, 0, "D: the building is confirmed, its unit is"},
      {"$base lookup town '99 oak st'" + lookup, 1, "DPVFootnotes     AAM3\n"},
      {"$base lookup town '9 beich ct'" + lookup, 1, "turned down: -2147219403 Multiple addresses"},
      {"$base lookup nowhere '9 beich ct'" + lookup, 2, "nowhere: cannot be read"},
      {"$base info $sample/town.csv", 2,
       "is not an address base; 'postwright-base import' makes one"},
      {"$base import town $sample/town.csv", 2, "--source is required"},
      {"$base import town x.csv --source a", 2, "x.csv: cannot be read: No such file"},
      {"$base import town command --source a", 2, "columns are of no known format; say which"},
      {"$base import town $sample/town.csv --source a --map street=X", 2, "no column 'X'"},
      {"$base import town $sample/town.csv --source a --map stret=X", 2, "'stret' is not a field"},
      {"l=$sample/licensed; $base import usps $l/ctystate.txt $l/ctystate-2.txt $l/zip4.txt "
       "$l/zip4-changes.txt "
       "--source USPS",
       0,
       "usps: 0 addresses and 20 ranges of USPS, 10 names of places and streets, 4 rows left out"},
      {"$base info usps", 0, "USPS City State, USPS ZIP+4\n"},
      {"$base lookup usps 'rr 1 box 20' Copperfield OH 00018 --zips $sample/licensed/zips.tsv", 0,
       "have it among those of 'RR 1'"},
      {"echo number,street,zip > none.csv; $base import town none.csv --source Town", 2,
       "town: stays as it is: nothing that can be imported is in the files of Town"},
      {"$base", 2, "postwright-base --help' says more"},
      {"$base import --help", 0, "Rows without a house number"},
      {"$base import /nowhere/town $sample/town.csv --source a", 2, "/nowhere/town.import"},
  };
  const TempFolder folder;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.command);
    const Ended ended = RunInBash(row.command, folder);
    EXPECT_EQ(ended.status, row.status);
    EXPECT_NE(ended.output.find(row.said), std::string::npos) << ended.output;
  }
}

TEST(BaseProgramTest, StopsOnASignalAndGoesOn) {
  const TempFolder folder;
  const Ended ended = RunInBash(
      "{ echo number,street,zip; for ((i = 1; i <= 60000; ++i)); do echo $i,MAIN ST,00011; done; } "
      "> many.csv; cat many.csv many.csv many.csv many.csv many.csv | grep -v n > more.csv; "
      "cat more.csv >> many.csv; "
      "$base import many many.csv --source many & until [ -e many.import ]; do sleep 0.01; done; "
      "kill $!; wait $!; echo =$?; "
      "ls many; $base import many many.csv --source many; echo =$?; $base info many",
      folder);
  EXPECT_NE(ended.output.find("stopped; many is as it was. The same command goes on\n=130\n"),
            std::string::npos)
      << ended.output;
  EXPECT_NE(ended.output.find("cannot access 'many'"), std::string::npos);
  EXPECT_NE(ended.output.find("goes on with the import that was stopped"), std::string::npos);
  EXPECT_NE(ended.output.find("many: 360,000 addresses"), std::string::npos) << ended.output;
}

std::string Ask(Socket& client, const std::string& line) {
  client.Send(
      "GET /ShippingAPI.dll?API=Verify&XML=<AddressValidateRequest+USERID='X'><Revision>1"
      "</Revision><Address><Address2>" +
      line +
      "</Address2><City>Millrace</City><State>OH</State><Zip5>00011</Zip5></Address>"
      "</AddressValidateRequest> HTTP/1.1\r\nHost: a\r\n\r\n");
  const std::string response = client.ReceiveResponse();
  return response.substr(response.find("\r\n\r\n") + 4);
}

TEST(BaseProgramTest, TheServiceTakesABaseAndItsSuccessor) {
  const TempFolder folder;
  ASSERT_EQ(RunInBash("$base import town $sample/town.csv --source Town", folder).status, 0);
  Daemon daemon({"--listen", "127.0.0.1:0", "--base", folder.File("town"), "--base",
                 std::string(kSample) + "zips.tsv"});
  Socket client(daemon.ReadAddress());
  EXPECT_EQ(
      Ask(client, "14+north+main+st"),
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<AddressValidateResponse><Address>"
      "<Address2>14 N MAIN ST</Address2><City>MILLRACE</City><State>OH</State>"
      "<Zip5>00011</Zip5><Zip4>1400</Zip4><ReturnText>Default address: The address you entered "
      "was found but more information is needed (such as an apartment, suite, or box number) to "
      "match to a specific address.</ReturnText><Footnotes>HN</Footnotes>"
      "<DPVConfirmation>D</DPVConfirmation><DPVFootnotes>AAN1</DPVFootnotes>"
      "<CentralDeliveryPoint>N</CentralDeliveryPoint></Address></AddressValidateResponse>");
  const std::string unknown = "7+NEW+ST";
  EXPECT_NE(Ask(client, unknown).find("-2147219401"), std::string::npos);
  folder.Write("new.csv", "number,street,zip\n7,NEW ST,00011\n");
  ASSERT_EQ(RunInBash("$base import town new.csv --source new", folder).status, 0);
  EXPECT_NE(Ask(client, unknown).find("-2147219401"), std::string::npos);
  daemon.Signal(SIGHUP);
  while (daemon.ReadLine().find("the base was read again") == std::string::npos) {
  }
  EXPECT_NE(Ask(client, unknown).find("<DPVConfirmation>Y"), std::string::npos);
  folder.Write("town", "no base any more");
  daemon.Signal(SIGHUP);
  while (daemon.ReadLine().find("the old base stays in use") == std::string::npos) {
  }
  EXPECT_NE(Ask(client, unknown).find("<DPVConfirmation>Y"), std::string::npos);
}

}  // namespace
}  // namespace postwright::postal
