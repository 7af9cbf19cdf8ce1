#include <gtest/gtest.h>

#include "postal/import/SourceFormats.h"
#include "postal/import/TigerSource.h"
#include "tests/postal/base/PackedFiles.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

using Record = std::vector<std::string>;

const std::vector<std::pair<std::string, size_t>> kFields = {
    {"TLID", 10},    {"FULLNAME", 100}, {"LFROMHN", 12}, {"LTOHN", 12},
    {"RFROMHN", 12}, {"RTOHN", 12},     {"ZIPL", 5},     {"ZIPR", 5},
    {"PARITYL", 1},  {"PARITYR", 1},    {"PLUS4L", 4},   {"PLUS4R", 4}};

const std::vector<Record> kRecords = {
    {"1", "N Main St", "198", "100", "101", "199", "00011", "00012", "E", "O", "", "1234"},
    {"2", "State Hwy 60", "", "", "N101", "N199", "", "00011", "", "O", "", ""},
    {"3", "Alley", "", "", "", "", "", "", "", "", "", ""},
    {"4", "Oak Ave", "1", "10", "", "", "00013", "", "B", "", "", ""},
};

std::string Number(size_t number, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i, number >>= 8U) {
    text += static_cast<char>(number & 0xFFU);
  }
  return text;
}

// A table as dBASE III writes it.
std::string Table(const std::vector<Record>& records) {
  std::string fields;
  size_t length = 1;
  for (const auto& [name, width] : kFields) {
    std::string field = name + std::string(32 - name.size(), '\0');
    field[11] = 'C';
    field[16] = static_cast<char>(width);
    fields += field;
    length += width;
  }
  std::string table = "\x03" + std::string("\x7E\x01\x19", 3) + Number(records.size(), 4) +
                      Number(32 + fields.size() + 1, 2) + Number(length, 2);
  table += std::string(32 - table.size(), '\0') + fields + '\r';
  for (const Record& record : records) {
    table += ' ';
    for (size_t i = 0; i < record.size(); ++i) {
      table += record[i] + std::string(kFields[i].second - record[i].size(), ' ');
    }
  }
  return table + '\x1A';
}

std::string Zip(const TempFolder& folder, const std::string& name, const std::string& content) {
  return WriteZip(folder, name, {{"readme.txt", "x"}, {"tl_2025_39001_addrfeat.DBF", content}});
}

SourceFile First(const std::string& path) {
  return FindSourceFiles(path).front();
}

std::string ReadAll(RowSource& source, size_t most = 100) {
  std::string text;
  AddressRow row;
  for (size_t rows = 0; rows < most && source.Next(row); ++rows) {
    text += row[Field::Street] + " " + row[Field::Low] + "-" + row[Field::High] + " " +
            row[Field::Parity] + " " + row[Field::Zip] + " " + row[Field::Zip4] + "\n";
  }
  return text;
}

TEST(TigerTest, ReadsBothSidesOfAStreet) {
  const TempFolder folder;
  const std::string expected =
      "N Main St 198-100 E 00011 \nN Main St 101-199 O 00012 1234\n"
      "State Hwy 60 N101-N199 O 00011 \nOak Ave 1-10 B 00013 \n";
  for (const std::string& file :
       {folder.Write("a.dbf", Table(kRecords)), Zip(folder, "a.zip", Table(kRecords))}) {
    TigerSource source(First(file));
    EXPECT_EQ(ReadAll(source), expected);
    TigerSource again(First(file));
    const std::string first = ReadAll(again, 1);  // between the sides of a record
    const RowPlace place = again.Place();
    TigerSource later(First(file));
    later.GoTo(place);
    EXPECT_EQ(first + ReadAll(later), expected);
  }
}

