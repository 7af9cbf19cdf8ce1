#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <tuple>

#include "postal/base/CandidateSpans.h"
#include "postal/base/JoinedBases.h"
#include "postal/base/StreetLikeness.h"
#include "postal/base/UnitMatch.h"
#include "postal/import/CsvSource.h"
#include "service/Verifier.h"
#include "tests/postal/DocTable.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

const std::filesystem::path kSample = std::filesystem::path(POSTWRIGHT_SOURCE_DIR) / "data/sample";

// "MILLRACE OH 00011", without a ZIP code, with one, or with its add-on.
void ReadPlace(std::string place, service::RequestAddress& asked) {
  if (IsDigit(place.back())) {
    const size_t blank = place.rfind(' ');
    asked.zip5 = place.substr(blank + 1);
    place.resize(blank);
  }
  asked.state = place.substr(place.size() - 2);
  asked.city = place.substr(0, place.size() - 3);
}

// "APT 2; 14 N MAIN ST": a line above.
service::RequestAddress ReadAsked(const std::string& lines, const std::string& place) {
  service::RequestAddress asked;
  const size_t sign = lines.find("; ");
  asked.address1 = sign == std::string::npos ? "" : lines.substr(0, sign);
  asked.address2 = sign == std::string::npos ? lines : lines.substr(sign + 2);
  ReadPlace(place, asked);
  return asked;
}

std::string Write(const service::ReplyFields& fields) {
  std::string text;
  for (const std::string* above : {&fields.urbanization, &fields.address1}) {
    text += above->empty() ? "" : *above + "; ";
  }
  return text + fields.address2 + ", " + fields.city + " " + fields.state + " " + fields.zip5 +
         (fields.zip4.empty() ? "" : "-" + fields.zip4) +
         (fields.carrierRoute.empty() ? "" : " " + fields.carrierRoute);
}

// The made-up town, imported once for all tests.
// Runs every row of a page's tables through two verifiers, which must agree. Returns the number of
// rows.
size_t CheckPage(const std::string& page, const service::Verifier& verifier,
                 const service::Verifier& other) {
  const auto rows = ReadDocTables(page, "asked", 6);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    const service::RequestAddress asked = ReadAsked(row.cells[0], row.cells[1]);
    const service::ReplyAddress reply = verifier.Verify(asked);
    EXPECT_EQ(other.Verify(asked).outcome, reply.outcome);
    const auto* fields = std::get_if<service::ReplyFields>(&reply.outcome);
    if (fields == nullptr) {
      EXPECT_EQ(service::VerifyReply::NumberOf(std::get<Rejection>(reply.outcome)), row.cells[2]);
      continue;
    }
    EXPECT_EQ(Write(*fields), row.cells[2]);
    EXPECT_EQ(
        fields->dpvConfirmation + (fields->dpvFootnotes.empty() ? "" : " " + fields->dpvFootnotes),
        row.cells[3]);
    EXPECT_EQ(fields->footnotes, row.cells[4]);
    EXPECT_EQ(fields->returnText.empty(), fields->dpvConfirmation != "D");
    EXPECT_EQ(fields->dpvFalse, fields->dpvConfirmation == "N" ? "N" : "");
    EXPECT_EQ(fields->deliveryPoint + fields->business + fields->vacant, "");
  }
  return rows.size();
}

class DecisionTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TempFolder;
    zips_ = new ZipList(SampleZips());
    Import(folder_->File("base"), "town", {kSample / "town.csv"}, *zips_);
    Import(folder_->File("base"), "part", {kSample / "town-part.csv"}, *zips_, false);
    base_ = new JoinedBases({folder_->File("base")}, AddressBase::kMostInMemory);
  }
  static void TearDownTestSuite() {
    delete base_;
    delete zips_;
    delete folder_;
  }

  static service::ReplyAddress Verify(const service::RequestAddress& asked) {
    return service::Verifier(*zips_, base_).Verify(asked);
  }

  static inline TempFolder* folder_ = nullptr;
  static inline ZipList* zips_ = nullptr;
  static inline JoinedBases* base_ = nullptr;
};

