#include <gtest/gtest.h>

#include <string>

#include "tests/apps/CommandRows.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/LoopbackServer.h"

namespace postwright {

namespace {

using std::string_literals::operator""s;

constexpr const char* kLabel = R"("1 a st\naustin tx 78701")";

// The record of a label: what precedes its fields (an id or nothing), then number, street, suffix,
// the composed line, city, state and ZIP.
std::string Record(const std::string& id, const std::string& number, const std::string& street,
                   const std::string& suffix, const std::string& line, const std::string& city,
                   const std::string& state, const std::string& zip) {
  return "{" + id + R"("prefix":"","number":")" + number + R"(","predirectional":"","street":")" +
         street + R"(","street_suffix":")" + suffix +
         R"(","postdirectional":"","secondary_unit":"","secondary_number":"","street_line":")" +
         line + R"(","city":")" + city + R"(","state":")" + state + R"(","zip":")" + zip +
         R"(","suffix":""})" + "\n";
}

std::string LabelRecord(const std::string& id = "") {
  return Record(id, "1", "A", "ST", "1 A ST", "AUSTIN", "TX", "78701");
}

std::string EmptyRecord(const std::string& id = "") {
  return Record(id, "", "", "", "", "", "", "");
}

std::string Nest(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

struct LineRow {
  const char* name;
  std::string input;
  std::string output;
  int status;
  std::string errors;  // part of standard error; "" for silence
};

TEST(ParseLinesTest, AnswersEveryLine) {
  const std::string label = kLabel;
  const LineRow rows[] = {
      {"no input", "", "", 0, ""},
      {"a label", label + "\n", LabelRecord(), 0, ""},
      {"no line feed at the end", label, LabelRecord(), 0, ""},
      {"carriage returns", label + "\r\n" + label + "\r\n", LabelRecord() + LabelRecord(), 0, ""},
      {"a byte-order mark", "\xEF\xBB\xBF" + label + "\n", LabelRecord(), 0, ""},
      {"a mark on a later line", label + "\n\xEF\xBB\xBF" + label + "\n",
       LabelRecord() + EmptyRecord(), 1, "line 2 is not a JSON string"},
      {"letters beyond ASCII", R"("1 Pe\u00f1a St\nAustin TX 78701")",
       Record("", "1", "PEÑA", "ST", "1 PEÑA ST", "AUSTIN", "TX", "78701"), 0, ""},
      {"line feed and tab inside a field", R"("1 a\nb\tc, austin tx 78701")",
       Record("", "1", R"(A\nB\tC)", "", R"(1 A\nB\tC)", "AUSTIN", "TX", "78701"), 0, ""},
      {"no address", R"("x")", EmptyRecord(), 0, ""},
      {"an id", R"({"id":7,"address":)" + label + "}", LabelRecord(R"("id":7,)"), 0, ""},
      {"an id after it, other members", R"({"a":[{}],"address":)" + label + R"(,"id":"k"})",
       LabelRecord(R"("id":"k",)"), 0, ""},
      {"a number beyond 64 bits", R"({"id":123456789012345678901234567890,"address":"x"})",
       EmptyRecord(R"("id":123456789012345678901234567890,)"), 0, ""},
      {"an id of many parts", R"({"id" : [1.50, {"\u00e9":null}, -0] ,"address":"x"})",
       EmptyRecord(R"("id":[1.50, {"\u00e9":null}, -0],)"), 0, ""},
      {"no label in the object", R"({"id":9,"addres":"x"})", EmptyRecord(R"("id":9,)"), 1,
       R"(line 1 is an object without a string "address")"},
      {"a label that is not a string", R"({"address":5})", EmptyRecord(), 1, "without a string"},
      {"no JSON", "1 a st\n" + label + "\n", EmptyRecord() + LabelRecord(), 1,
       "postwright: line 1 is not a JSON string; an empty record takes its place\n"},
      {"an empty line", "\n" + label + "\n", EmptyRecord() + LabelRecord(), 1, "line 1 is not"},
      {"two values", label + label, EmptyRecord(), 1, "line 1 is not"},
      {"an id that is not JSON", R"({"id":[tru],"address":"x"})", EmptyRecord(), 1, "not a JSON"},
      {"a comma too many", R"({"address":"x",})", EmptyRecord(), 1, "not a JSON"},
      {"half a surrogate pair", R"("\ud800")", EmptyRecord(), 1, "not a JSON"},
      {"no UTF-8", "\"\xFF\"\n" + label, EmptyRecord() + LabelRecord(), 1, "not valid UTF-8"},
      {"a zero byte", "\"a\0b\"\n"s + label, EmptyRecord() + LabelRecord(), 1, "not a JSON"},
      {"an escaped zero byte", R"("1 a\u0000b st, austin tx 78701")",
       Record("", "1", "AB", "ST", "1 AB ST", "AUSTIN", "TX", "78701"), 0, ""},
      {"17 MiB", label + "\n\"" + std::string(17U << 20U, 'x') + "\"\n" + label,
       LabelRecord() + EmptyRecord() + LabelRecord(), 1, "line 2 is longer than 16 MiB"},
      {"deep nesting", R"({"address":"x","id":)" + std::string(100000, '['), EmptyRecord(), 1,
       "not a JSON"},
      {"as deep as is read", R"({"address":"x","id":)" + Nest(1000) + "}",
       EmptyRecord("\"id\":" + Nest(1000) + ","), 0, ""},
      {"one level deeper", R"({"address":"x","id":)" + Nest(1001) + "}\n" + label,
       EmptyRecord() + LabelRecord(), 1, "line 1 has more than 1,000 arrays and objects inside"},
      {"far deeper", "{\"x\":" + Nest(600000) + "}\n" + label, EmptyRecord() + LabelRecord(), 1,
       "line 1 has more than"},
  };
  const ScratchFolder folder;
  for (const LineRow& row : rows) {
    SCOPED_TRACE(row.name);
    const ProgramRun run = RunCommand("$postwright parse --jsonl", row.input, folder);
    EXPECT_EQ(run.output, row.output);
    EXPECT_EQ(run.status, row.status);
    EXPECT_EQ(run.errors.empty(), row.errors.empty()) << run.errors;
    EXPECT_NE(run.errors.find(row.errors), std::string::npos) << run.errors;
  }
}

TEST(CommandLineTest, ExplainsItself) {
  CheckCommands(
      {
          {"help", "$postwright --help", 0, "parse", ""},
          {"help of parse", "$postwright parse --help", 0, "street_suffix", ""},
          {"help of fix", "$postwright fix -h", 0, "--server HOST[:PORT]", ""},
          {"version", "$postwright --version", 0, "postwright ", ""},
          {"version of fix", "$postwright fix --version", 0, "postwright ", ""},
          {"no command", "$postwright", 2, "", "a command is missing"},
          {"wrong command", "$postwright mend", 2, "", "'mend' is not a command"},
          {"wrong option", "$postwright fix --serv x", 2, "", "--serv\nUsage: postwright fix ["},
          {"option before the command", "$postwright --jsonl fix", 2, "", "'--jsonl' is no"},
          {"two commands", "$postwright parse - fix", 2, "", "not expected: fix"},
          {"two files", "$postwright fix a b", 2, "", "not expected: b"},
          {"output of one label", "$postwright parse --output x", 2, "", "requires --jsonl"},
          {"server without port", "$postwright fix --server host:", 2, "", "is not HOST[:PORT]"},
          {"no such case", "$postwright fix --case title", 2, "", "is not upper, lower or mixed"},
          {"spellings not in UTF-8", "$postwright fix --mixed-case $'\\xE9'", 2, "", "not valid"},
          {"no jobs", "$postwright fix --jsonl --jobs 0", 2, "",
           "'0' is not a number from 1 to 256"},
          {"half a job", "$postwright fix --jsonl --jobs 1.5", 2, "", "is not a number from 1"},
          {"jobs for one label", "$postwright fix --jobs 2", 2, "", "requires --jsonl"},
          {"nameless", "$postwright fix --jsonl --resume ''", 2, "", "a file's name is missing"},
          {"two outputs", "$postwright fix --jsonl --resume a --output b", 2, "", "excludes"},
          {"server with path", "$postwright fix --server host/x", 2, "", "is not HOST[:PORT]"},
          {"no time", "$postwright fix --timeout soon", 2, "", "'soon' is not as 30d, 12h or 20s"},
          {"port too high", "$postwright fix --server [::1]:65536", 2, "", "is not HOST[:PORT]"},
      },
      ScratchFolder());
}

TEST(CommandLineTest, ReadsAndWritesWhereItCan) {
  const ScratchFolder folder;
  WriteFile(folder.File("kept"), "as it was");
  WriteFile(folder.File("labels"), kLabel);
  CheckCommands(
      {
          {"fields for a person", "$postwright parse", 0, "street suffix     ST\n", ""},
          {"no UTF-8 locale", "LC_ALL=C $postwright parse <<< '1 peña, austin tx 78701'", 0,
           "street            PEÑA\n", ""},
          {"no address", "$postwright parse <<< nothing", 1, "", "no address found"},
          {"nothing", "$postwright fix < /dev/null", 1, "", "standard input is empty"},
          {"no UTF-8", R"($postwright fix <<< $'\xE9')", 1, "", "not valid UTF-8"},
          {"no end", "$postwright fix < /dev/zero", 2, "", "longer than a label can be (16 MiB)"},
          {"no file", "$postwright parse nowhere", 2, "", "cannot read nowhere: No such file"},
          {"a folder", "$postwright parse --jsonl /", 2, "", "cannot read /: Is a directory"},
          {"no standard input", "$postwright parse <&-", 2, "", "cannot read standard input"},
          {"full disk", "$postwright parse > /dev/full", 2, "", "cannot write standard output: No"},
          {"no standard output", "$postwright parse >&-", 2, "", "cannot write standard output"},
          {"reader gone", "yes '\"x\"' | { $postwright parse --jsonl; echo $? >&2; } | head -n 1",
           0, "prefix", "141\n"},
          {"answers while it waits",
           "coproc $postwright parse --jsonl; echo '\"x\"' >&${COPROC[1]}; "
           "read -t 30 -u ${COPROC[0]} line; echo $line",
           0, R"({"prefix":"","number":)", ""},
          {"file in place",
           "cd $folder; umask 027; $postwright parse --jsonl --output new labels && "
           "stat -c %a new && cat new",
           0, "640\n" + LabelRecord(), ""},
          {"no input, file as it was",
           "cd $folder; $postwright parse --jsonl --output kept nowhere || cat kept", 0,
           "as it was", "cannot read nowhere"},
          {"no standard error, nothing but records in the file",
           "cd $folder; $postwright parse --jsonl --output quiet 2>&- <<< x; head -c 9 quiet", 0,
           R"({"prefix")", ""},
          {"ended early, file as it was",
           "cd $folder; yes '\"x\"' | $postwright parse --jsonl --output kept & sleep 0.3; "
           "kill $!; wait $!; echo $?; cat kept",
           0, "143\nas it was", ""},
          {"a limit on files, file as it was",
           "cd $folder; ulimit -f 1; yes '\"x\"' | head -n 9999 | $postwright parse --jsonl "
           "--output kept; echo $?; cat kept",
           0, "2\nas it was", "/kept: File too large"},
          {"a link's target, not there yet",
           "cd $folder; mkdir -p sub; ln -s sub/target link; ln -s link links; $postwright parse "
           "--jsonl --output links labels; readlink link links; cat sub/target; "
           "rm -r link links sub",
           0, "sub/target\nlink\n" + LabelRecord(), ""},
          {"permissions kept",
           "cd $folder; cp kept closed; chmod 2604 closed; $postwright parse --jsonl --output "
           "closed "
           "labels; stat -c %a closed; cat closed; rm closed",
           0, "2604\n" + LabelRecord(), ""},
          {"output by a dash",
           "cd $folder; $postwright parse --jsonl --output - labels; ls -- - 2>&-", 2,
           LabelRecord(), ""},
          {"controls on a terminal",
           "cd $folder; printf '{\"id\":\"\xC2\x9B\xE2\x80\xAE\",' > odd; "
           "printf '\"address\":\"Bob \xC2\x9B\x32J\xE2\x80\xAE\\\\n1 a st' >> odd; "
           R"(printf '\\naustin tx 78701"}' >> odd; )"
           "script -qec \"$postwright parse --jsonl odd; $postwright parse --jsonl odd | cat\" "
           "/dev/null < /dev/null | grep -c '\xC2\x9B'; rm odd",
           0, "1\n", ""},
          {"a name on a terminal",
           "export odd=$'no\\033[2Jwhere'; script -qec \"$postwright parse \\\"\\$odd\\\"\" "
           "/dev/null "
           "< /dev/null",
           2, "cannot read no\xEF\xBF\xBD[2Jwhere", ""},
          {"no plain file", "$postwright parse --jsonl --output /dev/null", 2, "",
           "not a plain file"},
          {"no such folder", "$postwright parse --jsonl --output /nowhere/x", 2, "",
           "cannot create /nowhere/x: No such file"},
      },
      folder);
  EXPECT_EQ(folder.CountFiles(), 4U);  // nothing unfinished is left
}

