#include <postwright/CandidateFix.h>

#include <postwright/Deployment.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/ReportingServices.h>
#include <postwright/VerifyReport.h>

#include "tests/support/LoopbackServer.h"

#include <gtest/gtest.h>

namespace postwright {

namespace {

const std::string kPlace = "<City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";
const std::string kStreet =
    "<Candidate><Above>C/O A &amp; B</Above><Address2>MAIN ST</Address2>" + kPlace +
    "<PrimaryLow>100</PrimaryLow><PrimaryHigh>198</PrimaryHigh><PrimaryParity>E</PrimaryParity>"
    "<RecordType>S</RecordType></Candidate>";
const std::string kBuilding =
    "<Candidate><Address2>14 N MAIN ST APT</Address2>" + kPlace +
    "<SecondaryLow>1</SecondaryLow><SecondaryHigh>6</SecondaryHigh><SecondaryParity>B"
    "</SecondaryParity><RecordType>H</RecordType></Candidate>";
const std::string kRefusal =
    "<Error><Number>-2147219403</Number><Description>Multiple.</Description></Error>";
const std::string kAnswer = "<Address2>12 MAIN ST</Address2>" + kPlace + "<Zip4/>";

std::string Reply(const std::string& address, const std::string& candidates) {
  return "<R><Address>" + address +
         (candidates.empty() ? "" : "<Candidates>" + candidates + "</Candidates>") +
         "</Address></R>";
}

class CandidateFixTest : public testing::Test {
 protected:
  CandidateFixTest()
      : server_([this](const std::string&) { return LoopbackServer::Page(reply_); }) {
    SetDeployment({server_.GetEndpoint(), "ME", "127.0.0.1"});
  }
  ~CandidateFixTest() override { SetDeployment(before_); }

  std::unique_ptr<FixedAddress> Fix(const std::string& reply) {
    reply_ = reply;
    ReportingServices services;
    return FixWithCandidates(L"Jane Doe\n12 main st\naustin tx 78701\nfragile", false, 50,
                             &services);
  }

  const Deployment before_ = GetDeployment();
  std::string reply_;
  const LoopbackServer server_;
};

}  // namespace

TEST_F(CandidateFixTest, MakesMatchesOfWhatIsNamed) {
  const auto refused = Fix(Reply(kRefusal, kStreet + kBuilding));
  EXPECT_EQ(refused->GetResult(), FixResultMultipleMatch);
  EXPECT_TRUE(refused->IsAddressMatchesValid());
  EXPECT_EQ(refused->GetExactAddress(), L"");
  const std::vector<AddressMatch>& matches = refused->GetAddressMatches();
  ASSERT_EQ(matches.size(), 2U);
  EXPECT_EQ(matches[0].GetAddressTemplate(true),
            L"JANE DOE\nC/O A & B\n(100 - 198) MAIN ST\nAUSTIN, TX 78701\nFRAGILE");
  EXPECT_EQ(matches[0].GetPrimaryType(), AddressRangeTypeEven);
  EXPECT_EQ(matches[0].GetSecondaryType(), AddressRangeTypeNone);
  EXPECT_EQ(matches[1].GetAddressTemplate(false), L"14 N MAIN ST APT (1 - 6)\nAUSTIN, TX 78701");
  EXPECT_EQ(matches[1].GetSecondaryType(), AddressRangeTypeBoth);
  EXPECT_EQ(matches[1].ComposeAddressForRechecking(L"", L"3"),
            L"JANE DOE\n14 N MAIN ST APT 3\nAUSTIN, TX 78701\nFRAGILE");

  const auto answered = Fix(Reply(kAnswer, kBuilding));
  EXPECT_EQ(answered->GetResult(), FixResultMultipleMatch);
  EXPECT_EQ(answered->GetExactAddress(), L"JANE DOE\n12 MAIN ST\nAUSTIN, TX 78701\nFRAGILE");
  EXPECT_EQ(answered->GetAddressMatches().size(), 1U);
}

TEST_F(CandidateFixTest, IsAnOrdinaryFixWhereNothingIsNamed) {
  EXPECT_EQ(Fix(Reply(kAnswer, ""))->GetResult(), FixResultDefaultMatch);
  for (const std::string& reply : {Reply(kRefusal, ""), std::string("<html>")}) {
    EXPECT_THROW(Fix(reply), PostwrightException);
  }
  const std::string request = server_.GetRequests().front();
  EXPECT_NE(request.find("\r\nPostwright-Candidates: 50\r\n"), std::string::npos) << request;
  ReportingServices plain;
  plain.ReadUrl((L"http://" + plain.UTF8ToUCS2(server_.GetEndpoint()) + L"/").c_str());
  EXPECT_EQ(server_.GetRequests().back().find("Postwright"), std::string::npos);
  plain.WantSource();
  EXPECT_THROW(Postwright::Fix(L"12 main st\naustin tx 78701", true, &plain), PostwrightException);
  EXPECT_NE(server_.GetRequests().back().find("\r\nPostwright-Source: 1\r\n"), std::string::npos);
  EXPECT_TRUE(plain.Warning().empty());  // what is not XML is an error
  reply_ = Reply(kRefusal, "");
  EXPECT_THROW(Postwright::Fix(L"12 main st\naustin tx 78701", true, &plain), PostwrightException);
  EXPECT_EQ(plain.Warning().find(L"Postwright::Fix(): server error = '"), 0U);
}

TEST(VerifyReportTest, ReadsCandidatesWithinBounds) {
  const auto count = [](const std::string& candidates) {
    return VerifyReport(Reply(kRefusal, candidates)).Candidates().size();
  };
  const auto with = [](const std::string& more) {
    return "<Candidate><Address2>A ST</Address2>" + kPlace + more + "</Candidate>";
  };
  EXPECT_EQ(count(kStreet + kBuilding), 2U);
  EXPECT_EQ(count(with("<PrimaryLow>" + std::string(200, '1') + "</PrimaryLow>")), 1U);
  EXPECT_EQ(count(with("<PrimaryLow>" + std::string(201, '1') + "</PrimaryLow>")), 0U);
  EXPECT_EQ(count("<Candidate>" + kPlace + "</Candidate><Candidate/>" + kStreet), 1U);
  std::string many;
  for (int i = 0; i < 1000; ++i) {
    many += kStreet;
  }
  EXPECT_EQ(count(many), 50U);
  EXPECT_TRUE(VerifyReport("<R>" + kStreet + "</R>").Candidates().empty());
}

}  // namespace postwright