TEST_F(DecisionTest, EveryRuleOfThePage) {
  const JoinedBases onDisk({folder_->File("base")});
  EXPECT_GT(CheckPage("address-base.md", service::Verifier(*zips_, base_),
                      service::Verifier(*zips_, &onDisk)),
            60U);
}

// The names can be in a separate base.
TEST_F(DecisionTest, EveryRuleOfLicensedData) {
  const std::filesystem::path licensed = kSample / "licensed";
  const std::vector<std::filesystem::path> streets = {
      licensed / "ctystate-2.txt", licensed / "zip4.txt", licensed / "zip4-changes.txt"};
  std::vector<std::filesystem::path> all = streets;
  all.push_back(licensed / "ctystate.txt");
  ZipList zips = SampleZips();
  zips.Load(licensed / "zips.tsv");
  const ImportCounts counts = Import(folder_->File("usps"), "usps", all, zips);
  EXPECT_EQ(std::tuple(counts.points, counts.ranges, counts.names, counts.leftOut),
            std::tuple(0, 20, 10, 4));
  Import(folder_->File("usps"), "town", {kSample / "town.csv"}, zips);  // and another source
  Import(folder_->File("streets"), "usps", streets, zips);
  Import(folder_->File("names"), "usps", {all.back()}, zips);
  const JoinedBases one({folder_->File("usps")}, AddressBase::kMostInMemory);
  const JoinedBases two({folder_->File("names"), folder_->File("streets")});
  const service::Verifier verifier(zips, &one);
  EXPECT_GT(CheckPage("licensed-data.md", verifier, service::Verifier(zips, &two)), 25U);
  service::RequestAddress asked = ReadAsked("150 N Main St Ste 900", "Copperfield OH 00018");
  for (const auto& [firm, zip4] :
       {std::pair("acme  Widgets", "1260"), std::pair("Copper Bank", "")}) {
    asked.firmName = firm;
    EXPECT_EQ(std::get<service::ReplyFields>(verifier.Verify(asked).outcome).zip4, zip4);
  }
}

// A base for each ZIP code, in either order: what one lacks another has.
TEST_F(DecisionTest, BasesBesideEachOtherAreAsGoodAsOne) {
  std::vector<std::filesystem::path> files;
  for (const auto& [source, whole] : {std::pair("town", true), std::pair("town-part", false)}) {
    std::ifstream rows(kSample / (std::string(source) + ".csv"));
    std::string header;
    std::getline(rows, header);
    std::map<std::string, std::string> ofZip;
    for (std::string row; std::getline(rows, row);) {
      const size_t zip = row.find(",000") + 1;
      ofZip.try_emplace(row.substr(zip, 5), header + '\n').first->second += row + '\n';
    }
    for (const auto& [zip, text] : ofZip) {
      files.emplace_back(folder_->File(zip + ".base"));
      Import(files.back(), source, {folder_->Write(zip + ".csv", text)}, *zips_, whole);
    }
  }
  std::sort(files.begin(), files.end());
  files.erase(std::unique(files.begin(), files.end()), files.end());
  ASSERT_GT(files.size(), 5U);
  for (const auto& [mostInMemory, mostStreets] :
       {std::pair(size_t{0}, size_t{1}),
        std::pair(AddressBase::kMostInMemory, StreetCache::kMostStreets)}) {
    const JoinedBases bases(files, mostInMemory, mostStreets);
    for (const DocRow& row : ReadDocTables("address-base.md", "asked", 6)) {
      SCOPED_TRACE(row.place);
      service::RequestAddress asked = ReadAsked(row.cells[0], row.cells[1]);
      asked.candidates = Candidate::kMost;
      const auto reply = service::Verifier(*zips_, &bases).Verify(asked).outcome;
      const auto ofOne = Verify(asked).outcome;
      EXPECT_EQ(reply, ofOne);
      EXPECT_EQ(reply.candidates, ofOne.candidates);
    }
    std::reverse(files.begin(), files.end());
  }
}

