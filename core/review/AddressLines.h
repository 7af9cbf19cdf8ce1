#ifndef POSTWRIGHT_CORE_REVIEW_ADDRESSLINES_H_
#define POSTWRIGHT_CORE_REVIEW_ADDRESSLINES_H_

#include <postwright/Export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace postwright {

struct AddressRun;

// Something in the address in a form that the grammar cannot read, though any person
// can, and how it is written in the question instead. Numbers never change, new ones may come.
enum AddressRespelling : std::int32_t {
  AddressRespellingState = 1,    // "D.C.", "N. Y.", "Calif.", MARSHALL ISLANDS: the two-letter code
  AddressRespellingComma = 2,    // a comma between state and ZIP code: left out
  AddressRespellingZip = 3,      // "787011234", "78701 - 1234", TX78701: with its hyphen or blank
  AddressRespellingZipLine = 4,  // a ZIP code on a line of its own: after the state
  AddressRespellingUnitLine = 5,      // a unit above its street: after it
  AddressRespellingUnit = 6,          // "2nd Floor", "Apt. #4": designator and number
  AddressRespellingBox = 7,           // "P.O.Box #12", "Post Office Box 12": PO BOX 12
  AddressRespellingHouseNumber = 8,   // "#12", "No. 12", "One Main St"; a fraction that is one
                                      // character or stands after a hyphen: 12 1/2; "352A", of
                                      // which the grammar makes an apartment: 352-A, or 352 A where
                                      // there is a unit
  AddressRespellingMilitary = 9,      // a military unit and its box on two lines: on one
  AddressRespellingDirectional = 10,  // "North West" in two words: NW
  AddressRespellingNumberBehind = 11,  // "Calle Sol #288" in Puerto Rico: 288 CALLE SOL
  AddressRespellingCity = 12,          // no city: the state's code in its place
};

// One such place: as it was typed, and as the question has it.
struct RespelledWords {
  AddressRespelling rule;
  std::wstring typed;
  std::wstring asked;

  bool operator==(const RespelledWords&) const = default;
};

// What a host is to do with a label.
enum AddressLinesOutcome : std::int32_t {
  AddressLinesFound = 0,      // ask about the address alone
  AddressLinesUnclear = 1,    // ask about the whole text: no run of lines is clearly the address
  AddressLinesLeftAlone = 2,  // do not ask: see GetReason()
};

// Why a label is left alone.
enum LeftAloneReason : std::int32_t {
  LeftAloneNot = 0,
  LeftAloneRuralRoute = 1,       // "RR 3 Box 14", HC, Star Route (USPS Publication 28, section 24):
                                 // the grammar has no such form and would drop the route
  LeftAloneForeignCountry = 2,   // the last line names another country
  LeftAloneBox = 3,              // "PO Box A12": the grammar knows boxes with digits alone
  LeftAloneGeneralDelivery = 4,  // no number at all (section 26)
  LeftAlonePuertoRico = 5,  // "C10 Calle 6", "Carr 129 Km 20.1": a block or a kilometre, which the
                            // grammar would drop (section 29)
};

// The stable name of a reason, for records that programs read: "left-alone-rural-route",
// "left-alone-foreign-country", "left-alone-box", "left-alone-general-delivery",
// "left-alone-puerto-rico"; "" for LeftAloneNot.
POSTWRIGHT_CORE_EXPORT const char* CodeOfReason(LeftAloneReason reason);

// The same in English, for a person: what it is and what to do.
POSTWRIGHT_CORE_EXPORT const char* TextOfReason(LeftAloneReason reason);

// Finds the lines of a label that are the address, so that a host can ask about those and leave the
// others as they were typed. Asked about a whole label, the grammar takes the first digit for the
// house number ("3M Company", "Class of 1998") and the names above a military unit for its street.
//
//   const AddressLines lines(L"Class of 1998\n12 Main St\nApt 4\nWashington, D.C. 20500\nFragile");
//   // lines.GetAbove() L"Class of 1998\n", lines.GetBelow() L"\nFragile"
//   const auto fixed = Postwright::Fix(lines.GetQuestion(), true, &services);
//   const std::wstring label = lines.PutBack(fixed->GetExactAddress());
//
// The address ends at the line with state and ZIP code. It begins with the nearest line above that
// is a house number and a street, a post-office box or a military unit: where a label has a street
// and a box, the one directly above the last line is delivered to (USPS Publication 28, section
// 211). A unit on a line of its own below or above the street belongs to it. The parser must read
// the question as one address with nothing before or after it, and the city as it stands on the
// last line; where it does not, or where a label holds two addresses, the outcome is
// AddressLinesUnclear.
//
// Lines are never cut in two, with two exceptions: a label that is written in one line, which is
// cut in front of the address, and a name of the United States or anything else after the ZIP code
// of a one-line label or of the last line, which is not asked about.
//
// A plain value, read from any thread. The constructor uses AddressParser::GetInstance(), and so
// runs on one thread at a time. It takes time in proportion to the length of the text, calls the
// parser at most 48 times, each time with less than 1,500 characters, reaches no network, and
// throws nothing but std::bad_alloc.
class POSTWRIGHT_CORE_EXPORT AddressLines {
 public:
  // `text` is a label's text with any line breaks.
  explicit AddressLines(const std::wstring& text);

  AddressLinesOutcome GetOutcome() const { return outcome_; }
  LeftAloneReason GetReason() const { return reason_; }

  // The text above the address, the address, and the text below, as typed: one after the other
  // they are the text. Unless the outcome is AddressLinesFound, the address is the whole text.
  const std::wstring& GetAbove() const { return above_; }
  const std::wstring& GetRun() const { return run_; }
  const std::wstring& GetBelow() const { return below_; }

  // Lines between street and city that are not part of the address ("Attn: Jane Doe", a
  // station's name below a box), as typed, a line break between each. Part of GetRun(), not of the
  // question.
  const std::wstring& GetBetween() const { return between_; }

  // What to ask about: the address, a line for the delivery line with its unit and one for city,
  // state and ZIP code; the whole text for AddressLinesUnclear; "" for AddressLinesLeftAlone.
  const std::wstring& GetQuestion() const { return question_; }

  // What the question says in other words than the label.
  const std::vector<RespelledWords>& GetRespellings() const { return respellings_; }

  // Returns the label with `corrected`, the answer to the question, in the place of the address;
  // the lines between street and city stand above the last line of `corrected`. Line breaks within
  // it become those of the label, and the letter of a house number that was asked about apart from
  // it (352 A) its own again. In a label that is written in one line the address gets lines of
  // its own, for which blanks, commas and semicolons at the cuts are given up. For
  // AddressLinesUnclear that is `corrected` itself, for AddressLinesLeftAlone the label.
  std::wstring PutBack(const std::wstring& corrected) const;

 private:
  void LeaveAlone(LeftAloneReason reason);
  void Take(const std::wstring& text, const AddressRun& run, bool oneLine);

  AddressLinesOutcome outcome_ = AddressLinesUnclear;
  LeftAloneReason reason_ = LeftAloneNot;
  std::wstring above_;
  std::wstring run_;
  std::wstring below_;
  std::wstring between_;
  std::wstring question_;
  std::wstring lineBreak_ = L"\n";
  bool cutsALine_ = false;
  std::vector<RespelledWords> respellings_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_ADDRESSLINES_H_
