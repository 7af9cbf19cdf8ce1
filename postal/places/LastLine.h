#ifndef POSTWRIGHT_POSTAL_PLACES_LASTLINE_H_
#define POSTWRIGHT_POSTAL_PLACES_LASTLINE_H_

#include <string>
#include <variant>

#include "postal/places/Rejection.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

// City, state and ZIP code as they were asked for: folded text, any of them may be empty.
struct LastLine {
  std::string city;
  std::string state;  // a name or a code
  std::string zip;    // five digits, nine, or five and four with a hyphen
};

// City, state and ZIP code that belong together, all of them filled.
struct PlacedLine {
  std::string city;
  std::string state;
  std::string zip5;
  bool zipCorrected = false;   // the ZIP is another than was asked for, or none was
  bool cityCorrected = false;  // the city or the state is another, not only written differently
};

// Checks city, state and ZIP code against one another.
//
//   LastLineChecker(zips).Check({"AUSTIN", "OK", "78701"});   // AUSTIN TX 78701
//   LastLineChecker(zips).Check({"HUTTO", "TEXAS", ""});      // HUTTO TX 78634
//   LastLineChecker(zips).Check({"AUSTIN", "TX", ""});        // Rejection::Multiple
//
// Of three statements the one that the two others contradict is corrected, one that the others
// leave no doubt about is filled. A city that differs from the ZIP list's name for the ZIP is taken
// to be one of the other names that the postal service accepts there, and kept, unless it is a near
// spelling of the ZIP list's name, or is known in other states alone. What is left uncertain is not
// decided: see docs/verify-service.md for each case and its rejection.
//
// Borrows the ZIP list. Any thread may call Check.
class LastLineChecker {
 public:
  explicit LastLineChecker(const ZipList& zips) : zips_(zips) {}

  std::variant<PlacedLine, Rejection> Check(const LastLine& asked) const;

  // Returns the five digits of a ZIP code in one of its three written forms; the empty text for any
  // other text.
  static std::string Zip5Of(const std::string& zip);

  // Returns the code of a state given by code or name, folded; the empty text where there is none.
  static std::string StateOf(const std::string& state);

  // Says whether a standard city or a state's code is that of a military post office, which is no
  // place (USPS Publication 28, section 225).
  static bool IsMilitary(std::string_view city, std::string_view state);

 private:
  struct Reading;  // the three statements, read

  using Result = std::variant<PlacedLine, Rejection>;
  Result CheckMilitary(const Reading& asked) const;
  Result CheckKnownZip(const Reading& asked, const ZipList::City& ofZip) const;
  Result KeepState(const Reading& asked, const ZipList::City& ofZip) const;
  Result DecideState(const Reading& asked, const ZipList::City& ofZip) const;
  Result CheckCityAndState(const Reading& asked) const;

  const ZipList& zips_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_PLACES_LASTLINE_H_
