#ifndef POSTWRIGHT_CLIENT_BATCHRESULTRECORD_H_
#define POSTWRIGHT_CLIENT_BATCHRESULTRECORD_H_

#include <postwright/AddressEntry.h>
#include <postwright/ClientExport.h>
#include <postwright/Confirmation.h>
#include <postwright/CorrectionReview.h>
#include <postwright/PostwrightClient.h>
#include <postwright/PostwrightSelector.h>

#include <QList>
#include <QMetaType>
#include <QString>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace postwright {

// What became of one address of a batch. The numbers are kept for good: streams show them.
enum AddressStatus : qint32 {
  AddressStatusUnchanged = 0,  // as the user wrote it; also: not asked yet
  AddressStatusFixed = 1,
  AddressStatusMultiple = 2,  // several candidates, of which the user picks one
  AddressStatusError = 3,
};

// How the service answered about one address: `answer`, or nil and the message of the failure. A
// message that PostwrightClient::stringForResult() has for a failure of the service or the network
// says that the address was not judged; any other says why it was turned down.
struct POSTWRIGHT_CLIENT_EXPORT AddressOutcome {
  std::optional<AddressFix> answer;
  QString message;
  // What a person should know of the outcome: why an answer is doubtful, why nobody was asked, why
  // the address was turned down and what to do. Mostly empty.
  QString remark = {};
  // Of an address that was turned down: the text with what it lacks, to be asked about where a
  // person says so; mostly empty.
  QString proposal = {};
  // True where a person has to decide on the answer's candidates even if it says the same as the
  // text that was asked about.
  bool isOpen = false;
  // False where the answer is not the service's and says nothing of whether that is there.
  bool isAsked = true;
  Confirmation confirmation = {};  // how far the service confirmed the answer
  // The letters of the reply's Footnotes element; nil where nobody knows them, and the answer is
  // then not explained.
  std::optional<std::string> footnotes = {};
  // True where an answer that says the same as the text is to be written back in its form too.
  bool givesForm = false;

  // True where the service or the network failed: the address was not judged.
  bool isUnanswered() const;
};

// Asks about one address, through `client` or any other way. Called on the worker's thread; must
// not throw anything but std::bad_alloc.
using AskFunction = std::function<AddressOutcome(PostwrightClient& client, const QString& address)>;

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
    QString remark;                            // that of the last outcome
    QString proposal;                          // that of the last outcome
    QList<PostwrightSelectorPointer> matches;  // the candidates, two or more, else empty
    // What `matches` show, where the service named them to those who asked (setCandidates());
    // there may be a single one. Else empty.
    QList<AddressMatch> candidates;
    // The service's word in the form that corrected text has, also where it says no more than
    // `address`; empty where it gave none.
    QString standard;
    Confirmation confirmation;  // how far the service confirmed the answer of the last outcome
    std::optional<std::string> footnotes;  // those of the last outcome
    QList<CorrectionRule> rules;  // of what its answer changed, each once; none where unexplained
    AddressStatus status = AddressStatusUnchanged;
    bool pending = true;   // not asked about yet, or put up again since
    bool ignored = false;  // taken out of the batch by the user
    // `address` is a proposal that the person took: where the answer says the same, it is a
    // correction of what was typed.
    bool mended = false;
    bool own = false;  // `fixed` is what the person wrote or kept, and not the service's word

    // True where the answer says the same as the text: no person decided that it stays as it is,
    // and no remark says that nobody was asked.
    bool isWellWritten() const;

    // True where the service confirmed it, besides: nothing else is to be called right.
    bool isFoundRight() const;

    // True where the answer is not taken for what `remark` says of it: the person picks one of
    // `matches`, the text as corrected and as typed, or a single one where they are the same.
    bool isDoubtful() const;

    // True for an error of the service or the network: the address was not judged, and asking again
    // later may help.
    bool isUnanswered() const;

    // Why the address was turned down or not judged: `remark` where there is one, else `result`.
    const QString& failure() const { return remark.isEmpty() ? result : remark; }

    // Takes the outcome of a fix of `address`: `answer`, or nil and `message`, the client's
    // lastResult(). An answer with Candidates leaves a choice, whatever else it says. One that
    // tells nothing new (PostwrightClient::isAddress) keeps the user's text, fewer than two
    // candidates never make an address "multiple", and `result` and `matches` keep what they held
    // where the outcome brings none.
    void takeAnswer(const std::optional<AddressFix>& answer, const QString& message);

    // Leaves the choice among the candidates of `answer` to a person.
    void takeChoice(const AddressFix& answer);

    // The service's correction of `address`, whether it was made or is in doubt; empty where there
    // is none.
    QString corrected() const;

    // What corrected() changes, with the rule of each change; no changes where `footnotes` are not
    // known. Works it out again each time.
    CorrectionReview review() const;

    // Has `rules` be those of review().
    void takeRules();

    // Has `fixed` be `standard` where the address is well written, unless the form would lose
    // something of the text.
    void takeForm();
  };

  // `entry`, not null, is asked for its value, once.
  explicit BatchResultRecord(std::shared_ptr<AddressEntry> entry);
  // A record without an entry, such as a line of a stream.
  explicit BatchResultRecord(const QString& address);

  // The host's object; null where there is none.
  const std::shared_ptr<AddressEntry>& entry() const { return _entry; }

  // The text that the record was made with.
  const QString& typed() const { return _typed; }

  // A copy of the values as they are now.
  Values values() const;

  // True for a record that stays unchanged and is given in another form than it was typed in.
  bool isFormed() const;

  // Puts another text up for fixing: pending, while status and texts of the last outcome stay as
  // they are until the next.
  void setAddress(const QString& address);

  // Puts the same text up again, as if nothing had been asked.
  void restart();

  // Takes the record out of the batch: no worker asks about it any more.
  void ignore();

  // Takes `fixed`, the address of a candidate that the user chose: status AddressStatusFixed.
  void setFixed(const QString& fixed);

  // Replaces the current values by `values`, and returns the old ones: for undoing a change.
  // The outcome of a fix that is under way is dropped.
  Values exchange(Values values);

  // Asks the service about the address, through `client` and on the calling thread, and takes the
  // outcome. Blocks as PostwrightClient::fixAddress does, and throws what it throws, the record
  // being as before. False when the record was changed meanwhile and keeps that change.
  bool fix(PostwrightClient& client);

  // The same, asking whoever `ask` asks: it is called once, on this thread and without the lock,
  // with the address. Nil leaves the record as it is, to be asked about another time.
  bool fix(const std::function<std::optional<AddressOutcome>(const QString&)>& ask);

 private:
  const std::shared_ptr<AddressEntry> _entry;
  const QString _typed;
  mutable std::mutex _lock;
  Values _values;
  quint32 _changes = 0;  // counts changes of _values, so that a fix can tell whether it came late
};

using BatchResultRecordPointer = std::shared_ptr<BatchResultRecord>;
using BatchResultRecordList = QList<BatchResultRecordPointer>;

}  // namespace postwright

Q_DECLARE_METATYPE(postwright::BatchResultRecordList)
Q_DECLARE_METATYPE(postwright::AskFunction)

#endif  // POSTWRIGHT_CLIENT_BATCHRESULTRECORD_H_