// What was not asked for lately goes first.
TEST(StreetCacheTest, KeepsWhatIsAskedFor) {
  StreetCache cache(2);
  const auto keep = [&cache](const char* zip) {
    cache.Keep(zip, ZipStreets({{1, {"", "MAIN", "ST", "", ""}}}));
  };
  keep("00011");
  keep("00012");
  EXPECT_NE(cache.Find("00011"), nullptr);
  keep("00013");
  EXPECT_EQ(cache.Find("00012"), nullptr);
  EXPECT_NE(cache.Find("00011"), nullptr);
  EXPECT_NE(cache.Find("00013"), nullptr);
}

TEST_F(DecisionTest, SaysWhoseWordItIs) {
  using Kind = service::ReplySource::Kind;
  const std::tuple<const char*, const char*, Kind> rows[] = {
      {"14 N MAIN ST", "MILLRACE OH 00011", Kind::Base},  // found
      {"1 NOWHERE ST", "MILLRACE OH 00011", Kind::Base},  // not found
      {"12 MAIN ST", "AUSTIN TX 78701", Kind::ZipList},   // it has no streets there
      {"12 MAIN ST", "AUSTIN ZZ", Kind::ZipList},
      {"", "AUSTIN TX 78701", Kind::Untold}};
  for (const auto& [line, place, kind] : rows) {
    const service::ReplySource source = Verify(ReadAsked(line, place)).outcome.source;
    EXPECT_EQ(source.kind, kind) << line << ", " << place;
    EXPECT_EQ(source.name, kind == Kind::Base ? "base" : "");
    EXPECT_EQ(source.date, kind == Kind::Base ? (*base_)[0].Date() : "");
  }
  EXPECT_EQ((*base_)[0].Date().size(), std::string_view("2026-11-20").size());
}

std::string Write(const Candidate& candidate) {
  const auto span = [](const CandidateSpan& ends) {
    return ends.IsEmpty() ? "" : "(" + ends.low + " - " + ends.high + ")";
  };
  const Parity parity = candidate.primary.parity;
  std::string text = candidate.urbanization.empty() ? "" : candidate.urbanization + "; ";
  text += parity == Parity::Even ? "even " : parity == Parity::Odd ? "odd " : "";
  text += candidate.primary.IsEmpty() ? "" : span(candidate.primary) + " ";
  text += candidate.street;
  text += candidate.secondary.IsEmpty() ? "" : " " + span(candidate.secondary);
  return text + ", " + candidate.city + " " + candidate.state + " " + candidate.zip5;
}

std::string Write(const std::vector<Candidate>& candidates) {
  std::string text;
  for (const Candidate& candidate : candidates) {
    text += (text.empty() ? "" : "; ") + Write(candidate);
  }
  return text;
}

TEST_F(DecisionTest, EveryCandidateOfThePage) {
  const auto rows = ReadDocTables("address-base.md", "could be", 4);
  EXPECT_GT(rows.size(), 15U);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    service::RequestAddress asked = ReadAsked(row.cells[0], row.cells[1]);
    const service::AddressAnswer plain = Verify(asked).outcome;
    EXPECT_EQ(Write(plain.candidates), "");
    asked.candidates = Candidate::kMost;
    const service::AddressAnswer answer = Verify(asked).outcome;
    EXPECT_EQ(Write(answer.candidates), row.cells[2]);
    EXPECT_EQ(answer, plain);  // but for the candidates
  }
}

