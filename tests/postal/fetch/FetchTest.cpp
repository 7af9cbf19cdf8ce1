#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "postal/fetch/FetchError.h"
#include "postal/fetch/FetchPlaces.h"
#include "postal/fetch/FileFetch.h"
#include "postal/fetch/IndexPage.h"
#include "postal/fetch/SiteClient.h"
#include "tests/postal/base/PackedFiles.h"
#include "tests/postal/fetch/FileStandIn.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

using S = FileStandIn;

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Bytes that do not pack well, so that the archive has a middle.
std::string Noise(size_t size) {
  std::string noise;
  for (uint32_t number = 1; noise.size() < size; number = number * 1'664'525 + 1'013'904'223) {
    noise += static_cast<char>(number >> 24U);
  }
  return noise;
}

constexpr const char* kPath = "/a/b.zip";

class FetchTest : public testing::Test {
 protected:
  FetchTest() {
    manners_.wait = [this](std::chrono::seconds time) {
      waits_ += std::to_string(time.count()) + " ";
      return true;
    };
    manners_.pause = {};
  }

  // Fetches the file; returns the message, "" if the file came.
  std::string Fetch() {
    SiteClient client({server_.Url(), {}, ""}, manners_);
    try {
      FetchFile(client, manners_, {server_.Url() + kPath, "b.zip", ""}, folder_.File(""),
                {Packing::Zip, 100'000, 100'000}, {});
      return "";
    } catch (const FetchError& error) {
      return error.what();
    }
  }

  std::string Archive(const std::string& member, const std::string& content) const {
    return BytesOf(WriteZip(folder_, "made", {{member, content}}));
  }

  TempFolder folder_;
  FileStandIn server_;
  FetchManners manners_;
  std::string waits_;
};

