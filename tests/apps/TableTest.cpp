#include <gtest/gtest.h>

#include "tests/apps/CommandRows.h"
#include "tests/apps/ProgramRun.h"

namespace postwright {

namespace {

const std::string kHeader = "ID,Name,Address 1,Apt,City,State,ZIP,Notes";
const std::string kAdded =
    ",postwright_status,postwright_confirmation,postwright_reason,postwright_zip4,"
    "postwright_proposed";

// A command that reads `table`, in which line feeds and tabs are written \n and \t.
std::string Reading(const std::string& table, const std::string& command) {
  return "cd $folder; printf '" + table + "' > table; " + command;
}

}  // namespace

TEST(TableTest, CorrectsTheCellsOfAnAddress) {
  const VerifyDaemon daemon;
  ASSERT_FALSE(daemon.Endpoint().empty());
  const ScratchFolder folder;
  const std::string fix = "$postwright fix --quiet --server " + daemon.Endpoint() + " ";
  const std::string list =
      kHeader +
      "\\r\\n"
      "1,\"Jos\u00e9  D\u00edaz\",12 north main street,apt 4,austin,texas,78701,"
      "\"says \"\"hi\"\"\"\\r\\n"
      "2,Ann,RR 3 Box 14,,Springfield,IL,62701,\\r\\n\\r\\n"
      "3,Bob,12 Oak St,,Boston,MA,2108\\r\\n4,,,,,,,\\r\\n"
      "5,Di,2870 South West Temple,,Madison,WI,53703,\\r\\n"
      "6,E,1 A St,,Austin,TX,78701,more,than it has\\r\\n"
      "7,\"Cy,1 A St,,Austin,TX,78701,\\r\\n8,Flo,1 a st,,AUSTIN,TX,78701-1234,";
  CheckCommands(
      {
          {"a table with everything", Reading(list, fix + "table"), 1,
           kHeader + kAdded +
               "\r\n"
               "1,\"Jos\u00e9  D\u00edaz\",12 N MAIN ST,APT 4,AUSTIN,TX,78701,\"says \"\"hi\"\"\","
               "fixed,form-only,,,\r\n"
               "2,Ann,RR 3 Box 14,,Springfield,IL,62701,,unchanged,,left-alone-rural-route,,\r\n"
               "\r\n3,Bob,12 Oak St,,Boston,MA,2108,,turned-down,,zip-short,,\r\n"
               "4,,,,,,,,,,,,\r\n"
               "5,Di,2870 South West Temple,,Madison,WI,53703,,to-decide,form-only,"
               "directional-unexplained,,\"Di, 2870 S WEST TEMPLE, MADISON WI 53703\"\r\n"
               "6,E,1 A St,,Austin,TX,78701,more,than it has\r\n"
               "7,\"Cy,1 A St,,Austin,TX,78701,\r\n"
               "8,Flo,1 a st,,AUSTIN,TX,78701-1234,,unchanged,form-only,,78701-1234,",
           "row 7 of table has more cells than the 8 of the table; it stays as it is\n"
           "postwright: row 8 of table has a quotation mark that nothing closes"},
          {"fixed once more",
           "cd $folder; " + fix + "--output once table 2> told; " + fix +
               "--output twice once 2> told; "
               "diff <(cut -d, -f1-8,10- once) <(cut -d, -f1-8,10- twice) && grep -c fixed once "
               "twice",
           0, "once:1\ntwice:0\n", ""},
      },
      folder);
}

TEST(TableTest, FindsTheColumns) {
  const VerifyDaemon daemon;
  ASSERT_FALSE(daemon.Endpoint().empty());
  const ScratchFolder folder;
  const std::string fix = "$postwright fix --server " + daemon.Endpoint() + " ";
  const std::string tabs =
      "Doe\\t12 main street\\tAustin\\tTX\\t78701\\nRoe\\t14 main street\\tAustin\\tTX\\t78701\\n";
  CheckCommands(
      {
          {"units before the street, bare and not",
           Reading("Suite,Street,City,State,Zip,Plus4\\n4,12 main street,Austin,TX,78701,\\n"
                   ",16 main street suite 9,Austin,TX,78701,1234\\n",
                   fix + "table"),
           0,
           "\n4,12 MAIN ST,AUSTIN,TX,78701,,fixed,form-only,,,\n"
           "STE 9,16 MAIN ST,AUSTIN,TX,78701,1234,fixed,form-only,,78701-1234,\n",
           "table: street=Street, city=City, state=State, zip=Zip, zip=Plus4, unit=Suite"},
          {"two addresses a row",
           Reading("Name;Home Street;Home City;Home State;Home ZIP;Work Street;Work City;Work "
                   "State;Work ZIP\\nAnn;1 a street;Austin;TX;78701;2 b street;Austin;TX;78701\\n"
                   "Bob;3 c street;Austin;TX;78701;;;;\\n",
                   fix + "--quiet table | cut -d';' -f1-10,15"),
           0,
           "Ann;1 A ST;AUSTIN;TX;78701;2 B ST;AUSTIN;TX;78701;fixed;fixed\n"
           "Bob;3 C ST;AUSTIN;TX;78701;;;;;fixed;\n",
           ""},
          {"the label in one cell",
           Reading("Label\\n\"Ann\\n1 a street\\naustin tx 78701\"\\n",
                   fix + "--quiet --columns label=Label table"),
           0, "\n\"Ann\n1 A ST\nAUSTIN TX 78701\",fixed,form-only,,,\n", ""},
          {"rows without a header", Reading(tabs, fix + "table"), 1, "",
           "table looks like a table and not like one label; --csv reads it"},
          {"named by number",
           Reading(tabs, fix + "--quiet --columns name=1,street=2,city=3,state=4,zip=5 table"), 0,
           "Doe\t12 MAIN ST\tAUSTIN\tTX\t78701\tfixed\tform-only\t\t\t\nRoe\t14 MAIN", ""},
          {"named by a title with a comma",
           Reading("\"Street, No.\",Town,Code\\n12 main street,Austin TX,78701\\n",
                   fix + "--quiet --columns \"street=street, no.,city=Town,zip=3\" table"),
           0, "\n12 MAIN ST,\"AUSTIN, TX\",78701,fixed,", ""},
          {"no such column", "cd $folder; " + fix + "--columns street=Foo table", 2, "",
           "the table has no column 'Foo'; its columns are: Street, No., Town, Code"},
          {"no column at all", fix + "--columns foo", 2, "", "it takes street=COLUMN"},
          {"no kind of column", fix + "--columns house=1", 2, "",
           "'house=1' is not a column as in"},
          {"nothing known", Reading("a,b\\n1,2\\n", fix + "--csv table"), 2, "",
           "no columns of an address are known in table; name them, as in --columns"},
          {"one label with commas",
           fix + "<<< $'Doe, John, Jr.\\n12 Main Street, Apt 4, Rear\\nAustin, TX, 78701'", 0,
           "12 MAIN ST", ""},
          {"a name in quotation marks", fix + "<<< $'\"Ann\"\\n1 a street\\naustin tx 78701'", 0,
           "\"Ann\"\n1 A ST\nAUSTIN TX 78701\n", ""},
          {"JSON lines", R"($postwright fix <<< '{"address":"1 a st"}')", 1, "",
           "standard input holds JSON lines; --jsonl reads them"},
      },
      folder);
}

TEST(TableTest, TakesLabelsInParts) {
  const VerifyDaemon daemon;
  ASSERT_FALSE(daemon.Endpoint().empty());
  const ScratchFolder folder;
  const std::string fix = "$postwright fix --jsonl --server " + daemon.Endpoint() + " <<< ";
  CheckCommands(
      {
          {"all of them",
           fix + R"('{"zip":78701,"name":"Ann","id":7,"street":"12 north main street","unit":"4",)"
                 R"("city":"austin","state":"texas"}')",
           0,
           R"({"id":7,"address":"Ann\n12 north main street\n# 4\naustin, texas 78701",)"
           R"("fixed":"Ann\n12 N MAIN ST # 4\nAUSTIN TX 78701","result":"",)"
           R"("parts":{"name":"Ann","street":"12 N MAIN ST","unit":"4","city":"AUSTIN",)"
           R"("state":"TX","zip":"78701"},"confirmation":"form-only","reason":"","status":1})",
           ""},
          {"a unit with its word, no other letters",
           fix + R"('{"street":"12 main street","unit":"rear","city":"AUSTIN, TX 78701"}')", 0,
           R"("street":"12 MAIN ST","unit":"REAR","city":"AUSTIN","state":"TX","zip":"78701"})",
           ""},
          {"a ZIP code that lost its zero",
           fix + R"('{"street":"12 main st","city":"Boston","state":"MA","zip":2108}')", 0,
           R"("zip":"2108"},"confirmation":"","reason":"zip-short","status":3)", ""},
          {"an address beside them", fix + R"('{"street":"1 A ST","address":"2 B ST"}')", 0,
           R"({"address":"2 B ST","fixed":"","result":"Invalid Address","confirmation")", ""},
          {"no street", fix + R"('{"name":"Ann","street":{"a":[1]},"city":5}')", 1,
           R"({"address":"","fixed":"","result":"The line is an object without)",
           "line 1 is an object"},
      },
      folder);
}

