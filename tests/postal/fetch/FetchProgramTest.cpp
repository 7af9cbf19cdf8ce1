#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/postal/fetch/FileStandIn.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

using S = FileStandIn;

std::string Corpus(const std::string& name) {
  std::ifstream file(POSTWRIGHT_SOURCE_DIR "/fuzz/corpus/import_table/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class FetchProgramTest : public testing::Test {
 protected:
  FetchProgramTest() {
    for (const char* county : {"48453", "48439", "39001"}) {
      PutCounty("2025", county, "\"1\"");
    }
    server_.Put("/geo/tiger/TIGER2026/README", "x");  // a year's first days
    server_.Put("/geo/docs/reference/codes2020/national_county2020.txt",
                "STATE|STATEFP|COUNTYFP|COUNTYNS|COUNTYNAME\nTX|48|453|1|Travis County\n");
    server_.Put("/download/fc2s-wawr/application/x-zip-compressed", Corpus("nad.zip"));
    server_.Put("/api/data",
                R"([{"source":"us/oh/a","layer":"addresses","name":"city","job":7,"updated":1},)"
                R"({"source":"us/oh/a","layer":"parcels","name":"city","job":8},)"
                R"({"source":"de/oh","layer":"addresses","name":"x","job":9}])");
    server_.Put("/api/job/7/output/source.geojson.gz", Corpus("features.geojson.gz"));
  }

  static std::string PathOf(const std::string& year, const std::string& county) {
    return "/geo/tiger/TIGER" + year + "/ADDRFEAT/tl_" + year + "_" + county + "_addrfeat.zip";
  }

  void PutCounty(const std::string& year, const std::string& county, const std::string& tag) {
    server_.Put(PathOf(year, county), Corpus("addrfeat.zip"), tag);
  }

  // Runs a command where $base is the program, $at names the stand-in, and the user's bases are in
  // data/postwright. Returns its output, followed by its status.
  std::string Run(const std::string& command) {
    const std::string line = "cd '" + folder_.File("") +
                             "'; export XDG_DATA_HOME=\"$PWD/data\"; base=" POSTWRIGHT_BASE
                             "; at='--mirror " +
                             server_.Url() + "'; exec 2>&1; " + command + "\necho \"=$?\"\n";
    FILE* const pipe = popen(("bash " + folder_.Write("command", line)).c_str(), "r");
    std::string said;
    for (int c = 0; (c = fgetc(pipe)) != EOF;) {
      said += static_cast<char>(c);
    }
    pclose(pipe);
    return said;
  }

  TempFolder folder_;
  FileStandIn server_;
};

TEST_F(FetchProgramTest, FetchesListsAndUpdates) {
  struct Row {
    std::string command;
    const char* said;
    std::string asked;
  };
  const std::string root = "/geo/tiger/ 0\n/geo/tiger/TIGER2026/ADDRFEAT/ 0\n";
  const std::string newest = "/geo/tiger/TIGER2025/ADDRFEAT/ 0\n";
  const Row rows[] = {
      {"$base list", "no base is there; 'postwright-base fetch texas' fetches one\n=0", ""},
      {"$base update", "no base was fetched", ""},
      {"$base fetch $at texas", "/data/postwright/texas.base: ",
       root + newest + PathOf("2025", "48439") + " 0\n" + PathOf("2025", "48453") + " 0\n"},
      {"ls data/postwright", "texas.base\ntexas.base.fetched\n=0", ""},
      {"$base list", "/texas.base\n  TIGER/Line, texas\n    imported     20", ""},
      {"$base list", "attribution  U.S. Census Bureau, TIGER/Line 2025\n=0", ""},
      {"$base update", "texas.base: nothing is newer\n=0", root + newest},
      {"$base fetch $at --base t.base 'travis, tx' --year 2025", "t.base: ",
       "/geo/docs/reference/codes2020/national_county2020.txt 0\n" + newest +
           PathOf("2025", "48453") + " 0\n"},
      {"$base info t.base", "streets        some of its ZIP codes", ""},
      {"$base fetch $at --from nad --base n.base ohio", "n.base: ",
       "/download/fc2s-wawr/application/x-zip-compressed 0\n"
       "/download/fc2s-wawr/application/x-zip-compressed 0\n"},
      {"$base fetch $at --from nad --base w.base texas",
       "w.base: stays as it is: nothing that can be",
       "/download/fc2s-wawr/application/x-zip-compressed 0\n"
       "/download/fc2s-wawr/application/x-zip-compressed 0\n"},
      {"echo secret > token; $base fetch $at --from openaddresses --token-file token --base o.base "
       "OH",
       "o.base: ",
       "/api/data Bearer secret 0\n/api/job/7/output/source.geojson.gz Bearer secret 0\n"},
      {"$base info o.base", "OpenAddresses (openaddresses.io) and its sources: us/oh/a\n", ""},
      {"$base fetch $at --year 1999 ohio", "has no address ranges (ADDRFEAT) of the year 1999",
       "/geo/tiger/TIGER1999/ADDRFEAT/ 0\n"},
      {"$base fetch $at vermont", "has no file of vermont\n=2", root + newest},
      {"$base fetch $at --from nad 48453", "name states\n=2", ""},
      {"$base fetch $at nowhere", "'nowhere' is neither a state nor a county",
       "/geo/docs/reference/codes2020/national_county2020.txt 0\n"},
      {"$base fetch --mirror http://example.org texas", "is not https", ""},
      {"$base fetch --from elsewhere texas", "--from", ""},
      {"$base fetch $at --token-file nothing texas", "nothing: has no token in its first line\n=2",
       ""},
      {"$base update t.base none.base", "none.base: was not fetched",
       "/geo/docs/reference/codes2020/national_county2020.txt 0\n" + newest},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.command);
    server_.TakeRequests();
    const std::string said = Run(row.command);
    EXPECT_NE(said.find(row.said), std::string::npos) << said;
    EXPECT_EQ(server_.TakeRequests(), row.asked);
  }
  PutCounty("2026", "48453", "\"1\"");
  EXPECT_NE(Run("$base update; $base list").find("TIGER/Line 2026\n=0"), std::string::npos);
  PutCounty("2026", "48453", "\"2\"");
  EXPECT_NE(Run("$base update").find("texas.base: 0 addresses"), std::string::npos);
  EXPECT_NE(Run("$base update").find("texas.base: nothing is newer"), std::string::npos);
}

