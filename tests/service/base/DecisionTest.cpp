#include <gtest/gtest.h>

#include "service/Verifier.h"
#include "tests/service/DocTable.h"
#include "tests/service/base/SampleBase.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

const std::filesystem::path kSample = std::filesystem::path(POSTWRIGHT_SOURCE_DIR) / "data/sample";

// "MILLRACE OH 00011", without a ZIP code or with one.
void ReadPlace(std::string place, RequestAddress& asked) {
  if (IsDigit(place.back())) {
    asked.zip5 = place.substr(place.size() - 5);
    place.resize(place.size() - 6);
  }
  asked.state = place.substr(place.size() - 2);
  asked.city = place.substr(0, place.size() - 3);
}

// "APT 2; 14 N MAIN ST": a line above.
RequestAddress ReadAsked(const std::string& lines, const std::string& place) {
  RequestAddress asked;
  const size_t sign = lines.find("; ");
  asked.address1 = sign == std::string::npos ? "" : lines.substr(0, sign);
  asked.address2 = sign == std::string::npos ? lines : lines.substr(sign + 2);
  ReadPlace(place, asked);
  return asked;
}

std::string Write(const ReplyFields& fields) {
  std::string text;
  for (const std::string* above : {&fields.urbanization, &fields.address1}) {
    text += above->empty() ? "" : *above + "; ";
  }
  return text + fields.address2 + ", " + fields.city + " " + fields.state + " " + fields.zip5 +
         (fields.zip4.empty() ? "" : "-" + fields.zip4);
}

// The made-up town, imported once for all tests.
class DecisionTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TempFolder;
    zips_ = new ZipBase(SampleZips());
    Import(folder_->File("base"), "town", {kSample / "town.csv"}, *zips_);
    Import(folder_->File("base"), "part", {kSample / "town-part.csv"}, *zips_, false);
    base_ = new AddressBase(folder_->File("base"));
  }
  static void TearDownTestSuite() {
    delete base_;
    delete zips_;
    delete folder_;
  }

  static ReplyAddress Verify(const RequestAddress& asked) {
    return Verifier(*zips_, base_).Verify(asked);
  }

  static inline TempFolder* folder_ = nullptr;
  static inline ZipBase* zips_ = nullptr;
  static inline AddressBase* base_ = nullptr;
};

TEST_F(DecisionTest, EveryRuleOfThePage) {
  const auto rows = ReadDocTables("address-base.md", "asked", 6);
  EXPECT_GT(rows.size(), 60U);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    const ReplyAddress reply = Verify(ReadAsked(row.cells[0], row.cells[1]));
    const auto* fields = std::get_if<ReplyFields>(&reply.outcome);
    if (fields == nullptr) {
      EXPECT_EQ(VerifyReply::NumberOf(std::get<Rejection>(reply.outcome)), row.cells[2]);
      continue;
    }
    EXPECT_EQ(Write(*fields), row.cells[2]);
    EXPECT_EQ(
        fields->dpvConfirmation + (fields->dpvFootnotes.empty() ? "" : " " + fields->dpvFootnotes),
        row.cells[3]);
    EXPECT_EQ(fields->footnotes, row.cells[4]);
    EXPECT_EQ(fields->returnText.empty(), fields->dpvConfirmation != "D");
    EXPECT_EQ(fields->dpvFalse, fields->dpvConfirmation == "N" ? "N" : "");
    EXPECT_EQ(fields->deliveryPoint + fields->carrierRoute + fields->business + fields->vacant, "");
  }
}

}  // namespace
}  // namespace postwright::service
