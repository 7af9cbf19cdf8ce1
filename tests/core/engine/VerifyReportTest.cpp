#include <postwright/VerifyReport.h>

#include <gtest/gtest.h>

#include "common/Encoding.h"

namespace postwright {

TEST(VerifyReportTest, ReadsAnAnswer) {
  const VerifyReport report(
      "<?xml version=\"1.0\"?><AddressValidateResponse><Address ID=\"0\"><Address2>12 MAIN ST"
      "</Address2><Zip5>78701</Zip5><Zip4>1234</Zip4><DeliveryPoint>12</DeliveryPoint>"
      "<ReturnText>Default address: more.</ReturnText><CarrierRoute>C022</CarrierRoute>"
      "<Footnotes>AN</Footnotes><DPVConfirmation>D</DPVConfirmation>"
      "<DPVFootnotes>AAN1</DPVFootnotes></Address></AddressValidateResponse>");
  EXPECT_TRUE(report.IsAnswer());
  EXPECT_EQ(report.DpvConfirmation(), "D");
  EXPECT_EQ(report.DpvFootnotes(), "AAN1");
  EXPECT_EQ(report.Footnotes(), "AN");
  EXPECT_EQ(report.ReturnText(), "Default address: more.");
  EXPECT_EQ(report.Zip4(), "1234");
  EXPECT_EQ(report.CarrierRoute(), "C022");
  EXPECT_EQ(report.DeliveryPoint(), "12");
  EXPECT_EQ(report.ErrorNumber(), "");
}

// The report covers whatever a fix accepts: a city in Latin-1 must not lose the confirmation.
TEST(VerifyReportTest, ReadsAnAnswerInAnotherEncoding) {
  const VerifyReport report(
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><R><Address><City>PE\xD1O</City>"
      "<Footnotes>AN</Footnotes><ReturnText>A\xF1o.</ReturnText>"
      "<DPVConfirmation>Y</DPVConfirmation></Address></R>");
  EXPECT_TRUE(report.IsAboutAddress());
  EXPECT_EQ(report.DpvConfirmation(), "Y");
  EXPECT_EQ(report.Footnotes(), "AN");
  EXPECT_EQ(report.ReturnText(), "A\xC3\xB1o.");
}

TEST(VerifyReportTest, GivesUtf8WhateverAReferenceNames) {
  const auto described = [](const std::string& text) {
    return VerifyReport("<R><Address><Error><Description>" + text + "</Description></Error>" +
                        "</Address></R>")
        .ErrorDescription();
  };
  EXPECT_EQ(described("Pe&#xF1;a"),
            "Pe\xC3\xB1"
            "a");
  EXPECT_TRUE(IsUtf8(described("a&#xD8FF;\xC3\xB1")));
}

TEST(VerifyReportTest, ReadsARefusal) {
  const char* const kError =
      "<Error><Number>-2147219401</Number><Source>clsAMS</Source>"
      "<Description>Address Not Found.  </Description><HelpFile/><HelpContext/></Error>";
  for (const std::string& reply :
       {"<R><Address>" + std::string(kError) + "</Address></R>", std::string(kError)}) {
    const VerifyReport report(reply);
    EXPECT_TRUE(report.IsAnswer());
    EXPECT_EQ(report.ErrorNumber(), "-2147219401");
    EXPECT_EQ(report.ErrorSource(), "clsAMS");
    EXPECT_EQ(report.ErrorDescription(), "Address Not Found.");
  }
}

TEST(VerifyReportTest, ReadsWhoseWordItIs) {
  const struct {
    std::string source;
    const char* code;
    std::string text;
  } rows[] = {
      {"<Kind>base</Kind><Name>a&amp;b.base</Name><Date>2026-11-20</Date>", "base",
       "the address base a&b.base of 2026-11-20"},
      {"<Kind>zip-list</Kind>", "zip-list", "the list of ZIP codes"},
      {"<Kind>upstream</Kind><Name>x http://a</Name>", "upstream",
       "the upstream service x http://a"},
      {"<Kind>cache</Kind><Name>x http://a</Name><Date>2026-11-20</Date>", "cache",
       "the upstream service x http://a, which answered on 2026-11-20"},
      {"<Kind>oracle</Kind><Name>Delphi</Name>", "", ""},
      {"<Kind>base</Kind><Name>" + std::string(201, 'x') + "</Name>", "", ""},
      {"", "", ""},
  };
  for (const auto& row : rows) {
    for (const char* said : {"<Address2>1 A ST</Address2>", "<Error><Number>1</Number></Error>"}) {
      const VerifyReport report("<R><Address>" + std::string(said) + "<Source>" + row.source +
                                "</Source></Address></R>");
      EXPECT_STREQ(report.Source().Code(), row.code) << row.source;
      EXPECT_EQ(report.Source().Text(), row.text);
    }
  }
}

TEST(VerifyReportTest, ReadsNothingFromWhatIsNoAnswer) {
  for (const std::string& reply :
       {std::string(), std::string("<html><p>502</html>"), std::string("<R/>"),
        std::string("<R><Address><Footnotes>A\0</Footnotes></Address></R>", 47),
        "<Address>" + std::string(100'000, '<')}) {
    const VerifyReport report(reply);
    EXPECT_FALSE(report.IsAnswer()) << reply.substr(0, 40);
    EXPECT_EQ(report.Footnotes(), "");
  }
}

}  // namespace postwright
