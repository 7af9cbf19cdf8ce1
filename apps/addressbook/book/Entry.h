#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_ENTRY_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_ENTRY_H_

#include <QByteArray>
#include <QDate>
#include <QString>

namespace postwright::addressbook {

// How far the service knows an address. The numbers are written to files.
enum class Known {
  NotTold = 0,
  Whole = 1,        // confirmed
  UnitMissing = 2,  // confirmed but for its unit
  UnitNotKnown = 3,
  NumberNotKnown = 4,  // the street is known
  FormOnly = 5,        // nobody has checked the street
};

// The same from a file, which may hold any number.
Known knownOfNumber(qint64 number);

// What came of the last time the service was asked about an entry.
struct Check {
  QDate day;        // invalid: never asked
  QByteArray text;  // fingerprint of the label that it was asked about or that it gave
  QString failure;  // why the service turned it down; empty when there is nothing to correct
  Known known = Known::NotTold;  // of that label
  QString source = {};           // who said so, in a sentence
  // The failure is that nobody answered, which says nothing of the address and is not kept.
  bool isUnanswered = false;
  QString deliveryPoint = {};  // of a confirmed address, two digits; empty: not told
};

// One address of a book.
struct Entry {
  qint64 id = 0;  // its identity, as long as the book is open; 0 stands for none
  QString label;  // what is printed: lines separated by line feeds, no break at the end
  Check check;
  QString kind = {};      // "Home", where the file tells one address of somebody from another
  QString lastName = {};  // by which its name is sorted, where the file says it apart
};

// Where an entry stands with the service.
enum class CheckState {
  NotChecked,  // never asked, or edited since
  Right,       // corrected, or there was nothing to correct
  DueAgain,    // the same, but half a year ago or longer
  Failed,      // turned down
  Foreign,     // in another country: never asked about
};

// Returns the place of a state where what needs the user's attention comes first, from 0.
int urgency(CheckState state);

// Tells whether a confirmation is one of the label as it is.
bool saysConfirmation(CheckState state);

// Returns what stays the same of a label when only case, spacing or punctuation changes: a digest
// of its letters and digits. 20 bytes.
QByteArray textFingerprint(const QString& label);

// Tells where `entry` stands on the day `today`. A check of another text than the label counts for
// nothing, so an edit makes an entry unchecked and undoing the edit brings its check back.
CheckState checkState(const Entry& entry, QDate today);

// Tells whether a label says more than a name. One that does not cannot be checked.
bool hasAddress(const Entry& entry);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_ENTRY_H_