// Every candidate without a range is confirmed when it is asked for.
TEST_F(DecisionTest, ACandidateIsKnown) {
  int known = 0;
  for (const DocRow& row : ReadDocTables("address-base.md", "could be", 4)) {
    SCOPED_TRACE(row.place);
    service::RequestAddress asked = ReadAsked(row.cells[0], row.cells[1]);
    asked.candidates = Candidate::kMost;
    for (const Candidate& candidate : Verify(asked).outcome.candidates) {
      service::RequestAddress again;
      again.address2 = (candidate.primary.IsEmpty() ? "" : candidate.primary.low + " ") +
                       candidate.street +
                       (candidate.secondary.IsEmpty() ? "" : " " + candidate.secondary.high);
      again.urbanization = candidate.urbanization;
      again.city = candidate.city;
      again.state = candidate.state;
      again.zip5 = candidate.zip5;
      const service::AddressAnswer answer = Verify(again).outcome;
      ASSERT_TRUE(std::holds_alternative<service::ReplyFields>(answer));
      EXPECT_NE(std::get<service::ReplyFields>(answer).dpvFootnotes, "AAM3");
      EXPECT_NE(std::get<service::ReplyFields>(answer).dpvConfirmation, "S");
      ++known;
    }
  }
  EXPECT_GT(known, 20);
}

TEST(CandidateSpansTest, TakesWhatBelongsTogether) {
  const auto units = [](std::vector<std::string> texts) {
    std::string written;
    for (const UnitSpan& unit : SpansOfUnits(std::move(texts))) {
      written += unit.designator + "[" + unit.span.low + "-" + unit.span.high +
                 static_cast<char>(unit.span.parity) + "]";
    }
    return written;
  };
  EXPECT_EQ(units({"APT 10", "APT 9", "APT 8", "APT 2"}), "APT[2-2B]APT[8-10B]");
  EXPECT_EQ(units({"STE 101", "STE 105", "STE 103", "STE 107", "STE 200"}),
            "STE[101-107O]STE[200-200B]");
  EXPECT_EQ(units({"APT 1A", "APT 1B", "APT 1C", "APT 2A"}), "APT[1A-1CB]APT[2A-2AB]");
  EXPECT_EQ(units({"APT A", "APT B", "BSMT", "4", "5"}), "[4-5B]APT[A-BB]BSMT[-B]");
  EXPECT_EQ(units({"BLDG 4 APT 1", "BLDG 4 APT 2", "BLDG 5 APT 2"}),
            "BLDG 4 APT[1-2B]BLDG 5 APT[2-2B]");
  EXPECT_EQ(units({}), "");

  std::vector<std::string> numbers;
  for (int number = 2; number < 20000; number += 2) {
    numbers.push_back(std::to_string(number));
  }
  const std::vector<HouseSpan> houses = SpansOfHouses({}, numbers);
  EXPECT_EQ(houses.size(), 200U);
  EXPECT_EQ(houses[1].span, (CandidateSpan{"100", "198", Parity::Even}));
}

TEST(UnitMatchTest, FindsTheUnitThatIsMeant) {
  const struct {
    std::vector<std::string> units;
    const char* asked;
    const char* meant;
    bool isThere;  // called as it was asked for
  } rows[] = {
      {{"APT 4", "APT 5"}, "APT 5", "APT 5", true},
      {{"APT 5", "STE 5"}, "UNIT 5", "", false},
      {{"APT 5", "STE 5"}, "# 5", "", true},
      {{"APT 5", "APT 6"}, "# 5", "APT 5", true},
      {{"5", "6"}, "STE 5", "5", true},
      {{"APT 005"}, "APT 5", "APT 005", true},
      {{"APT 2A"}, "APT 2-A", "APT 2A", true},
      {{"APT 2A"}, "APT 2 A", "APT 2A", true},
      {{"APT 2-2"}, "APT 22", "", false},
      {{"BLDG 4 APT 2"}, "BLDG 4 STE 2", "BLDG 4 APT 2", false},
      {{"BLDG 4 APT 2"}, "APT 2", "", false},
      {{"FL 5", "BLDG 5"}, "STE 5", "", false},
      {{"APT 5"}, "APT", "", false},
      {{}, "APT 5", "", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.asked);
    EXPECT_EQ(FindUnit(row.units, row.asked), row.meant);
    EXPECT_EQ(HasUnit(row.units, row.asked), row.isThere);
  }
  for (const char* kind : {"APT", "DEPT", "LOT", "OFC", "RM", "SPC", "STE", "TRLR", "UNIT"}) {
    const std::string unit = std::string(kind) + " 5";
    EXPECT_EQ(FindUnit({unit}, "APT 5"), unit);
    EXPECT_EQ(FindUnit({"UNIT 5"}, unit), "UNIT 5");
  }
}

