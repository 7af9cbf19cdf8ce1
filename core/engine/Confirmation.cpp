#include <postwright/Confirmation.h>

#include <postwright/VerifyReport.h>

#include <algorithm>
#include <string_view>

namespace postwright {

namespace {

struct Row {
  ConfirmationKind kind;
  const char* code;
  const char* text;
};

constexpr Row kRows[] = {
    {ConfirmationNone, "", ""},
    {ConfirmationFull, "confirmed", "confirmed"},
    {ConfirmationUnitMissing, "unit-missing", "confirmed but for its unit, which is missing"},
    {ConfirmationUnitNotKnown, "unit-not-known", "confirmed but for its unit, which is not known"},
    {ConfirmationNumberNotKnown, "number-not-known", "the street is known, the number is not"},
    {ConfirmationFormOnly, "form-only", "form only, nobody has checked the street"},
};

const Row& RowOf(ConfirmationKind kind) {
  return *std::find_if(std::begin(kRows), std::end(kRows),
                       [kind](const Row& row) { return row.kind == kind; });
}

// `footnotes` are pairs of characters run together.
bool Holds(std::string_view footnotes, std::string_view pair) {
  for (std::size_t at = 0; at + 1 < footnotes.size(); at += 2) {
    if (footnotes.substr(at, 2) == pair) {
      return true;
    }
  }
  return false;
}

bool IsDeliveryPoint(std::string_view digits) {
  return digits.size() == 2 && digits.find_first_not_of("0123456789") == std::string_view::npos;
}

bool DeniesNumber(std::string_view footnotes) {
  // Number missing, number not there, and the same of a box.
  constexpr std::string_view kPairs[] = {"M1", "M3", "P1", "P3"};
  return std::any_of(std::begin(kPairs), std::end(kPairs),
                     [footnotes](std::string_view pair) { return Holds(footnotes, pair); });
}

}  // namespace

Confirmation::Confirmation(const VerifyReport& report) {
  if (!report.IsAnswer() || !report.ErrorNumber().empty() || !report.ErrorDescription().empty()) {
    return;
  }
  source_ = report.Source();
  if (report.DpvConfirmation() == "Y") {
    kind_ = ConfirmationFull;
    deliveryPoint_ = IsDeliveryPoint(report.DeliveryPoint()) ? report.DeliveryPoint() : "";
  } else if (report.DpvConfirmation() == "D") {
    kind_ = ConfirmationUnitMissing;
  } else if (report.DpvConfirmation() == "S") {
    kind_ = ConfirmationUnitNotKnown;
    contradictsUnit_ = Holds(report.DpvFootnotes(), "C1");  // CC: nothing is known of its units
  } else if (Holds(report.DpvFootnotes(), "AA")) {          // the street is one of those known
    kind_ = ConfirmationNumberNotKnown;
    contradictsNumber_ = DeniesNumber(report.DpvFootnotes());
  } else {
    kind_ = ConfirmationFormOnly;
  }
}

const char* Confirmation::Code() const {
  return RowOf(kind_).code;
}

const char* Confirmation::Text() const {
  return RowOf(kind_).text;
}

}  // namespace postwright
