#include <postwright/Confirmation.h>
#include <postwright/VerifyReport.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

struct Row {
  std::string address;  // the members of the reply's address
  const char* code;
  bool contradictsNumber;
  bool contradictsUnit = false;
};

std::string Dpv(const std::string& confirmation, const std::string& footnotes) {
  return "<Address2>12 MAIN ST</Address2><DPVConfirmation>" + confirmation +
         "</DPVConfirmation><DPVFootnotes>" + footnotes + "</DPVFootnotes>";
}

}  // namespace

TEST(ConfirmationTest, CallsNothingConfirmedThatIsNot) {
  const Row rows[] = {
      {Dpv("Y", "AABB"), "confirmed", false},
      {Dpv("D", "AAN1"), "unit-missing", false},
      {Dpv("S", "AACC"), "unit-not-known", false},
      {Dpv("S", "AAC1"), "unit-not-known", false, true},
      {Dpv("Y", "AAC1"), "confirmed", false},
      {Dpv("N", "AAM3"), "number-not-known", true},
      {Dpv("N", "AAM1"), "number-not-known", true},
      {Dpv("N", "AAP1"), "number-not-known", true},
      {Dpv("N", "AAP3"), "number-not-known", true},
      {Dpv("N", "AAF1"), "number-not-known", false},
      {Dpv("Y", "AAM3"), "confirmed", false},
      {Dpv("N", "AA"), "number-not-known", false},
      {Dpv("N", "A1M3"), "form-only", false},
      {Dpv("N", "1AAM3"), "form-only", false},  // no pair is AA
      {Dpv("N", ""), "form-only", false},
      {"<Address2>12 MAIN ST</Address2>", "form-only", false},
      {"<Error><Number>1</Number></Error>", "", false},
      {"<Error><Description>No</Description></Error>", "", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.address);
    const Confirmation confirmation(VerifyReport("<R><Address>" + row.address + "</Address></R>"));
    EXPECT_STREQ(confirmation.Code(), row.code);
    EXPECT_EQ(confirmation.ContradictsNumber(), row.contradictsNumber);
    EXPECT_EQ(confirmation.ContradictsUnit(), row.contradictsUnit);
    EXPECT_EQ(*confirmation.Text() == '\0', *row.code == '\0');
  }
  EXPECT_STREQ(Confirmation(VerifyReport()).Code(), "");
}

TEST(ConfirmationTest, TellsTheDeliveryPointOfWhatIsConfirmed) {
  const std::pair<std::string, const char*> rows[] = {
      {Dpv("Y", "AABB") + "<DeliveryPoint>07</DeliveryPoint>", "07"},
      {Dpv("D", "AAN1") + "<DeliveryPoint>99</DeliveryPoint>", ""},
      {Dpv("Y", "AABB") + "<DeliveryPoint>7</DeliveryPoint>", ""},
      {Dpv("Y", "AABB") + "<DeliveryPoint>7A</DeliveryPoint>", ""},
      {Dpv("Y", "AABB"), ""},
  };
  for (const auto& [address, digits] : rows) {
    const VerifyReport report("<R><Address>" + address + "</Address></R>");
    EXPECT_EQ(Confirmation(report).DeliveryPoint(), digits) << address;
  }
}

}  // namespace postwright
