#include "postal/base/AddressConfirmer.h"

#include <algorithm>

#include "postal/base/BoxAddress.h"
#include "postal/base/UnitMatch.h"
#include "postal/lines/StreetLine.h"

namespace postwright::postal {
namespace {

// A unit that is bare stays bare, as the line above is the place for it.
bool HasDesignator(const std::string& unit) {
  return unit.find(' ') != std::string::npos;
}

}  // namespace

void AddressConfirmer::Confirm(const AskedAddress& subject, const StreetMatch& match,
                               MatchedAddress& answer) {
  answer.nameChanged = match.nameChanged;
  answer.elementChanged = match.elementChanged;
  if (match.nameChanged || match.elementChanged) {
    StreetLine line = *subject.question.lines.street;
    const StreetName& street = match.street.street;
    line.predirectional = street.predirectional;
    line.name = SplitLine(street.name);
    line.suffix = street.suffix;
    line.postdirectional = street.postdirectional;
    answer.lines.urbanization = street.urbanization;
    answer.lines.address2 = JoinWords(line.Compose());
  }
  answer.zip4 = match.facts.zip4;
  answer.delivery = match.facts.delivery;
  if (match.facts.isPoint) {
    ConfirmUnit(subject, match, answer);
  } else {
    Explain(explanation_, "ranges say what is possible, not what is there: not confirmed");
    answer.dpvFootnotes = "AA";
  }
  const std::string& firm = subject.question.firm;
  if (const std::string own = firm.empty()
                                  ? std::string()
                                  : reader_.FirmZip4(match.street.id, subject.address.number,
                                                     subject.address.unit, firm);
      !own.empty()) {
    Explain(explanation_, "'", firm, "' has a ZIP+4 of its own there");
    answer.zip4 = own;
  }
}

// A unit that is none of those that a source gives the building is wrong, or the number is. Where
// none is given nothing speaks against it.
void AddressConfirmer::DoubtUnit(const AskedAddress& subject, const StreetMatch& match,
                                 MatchedAddress& answer) {
  const bool wrong = (!match.facts.units.empty() || !match.facts.unitRanges.empty()) &&
                     reader_.HoldsAllStreetsOf(answer.placed.zip5);
  const std::string swapped = streets_.FindSwapped(match, subject.address);
  answer.confirmation = 'S';
  answer.dpvFootnotes = wrong || !swapped.empty() ? "AAC1" : "AACC";
  if (candidates_ != nullptr && !swapped.empty()) {
    StandardLines other = subject.question.lines;
    other.street->number = {swapped};
    candidates_->AddAddresses(other, answer.placed, match);
  }
}

void AddressConfirmer::ConfirmUnit(const AskedAddress& subject, const StreetMatch& match,
                                   MatchedAddress& answer) {
  const std::vector<std::string>& units = match.facts.units;
  const std::string unit =
      subject.address.unit.empty() ? "" : FindUnit(units, subject.address.unit);
  const std::vector<UnitRange>& ranges = match.facts.unitRanges;
  const auto range = std::find_if(ranges.begin(), ranges.end(), [&](const UnitRange& known) {
    return known.Holds(subject.address.unit);
  });
  if (subject.address.unit.empty() && units.empty() && ranges.empty()) {
    answer.confirmation = 'Y';
    answer.dpvFootnotes = "AABB";
  } else if (subject.address.unit.empty()) {
    Explain(explanation_, "the building has ",
            ranges.empty() ? std::to_string(units.size()) : std::string("ranges of"),
            " units that are known, and none is given");
    answer.confirmation = 'D';
    answer.dpvFootnotes = "AAN1";
    answer.unitIsMissing = true;
  } else if (unit.empty() && range != ranges.end()) {
    Explain(explanation_, "a range of its units has '", subject.address.unit,
            "': possible, not confirmed");
    answer.confirmation = 'S';
    answer.dpvFootnotes = "AACC";
    answer.zip4 = range->zip4;
  } else if (unit.empty()) {
    Explain(explanation_, "the building is known, '", subject.address.unit, "' in it is not");
    DoubtUnit(subject, match, answer);
  } else {
    answer.confirmation = 'Y';
    answer.dpvFootnotes = "AABB";
    answer.zip4 = reader_.UnitZip4(match.street.id, subject.address.number, unit);
    if (unit != subject.address.unit && HasDesignator(subject.address.unit) &&
        !unit.starts_with("# ")) {
      Explain(explanation_, "'", subject.address.unit, "' is '", unit, "'");
      std::string& line = subject.unitIsAbove ? answer.lines.address1 : answer.lines.address2;
      line.replace(line.size() - subject.address.unit.size(), subject.address.unit.size(), unit);
      answer.elementChanged = true;
    }
  }
  if (candidates_ != nullptr && answer.confirmation != 'Y') {
    candidates_->AddUnits(subject.question.lines, answer.placed, match);
  }
}

// The postal service's own list of boxes and routes tells which are there.
void AddressConfirmer::ConfirmBox(MatchedAddress& answer) {
  const auto box = BoxAddress::Read(answer.lines.address2);
  const auto boxes = box ? reader_.FindBoxes(answer.placed.zip5, box->name) : std::nullopt;
  if (!boxes) {
    Explain(explanation_, "the delivery line names no street, so the base cannot confirm it");
    return;
  }
  const NumberFacts facts = reader_.FindNumber(*boxes, box->number);
  Explain(explanation_, "the postal service's own records ", facts.IsKnown() ? "have" : "lack",
          " it among those of '", box->name, "'");
  answer.confirmation = facts.IsKnown() ? 'Y' : 'N';
  answer.dpvFootnotes = facts.IsKnown() ? "AABB" : "AAM3";
  answer.zip4 = facts.zip4;
  answer.delivery = facts.delivery;
}

}  // namespace postwright::postal
