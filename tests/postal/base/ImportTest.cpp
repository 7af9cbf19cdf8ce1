#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "postal/import/BaseBuilder.h"
#include "postal/import/RowReader.h"
#include "tests/postal/base/PackedFiles.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

constexpr const char* kHeading = "number,street,unit,city,state,zip,low,high\n";

// Many addresses, on the streets of a few ZIP codes, in no order.
std::string ManyRows(int count) {
  std::string rows = kHeading;
  for (int i = 0; i < count; ++i) {
    const int mixed = i * 7919 % count;
    rows += std::to_string(mixed % 997 + 1) + ",STREET " + std::to_string(mixed / 997) +
            " AVE,,MILLRACE,OH,0001" + std::to_string(1 + i % 2) + ",,\n";
  }
  return rows;
}

std::string Repeated(const std::string& row, int count) {
  std::string rows;
  for (int i = 0; i < count; ++i) {
    rows += row;
  }
  return rows;
}

// Latin-1 as UTF-16 with a byte order mark.
std::string InUtf16(const std::string& text, bool isBigEndian) {
  std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) {
    bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  }
  return bytes;
}

class ImportTest : public testing::Test {
 protected:
  void Run(const std::string& base, const std::string& source, const std::string& file) {
    Import(folder_.File(base), source, {file}, zips_);
  }