TEST(TableTest, GoesOnAsAStreamDoes) {
  const VerifyDaemon daemon;
  ASSERT_FALSE(daemon.Endpoint().empty());
  const ScratchFolder folder;
  const std::string list =
      "Name,Address,City,State,ZIP\\nAnn,1 a street,Austin,TX,78701\\n"
      "Bob,2 b street,Austin,TX,78701\\n";
  CheckCommands(
      {
          {"with records kept",
           Reading(list,
                   "$postwright fix --jobs 2 --resume records --output fixed --quiet --server " +
                       daemon.Endpoint() + " table && wc -l < records; tail -n 1 fixed"),
           0, "2\nBob,2 B ST,AUSTIN,TX,78701,fixed,form-only,,,\n", ""},
          {"and nobody asked again",
           "cd $folder; $postwright fix --quiet --resume records --server 127.0.0.1:1 table | diff "
           "- fixed && echo same",
           0, "same\n", ""},
          {"of a word that was added",
           "printf 'Street,City,State,Zip\\n1 a street,,TX,78701\\n' | $postwright fix --quiet "
           "--explain --server " +
               daemon.Endpoint(),
           0, "; city of this ZIP code: (nothing) -> AUSTIN\n", ""},
          {"of no answer",
           "cd $folder; sed 2p table | $postwright fix --quiet --server 127.0.0.1:1 --explain "
           "--give-up-after 1s",
           75,
           ",postwright_proposed,postwright_reason_text,postwright_source_text,postwright_changes\n"
           "Ann,1 a street,Austin,TX,78701,not-answered,,refused,,,\"Nothing answers at "
           "127.0.0.1:1 "
           "(connection refused). Start the service there, or name another server.\",,\n",
           "with --resume FILE from the start"},
          {"where it cannot be written", "cd $folder; $postwright fix table --output /nowhere/x", 2,
           "", "cannot create /nowhere/x"},
          {"parts of each address",
           "cd $folder; $postwright parse table | cut -d, -f1-2,7-10 | head -n 2", 0,
           "Name,Address,postwright_number,postwright_predirectional,postwright_street,"
           "postwright_street_suffix\nAnn,1 a street,1,,A,ST\n",
           ""},
          {"of many rows",
           "cd $folder; (head -n 1 table; seq 2000 | sed 's/.*/A,& a street,Austin,TX,78701/') > "
           "many; $postwright parse many > parsed; $postwright parse --jobs 3 many | cmp - parsed "
           "&& cut -d, -f7 parsed | uniq | wc -l",
           0, "2001\n", ""},
          {"gone on with",
           "cd $folder; $postwright parse --jobs 3 --resume rows many > /dev/null; head -c 99999 "
           "rows > part; $postwright parse --resume part many | cmp - parsed && cmp part rows",
           0, "", ""},
          {"of another table",
           "cd $folder; sed '9s/8 a/8 b/' many | $postwright parse --resume rows", 2, "",
           "its line 8 is not the record of line 8"},
          {"more cells than the table of an earlier run has",
           "cd $folder; (cat fixed; echo 'Cy,3 c street,Austin,TX,78701,1,2,3,4,5') > again; "
           "$postwright fix --quiet --server 127.0.0.1:1 again | tail -n 1",
           0, "Cy,3 c street,Austin,TX,78701,1,2,3,4,5\n", "row 4 of again has more cells"},
          {"and than that of an earlier parse",
           "cd $folder; ($postwright parse table; echo 'Cy,3 c "
           "street,Austin,TX,78701,x,,,,,,,,,,,,') "
           "> again; $postwright parse again | tee twice | tail -n 1; cat again | diff - twice && "
           "echo same",
           0, "Cy,3 c street,Austin,TX,78701,x,,,,,,,,,,,,\nsame\n",
           "row 4 of again has more cells"},
          {"another encoding",
           "cd $folder; sed 's/Ann/Jos\u00e9/' table | iconv -f UTF-8 -t UTF-16 | $postwright "
           "parse | iconv "
           "-f UTF-16 -t UTF-8 | cut -d, -f1,7 | tail -n 2",
           0, "Jos\u00e9,1\nBob,2\n", ""},
          {"too much at once", "$postwright fix --csv --jsonl", 2, "", "excludes"},
      },
      folder);
}

}  // namespace postwright