TEST(CommandLineTest, FixesWithTheService) {
  const VerifyDaemon daemon;
  ASSERT_FALSE(daemon.Endpoint().empty());
  const LoopbackServer slow(
      LoopbackServer::Answer{"HTTP/1.1 200 OK\r\n\r\n", false, "x", std::chrono::milliseconds(50)});
  const std::string fix = "$postwright fix --server " + daemon.Endpoint();
  CheckCommands(
      {
          {"corrected", fix + " <<< $'Jane Doe\\n12 n main street apt 4\\naustin, texas 78701'", 0,
           "Jane Doe\n12 N MAIN ST APT 4\nAUSTIN TX 78701\n", ""},
          {"lines around the address",
           fix +
               " <<< $'3M Company\\r\\n\\r\\nUnit 5, c/o #1\\r\\n12 n main street\\r\\nApt 4\\r\\n"
               "Austin, T.X. 78701\\r\\nRing 2x!\\r\\n'",
           0,
           "3M Company\r\n\r\nUnit 5, c/o #1\r\n12 N MAIN ST APT 4\r\nAUSTIN TX 78701\r\nRing "
           "2x!\r\n",
           ""},
          {"the whole label",
           fix + " --whole-label <<< $'Jane Doe\\n12 n main street apt 4\\naustin, texas 78701'", 0,
           "JANE DOE\n12 N MAIN ST APT 4\nAUSTIN TX 78701\n", ""},
          {"signs of the postal standard",
           fix + " <<< $'Maria & Jos\u00e9 Garc\u00eda-L\u00f3pez\\n112-10 N.W. O\\'Neil Ave., "
                 "#4\\n"
                 "Winston-Salem,NC 27101'",
           0,
           "Maria & Jos\u00e9 Garc\u00eda-L\u00f3pez\n112-10 NW ONEIL AVE # 4\nWINSTON SALEM NC "
           "27101\n",
           ""},
          {"names in the case of the address",
           fix + " --names same-case <<< $'Maria & Co.\\r\\n12 n main st\\r\\nAustin TX "
                 "78701\\r\\nring!'",
           0, "MARIA & CO.\r\n12 N MAIN ST\r\nAUSTIN TX 78701\r\nRING!\n", ""},
          {"names of a label that is asked about whole",
           fix + " <<< $'Ann O. Smith\\n12 Main St, Austin TX 78701\\n14 Main St, Austin TX 78701'",
           0, "Ann O. Smith\n12 MAIN ST\n", ""},
          {"no signs but the hyphen of a ZIP+4",
           fix + " --punctuation remove <<< $'Doe & Co.\\n12 O\\'Neil Street, Apt. 4\\nAustin, TX "
                 "78701-1234'",
           0, "Doe & Co.\n12 ONEIL ST APT 4\nAUSTIN TX 78701-1234\n", ""},
          {"no such form", "$postwright fix --names upper", 2, "",
           "'upper' is not as-typed or same-case"},
          {"an accent of two characters",
           fix + " --whole-label <<< $'Jose\u0301\\n12 n main st\\nAustin TX 78701'", 0,
           "JOS\u00c9\n12 N MAIN ST\nAUSTIN TX 78701\n", ""},
          {"left alone", fix + " <<< $'Jane Doe\\nRR 3 Box 14\\nSpringfield IL 62701'", 0,
           "Jane Doe\nRR 3 Box 14\nSpringfield IL 62701\n", "it cannot be checked"},
          {"left alone, in a record", fix + R"( --jsonl <<< '"RR 3 Box 14\nSpringfield IL 62701"')",
           0,
           R"("fixed":"RR 3 Box 14\nSpringfield IL 62701","result":"","confirmation":"","reason":"left-alone-rural-route","status":0})",
           ""},
          {"a reason", fix + " <<< $'12 Main St\\nBoston MA 2108'", 1, "", "begins with 0"},
          {"lower case", fix + " --case lower <<< '12 N MAIN ST, AUSTIN TX 78701'", 0,
           "12 n main st\naustin tx 78701\n", ""},
          {"as a person writes it",
           fix + " --whole-label --case mixed --keep-punctuation --mixed-case 'MacArthur; "
                 "DeLaCroix' <<< "
                 "'pat delacroix\n12 n main st, austin tx 78701'",
           0, "Pat DeLaCroix\n12 N Main St\nAustin, TX 78701\n", ""},
          {"the same of lines",
           fix + " --jsonl --case mixed --keep-punctuation <<< '\"12 n main street, austin tx "
                 "78701\"'",
           0,
           R"("fixed":"12 N Main St\nAustin, TX 78701","result":"","confirmation":"form-only","reason":"","status":1})",
           ""},
          {"explained", fix + " --explain <<< '12 n main street, austin tx 78701'", 0,
           "12 N MAIN ST\nAUSTIN TX 78701\n", "suffix in standard form: street -> ST\n"},
          {"a doubt is not taken", fix + " <<< '2870 South West Temple, Madison WI 53703'", 3,
           "2870 South West Temple, Madison WI 53703\n",
           "The directional “South” became “S”, and the service did not say why."},
          {"unless it is wanted",
           fix + " --accept-doubtful <<< '2870 South West Temple, Madison WI 53703'", 0,
           "2870 S WEST TEMPLE\nMADISON WI 53703\n", ""},
          {"a doubt of lines", fix + " --jsonl <<< '\"2870 South West Temple, Madison WI 53703\"'",
           0,
           R"("fixed":"","result":"","confirmation":"form-only","proposed":"2870 S WEST TEMPLE\nMADISON WI 53703","reason":"directional-unexplained","status":2})",
           ""},
          {"taken of lines",
           fix + " --jsonl --accept-doubtful <<< '\"2870 South West Temple, Madison WI "
                 "53703\"'",
           0,
           R"("fixed":"2870 S WEST TEMPLE\nMADISON WI 53703","result":"","confirmation":"form-only","reason":"","status":1})",
           ""},
          {"form alone", fix + " --explain <<< '12 n main street, austin tx 78701'", 0,
           "12 N MAIN ST",
           "confirmation: form only, nobody has checked the street\n"
           "source: the list of ZIP codes\n"},
          {"explained lines", fix + " --jsonl --explain <<< '\"12 main street, austin tx 78701\"'",
           0,
           R"("confirmation":"form-only","reason":"","confirmation_text":"form only, nobody has checked the street","reason_text":"","source":"zip-list","source_text":"the list of ZIP codes","changes":[{"rule":"suffix","text":"suffix in standard form","doubt":false,"typed":"street","typed_line":0,"typed_begin":8,"typed_end":14,"corrected":"ST","corrected_line":0,"corrected_begin":8,"corrected_end":10,"reason":""}],"status":1})",
           ""},
          {"no network", "$postwright fix --server 255.255.255.255", 1, "",
           "No internet connection available: there is no way to 255.255.255.255"},
          {"a doubt in words",
           fix + " --jsonl --explain <<< '\"2870 South West Temple, Madison WI 53703\"'", 0,
           R"("reason_text":"The directional “South” became “S”, and the service did not say why.","source":)",
           ""},
          {"left alone, in words",
           fix + R"( --jsonl --explain <<< '"RR 3 Box 14\nSpringfield IL 62701"')", 0,
           R"("confirmation_text":"","reason_text":"A rural route, highway contract route or star route: it cannot be checked, and stays as it was typed.",)",
           ""},
          {"turned down", fix + " <<< 'ring twice'", 1, "", "Invalid Address\n"},
          {"slow service",
           "$postwright fix --timeout 1s --server " + slow.GetEndpoint() + " <<< 'ring twice'", 1,
           "", "gave no answer in time."},
          {"no service", "$postwright fix --server 127.0.0.1:1", 1, "",
           "Nothing answers at 127.0.0.1:1 (connection refused)."},
          {"no service, in a record",
           "$postwright fix --jsonl --server 127.0.0.1:1 <<< '\"12 Main St, Austin TX 78701\"'", 0,
           R"("fixed":"","result":"Request completed OK, but the server's reply is unexpected/wrong","confirmation":"","reason":"refused","status":4})",
           ""},
          {"turned down by the service", fix + " <<< '12 Main St, Austin TX 10001'", 1, "",
           "Invalid Address\nThe service says: Invalid Zip Code. Look at the ZIP code"},
          {"a lost zero", fix + " <<< $'12 Oak St\\nBoston MA 2108'", 1, "",
           "Put the 0 back.\nPerhaps this is meant:\n12 Oak St\nBoston MA 02108\n"},
          {"a number in words", fix + " <<< $'Twelve Oak St\\nBoston MA 02108'", 1, "",
           "Write it in figures.\nPerhaps this is meant:\n12 Oak St\nBoston MA 02108\n"},
          {"the same in a record", fix + " --jsonl <<< '\"12 Main St, Austin TX 10001\"'", 0,
           R"("result":"Invalid Address","confirmation":"","reason":"zip-invalid","status":3})",
           ""},
          {"records in order", fix + R"( --jsonl <<< '"12 main street\naustin tx 78701"
{"id":[1],"address":"12 Main St., Austin TX 78701"}
"ring\ttwice"
3')",
           1,
           R"({"address":"12 main street\naustin tx 78701","fixed":"12 MAIN ST\nAUSTIN TX 78701","result":"","confirmation":"form-only","reason":"","status":1}
{"id":[1],"address":"12 Main St., Austin TX 78701","fixed":"12 Main St., Austin TX 78701","result":"","confirmation":"form-only","reason":"","status":0}
{"address":"ring\ttwice","fixed":"","result":"Invalid Address","confirmation":"","reason":"zip-missing","status":3}
{"address":"","fixed":"","result":"The line is not a JSON string","confirmation":"","reason":"no-label","status":3}
)",
           "line 4 is not a JSON string"},
          {"turned down, in words",
           fix + " --jsonl --explain <<< '\"12 Main St, Austin TX 10001\"'", 0,
           R"("reason":"zip-invalid","confirmation_text":"","reason_text":"The service says: Invalid Zip Code. Look at the ZIP code: it is none, or belongs to another place.","source":"zip-list","source_text":"the list of ZIP codes","changes":[],"status":3})",
           ""},
          {"failures are answers", fix + " --jsonl <<< '\"ring twice\"'", 0, R"("status":3})", ""},
      },
      ScratchFolder());
}