  // Runs an import in a process of its own, which is killed when `listeners` say so.
  void RunAndKill(const std::string& base, const std::string& file,
                  const Importer::Listeners& listeners) {
    const pid_t child = fork();
    if (child == 0) {
      Importer(folder_.File(base), {"many", "", "", "", true}, {file}, std::nullopt, zips_)
          .Run(false, listeners);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
  }

  TempFolder folder_;
  ZipList zips_ = SampleZips();
};

TEST_F(ImportTest, StoppedOrKilledGoesOnWhereItWas) {
  const std::string file = folder_.Write("many.csv", ManyRows(150'000));
  Run("straight", "many", file);
  const std::string first =
      folder_.Write("first.csv", std::string(kHeading) + "1,MAIN ST,,MILLRACE,OH,00011,,\n");
  Run("base", "first", first);
  Run("straight", "first", first);
  const std::string before = Content(folder_.File("base"));
  const AddressBase reader(folder_.File("base"));

  RunAndKill("base", file,
             {[](const Importer::Progress& progress) {
                if (progress.counts.points > 100'000) {
                  raise(SIGKILL);
                }
              },
              {},
              {}});
  EXPECT_EQ(Content(folder_.File("base")), before);
  EXPECT_THROW(AddressBase(folder_.File("base.import")), ZipListError);
  EXPECT_THROW(Run("base", "other", file), ImportError);

  {
    Importer importer(folder_.File("base"), {"many", "", "", "", true}, {file}, std::nullopt,
                      zips_);
    EXPECT_TRUE(importer.GoesOn());
    EXPECT_EQ(importer.Counts().points, 65'536);           // as far as it was saved
    EXPECT_THROW(Run("base", "many", file), ImportError);  // two at once
    std::atomic<bool> stop = true;
    EXPECT_EQ(importer.Run(stop, {}), Importer::End::Stopped);
  }
  RunAndKill("base", file, {{}, {}, [] { raise(SIGKILL); }});
  EXPECT_EQ(Content(folder_.File("base")), before);
  Run("base", "many", file);
  // Too long to show side by side.
  EXPECT_TRUE(Content(folder_.File("base")) == Content(folder_.File("straight")));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("base.import")));

  EXPECT_TRUE(reader.Borrow()->FindStreets("00011", "STREET1AVE").empty());  // the old one
  EXPECT_EQ(reader.Borrow()->Count("point"), 1);
  EXPECT_EQ(AddressBase(folder_.File("base")).Borrow()->Count("point"), 150'001);
}

TEST_F(ImportTest, ReplacesASourceAndKeepsTheOthers) {
  const std::string heading = kHeading;
  Run("base", "a", folder_.Write("a", heading + "1,MAIN ST,,,OH,00011,,\n3,ELM ST,,,OH,00011,,\n"));
  Run("base", "b",
      folder_.Write("b", heading + "1,MAIN ST,,,OH,00011,,\n,OAK ST,,,OH,00012,1,9\n"));
  Run("base", "a", folder_.Write("a", heading + "5,MAIN ST,,FARLEY,OH,00011,,\n"));
  EXPECT_EQ(Content(folder_.File("base")),
            "a00011MAIN5\nb00011MAIN1\nb00012OAK19\n00011FARLEY\na1 0\nb2 0\n");
  const AddressBase base(folder_.File("base"));
  EXPECT_TRUE(base.Borrow()->FindStreets("00011", "ELM").empty());

  // A file without a usable row replaces nothing, and the next import does not go on with it.
  const std::string before = Content(folder_.File("base"));
  EXPECT_THROW(Run("base", "a", folder_.Write("a", heading + "x,MAIN ST,,,OH,00011,,\n")),
               ImportError);
  EXPECT_EQ(Content(folder_.File("base")), before);
  Run("base", "a", folder_.Write("a", heading + "1,ELM ST,,,OH,00011,,\n"));
}

// Everything begun for the base is discarded, except what another import is still working on.
TEST_F(ImportTest, BeginsAnewWhereItIsTold) {
  const std::string file = folder_.Write("many.csv", ManyRows(1'000));
  const auto begin = [&](const char* source, Earlier earlier) {
    return Importer(folder_.File("base"), {source, "", "", "", true}, {file}, std::nullopt, zips_,
                    earlier);
  };
  begin("other", Earlier::GoOn);
  EXPECT_THROW(begin("many", Earlier::GoOn), ImportError);
  folder_.Write("damaged.import", "not what an import has left");
  for (const char* left : {"base.import", "damaged.import"}) {
    SCOPED_TRACE(left);
    std::filesystem::rename(folder_.File(left), folder_.File("base.import"));
    Importer first = begin("many", Earlier::Discard);
    const auto checkOthers = [&] {
      for (const Earlier earlier : {Earlier::GoOn, Earlier::Discard}) {
        EXPECT_THROW(begin("many", earlier), ImportError);
      }
    };
    checkOthers();
    EXPECT_EQ(first.Run(false, {{}, {}, checkOthers}), Importer::End::Done);
    EXPECT_EQ(AddressBase(folder_.File("base")).Borrow()->Count("point"), 1'000);
  }
}

TEST_F(ImportTest, LeavesOutWhatIsNoAddress) {
  struct Row {
    const char* name;
    std::string rows;
    std::array<int64_t, kRowFaults> faults;  // malformed, no ZIP, no street, no number
    int64_t taken;
  };
  const std::string good = "1,MAIN ST,,MILLRACE,OH,00011,,\n";
  const Row rows[] = {
      {"nothing", "", {}, 0},
      {"good ones", good + "\n" + good + "\r\n\"2\",\"MAIN ST\",,,,00011-1234\n" + good, {}, 4},
      {"no line feed at the end", "1,MAIN ST,,,,00011", {}, 1},
      {"a ZIP code of the city", "1,MAIN ST,,Hutto,Texas,,,\n1,MAIN ST,,Austin,TX,,,\n", {0, 1}, 1},
      {"no ZIP code", "1,MAIN ST,,,,1234,,\n1,MAIN ST,,,OH,\n", {0, 2}, 0},
      {"no street", "1,,,,,00011,,\n1,Ленина,,,,00011,,\n", {0, 0, 2}, 0},
      {"no number",
       ",MAIN ST,,,,00011,,\n0,MAIN ST,,,,00011,,\nx,MAIN ST,,,,00011,,\n",
       {0, 0, 0, 3},
       0},
      {"ranges", ",A ST,,,,00011,9,1\n,A ST,,,,00011,1,\n,A ST,,,,00011,1A,9B\n", {0, 0, 0, 2}, 1},
      {"an open quotation mark", "\"1,MAIN ST\n" + good + good, {1}, 2},
      {"one that is never closed",
       good + "1,\"MAIN ST," + std::string(80'000, 'x') + "\n" + good,
       {1},
       2},
      {"an endless line", std::string(3'000'000, 'x') + "\n" + good, {1}, 1},
      {"zero bytes",
       std::string("1,MAIN\0 ST,,,,00011,,\n", 22) + std::string(9, '\0') + "\n" + good,
       {0, 1},
       2},
      {"lone carriage returns", "1,A ST,,,,00011,,\r2,A ST,,,,00011,,\r\r3,A ST,,,,00011", {}, 3},
      {"mixed line ends", good + "1,A ST,,,,00011,,\r\n" + good + "\r2,B ST,,,,00011,,\r", {}, 4},
      {"lone carriage returns, many", Repeated("1,A ST,,,,00011,,\r", 10'000), {}, 10'000},
      {"within a cell", "1,\"A\rST\",,,,00011,,\r2,\"A\r\nST\",,,,00011,,\n", {}, 2},
      {"Latin-1",
       "1,PE\xD1"
       "A ST,,,,00011,,\n",
       {},
       1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string file = folder_.Write("rows.csv", "\xEF\xBB\xBF" + (kHeading + row.rows));
    Importer importer(folder_.File("base"), {row.name, "", "", "", true}, {file}, std::nullopt,
                      zips_);
    if (row.taken == 0) {
      EXPECT_THROW(importer.Run(false, {}), ImportError);
    } else {
      EXPECT_EQ(importer.Run(false, {}), Importer::End::Done);
    }
    EXPECT_EQ(importer.Faults(), row.faults);
    EXPECT_EQ(importer.Counts().points + importer.Counts().ranges, row.taken);
  }
}

// A unit in standard form stays as it is, since bases are imported from bases.
TEST_F(ImportTest, BringsUnitsIntoStandardForm) {
  constexpr const char* kUnits[][2] = {
      {"", ""},
      {"#", ""},
      {"4", "# 4"},
      {"apartment 4", "APT 4"},
      {"house", "# HOUSE"},
      {"# # house", "# HOUSE"},
      {"4 rear", "# 4 REAR"},
      {"4 apartment 5", "# 4 APT 5"},
      {"second floor", "FL 2"},
      {"Ленина", ""},
  };
  RowReader reader(zips_);
  for (const auto& [given, standard] : kUnits) {
    EXPECT_EQ(reader.ReadUnit(given), standard);
    EXPECT_EQ(reader.ReadUnit(standard), standard);
  }
}

TEST_F(ImportTest, NamesTheLineThatIsLeftOut) {
  const std::string file = folder_.Write(
      "rows.csv", std::string(kHeading) + "1,A ST,\"two\nlines\",,,00011,,\n\n,A ST,,,,00011,,\n");
  std::string said;
  Importer(folder_.File("base"), {"rows", "", "", "", true}, {file}, std::nullopt, zips_)
      .Run(false, {{},
                   [&](const std::string&, int64_t line, const std::string& why) {
                     said += std::to_string(line) + ": " + why;
                   },
                   {}});
  EXPECT_EQ(said, "5: has neither a house number nor a range of them");
}

TEST_F(ImportTest, ReadsTheFormatsThatItKnows) {
  const std::string openAddresses =
      folder_.Write("oa.csv",
                    "LON,LAT,NUMBER,STREET,UNIT,CITY,DISTRICT,REGION,POSTCODE,ID,HASH\n"
                    "-97.7,30.2,12½,North Main Street,# 4,Millrace,,OH,00011,,abc\n");
  const std::string national = folder_.Write(
      "nad.txt",
      "OID_,AddNum_Pre,Add_Number,AddNum_Suf,AddNo_Full,St_PreMod,St_PreDir,St_PreTyp,St_PreSep,"
      "St_Name,St_PosTyp,St_PosDir,St_PosMod,StNam_Full,Unit,Post_City,State,Zip_Code,Plus_4,"
      "AddAuth\n"
      "1,,14,,14,,South,,,Mill,Street,Northwest,,South Mill Street Northwest,Apt 2,Farley,OH,00014,"
      "1234,x\n");
  const std::string earlier = WriteZip(
      folder_, "nad.zip",
      {{"TXT/schema.txt", "[NAD_r6.txt]"},
       {"TXT/NAD_r6.txt",
        "OBJECTID,State,Post_Comm,Zip_Code,Plus_4,StN_PreMod,StN_PreDir,StN_PreTyp,StN_PreSep,"
        "StreetName,StN_PosTyp,StN_PosDir,StN_PosMod,AddNum_Pre,Add_Number,AddNum_Suf,Unit,"
        "AddAuth\n"
        "1,OH,Farley,00014,1234,,South,,,Mill,Street,Northwest,,,16,1/2,,x\n"}});
  const std::string mapped =
      folder_.Write("county.csv", "HOUSE|PRE|NAME|TYPE|POSTAL\n9|E|OAK|LANE|00015\n");
  Run("base", "oa", openAddresses);
  Run("base", "nad", national);
  Run("base", "nad r6", earlier);
  Importer(folder_.File("base"), {"county", "", "", "", true}, {mapped},
           ColumnMap::Parse("number=house,street=PRE+NAME+TYPE,zip=POSTAL"), zips_)
      .Run(false, {});
  EXPECT_EQ(Content(folder_.File("base")),
            "county00015OAK9\nnad r600014MILL16 1/2\nnad00014MILL14APT 2\noa00011MAIN12 1/2# 4\n"
            "00011MILLRACE\n00014FARLEY\n00014FARLEY\ncounty1 0\nnad r61 0\nnad1 0\noa1 0\n");
  const AddressBase base(folder_.File("base"));
  const StreetName street = base.Borrow()->FindStreets("00014", "MILL").at(0).street;
  EXPECT_EQ(ComposeStreet(street), "S MILL ST NW");
}

// As spreadsheets save "Unicode text"; an interrupted import goes on in the middle of it.
TEST_F(ImportTest, ReadsUtf16) {
  const std::string rows = ManyRows(70'000) +
                           "1,PE\xD1"
                           "A ST,,MILLRACE,OH,00011,,\r";
  Run("latin", "many", folder_.Write("latin.txt", rows));
  for (const bool isBigEndian : {false, true}) {
    const std::string file = folder_.Write("rows.txt", InUtf16(rows, isBigEndian));
    const std::string base = isBigEndian ? "big" : "little";
    RunAndKill(base, file,
               {[](const Importer::Progress& progress) {
                  if (progress.counts.points > 66'000) {
                    raise(SIGKILL);
                  }
                },
                {},
                {}});
    Run(base, "many", file);
    EXPECT_TRUE(Content(folder_.File(base)) == Content(folder_.File("latin")));
  }
}

// What a source writes for "unknown" is neither a city nor a ZIP+4.
TEST_F(ImportTest, TakesNoWordForNothingAsAValue) {
  const std::string file = folder_.Write("rows.csv",
                                         "number,street,city,zip,zip4\n"
                                         "1,MAIN ST,Not stated,00011,0000\n");
  Run("base", "nad", file);
  EXPECT_EQ(Content(folder_.File("base")), "nad00011MAIN1\nnad1 0\n");
  const AddressBase base(folder_.File("base"));
  EXPECT_EQ(base.Borrow()->FindNumber(1, "1").zip4, "");
}

TEST_F(ImportTest, RefusesFilesThatItCannotUse) {
  const std::string notes = folder_.Write("notes.txt", "Dear all,\n");
  EXPECT_THROW(Run("base", "a", notes), SourceError);
  EXPECT_THROW(Run("base", "a", folder_.Write("empty", "")), SourceError);
  EXPECT_THROW(Run("base", "a", folder_.File("nowhere")), SourceError);
  EXPECT_THROW(Run("base", "a", folder_.File("")), SourceError);
  EXPECT_THROW(Importer(folder_.File("base"), {"a", "", "", "", true}, {notes},
                        ColumnMap::Parse("street=X"), zips_),
               SourceError);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("base.import")));
  EXPECT_THROW(Run("notes.txt", "a", folder_.Write("good", kHeading)), ZipListError);
  EXPECT_THROW(AddressBase(folder_.File("nowhere")), ZipListError);
}

// A base that was cut short, or is damaged in the middle, is reported when it is opened or asked,
// and does not end the program.
TEST_F(ImportTest, DamagedBasesAreTold) {
  const std::string file = folder_.Write("many.csv", ManyRows(3'000));
  Run("base", "many", file);
  const auto size = std::filesystem::file_size(folder_.File("base"));
  for (const size_t left : {size_t{0}, size_t{60}, size_t{100}, size_t{5'000}, size / 2}) {
    SCOPED_TRACE(left);
    std::filesystem::copy_file(folder_.File("base"), folder_.File("cut"),
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(folder_.File("cut"), left);
    EXPECT_ANY_THROW(AddressBase(folder_.File("cut")).Borrow()->Count("point NOT INDEXED"));
  }
}

}  // namespace
}  // namespace postwright::postal
