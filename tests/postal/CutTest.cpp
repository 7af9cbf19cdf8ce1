#include <gtest/gtest.h>
#include <postwright/AddressParser.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "common/AsciiText.h"
#include "postal/words/Lexicon.h"
#include "service/Verifier.h"
#include "service/protocol/CutQuery.h"
#include "tests/postal/DocTable.h"
#include "tests/postal/ShippedZips.h"

namespace postwright::postal {
namespace {

std::string Narrow(const std::wstring& wide) {
  std::string text;
  std::transform(wide.begin(), wide.end(), std::back_inserter(text),
                 [](wchar_t c) { return static_cast<char>(c); });
  return text;
}

void Replace(std::string& text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

// What the engine asks for a label, whose lines are separated by " / ".
service::RequestAddress Send(std::string label) {
  Replace(label, " / ", "\n");
  const AddressInfo info =
      AddressParser::GetInstance()->Parse(std::wstring(label.begin(), label.end()));
  service::RequestAddress sent;
  sent.address2 = Narrow(info.streetLine);
  sent.city = Narrow(info.city);
  sent.state = Narrow(info.state);
  sent.zip5 = Narrow(info.zip);
  return sent;
}

std::string Answer(const service::RequestAddress& sent) {
  const auto reply = service::Verifier(ShippedZips()).Verify(sent);
  const auto* const fields = std::get_if<service::ReplyFields>(&reply.outcome);
  if (fields == nullptr) {
    return "turned down";
  }
  std::string text = fields->address2 + "\n" + fields->city + " " + fields->state + " " +
                     fields->zip5 + (fields->zip4.empty() ? "" : "-" + fields->zip4);
  Replace(text, "\n", " / ");
  return text;
}

TEST(CutTest, EveryRuleOfThePage) {
  const auto rows = ReadDocTables("standardiser.md", "typed", 4);
  EXPECT_GE(rows.size(), 30U);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    const service::RequestAddress asked = Send(row.cells[0]);
    std::string sent = asked.address2 + "; " + asked.city;
    Replace(sent, "\n", " / ");
    EXPECT_EQ(sent, row.cells[1]);
    EXPECT_EQ(Answer(asked), row.cells[2]);
  }
}

struct Place {
  std::string city;
  std::string state;
  std::string zip;
};

// Says whether a parser without a list of cities could take the beginning of the name for the end
// of a street: a suffix, a directional, a unit, ST, or the first letters of a unit's word.
bool IsEasilyCut(const std::string& city) {
  const Lexicon& lexicon = Lexicon::Get();
  const std::string first = SplitLine(city)[0];
  for (size_t length = 1; length <= first.size(); ++length) {
    if (!lexicon.NumberedUnit(first.substr(0, length)).empty()) {
      return true;
    }
  }
  return !lexicon.Suffix(first).empty() || !lexicon.Direction(first).empty() ||
         !lexicon.PlainUnit(first).empty() || first == "SAINT";
}

std::vector<Place> EasilyCutPlaces() {
  std::ifstream rows(POSTWRIGHT_SOURCE_DIR "/data/us-zips.tsv");
  std::vector<Place> places;
  std::set<std::string> seen;
  for (Place place; std::getline(rows, place.zip, '\t') && std::getline(rows, place.city, '\t') &&
                    std::getline(rows, place.state);) {
    place.city = ShippedZips().FindZip(place.zip)->name;
    if (place.state[0] != 'A' ||
        (place.state != "AA" && place.state != "AE" && place.state != "AP")) {
      if (IsEasilyCut(place.city) && seen.insert(place.city + place.state).second) {
        places.push_back(place);
      }
    }
  }
  return places;
}

// Every city whose name is easily cut, after every common form of street: nothing is lost.
TEST(CutTest, EveryCityThatIsEasilyCut) {
  const std::pair<const char*, const char*> streets[] = {
      {"12 Main St", "12 MAIN ST"},
      {"2701 S. Jefferson Street", "2701 S JEFFERSON ST"},
      {"12 North Oak Avenue Apt 4B", "12 N OAK AVE APT 4B"},
      {"98 5th Ave NW", "98 5TH AVE NW"},
      {"12 Hill Road", "12 HILL RD"},
      {"6101 S Mission Way", "6101 S MISSION WAY"},
      {"203 S. Hill St", "203 S HILL ST"},
      {"12 Park Ridge Dr # 7", "12 PARK RIDGE DR # 7"},
      {"1 Maple Ln Rear", "1 MAPLE LN REAR"},
      {"PO Box 12", "PO BOX 12"},
      {"12 County Road 5", "12 COUNTY ROAD 5"},
      {"700 St Charles Blvd", "700 ST CHARLES BLVD"},
  };
  const auto places = EasilyCutPlaces();
  EXPECT_GT(places.size(), 2000U);
  size_t wrong = 0;
  for (const Place& place : places) {
    const std::string last = place.city + ", " + place.state + " " + place.zip;
    for (const auto& [typed, standard] : streets) {
      const service::RequestAddress sent = Send(std::string(typed) + " / " + last);
      const std::string wanted =
          std::string(standard) + " / " + place.city + " " + place.state + " " + place.zip;
      const std::string answer = Answer(sent);
      if (answer != wanted && ++wrong < 40) {
        ADD_FAILURE() << typed << " / " << last << "\nsent " << sent.address2 << "; " << sent.city
                      << "\nanswered " << answer;
      }
    }
  }
  EXPECT_EQ(wrong, 0U) << "of " << places.size() * std::size(streets);
}

// The engine leaves the ampersand of some references unescaped.
TEST(CutTest, JoinsWhatTheQueryCuts) {
  const std::pair<const char*, const char*> rows[] = {
      {"API=Verify&XML=A&%23x0A;B", "API=Verify&XML=A%26%23x0A;B"},
      {"XML=A&#x0A;B&lt;C&gt;D&quot;E", "XML=A%26#x0A;B%26lt;C%26gt;D%26quot;E"},
      {"XML=A&%23x0a%3bB", "XML=A%26%23x0a%3bB"},
      {"XML=A&#x0D%3BB", "XML=A%26#x0D%3BB"},
      {"XML=A&%23x9;B", "XML=A%26%23x9;B"},
      {"XML=A&%23x07;B", "XML=A%20B"},
      {"XML=A&#x1F;B&#x0;C&#x20;D", "XML=A%20B%20C%26#x20;D"},
      {"XML=&%23x0010FFFF%3bB", "XML=%26%23x0010FFFF%3bB"},  // the longest that there is
      {"XML=&%23x000010FFFF%3bB", "XML=&%23x000010FFFF%3bB"},
      {"XML=&&#x0A;&", "XML=&%26#x0A;&"},
      {"XML=A&lt=B&quot", "XML=A&lt=B&quot"},
      {"XML=A&%23x;B&%23xZZ;C&amp;D", "XML=A&%23x;B&%23xZZ;C&amp;D"},
      {"&", "&"},
      {"", ""},
  };
  for (const auto& [encoded, joined] : rows) {
    EXPECT_EQ(service::JoinCutReferences(encoded), joined);
  }
}

}  // namespace
}  // namespace postwright::postal
