#ifndef POSTWRIGHT_CLIENT_BATCHRESULTRECORD_H_
#define POSTWRIGHT_CLIENT_BATCHRESULTRECORD_H_

#include <postwright/AddressEntry.h>
#include <postwright/ClientExport.h>
#include <postwright/PostwrightClient.h>
#include <postwright/PostwrightSelector.h>

#include <QList>
#include <QString>
#include <memory>
#include <mutex>
#include <optional>

namespace postwright {

// What became of one address of a batch. The numbers are kept for good: streams show them.
enum AddressStatus : qint32 {
  AddressStatusUnchanged = 0,  // as the user wrote it; also: not asked yet
  AddressStatusFixed = 1,
  AddressStatusMultiple = 2,  // several candidates, of which the user picks one
  AddressStatusError = 3,
};

// One address of a batch, from the text to its outcome.
//
//   BatchResultRecord record(entry);
//   record.fix(client);
//   if (record.values().status == AddressStatusFixed) entry->setValue(record.values().fixed);
//
// Any thread may read, change or fix a record at any time: the values are changed together, under a
// lock of the record's own that is never held while the service is asked. A change made while a fix
// is under way wins, and the outcome of that fix is dropped.
class POSTWRIGHT_CLIENT_EXPORT BatchResultRecord {
 public:
  struct Values {
    QString address;  // the text to fix
    // The text to write back: "Processing…" in the user's language until the first outcome, then
    // the corrected text, the address itself (unchanged) or empty (several candidates, or an
    // error).
    QString fixed;
    QString result;                            // the message of the last failure, else empty
    QList<PostwrightSelectorPointer> matches;  // the candidates, two or more, else empty
    AddressStatus status = AddressStatusUnchanged;

    // Takes the outcome of a fix of `address`: `answer`, or nil and `message`, the client's
    // lastResult(). An answer that tells nothing new (PostwrightClient::isAddress) keeps the user's
    // text, fewer than two candidates never make an address "multiple", and `result` and `matches`
    // keep what they held where the outcome brings none.
    void takeAnswer(const std::optional<AddressFix>& answer, const QString& message);
  };

  // `entry`, not null, is asked for its value, once.
  explicit BatchResultRecord(std::shared_ptr<AddressEntry> entry);
  // A record without an entry, such as a line of a stream.
  explicit BatchResultRecord(const QString& address);

  // The host's object; null where there is none.
  const std::shared_ptr<AddressEntry>& entry() const { return _entry; }

  // A copy of the values as they are now.
  Values values() const;

  // Puts another text up for fixing; the outcome stays as it is until the next fix.
  void setAddress(const QString& address);

  // Takes `fixed`, the address of a candidate that the user chose: status AddressStatusFixed.
  void setFixed(const QString& fixed);

  // Asks the service about the address, through `client` and on the calling thread, and takes the
  // outcome. Blocks as PostwrightClient::fixAddress does, and throws what it throws, the record
  // being as before. False when the record was changed meanwhile and keeps that change.
  bool fix(PostwrightClient& client);

 private:
  const std::shared_ptr<AddressEntry> _entry;
  mutable std::mutex _lock;
  Values _values;
  quint32 _changes = 0;  // counts changes of _values, so that a fix can tell whether it came late
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCHRESULTRECORD_H_
