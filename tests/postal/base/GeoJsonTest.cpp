#include <gtest/gtest.h>

#include "postal/import/CsvSource.h"
#include "postal/import/SourceFormats.h"
#include "tests/postal/base/PackedFiles.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

std::string Feature(const std::string& properties) {
  return R"({"type":"Feature","properties":{)" + properties +
         R"(},"geometry":{"type":"Point","coordinates":[-83.1,40.2]}})";
}

std::string Address(const std::string& number) {
  return Feature(R"("hash":"a1","number":")" + number +
                 R"(","street":"N MAIN ST","unit":"APT 4","city":"MILLRACE","district":"",)"
                 R"("region":"OH","postcode":"00011","id":"7")");
}

// One line a row; a fault after an exclamation mark.
std::string ReadAll(RowSource& source, size_t most = 100'000) {
  std::string text;
  AddressRow row;
  for (bool goesOn = true; goesOn && most > 0; --most) {
    try {
      goesOn = source.Next(row);
      for (const Field field :
           {Field::Number, Field::Street, Field::Unit, Field::City, Field::State, Field::Zip}) {
        text += goesOn ? row[field] + '|' : "";
      }
      text += goesOn ? "\n" : "";
    } catch (const RowError& error) {
      text += std::string("!") + error.what() + "\n";
    }
  }
  return text;
}

// The same in a plain file, in a packed one, and in an archive.
std::vector<std::string> InEveryForm(const TempFolder& folder, const std::string& text) {
  return {folder.Write("a.geojson", text), folder.Write("a.geojson.gz", Gzipped(text)),
          WriteZip(folder, "a.zip", {{"us/oh/a.geojson", text}})};
}

std::unique_ptr<RowSource> Open(const std::string& path) {
  return OpenSource(FindSourceFiles(path).front(), std::nullopt);
}

TEST(GeoJsonTest, ReadsAFeatureALine) {
  const std::string good = "12|N MAIN ST|APT 4|MILLRACE|OH|00011|\n";
  struct Row {
    const char* name;
    std::string line;
    std::string read;
  };
  const Row rows[] = {
      {"as published", Address("12"), good},
      {"blanks around it", " " + Address("12") + " \r", good},
      {"empty lines", "\n\r\n" + Address("12") + "\n", good},
      {"escapes", Feature(R"("street":"PE\u00d1A \"A\" ST")"), "|PEÑA \"A\" ST|||||\n"},
      {"numbers", Feature(R"("number":12,"unit":4.5,"postcode":10001)"), "12||4.5|||10001|\n"},
      {"neither text nor number", Feature(R"("number":null,"unit":["4"],"city":true)"), "||||||\n"},
      {"others", Feature(R"("number":"1","height":{"m":[[1]]})"), "1||||||\n"},
      {"not JSON", "{\"type\":\"Feature\"", "!is not JSON\n"},
      {"no feature", R"({"type":"Point"})", "!is not a GeoJSON feature with properties\n"},
      {"no object", "[1]", "!is not a GeoJSON feature with properties\n"},
      {"no properties", R"({"type":"Feature","properties":null})",
       "!is not a GeoJSON feature with properties\n"},
      {"not UTF-8", Feature("\"street\":\"PE\xD1 ST\""), "!is not valid UTF-8\n"},
      {"deep", Feature("\"x\":" + std::string(9'000, '[') + std::string(9'000, ']')),
       "!has objects or arrays too deep inside one another\n"},
      {"long", Feature("\"x\":\"" + std::string(300'000, 'x') + "\""), "!is longer than 64 KiB\n"},
  };
  const TempFolder folder;
  for (const Row& row : rows) {
    const std::string text = Address("12") + "\n" + row.line + "\n" + Address("12");
    for (const std::string& path : InEveryForm(folder, text)) {
      SCOPED_TRACE(std::string(row.name) + ": " + path);
      const auto source = Open(path);
      EXPECT_EQ(ReadAll(*source, 2), good + row.read);
      const RowPlace place = source->Place();
      EXPECT_EQ(ReadAll(*source), good);
      const auto later = Open(path);
      later->GoTo(place);
      EXPECT_EQ(ReadAll(*later), good);
    }
  }
}

TEST(GeoJsonTest, RefusesWhatIsNone) {
  const std::string text = Address("12") + "\n" + Address("14") + "\n";
  const std::string packed = Gzipped(text);
  std::string damaged = packed;
  damaged[packed.size() - 6] ^= 1;  // in the checksum
  const TempFolder folder;
  for (const std::string& bytes :
       {std::string("{\n\"type\":\"FeatureCollection\",\"features\":[\n") + text,
        "{\"type\":\"FeatureCollection\",\"features\":[" + Address("1") + "]}",
        packed.substr(0, packed.size() / 2), packed.substr(0, packed.size() - 1), damaged,
        packed + "no more"}) {
    EXPECT_THROW(ReadAll(*Open(folder.Write("a.geojson", bytes))), SourceError);
  }
  EXPECT_EQ(ReadAll(*Open(folder.Write("two.gz", packed + packed))),
            ReadAll(*Open(folder.Write("two", text + text))));
}

// An archive or a folder is one source of many files, whatever else it holds.
TEST(GeoJsonTest, ImportsAllThatLieTogether) {
  const TempFolder folder;
  const TempFolder files;
  const ZipList zips = SampleZips();
  const std::vector<std::pair<std::string, std::string>> members = {
      {"us/oh/a-addresses-county.geojson", Address("12") + "\n" + Address("x") + "\n"},
      {"us/oh/a-addresses-county.geojson.meta", "{}"},
      {"us/oh/b.geojson.gz", Gzipped(Address("14"))},
      {"us/oh/c.GEOJSON", Address("16")},
      {"us/oh/none.geojson", ""},
  };
  std::filesystem::create_directories(files.File("us/oh"));
  for (const auto& [name, content] : members) {
    files.Write(name, content);
  }
  const std::string expected =
      "oa00011MAIN12APT 4\noa00011MAIN14APT 4\noa00011MAIN16APT 4\n00011MILLRACE\noa3 1\n";
  for (const std::string& path : {WriteZip(folder, "a.zip", members), files.File("")}) {
    const ImportCounts counts = Import(folder.File("base"), "oa", {path}, zips);
    EXPECT_EQ(counts.leftOut, 1);
    EXPECT_EQ(Content(folder.File("base")), expected);
  }
}

// A broken row is read again from its second line on, which a packed file allows only as far as the
// reader's buffer goes, and not repeatedly.
TEST(PackedCsvTest, GoesBackWithinBounds) {
  constexpr const char* kHeading = "number,street,zip\n";
  const TempFolder folder;
  const auto rows = [&](size_t length, size_t count) {
    std::string text = kHeading;
    for (size_t i = 0; i < count; ++i) {
      text += "\"1,OPEN ST\n2," + std::string(length, 'x') + ",00011\n";
    }
    return text + "3,MAIN ST,00011\n";
  };
  const auto read = [&](const std::string& path) { return ReadAll(*Open(path)); };
  const std::string shortOnes = rows(70'000, 30);
  EXPECT_EQ(read(WriteZip(folder, "short.zip", {{"a.csv", shortOnes}})),
            read(folder.Write("short.csv", shortOnes)));
  const std::string longOnes = rows(1'500'000, 30);
  EXPECT_TRUE(read(folder.Write("long.csv", longOnes)).ends_with("3|MAIN ST||||00011|\n"));
  EXPECT_THROW(read(WriteZip(folder, "long.zip", {{"a.csv", longOnes}})), SourceError);
}

}  // namespace
}  // namespace postwright::postal
