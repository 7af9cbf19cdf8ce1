#include <gtest/gtest.h>

#include "tests/apps/CommandRows.h"
#include "tests/support/LoopbackServer.h"

namespace postwright {

namespace {

const std::string kPlace = "<City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";
const std::string kUnits =
    "<Candidates><Candidate><Address2>14 N MAIN ST APT</Address2>" + kPlace +
    "<SecondaryLow>1</SecondaryLow><SecondaryHigh>3</SecondaryHigh><SecondaryParity>B"
    "</SecondaryParity></Candidate></Candidates>";
const std::string kNumbers =
    "<Candidates><Candidate><Address2>OAK ST</Address2>" + kPlace +
    "<PrimaryLow>100</PrimaryLow><PrimaryHigh>198</PrimaryHigh><PrimaryParity>E</PrimaryParity>"
    "</Candidate><Candidate><Address2>OAK AVE</Address2>" +
    kPlace +
    "<PrimaryLow>1</PrimaryLow><PrimaryHigh>9</PrimaryHigh><PrimaryParity>O</PrimaryParity>"
    "</Candidate></Candidates>";

std::string Found(const std::string& street, const std::string& dpv) {
  return "<Address2>" + street + "</Address2>" + kPlace + dpv;
}

// A building with three units on Main Street, and Oak streets with fewer than 50 numbers.
LoopbackServer::Answer Answer(const std::string& request) {
  const auto asksAbout = [&request](const char* words) {
    return request.find(words) != std::string::npos;
  };
  const bool offers = asksAbout("\r\nPostwright-Candidates: 50\r\n");
  const std::string full = "<DPVConfirmation>Y</DPVConfirmation>";
  const std::string missing = "<DPVConfirmation>D</DPVConfirmation>";
  const std::string unknown = "<DPVConfirmation>S</DPVConfirmation>";
  const std::string address =
      asksAbout("APT%202")     ? Found("14 N MAIN ST APT 2", full)
      : asksAbout("APT%209")   ? Found("14 N MAIN ST APT 9", unknown)
      : asksAbout("MAIN")      ? Found("14 N MAIN ST", missing) + (offers ? kUnits : "")
      : asksAbout("120%20OAK") ? Found("120 OAK ST", full)
                               : "<Error><Number>-2147219403</Number><Description>Multiple."
                                 "</Description></Error>" +
                                     (offers ? kNumbers : "");
  return LoopbackServer::Page("<R><Address>" + address + "</Address></R>");
}

}  // namespace

TEST(CandidatesTest, AreListedWhereTheyAreWanted) {
  const LoopbackServer server(Answer);
  const std::string fix = "$postwright fix --server " + server.GetEndpoint();
  const std::string main = " <<< '\"14 North Main Street, Austin TX 78701\"'";
  const std::string oak = " <<< '\"99 Oak, Austin TX 78701\"'";
  CheckCommands(
      {
          {"of a building", fix + " --jsonl --candidates" + main, 0,
           R"("fixed":"14 N MAIN ST\nAUSTIN TX 78701","result":"","confirmation":"unit-missing","reason":"","candidates":[{"address":"14 N MAIN ST APT (1 - 3)\nAUSTIN, TX 78701","unit_low":"1","unit_high":"3","unit_parity":"both"}],"status":1})",
           ""},
          {"of streets", fix + " --jsonl --candidates" + oak, 0,
           R"("fixed":"","result":"Invalid Address","confirmation":"","reason":"several-found","candidates":[{"address":"(100 - 198) OAK ST\nAUSTIN, TX 78701","number_low":"100","number_high":"198","number_parity":"even"},{"address":"(1 - 9) OAK AVE\nAUSTIN, TX 78701","number_low":"1","number_high":"9","number_parity":"odd"}],"status":3})",
           ""},
          {"none", fix + " --jsonl --candidates <<< '\"120 Oak St, Austin TX 78701\"'", 0,
           R"("reason":"","candidates":[],"status":)", ""},
          {"unwanted", fix + " --jsonl" + oak, 0,
           R"("confirmation":"","reason":"several-found","status":3})", ""},
          {"of a table",
           fix + " --csv --candidates <<< $'street,city,zip\\n14 N Main St,Austin TX,78701\\n99 "
                 "Oak,Austin TX,78701'",
           0,
           ",postwright_proposed,postwright_candidates\n14 N Main St,Austin TX,78701,unchanged,"
           "unit-missing,,,,\"14 N MAIN ST APT (1 - 3), AUSTIN, TX 78701\"\n99 Oak,Austin "
           "TX,78701,turned-down,,several-found,,,\"(100 - 198) OAK ST, AUSTIN, TX 78701 | (1 - 9) "
           "OAK AVE, AUSTIN, TX 78701\"\n",
           "street=street, city=city, zip=zip"},
          {"of a label", fix + " --candidates <<< '99 Oak, Austin TX 78701'", 1, "",
           "It could be:\n  1  (100 - 198) OAK ST AUSTIN, TX 78701 (even numbers)\n  2  (1 - 9) "
           "OAK "
           "AVE AUSTIN, TX 78701 (odd numbers)\nInvalid Address\n"},
      },
      ScratchFolder());
}

// What a person types on the terminal that `script` makes, line by line.
TEST(CandidatesTest, AreOfferedOnATerminal) {
  const LoopbackServer server(Answer);
  const auto type = [&server](const std::string& label, const std::string& lines) {
    return "cd $folder; echo '" + label + "' > label; printf '" + lines +
           "' | script -qec \"$postwright fix --server " + server.GetEndpoint() +
           " label\" /dev/null; status=$?; rm label; exit $status";
  };
  const std::string main = "14 North Main Street, Austin TX 78701";
  const std::string oak = "99 Oak, Austin TX 78701";
  CheckCommands(
      {
          {"a unit", type(main, "1\\n2\\n"), 0, "14 N MAIN ST APT 2\r\nAUSTIN TX 78701\r\n", ""},
          {"a number", type(oak, "3\\n1\\n120\\n"), 0, "120 OAK ST\r\nAUSTIN TX 78701\r\n", ""},
          {"no number of the list", type(oak, "3\\n\\n"), 1,
           "That is not a number from 1 to 2.\r\n", ""},
          {"none of them", type(main, "\\n"), 0, ": 14 N MAIN ST\r\nAUSTIN TX 78701\r\n", ""},
          {"outside, and back", type(oak, "1\\n121\\nn\\n\\n"), 1, "121 is not even.\r\n", ""},
          {"outside, not confirmed, kept", type(main, "1\\n9\\ny\\ny\\n"), 0,
           "confirmation: confirmed but for its unit, which is not known\r\n"
           "Take it all the same? y or n: 14 N MAIN ST APT 9\r\nAUSTIN, TX 78701\r\n",
           ""},
      },
      ScratchFolder());
}

}  // namespace postwright
