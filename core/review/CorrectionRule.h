#ifndef POSTWRIGHT_CORE_REVIEW_CORRECTIONRULE_H_
#define POSTWRIGHT_CORE_REVIEW_CORRECTIONRULE_H_

#include <postwright/Export.h>

#include <cstdint>

namespace postwright {

// Why words of a corrected text differ from those that were typed. Numbers and codes never change
// their meaning; new ones may come.
enum class CorrectionRule : std::int32_t {
  // The same in its standard form (USPS Publication 28).
  Suffix = 0,       // STREET is ST; appendix C1
  Directional = 1,  // NORTH is N; section 233
  Unit = 2,         // SUITE 5 is STE 5; appendix C2
  State = 3,        // OHIO is OH; appendix B
  Box = 4,          // POST OFFICE BOX is PO BOX; section 28
  Route = 5,        // RURAL ROUTE is RR; sections 24 and 25
  Highway = 6,      // CR 12 is COUNTY ROAD 12; appendix F
  Number = 7,       // ONE is 1, FIFTH is 5TH, 5 ST is 5TH ST
  City = 8,         // ST LOUIS is SAINT LOUIS
  Word = 9,         // another word of the street written out or abbreviated
  Spacing = 10,     // MAC ARTHUR is MACARTHUR
  Accent = 11,      // an accent left out or put on
  UnitPlace = 12,   // the unit after its street; section 213
  UrbPlace = 13,    // the urbanization on its own line, the house number in front; section 29

  // What the service knew.
  SpellingOfStreet = 20,    // within one letter, or by the footnote M
  SpellingOfCity = 21,      // within one letter
  ZipOfStreet = 22,         // footnote A
  CityOfZip = 23,           // footnote A or B, or no city was typed
  StateOfZip = 24,          // footnote A or B, or no state was typed
  Zip4Added = 25,           //
  Zip4Changed = 26,         //
  Zip4Dropped = 27,         // since what it stood for has changed
  SuffixAdded = 28,         // footnote K, L or M, as the next five
  SuffixChanged = 29,       //
  SuffixDropped = 30,       //
  DirectionalAdded = 31,    //
  DirectionalChanged = 32,  //
  DirectionalDropped = 33,  //
  UnitDesignator = 34,      // # 4 is APT 4; footnote L
  Urbanization = 35,        // a line of Puerto Rico; footnote L

  // Doubts.
  NumberChanged = 100,           //
  NumberAdded = 101,             //
  NumberLost = 102,              //
  NumberMoved = 103,             // to another place of the text
  SignLost = 104,                // the stroke of 1/2, the hyphen of 112-10, the point of 39.2
  WordChanged = 105,             //
  WordAdded = 106,               //
  WordLost = 107,                //
  WordMoved = 108,               // to another place of the text
  WordDoubled = 109,             //
  WordCrossed = 110,             // from one line into another
  LineCut = 111,                 // one line became two where nothing says so
  RouteLeft = 112,               // a box that went away from its rural route
  StreetChanged = 113,           // without a footnote
  StreetOther = 114,             // too far from what was typed to be meant
  SuffixUnexplained = 115,       // without a footnote, as the rest
  DirectionalUnexplained = 116,  //
  UnitChanged = 117,             //
  ZipChanged = 118,              //
  ZipLost = 119,                 //
  Zip4Lost = 120,                // though street, number and ZIP code stayed
  CityChanged = 121,             //
  StateChanged = 122,            //
  UnitSignLost = 124,            // the number sign of a unit, # 4
  TooLong = 123,                 // more differs than is looked at
};

// Returns the rule's code for programs: lower-case letters, digits and hyphens, "zip-of-street".
// For an unknown number "unknown". Lives as long as the process.
POSTWRIGHT_CORE_EXPORT const char* CorrectionRuleCode(CorrectionRule rule);

// Returns the rule in English words, "ZIP code of this street". Lives as long as the process.
POSTWRIGHT_CORE_EXPORT const char* CorrectionRuleText(CorrectionRule rule);

// Says whether the rule is a doubt. An unknown number is one.
POSTWRIGHT_CORE_EXPORT bool IsDoubt(CorrectionRule rule);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_CORRECTIONRULE_H_