TEST(StreetLikenessTest, TellsHowTwoStreetsDiffer) {
  using enum Likeness;
  const struct {
    StreetName asked;
    StreetName known;
    Likeness likeness;
  } rows[] = {
      {{"N", "MAIN", "ST", "", ""}, {"N", "MAIN", "ST", "", ""}, Same},
      {{"", "MACARTHUR", "RD", "", ""}, {"", "MAC ARTHUR", "RD", "", ""}, Same},
      {{"", "MAIN", "ST", "", ""}, {"N", "MAIN", "ST", "", ""}, ElementMissing},
      {{"", "MAIN", "", "", ""}, {"N", "MAIN", "ST", "", ""}, ElementsMissing},
      {{"", "MAIN", "", "", ""}, {"N", "MAIN", "ST", "E", ""}, ElementsMissing},
      {{"N", "MAIN", "ST", "", ""}, {"", "MAIN", "ST", "", ""}, ElementWrong},
      {{"N", "MAIN", "ST", "", ""}, {"S", "MAIN", "ST", "", ""}, ElementWrong},
      {{"", "OAK", "AVE", "", ""}, {"", "OAK", "ST", "", ""}, ElementWrong},
      {{"", "PERK", "ST", "", ""}, {"", "PARK", "ST", "", ""}, OneLetter},
      {{"", "ELK", "ST", "", ""}, {"", "ELM", "ST", "", ""}, Different},
      {{"", "PERK", "", "", ""}, {"", "PARK", "ST", "", ""}, Different},
      {{"", "HIGHWAY 9", "", "", ""}, {"", "STATE ROUTE 9", "", "", ""}, Same},
      {{"", "STATE HIGHWAY 9", "", "", ""}, {"", "HIGHWAY 9", "", "", ""}, Same},
      {{"", "US HIGHWAY 9", "", "", ""}, {"", "ROUTE 9", "", "", ""}, Same},
      {{"", "STATE ROAD 9", "", "", ""}, {"", "STATE ROUTE 9", "", "", ""}, Same},
      {{"", "US HIGHWAY 9", "", "", ""}, {"", "STATE ROUTE 9", "", "", ""}, Different},
      {{"", "STATE ROUTE 9", "", "", ""}, {"", "US HIGHWAY 9", "", "", ""}, Different},
      {{"", "HIGHWAY 9", "", "", ""}, {"", "HIGHWAY 8", "", "", ""}, Different},
      {{"", "CALLE 1", "", "", "URB A"}, {"", "CALLE 1", "", "", "URB A"}, Same},
      {{"", "CALLE 1", "", "", "URB A"}, {"", "CALLE 1", "", "", "URB B"}, Different},
      {{"", "CALLE 1", "", "", ""}, {"", "CALLE 1", "", "", "URB B"}, ElementMissing},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(StreetLikeness(row.asked).To(row.known), row.likeness)
        << ComposeStreet(row.asked) << " | " << ComposeStreet(row.known);
    EXPECT_EQ(StreetLikeness(row.asked).IsSameAs(row.known), row.likeness == Same);
    const Words asked = StreetLikeness(row.asked).Writings();
    const Words known = StreetLikeness::WritingsOf(row.known, ShortStreetName(row.known.name));
    const bool share =
        std::find_first_of(asked.begin(), asked.end(), known.begin(), known.end()) != asked.end();
    EXPECT_TRUE(share || row.likeness != Same) << "it would not be found";
  }
}