// The service knows the street and its numbers, so an address it returns unchanged may still be
// wrong.
TEST(CommandLineTest, TellsWhatWasConfirmed) {
  const LoopbackServer server([](const std::string& request) {
    const std::string dpv = request.find("99%20OAK") == std::string::npos
                                ? "Y</DPVConfirmation><DPVFootnotes>AABB"
                                : "N</DPVConfirmation><DPVFootnotes>AAM3";
    const std::string number = request.find("99%20OAK") == std::string::npos ? "12" : "99";
    if (request.find("APT%20") != std::string::npos) {
      return LoopbackServer::Page(
          "<R><Address><Address2>12 OAK ST APT 9</Address2><City>AUSTIN</City><State>TX</State>"
          "<Zip5>78701</Zip5><DPVConfirmation>S</DPVConfirmation>"
          "<DPVFootnotes>AAC1</DPVFootnotes></Address></R>");
    }
    return LoopbackServer::Page("<R><Address><Address2>" + number +
                                " OAK ST</Address2><City>AUSTIN</City><State>TX</State>"
                                "<Zip5>78701</Zip5><DPVConfirmation>" +
                                dpv + "</DPVFootnotes></Address></R>");
  });
  const std::string fix = "$postwright fix --server " + server.GetEndpoint();
  CheckCommands(
      {
          {"confirmed", fix + " --jsonl <<< '\"12 Oak St, Austin TX 78701\"'", 0,
           R"("confirmation":"confirmed","reason":"","status":0})", ""},
          {"in words", fix + " --explain <<< '12 Oak St, Austin TX 78701'", 0, "12 OAK ST",
           "confirmation: confirmed\n"},
          {"number not there, the same text", fix + " --jsonl <<< '\"99 Oak St, Austin TX 78701\"'",
           0,
           R"("fixed":"","result":"","confirmation":"number-not-known","proposed":"99 OAK ST\nAUSTIN TX 78701","reason":"number-not-known","status":2})",
           ""},
          {"number not there, the same words on other lines",
           fix + R"( --jsonl <<< '"99 Oak\nSt, Austin TX 78701"')", 0,
           R"("fixed":"","result":"","confirmation":"number-not-known","proposed":"99 OAK ST\nAUSTIN TX 78701","reason":"number-not-known","status":2})",
           ""},
          {"in words, in a record", fix + " --jsonl --explain <<< '\"99 Oak St, Austin TX 78701\"'",
           0,
           R"("confirmation_text":"the street is known, the number is not","reason_text":"Look at the number: the street is known, the number is not.",)",
           ""},
          {"corrected", fix + " --jsonl <<< '\"99 Oak Street, Austin TX 78701\"'", 0,
           R"("reason":"number-not-known","status":2})", ""},
          {"taken all the same",
           fix + " --jsonl --accept-doubtful <<< '\"99 Oak Street, Austin TX 78701\"'", 0,
           R"("confirmation":"number-not-known","reason":"","status":1})", ""},
          {"unit not there", fix + " <<< '12 Oak St Apt 9, Austin TX 78701'", 3,
           "12 Oak St Apt 9, Austin TX 78701\n", "Look at the number and the unit: confirmed but"},
          {"unit not there, in a record",
           fix + " --jsonl <<< '\"12 Oak St Apt 9, Austin TX 78701\"'", 0,
           R"("fixed":"","result":"","confirmation":"unit-not-known","proposed":"12 OAK ST APT 9\nAUSTIN TX 78701","reason":"unit-not-known","status":2})",
           ""},
          {"number not there", fix + " <<< '99 Oak St, Austin TX 78701'", 3,
           "99 Oak St, Austin TX 78701\n", "the street is known, the number is not"},
      },
      ScratchFolder());
}

