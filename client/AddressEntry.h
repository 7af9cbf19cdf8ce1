#ifndef POSTWRIGHT_CLIENT_ADDRESSENTRY_H_
#define POSTWRIGHT_CLIENT_ADDRESSENTRY_H_

#include <postwright/ClientExport.h>

#include <QString>

namespace postwright {

// One address of a batch, as the host holds it; the host derives from this.
//
//   class ContactEntry final : public AddressEntry {
//     QString value() const override { return _book->labelText(_contact); }
//     void setValue(const QString& text) override { _book->setLabelText(_contact, text); }
//   };
//
// Called on the thread of the windows only. Both operations are quick and do not throw.
class POSTWRIGHT_CLIENT_EXPORT AddressEntry {
 public:
  AddressEntry() = default;
  AddressEntry(const AddressEntry&) = delete;
  AddressEntry& operator=(const AddressEntry&) = delete;
  virtual ~AddressEntry();

  // The address text; its lines are separated by line feeds.
  virtual QString value() const = 0;

  // Takes the corrected text.
  virtual void setValue(const QString& text) = 0;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_ADDRESSENTRY_H_