// Every address of the sample is confirmed: the answer is standard, and asking for the answer gives
// the same answer.
TEST_F(DecisionTest, TheSampleIsConfirmedAsItStands) {
  const std::filesystem::path base = folder_->File("buildings");
  Import(base, "buildings", {kSample / "public-buildings.csv"}, *zips_, false);
  Import(base, "town", {kSample / "town.csv"}, *zips_);
  const JoinedBases buildings({base});
  CsvSource rows({kSample / "public-buildings.csv"}, std::nullopt);
  int count = 0;
  for (AddressRow row; rows.Next(row); ++count) {
    service::RequestAddress asked;
    asked.address2 = row[Field::Number] + " " + row[Field::Street];
    asked.city = row[Field::City];
    asked.state = row[Field::State];
    asked.zip5 = row[Field::Zip];
    SCOPED_TRACE(asked.address2);
    const service::ReplyAddress reply = service::Verifier(*zips_, &buildings).Verify(asked);
    ASSERT_TRUE(std::holds_alternative<service::ReplyFields>(reply.outcome));
    const auto& fields = std::get<service::ReplyFields>(reply.outcome);
    EXPECT_EQ(Write(fields),
              asked.address2 + ", " + asked.city + " " + asked.state + " " + asked.zip5);
    EXPECT_EQ(fields.dpvConfirmation, "Y");
  }
  EXPECT_GT(count, 250);
}

// A thousand addresses of parts that fit and parts that do not: every answer, asked for, gives
// itself.
TEST_F(DecisionTest, AnAnswerStaysAsItIs) {
  const std::vector<std::string> numbers = {"12",     "14",     "31",  "33",       "5", "12A",
                                            "13 1/2", "112-10", "150", "N6W23001", "9"};
  const std::vector<std::string> streets = {"Main",
                                            "N Main St",
                                            "South Main Street",
                                            "Oak",
                                            "oak ave",
                                            "Riversdie Dr",
                                            "Elm St",
                                            "Towpath Trail",
                                            "Boulder Road",
                                            "Chestnut Avenue",
                                            "Bluemound Rd",
                                            "Beich Ct",
                                            "Hawthrone",
                                            "E Street",
                                            "State Hwy 60",
                                            "Fifth St",
                                            "Mac Arthur Rd",
                                            "Calle 1"};
  const std::vector<std::string> units = {"", "", "Apt 1", "#2", "Suite 100", "Floor 3", "4B"};
  const std::vector<std::string> places = {"Millrace OH 00011",  "Millrace OH",
                                           "Elderburn OH 00011", "Farley OH 00014",
                                           "Millrace OH 00013",  "Villa Ejemplo PR 00016"};
  int answers = 0;
  for (size_t i = 0; i < 1500; ++i) {
    const std::string line = numbers[i % numbers.size()] + " " + streets[i / 3 % streets.size()] +
                             " " + units[i / 7 % units.size()];
    SCOPED_TRACE(line + ", " + places[i / 11 % places.size()]);
    const service::ReplyAddress first = Verify(ReadAsked(line, places[i / 11 % places.size()]));
    const auto* fields = std::get_if<service::ReplyFields>(&first.outcome);
    if (fields == nullptr) {
      continue;
    }
    service::RequestAddress again;
    again.address1 = fields->address1;
    again.address2 = fields->address2;
    again.urbanization = fields->urbanization;
    again.city = fields->city;
    again.state = fields->state;
    again.zip5 = fields->zip5;
    const service::ReplyAddress second = Verify(again);
    ASSERT_TRUE(std::holds_alternative<service::ReplyFields>(second.outcome));
    EXPECT_EQ(Write(std::get<service::ReplyFields>(second.outcome)), Write(*fields));
    EXPECT_EQ(std::get<service::ReplyFields>(second.outcome).dpvConfirmation,
              fields->dpvConfirmation);
    EXPECT_EQ(std::get<service::ReplyFields>(second.outcome).footnotes,
              fields->dpvConfirmation == "D" ? "H" : "");
    ++answers;
  }
  EXPECT_GT(answers, 300);
}

}  // namespace
}  // namespace postwright::postal