TEST(CommandLineTest, AsksTheServerOfTheEnvironment) {
  const LoopbackServer server(LoopbackServer::Page("<R><Address><Error/></Address></R>"));
  const std::string here = "POSTWRIGHT_SERVER=" + server.GetEndpoint() + " ";
  CheckCommands(
      {
          {"asked", here + "$postwright fix", 1, "", "Invalid Address"},
          {"the option counts", here + "$postwright fix --server 127.0.0.1:1", 1, "",
           "Nothing answers at 127.0.0.1:1 "},
          {"no server", "POSTWRIGHT_SERVER='a b' $postwright fix", 2, "",
           "postwright: POSTWRIGHT_SERVER: 'a b' is not HOST[:PORT]"},
          {"help", "$postwright fix --help | tr -s '\n ' ' '", 0,
           "to ask: none, the command answers by itself, unless given here or as "
           "POSTWRIGHT_SERVER",
           ""},
          {"help where it is set", here + "$postwright fix --help | tr -s '\n ' ' '", 0,
           "to ask: " + server.GetEndpoint() + ", as POSTWRIGHT_SERVER says", ""},
      },
      ScratchFolder());
  EXPECT_EQ(server.GetRequests().size(), 1U);
}

// No service and no port is needed: a base that is found answers, or the ZIP codes that come with
// the program.
TEST(CommandLineTest, AnswersByItself) {
  const ScratchFolder folder;
  const std::string home = "cd $folder; export XDG_DATA_HOME=$folder/data HOME=$folder/home; ";
  const std::string base = "data/postwright/town.base";
  const std::string label = "$'12 north main street\naustin tx 78701'";
  CheckCommands(
      {
          {"ZIP codes alone", home + "$postwright fix <<< " + label, 0,
           "12 N MAIN ST\nAUSTIN TX 78701\n", ""},
          {"and says so", home + "$postwright fix --explain <<< " + label, 0, "12 N MAIN ST",
           "postwright: ZIP codes only: streets are not checked. 'postwright-base fetch texas' "
           "brings "
           "the streets\n"},
          {"on a terminal",
           home + "echo 12 north main street, austin tx 78701 > label; export postwright; "
                  "script -qec '$postwright fix label' /dev/null < /dev/null",
           0, "streets are not checked", ""},
          {"a ZIP code that is none", home + "$postwright fix <<< '12 Main St, Austin TX 10001'", 1,
           "", "The service says: Invalid Zip Code."},
          {"a base is made",
           home + "mkdir -p data/postwright home/.local/share/postwright; grep -v 0001[2-9] '" +
               POSTWRIGHT_SOURCE_DIR "/data/sample/town.csv' | sed 's/MILLRACE,OH,00011/Austin,TX,"
                                     "78701/' > town.csv; \"${postwright}-base\" import --quiet " +
               base + " town.csv --source town",
           0, "", "0 rows left out"},
          {"streets of a base", home + "$postwright fix --explain <<< " + label, 0,
           "12 N MAIN ST\nAUSTIN TX 78701-1201\n", "postwright: streets are those of "},
          {"in worker processes",
           home + "yes '\"12 north main street, austin tx 78701\"' | head -n 40 | $postwright fix "
                  "--jsonl --jobs 3 | grep -c 78701-1201",
           0, "40\n", ""},
          {"of the home folder",
           home + "unset XDG_DATA_HOME; mv " + base +
               " home/.local/share/postwright; $postwright "
               "fix <<< " +
               label,
           0, "78701-1201\n", ""},
          {"a server that is named", home + "$postwright fix --server 127.0.0.1:1 <<< " + label, 1,
           "", "Nothing answers at 127.0.0.1:1 "},
          {"half a base",
           home + "head -c 9000 home/.local/share/postwright/town.base > " + base +
               "; $postwright fix <<< " + label,
           2, "", "/data/postwright/town.base: "},
          {"no base", home + "echo no base > " + base + "; $postwright fix --jsonl <<< '\"x\"'", 2,
           "", "/data/postwright/town.base: is not an address base"},
          {"a base that is gone",
           home + "ln -sf nowhere " + base + "; $postwright fix <<< " + label, 2, "",
           "/data/postwright/town.base: cannot be read"},
      },
      folder);
}

// The second label is never answered; the first one's record does not wait for it.
TEST(CommandLineTest, WritesEachRecordAsSoonAsItIsKnown) {
  int requests = 0;
  const LoopbackServer server([&requests](const std::string&) {
    return ++requests > 1 ? LoopbackServer::Answer{""}
                          : LoopbackServer::Page("<R><Address><Error/></Address></R>");
  });
  CheckCommands({{"one of two",
                  "coproc $postwright fix --jsonl --server " + server.GetEndpoint() +
                      "; printf '\"x\"\\n\"y\"\\n' >&${COPROC[1]}; "
                      "read -t 30 -u ${COPROC[0]} line; echo $line; kill $COPROC_PID",
                  0, R"({"address":"x","fixed":"")", ""}},
                ScratchFolder());
}

}  // namespace

}  // namespace postwright