TEST(TigerTest, AddsRangesToABase) {
  const TempFolder folder;
  const ZipList zips = SampleZips();
  const ImportCounts counts =
      Import(folder.File("base"), "tiger", {Zip(folder, "a.zip", Table(kRecords))}, zips);
  EXPECT_EQ(counts.ranges, 4);
  EXPECT_EQ(counts.leftOut, 0);
  const AddressBase base(folder.File("base"));
  const AddressBase::Lease reader = base.Borrow();
  const int64_t street = reader->FindStreets("00011", "MAIN").at(0).id;
  EXPECT_TRUE(reader->FindNumber(street, "150").inRange);
  EXPECT_FALSE(reader->FindNumber(street, "151").inRange);
  const int64_t oak = reader->FindStreets("00013", "OAK").at(0).id;
  EXPECT_TRUE(reader->FindNumber(oak, "7").inRange);
}

// A file is recognised by what it holds, not by its name, and an archive by what is in it.
TEST(SourceFormatsTest, TellsAFileByWhatItHolds) {
  constexpr const char* kTiger = "TIGER/Line ADDRFEAT";
  constexpr const char* kGeoJson = "OpenAddresses GeoJSON";
  const std::string csv = "number,street,zip\n7,OAK AVE,00011\n";
  const std::string geo = R"({"type":"Feature","properties":{}})";
  const TempFolder folder;
  const TempFolder empty;
  const std::pair<std::string, std::string> files[] = {
      {folder.Write("a.csv", Table(kRecords)), kTiger},
      {Zip(folder, "addrfeat", Table(kRecords)), kTiger},
      {Zip(folder, "A.ZIP", Table(kRecords)), kTiger},
      {folder.Write("a.dbf", csv), "CSV"},
      {folder.Write("a.zip", "0," + csv), "CSV"},  // dBASE has a 0
      {folder.Write("b.csv", geo), kGeoJson},
      {folder.Write("b", Gzipped("\xEF\xBB\xBF\r\n" + geo)), kGeoJson},
      {folder.Write("c.geojson", Gzipped(csv)), "CSV"},
      {WriteZip(folder, "b.zip", {{"a.txt", csv + csv}, {"A.GeoJSON.GZ", Gzipped(geo)}}), kGeoJson},
      {WriteZip(folder, "c.zip", {{"a.txt", csv}, {"a.csv", Gzipped(csv)}}), "CSV"},
      {WriteZip(folder, "d.zip", {{"a.txt", geo}, {"b.txt", csv + csv}, {"c.txt", "x"}}), "CSV"},
      {WriteZip(folder, "e.zip", {{"a.md", csv}, {"a.csv", ""}}), ""},
      {folder.Write("f.gz", Gzipped(geo).substr(0, 20)), ""},
      {folder.Write("picture", "\x89PNG" + std::string(9, '\0')), ""},
      {folder.Write("damaged.csv", "PK\x03\x04 and no more"), ""},
      {folder.File("missing.zip"), ""},
      {empty.File(""), ""},
  };
  for (const auto& [file, format] : files) {
    SCOPED_TRACE(file);
    if (format.empty()) {
      EXPECT_THROW(OpenSource(First(file), std::nullopt), SourceError);
    } else {
      EXPECT_EQ(OpenSource(First(file), std::nullopt)->Format(), format);
    }
  }
}

TEST(TigerTest, RefusesWhatIsNoTable) {
  const TempFolder folder;
  const std::string good = Table(kRecords);
  std::string widened = good;
  widened[32 + 16] = 11;
  std::string headless = good;
  headless[8] = 1;
  headless[9] = 0;
  std::string renamed = good;
  renamed.replace(renamed.find("ZIPL"), 4, "ZAPL");
  const std::string files[] = {
      folder.Write("empty.dbf", ""),
      folder.Write("heading.dbf", good.substr(0, 100)),
      folder.Write("text.dbf", std::string(5'000, 'x')),
      folder.Write("widened.dbf", widened),
      folder.Write("headless.dbf", headless),
      folder.Write("renamed.dbf", renamed),
      folder.Write("text.zip", "Dear all,"),
      Zip(folder, "text-within.zip", "Dear all,"),
  };
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    EXPECT_THROW(TigerSource{First(file)}, SourceError);
  }
  for (const size_t left : {good.size() - 2, good.size() / 2 + 300}) {
    TigerSource source(First(folder.Write("cut.dbf", good.substr(0, left))));
    EXPECT_THROW(ReadAll(source), SourceError);
  }
}

}  // namespace
}  // namespace postwright::postal
