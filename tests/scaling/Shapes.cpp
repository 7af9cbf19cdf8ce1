#include "tests/scaling/Shapes.h"

#include <fstream>
#include <iterator>

namespace postwright::scaling {
namespace {

// The heading and first record of a Census Bureau table that claims to have many more.
struct Dbf {
  Dbf() {
    constexpr std::size_t kCount = 4;
    constexpr std::size_t kHeadingLength = 8;
    std::ifstream file(POSTWRIGHT_SOURCE_DIR "/fuzz/corpus/import_table/addrfeat.dbf",
                       std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    const auto numberAt = [&](std::size_t at) {
      return static_cast<unsigned char>(bytes.at(at)) +
             256U * static_cast<unsigned char>(bytes.at(at + 1));
    };
    heading = bytes.substr(0, numberAt(kHeadingLength));
    heading[kCount + 2] = 1;
    record = bytes.substr(heading.size(), numberAt(kHeadingLength + 2));
  }

  std::string heading;
  std::string record;
};

const std::string kFeature = R"({"type":"Feature","properties":{)";
const std::string kCardHead = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Jo\r\n";
const std::string kCardEnd = "END:VCARD\r\n";
const std::string kTown = "\nAUSTIN TX 78701";
const std::string kRows = "number,street,unit,city,state,zip\n";
const std::string kReply = "<AddressValidateResponse><Address ID=\"0\">";
const std::string kReplyEnd = "</Address></AddressValidateResponse>";
const std::string kRequest = "<AddressValidateRequest USERID=\"A\"><Address ID=\"0\">";
const std::string kRequestEnd = "</Address></AddressValidateRequest>";
const std::string kJson = R"({"address":{"city":"AUSTIN"},"matches":[)";

const Shape kShapes[] = {
    {"label", "labels", "", "12 Main St\nApt 4\nAustin, TX 78701\n"},
    {"label", "letters", "", "A "},
    {"label", "one word", "12 ", "A", " ST" + kTown},
    {"label", "digits", "", "1"},
    {"label", "numbers", "", "1 ", kTown},
    {"label", "ZIP codes", "", "78701-1234 "},
    {"label", "blanks in a street", "12 MAIN", " ", "ST" + kTown},
    {"label", "blanks at the end", "12 MAIN ST" + kTown, " "},
    {"label", "no-break spaces", "12 MAIN", "\u00A0", "ST" + kTown},
    {"label", "signs", "", ".,;-#/&"},
    {"label", "commas", "12 MAIN ST", ",", kTown},
    {"label", "number signs", "12 MAIN ST ", "# ", kTown},
    {"label", "ampersands and tabs", "12 ", "&\t", " ST" + kTown},
    {"label", "line feeds", "12 MAIN ST", "\n", kTown},
    {"label", "carriage returns", "12 MAIN ST", "\r", kTown},
    {"label", "streets", "", "12 MAIN ST\n"},
    {"label", "towns", "12 MAIN ST", kTown},
    {"label", "states", "12 MAIN ST\n", "TX ", "78701"},
    {"label", "suffixes", "12 ", "ST ", kTown},
    {"label", "directions", "12 ", "N ", "ST" + kTown},
    {"label", "units", "12 MAIN ST ", "APT 4 ", kTown},
    {"label", "units, a line each", "12 MAIN ST", "\nAPT 4", kTown},
    {"label", "boxes", "", "PO BOX 12 ", kTown},
    {"label", "highways", "12 ", "US HIGHWAY ", "7" + kTown},
    {"label", "fractions", "12 ", "1/2 ", "MAIN ST" + kTown},
    {"label", "names above", "", "JO\n", "12 MAIN ST" + kTown},
    {"label", "lines below", "12 MAIN ST" + kTown, "\nJO"},
    {"label", "accents apart", "12 ", "e\u0301", " ST" + kTown},
    {"label", "military", "", "UNIT 2050 BOX 4190\n", "APO AE 09012"},
    {"question", "ampersands and tabs", "12 ", "&\t", " ST" + kTown},
    {"question", "words", "12 ", "MAIN ", "ST" + kTown},
    {"question", "units", "12 MAIN ST ", "APT 4 ", kTown},
    {"question", "blanks", "12 MAIN", " ", "ST" + kTown},
    {"reply", "addresses", "<AddressValidateResponse>",
     "<Address ID=\"0\"><Address2>12 MAIN ST</Address2></Address>", "</AddressValidateResponse>"},
    {"reply", "elements", kReply, "<City>AUSTIN</City>", kReplyEnd},
    {"reply", "candidates", kReply + "<Candidates>",
     "<Candidate><Address2>MAIN ST</Address2><PrimaryLow>1</PrimaryLow></Candidate>",
     "</Candidates>" + kReplyEnd},
    {"reply", "text", kReply + "<City>", "A", "</City>" + kReplyEnd},
    {"reply", "blanks", kReply + "<City>", " ", "</City>" + kReplyEnd},
    {"reply", "references", kReply + "<City>", "&amp;&#65;", "</City>" + kReplyEnd},
    {"reply", "ampersands", kReply + "<City>", "&", "</City>" + kReplyEnd},
    {"reply", "comments", kReply, "<!--a-->", kReplyEnd},
    {"reply", "an open comment", kReply, "<!--", kReplyEnd},
    {"reply", "CDATA", kReply + "<City>", "<![CDATA[a]]>", "</City>" + kReplyEnd},
    {"reply", "attributes", kReply + "<City", " a=\"1\"", "/>" + kReplyEnd},
    {"reply", "nested", kReply, "<a>"},
    {"reply", "closed", kReply, "</a>"},
    {"reply", "brackets", kReply, "<"},
    {"reply", "declarations", "", "<?xml version=\"1.0\"?>"},
    {"reply", "quotation marks", kReply + "<City a=", "\"", "/>" + kReplyEnd},
    {"reply", "bytes of Latin-1", kReply + "<City>", "\xE9", "</City>" + kReplyEnd},
    {"url", "ampersands and tabs", "", "&\t"},
    {"url", "letters beyond ASCII", "", "\u00E9\u4E00"},
    {"url", "letters", "", "a"},
    {"review", "the same", "", "MAIN ", "", "MAIN "},
    {"review", "all different", "", "MAIN ", "", "OAK "},
    {"review", "letters", "", "A B ", "", "B A "},
    {"review", "every second", "", "MAIN ST ", "", "MAIN AVE "},
    {"review", "joined", "", "MAIN ST ", "", "MAINST "},
    {"review", "numbers", "", "1 2 3 ", "", "1 3 2 "},
    {"review", "one word", "", "A", "", "B"},
    {"review", "blanks", "", " ", "", "  "},
    {"review", "lines", "", "12 MAIN STREET\n", "", "12 MAIN ST\n"},
    {"review", "signs", "", "-/.", "", "./-"},
    {"review", "left out", "", "MAIN ", "", "\n"},
    {"review", "in another line", "", "12 MAIN ST APT 4\n", "", "APT 4\n12 MAIN ST\n"},
    {"JSON line", "labels", "", "{\"id\":1,\"address\":\"12 Main St\\nAustin TX 78701\"}\n"},
    {"JSON line", "one label", "\"", "12 Main St\\n", "\""},
    {"JSON line", "escapes", "\"", "\\u00e9", "\""},
    {"JSON line", "arrays nested", "", "["},
    {"JSON line", "objects nested", "", "{\"a\":"},
    {"JSON line", "nested in an id", "{\"id\":", "[1,", "1"},
    {"JSON line", "members", "{", "\"id\":1,", "\"address\":\"a\"}"},
    {"JSON line", "parts", "{", "\"name\":\"a\",", "\"city\":\"b\"}"},
    {"JSON line", "a large id", "{\"id\":[", "1,", "1],\"address\":\"a\"}"},
    {"JSON line", "digits", "", "1"},
    {"JSON line", "open quotation marks", "", "\"\n"},
    {"JSON line", "empty lines", "", "\n"},
    {"CSV", "rows", "", "Jo,12 Main St,Austin TX 78701\n"},
    {"CSV", "one row", "", "a,"},
    {"CSV", "open quotation marks", "", "\"a\n"},
    {"CSV", "open quotation marks in a row", "", "a,\"b "},
    {"CSV", "quotation marks", "", "\""},
    {"CSV", "quoted cells", "", "\"a \"\"b\"\"\",\"\"\n"},
    {"CSV", "a cell of lines", "\"", "a\n", "\"\n"},
    {"CSV", "half quoted", "", "\"a\nb\"c\n"},
    {"CSV", "empty lines", "a\n", "\n", "b\n"},
    {"CSV", "carriage returns", "", "a,b\r"},
    {"CSV", "blanks", "", " "},
    {"CSV", "formulas", "", "=1,\"+1\",@\n"},
    {"CSV", "delimiters", "", ",;\t|"},
    {"table", "rows", "name,street,zip\n", "Jo,12 Main St,Austin TX 78701\n"},
    {"table", "columns", "name,street,zip\nJo,1 A St,78701", ",a"},
    {"table", "short rows", "name,street,zip\n", "a\n"},
    {"table", "a long cell", "name,street,zip\nJo,", "1 A ", ",78701\n"},
    {"table", "open quotation marks", "name,street,zip\n", "a,\"b,c\n"},
    {"table", "lines in a cell", "name,street,zip\nJo,\"", "1 A St\n", "\",78701\n"},
    {"vCard", "cards", "", kCardHead + "ADR:;;1 A St;Reno;NV;89501;\r\n" + kCardEnd},
    {"vCard", "addresses of one", kCardHead, "ADR:;;1 A St;Reno;NV;89501;\r\n", kCardEnd},
    {"vCard", "with labels", kCardHead,
     "ADR;TYPE=home:;;1 A St;Reno;NV;89501;\r\nLABEL;TYPE=home:1 A St\\nReno\r\n", kCardEnd},
    {"vCard", "labels alone", kCardHead, "LABEL:1 A St\\nReno\r\n", kCardEnd},
    {"vCard", "names", kCardHead, "FN:Jo\r\nORG:A;B\r\n", kCardEnd},
    {"vCard", "folds", kCardHead + "ADR:;;", "a\r\n ", ";;;;\r\n" + kCardEnd},
    {"vCard", "quoted-printable", "BEGIN:VCARD\r\nVERSION:2.1\r\nADR;QUOTED-PRINTABLE:;;",
     "=41=\r\n", ";;;;\r\n" + kCardEnd},
    {"vCard", "parameters", kCardHead + "ADR", ";TYPE=home", ":;;1 A St;;;;\r\n" + kCardEnd},
    {"vCard", "components", kCardHead + "ADR:", ";", "\r\n" + kCardEnd},
    {"vCard", "values of one", kCardHead + "ADR:;;", "a,", ";;;;\r\n" + kCardEnd},
    {"vCard", "escapes", kCardHead + "ADR:;;", "\\n\\,", ";;;;\r\n" + kCardEnd},
    {"vCard", "one in another", "", "BEGIN:VCARD\r\n", kCardEnd},
    {"vCard", "lines of others", kCardHead, "X-A:b\r\n", kCardEnd},
    {"vCard", "groups", kCardHead, "a.ADR:;;1 A St;;;;\r\na.X-ABLABEL:b\r\n", kCardEnd},
    {"import", "rows", kRows, "12,MAIN ST,APT 4,AUSTIN,TX,78701\n"},
    {"import", "open quotation marks", kRows, "\"1,MAIN ST\n"},
    {"import", "marks doubled on the next line", kRows + "\"1\n", "\"\"A ST\n"},
    {"import", "open in a row", kRows, "1,\"MAIN ST,"},
    {"import", "one row", kRows, "1,"},
    {"import", "carriage returns", kRows, "1,A ST,,,TX,78701\r"},
    {"import", "columns", "number,street,zip", ",a", "\n"},
    {"import", "words of a street", kRows + "1,", "A ", ",,,TX,78701\n"},
    {"import", "words of a unit", kRows + "1,A ST,", "APT 4 ", ",,TX,78701\n"},
    {"import", "mailboxes", kRows + "1,A ST,", "PRIVATE MAILBOX 4 ", ",,TX,78701\n"},
    {"import", "joined units", kRows + "1,A ST,", "APT4 ", ",,TX,78701\n"},
    {"import", "number signs", kRows + "1,A ST,APT ", "# ", "4,,TX,78701\n"},
    {"import", "streets of digits", kRows + "1,", "1", " ST,,,TX,78701\n"},
    {"import", "records", Dbf().heading, Dbf().record},
    {"import", "features", "", kFeature + R"("number":"1","street":"A ST"}})" + "\n"},
    {"import", "a feature's properties", kFeature + "\"a\":1", ",\"a\":1", "}}\n"},
    {"import", "features inside one another", kFeature + "}}\n", R"({"properties":)"},
    {"import", "a feature's text", kFeature + R"("street":")", "A ", "\"}}\n"},
    {"head", "fields", "", "Accept: a\n"},
    {"head", "hosts", "", "Host: a\n"},
    {"head", "a long field", "Accept: ", "a,", "\n"},
    {"head", "codings", "Transfer-Encoding: ", "chunked,", "\n"},
    {"head", "lengths", "Content-Length: ", "1,", "\n"},
    {"head", "hops", "", "X-Forwarded-For: a\nPostwright-A: b\n"},
    {"query", "fields", "", "a=b&"},
    {"query", "ampersands", "", "&"},
    {"query", "escapes", "XML=", "%26"},
    {"query", "half escapes", "XML=", "%"},
    {"query", "cut references", "XML=", "&%23x0A;&lt;"},
    {"query", "an open reference", "XML=", "&%23x"},
    {"request", "addresses", "<AddressValidateRequest USERID=\"A\">",
     "<Address ID=\"0\"><Address2>12 MAIN ST</Address2></Address>", "</AddressValidateRequest>"},
    {"request", "elements", kRequest, "<City>AUSTIN</City>", kRequestEnd},
    {"request", "text", kRequest + "<City>", "A ", "</City>" + kRequestEnd},
    {"request", "references", kRequest + "<City>", "%26amp;", "</City>" + kRequestEnd},
    {"request", "attributes", kRequest + "<City", " a=\"1\"", "/>" + kRequestEnd},
    {"request", "nested", kRequest, "<a>"},
    {"request", "an open comment", kRequest, "<!--"},
    {"upstream", "elements", kReply, "<City>AUSTIN</City>", kReplyEnd},
    {"upstream", "nested", kReply, "<a>"},
    {"upstream", "references", kReply + "<City>", "&amp;", "</City>" + kReplyEnd},
    {"upstream", "matches", kJson, R"({"code":"31"},)", "0]}"},
    {"upstream", "members", "{", R"("address":{"city":"A"},)", "\"a\":0}"},
    {"upstream", "nested JSON", "", "["},
    {"upstream", "nested objects", "", "{\"a\":"},
    {"upstream", "a long city", R"({"address":{"city":")", "A ", "\"}}"},
    {"mixed case", "words", "", "O'NEIL MACARTHUR ", "", "DeWitt;McAdam|McAdam|"},
    {"mixed case", "letters", "", "A ", "", ";|"},
    {"mixed case", "one word", "", "A", "", "a"},
    {"mixed case", "blanks", "a", " ", "b", " "},
    {"mixed case", "signs", "", "'.-", "", "'"},
    {"mixed case", "lines", "", "JO\n", "", "\n"},
    {"mixed case", "rare line breaks", "", "JO\u2028", "", "\u2028"},
    {"mixed case", "add-ons", "", "78701-1234 ", "", "|a"},
};

std::string TextWith(const Shape& shape, const std::string& piece, std::size_t count) {
  std::string text = shape.head;
  for (std::size_t i = 0; i < count; ++i) {
    text += piece;
  }
  return text + shape.tail;
}

}  // namespace

std::span<const Shape> Shapes() {
  return kShapes;
}

std::string TextOf(const Shape& shape, std::size_t size) {
  return TextWith(shape, shape.piece, size / shape.piece.size());
}

std::string OtherOf(const Shape& shape, std::size_t size) {
  return TextWith(shape, shape.other, size / shape.piece.size());
}

}  // namespace postwright::scaling