// Whatever the server does: the file comes whole and once, or the message says why not.
TEST_F(FetchTest, BringsAFileWhateverTheServerDoes) {
  const std::string good = Archive("a.dbf", Noise(9'000));
  const auto cutAt = [&good](size_t from) {  // as FileStandIn::Cut does
    return good.size() - (good.size() - from) * 2 / 3;
  };
  const std::string rest = std::to_string(cutAt(0));
  const std::string later = std::to_string(cutAt(cutAt(0)));
  const S::Trick forbidden = S::Status("403 Forbidden");
  const auto elsewhere = [](const std::string& to) {
    return S::Status("302 Found", "Location: " + to + "\r\n");
  };
  struct Row {
    const char* name;
    std::vector<S::Trick> tricks;
    std::string asked;  // from which byte on, each time
    std::string waits;  // in seconds
    std::string said;
  };
  const Row rows[] = {
      {"it sends it", {}, "0", "", ""},
      {"turns us away", {forbidden, forbidden}, "0 0 0", "5 10", ""},
      {"a page with status 200", {S::Page}, "0 0", "5", ""},
      {"asks for patience", {S::Status("429 Slow", "Retry-After: 70\r\n")}, "0 0", "70", ""},
      {"for less", {S::Status("503 Busy", "Retry-After: 1\r\n")}, "0 0", "5", ""},
      {"for a day", {S::Status("503 Busy", "Retry-After: 86400\r\n")}, "0 0", "3600", ""},
      {"cuts it short", {S::Cut}, "0 " + rest, "5", ""},
      {"twice", {S::Cut, S::Cut}, "0 " + rest + " " + later, "5 5", ""},
      {"has another by then", {S::Cut, S::Changed}, "0 " + rest, "5", ""},
      {"knows no ranges", {S::Cut, S::WholeAgain}, "0 " + rest, "5", ""},
      {"sends another rest", {S::Cut, S::WrongRest}, "0 " + rest + " 0", "5 10", ""},
      {"has no such rest", {S::Cut, S::Status("416 No")}, "0 " + rest + " 0", "5 10", ""},
      {"a page for a rest", {S::Cut, S::Page}, "0 " + rest + " " + rest, "5 10", ""},
      {"sends a damaged one", {S::Damaged}, "0 0", "5", ""},
      {"sends us on", {elsewhere(kPath)}, "0 0", "", ""},
      {"to another host", {elsewhere("https://example.invalid/")}, "0", "", "name it with --host"},
      {"to what is not a page", {elsewhere("file:///etc/passwd")}, "0", "", "is not asked"},
      {"in a circle", std::vector<S::Trick>(9, elsewhere(kPath)), "0 0 0 0 0 0", "",
       "is not asked"},
      {"has none", {S::Status("404 No")}, "0", "", "has no such file"},
      {"wants a login", {S::Status("401 Who")}, "0", "", "give --token-file"},
      {"turns us away for ever", std::vector<S::Trick>(9, forbidden), "0 0 0 0 0 0 0 0",
       "5 10 20 40 80 160 320", "turns us away (status 403), 8 times"},
  };
  for (const bool hasTag : {true, false}) {
    for (const Row& row : rows) {
      SCOPED_TRACE(std::string(row.name) + (hasTag ? "" : ", by its date"));
      std::filesystem::remove_all(folder_.File("b.zip"));
      waits_.clear();
      server_.Put(kPath, good, hasTag ? "\"1\"" : "");
      server_.Play(kPath, row.tricks);
      const std::string said = Fetch();
      EXPECT_EQ(said.empty(), row.said.empty()) << said;
      EXPECT_NE(said.find(row.said), std::string::npos) << said;
      EXPECT_EQ(std::filesystem::exists(folder_.File("b.zip")), row.said.empty());
      EXPECT_TRUE(!row.said.empty() || BytesOf(folder_.File("b.zip")) == good);
      EXPECT_FALSE(std::filesystem::exists(folder_.File("b.zip.part")));
      std::string asked;
      std::istringstream from(row.asked);
      for (std::string byte; from >> byte;) {
        asked += std::string(kPath) + " " + byte + "\n";
      }
      EXPECT_EQ(server_.TakeRequests(), asked);
      EXPECT_EQ(waits_, row.waits + (row.waits.empty() ? "" : " "));
    }
  }
}

// As after a kill between the last byte and the check that the file is whole.
TEST_F(FetchTest, AsksForNoRestOfAWholeFile) {
  const std::string good = Archive("a.dbf", Noise(9'000));
  server_.Put(kPath, good);
  folder_.Write("b.zip.part", good);
  folder_.Write("b.zip.part-of", "\"1\"\n");
  EXPECT_EQ(Fetch(), "");
  EXPECT_TRUE(BytesOf(folder_.File("b.zip")) == good);
  EXPECT_EQ(server_.TakeRequests(), kPath + (" " + std::to_string(good.size())) + "\n");
}

// Not even if its checksums are right.
TEST_F(FetchTest, TakesNoHostileArchive) {
  const std::pair<std::string, std::string> rows[] = {
      {Archive("a.dbf", std::string(200'000, '\0')), "unpacks to more than it may"},
      {Archive("../a.dbf", "x"), "leads out of its folder"},
      {Archive("/etc/a.dbf", "x"), "leads out of its folder"},
      {Archive("a.dbf", Noise(100'000)), "no file there can be so large"},
      {"PK\x05\x06" + std::string(18, '\0'), "an archive of nothing"},
  };
  for (const auto& [bytes, said] : rows) {
    std::filesystem::remove(folder_.File("b.zip.part"));
    server_.Put(kPath, bytes);
    const std::string told = Fetch();
    EXPECT_NE(told.find(said), std::string::npos) << told;
    EXPECT_FALSE(std::filesystem::exists(folder_.File("b.zip")));
  }
}

TEST(FetchPlacesTest, ReadsWhatPeopleCallThem) {
  const std::string list =
      "STATE|STATEFP|COUNTYFP|COUNTYNS|COUNTYNAME|CLASSFP|FUNCSTAT\r\n"
      "TX|48|453|01384012|Travis County|H1|A\r\nTX|48|439|01384005|Tarrant County|H1|A\r\n"
      "LA|22|071|01629492|Orleans Parish|H1|A\r\nVT|50|019|01461766|Orleans County|H1|A\r\n"
      "MO|29|510|00767557|St. Louis city|C7|F\r\nMO|29|189|00758566|St. Louis County|H1|A\r\n"
      "PR|72|013|01804486|Arecibo Municipio|H1|A\r\nbroken|line\r\n";
  const std::pair<std::string, std::string> rows[] = {
      {"texas", "texas TX 48"},
      {"TX", "texas TX 48"},
      {"48", "texas TX 48"},
      {"New-York", "new-york NY 36"},
      {"district of columbia", "district-of-columbia DC 11"},
      {"48453", "48453 TX 48453"},
      {"Travis, TX", "travis-county-tx TX 48453"},
      {"travis county, texas", "travis-county-tx TX 48453"},
      {"Travis", "travis-county-tx TX 48453"},
      {"arecibo, pr", "arecibo-municipio-pr PR 72013"},
      {"orleans, la", "orleans-parish-la LA 22071"},
      {"st louis county, mo", "st-louis-county-mo MO 29189"},
      {"orleans", "several counties: 22071 (LA) 50019 (VT)"},
      {"st. louis, mo", "several counties: 29510 (MO) 29189 (MO)"},
      {"travis, oh", "is neither a state nor a county"},
      {"", "is neither a state nor a county"},
      {"99001", "is the number of no county"},
  };
  for (const auto& [name, expected] : rows) {
    SCOPED_TRACE(name);
    try {
      const Place place = ReadPlaces({name}, [&] { return list; }).at(0);
      EXPECT_EQ(place.name + " " + place.state + " " + place.prefix, expected);
    } catch (const FetchError& error) {
      EXPECT_NE(std::string(error.what()).find(expected), std::string::npos) << error.what();
    }
  }
  EXPECT_EQ(ReadPlaces({"all"}, {}).size(), 52U);
  EXPECT_THROW(ReadPlaces({"all", "texas"}, {}), FetchError);
  EXPECT_EQ(NameOf({"TX", "New York", "Travis, TX"}), "new-york+texas+travis-tx");
}

TEST(IndexPageTest, ReadsTheEntriesOfAFolder) {
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {"no list", ""},
      {R"(<a href="a.zip">a.zip</a></td><td>2024-09-11 10:44  </td> <td>3.1M</td></tr><tr><td>)",
       "a.zip|2024-09-11 10:44 3.1M\n"},
      {"<a href=\"TIGER2024/\">x</a>\n<a href=\"b.zip\">b.zip</a> 1K\n", "TIGER2024/|\nb.zip|1K\n"},
      {R"(<a href="?C=N;O=D">Name</a><a href="/geo/">Up</a><a href="../x">x</a><a href="http://x/">)",
       ""},
      {R"(<a href=".part">x</a><a href="a b">x</a><a href="">x</a><a href="c.zip)", "c.zip|\n"},
  };
  for (const auto& [html, expected] : rows) {
    std::string read;
    for (const IndexEntry& entry : ReadIndexPage(html)) {
      read += entry.name + "|" + entry.stamp + "\n";
    }
    EXPECT_EQ(read, expected) << html;
  }
}

TEST(SiteClientTest, AsksOnlyWhomItMay) {
  const std::pair<std::string, bool> rows[] = {
      {"https://mirror.example.org/census", true},
      {"http://127.0.0.1:80", true},
      {"http://localhost/x", true},
      {"http://example.org", false},
      {"ftp://example.org", false},
      {"https://me@example.org", false},
      {"https://example.org/?a", false},
      {"example.org", false},
      {"", false},
  };
  for (const auto& [origin, isGood] : rows) {
    EXPECT_EQ(CheckOrigin(origin).empty(), isGood) << origin;
  }
}

}  // namespace
}  // namespace postwright::postal
