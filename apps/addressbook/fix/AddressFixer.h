#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_ADDRESSFIXER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_ADDRESSFIXER_H_

#include <QList>
#include <QString>
#include <QStringList>

#include "apps/addressbook/book/Entry.h"

class QWidget;

namespace postwright::addressbook {

// How corrected labels are to look. The numbers are those of the library.
enum class TextCase { Upper = 0, Lower = 1, Mixed = 2 };
enum class Punctuation { Keep = 0, Postal = 1, Remove = 2 };  // of the address
enum class Names { AsTyped = 0, SameCase = 1 };               // of the lines around it

struct FixSettings {
  TextCase textCase = TextCase::Upper;
  Punctuation punctuation = Punctuation::Postal;
  Names names = Names::AsTyped;
  QString spellings;  // the user's own, separated by ";": "DeWitt; MacArthur"
  QString server;     // HOST[:PORT]; empty: the program answers by itself, or as it was started
};

// What the program knows of streets where it answers by itself.
struct OwnStreets {
  QStringList bases;  // the paths of the address bases; none: ZIP codes alone
  QString problem;    // why they cannot be looked for, else empty
};

// What came of one label.
struct FixOutcome {
  enum class Kind {
    Open,       // not asked, or the user took it out of the list
    Right,      // there was nothing to correct; `text`, where there is any, is its chosen form
    Corrected,  // `text` is the label now
    Failed,     // the service turned it down: `text` says why
    NoAnswer,   // the service or the network failed: `text` says how
  };
  Kind kind = Kind::Open;
  QString text;
  Known known = Known::NotTold;
  QString source = {};         // who said so, in a sentence
  QString deliveryPoint = {};  // of a confirmed address, two digits; empty: not told
};

// Asks the service about labels and lets the user review the answers: the one place where the
// program meets the correction library's windows.
class AddressFixer {
 public:
  AddressFixer() = default;
  AddressFixer(const AddressFixer&) = delete;
  AddressFixer& operator=(const AddressFixer&) = delete;
  virtual ~AddressFixer() = default;

  // Returns an outcome for each of `labels`, in order, or nothing at all where the user cancelled.
  // Blocks while the user reviews; `parent` is the window in front of which that happens.
  virtual QList<FixOutcome> fix(const QStringList& labels, const FixSettings& options,
                                QWidget* parent) = 0;

  // Returns the service that is asked where the options name `server`, with its port; empty where
  // the program answers by itself.
  virtual QString serverFor(const QString& server) const = 0;

  // What it then answers from, besides the list of ZIP codes that comes with it. Reads no base.
  virtual OwnStreets ownStreets() const = 0;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_ADDRESSFIXER_H_
