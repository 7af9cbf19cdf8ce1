#ifndef POSTWRIGHT_CORE_ENGINE_CONFIRMATION_H_
#define POSTWRIGHT_CORE_ENGINE_CONFIRMATION_H_

#include <postwright/Export.h>
#include <postwright/VerifySource.h>

#include <cstdint>
#include <string>

namespace postwright {

class VerifyReport;

// How far an address was confirmed as one that exists. Numbers never change, new ones may come.
enum ConfirmationKind : std::int32_t {
  ConfirmationNone = 0,  // nobody was asked, or no address came back
  ConfirmationFull = 1,
  ConfirmationUnitMissing = 2,     // the building is known, and has units
  ConfirmationUnitNotKnown = 3,    // the building is known, the unit is not
  ConfirmationNumberNotKnown = 4,  // the street is known, the number is not
  ConfirmationFormOnly = 5,        // well written; nobody has checked the street
};

// Says what a report confirms, so that nothing is called right that was not confirmed. A plain
// value, read from any thread.
//
//   const Confirmation confirmation(client.lastReport());
//   // confirmation.Code() "number-not-known", confirmation.Contradicts() true
class POSTWRIGHT_CORE_EXPORT Confirmation {
 public:
  // Nobody was asked.
  Confirmation() = default;

  // Goes by the postal service's delivery point validation: DPVConfirmation and, for an address
  // that was not confirmed, the pairs of DPVFootnotes.
  explicit Confirmation(const VerifyReport& report);

  ConfirmationKind Kind() const { return kind_; }

  // True where the service knows the street's numbers, or the post office's boxes, and the one
  // asked about is not among them: a slip of the pen, perhaps, that no spelling shows.
  bool ContradictsNumber() const { return contradictsNumber_; }

  // True where the building is known and its unit, or its number, must be wrong: the service knows
  // its units, and the one asked about is not among them.
  bool ContradictsUnit() const { return contradictsUnit_; }

  // True where either is: nothing that a program may take without a person's look.
  bool Contradicts() const { return contradictsNumber_ || contradictsUnit_; }

  // Who says so, where the service tells.
  const VerifySource& Source() const { return source_; }

  // The two digits that make eleven of a ZIP+4 and tell the box that a mail carrier puts mail in:
  // where the service told them of an address that is confirmed, else "".
  const std::string& DeliveryPoint() const { return deliveryPoint_; }

  // The kind's stable name, for records that programs read: "confirmed", "unit-missing",
  // "unit-not-known", "number-not-known", "form-only"; "" for ConfirmationNone.
  const char* Code() const;

  // The same in English, for a person; "" for ConfirmationNone.
  const char* Text() const;

 private:
  ConfirmationKind kind_ = ConfirmationNone;
  bool contradictsNumber_ = false;
  bool contradictsUnit_ = false;
  VerifySource source_;
  std::string deliveryPoint_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_CONFIRMATION_H_