// Killed in the middle of a file; then, with all files there, without the server's answers.
TEST_F(FetchProgramTest, GoesOnWhateverEndedIt) {
  const std::string fetch = "$base fetch $at --base t.base texas";
  server_.Play(PathOf("2025", "48453"), {S::Stall});
  const std::string killed =
      Run(fetch +
          " & until [ -s t.base.fetch/tl_2025_48453_addrfeat.zip.part ]; do sleep 0.05; done;"
          "ls t.base; " +
          fetch + "; kill -9 $!; wait $!");
  EXPECT_NE(killed.find("t.base: another fetch for it is under way"), std::string::npos) << killed;
  EXPECT_NE(killed.find("cannot access 't.base'"), std::string::npos) << killed;
  server_.TakeRequests();
  EXPECT_NE(Run("$base fetch $at --base t.base ohio").find("--restart to start over\n=2"),
            std::string::npos);
  const std::string done = Run(fetch);
  EXPECT_NE(done.find("goes on with the fetch that was not finished"), std::string::npos) << done;
  EXPECT_NE(done.find("t.base: 0 addresses and "), std::string::npos) << done;
  const std::string asked = server_.TakeRequests();
  EXPECT_TRUE(asked.starts_with(PathOf("2025", "48453") + " ")) << asked;
  EXPECT_EQ(asked.find("/geo/tiger/ 0"), std::string::npos) << asked;
  EXPECT_FALSE(asked.ends_with(" 0\n")) << asked;
  EXPECT_FALSE(std::filesystem::exists(folder_.File("t.base.fetch")));
}

}  // namespace
}  // namespace postwright::postal
