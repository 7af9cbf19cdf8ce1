#ifndef POSTWRIGHT_CLIENT_POSTWRIGHTCLIENT_H_
#define POSTWRIGHT_CLIENT_POSTWRIGHTCLIENT_H_

#include <postwright/AddressEntry.h>
#include <postwright/AddressMatch.h>
#include <postwright/ClientExport.h>
#include <postwright/PostwrightSelector.h>
#include <postwright/VerifyReport.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <atomic>
#include <memory>
#include <optional>

namespace postwright {

class FixedAddress;

// The case of corrected text.
enum Capitalization : qint32 {
  CapitalizationUpper = 0,
  CapitalizationLower = 1,
  CapitalizationMixed = 2,
};

// Key, in the parameters of the batch worker, of the list of its records.
POSTWRIGHT_CLIENT_EXPORT extern const QString PostwrightResultsKey;

// Identifier of the message that the batch worker sends after each address: 'pwup'.
inline constexpr qint32 PostwrightUpdateMessage = 0x70777570;

// Name of the notification posted after a batch has written its results back to the host's entries.
POSTWRIGHT_CLIENT_EXPORT extern const QString ReloadAddressBookNotification;

// What a full fix found; the members bear the names of the keys of the result dictionary.
struct AddressFix {
  QString
      ExactAddress;  // the corrected text, post-processed; empty where only candidates are known
  QList<PostwrightSelectorPointer> MatchedAddresses;  // the candidates in the service's order
  // What each of MatchedAddresses shows, where setCandidates() had the service asked for them; else
  // empty. A selector knows no range of house numbers and leaves "%@" in its place: a host that
  // asks for candidates goes by these.
  QList<AddressMatch> Candidates = {};
};

// The host's way to a corrected address: one call, and the text as the user likes it.
//
//   PostwrightClient client;
//   client.setCapitalization(CapitalizationMixed);
//   const std::optional<QString> text = client.fixAddressQuick("12 main st\naustin tx 78701");
//   show(text ? *text : *client.lastResult());  // "12 Main St\nAustin TX 787011234"
//
// A client belongs to one thread; several clients on several threads may call at once, and each fix
// then waits for its turn at the engine. A fix blocks until the service has answered or the attempt
// has failed (up to 30 s to connect, 60 s without progress, 2 minutes in all unless
// SetFetchTimeout() says otherwise), on the thread that called. While it waits for its turn, and
// only then, a thread of a QGuiApplication handles events other than user input, so that windows
// stay painted: the host's slots and timers may run inside the call.
//
// Every failure of a fix becomes a message in lastResult() and a nil return; no PostwrightException
// leaves this class. Anything else, such as std::bad_alloc, passes on. The character locale of the
// process must be UTF-8 (see MacPlatformServices). Needs no application object.
class POSTWRIGHT_CLIENT_EXPORT PostwrightClient : public QObject {
  Q_OBJECT

 public:
  // Upper case, punctuation removed, no spellings of the user's, no result; loads the product's
  // mixed-case dictionary.
  explicit PostwrightClient(QObject* parent = nullptr);
  ~PostwrightClient() override;

  // Sets the case of corrected text, a Capitalization. Any other number blanks every corrected
  // address: an unknown wish is not guessed at.
  void setCapitalization(qint32 capitalization) { _capitalization = capitalization; }

  // Says whether punctuation is removed from corrected text. All of it is, wherever it is: the
  // hyphen of a ZIP+4 as well as the apostrophe of O'NEIL.
  void setRemovePunctuation(bool removePunctuation) { _removePunctuation = removePunctuation; }

  // Sets the user's own spellings, separated by ";" ("DeWitt; MacArthur"), in place of the earlier
  // ones. A word is looked up in the product's dictionary first and what that gives in the user's,
  // so a spelling of the user's takes the place of one of the product's only where that is itself
  // in capitalized form. Nil sets none.
  void setMixedCase(const std::optional<QString>& mixedCase);

  // Has fixAddress() ask the service for at most `most` candidates, 1 to VerifyCandidate::kMost:
  // what could have been meant by an address that leaves a choice. 0, as at first, asks for none.
  // An answer that names any has them in MatchedAddresses and Candidates, beside ExactAddress or in
  // its place; it is not a failure then that the address itself was turned down.
  void setCandidates(qint32 most) { _candidates = most; }

  // Has every fix ask the service whose word its answer is, which lastReport() then says.
  void setWantsSource(bool wantsSource) { _wantsSource = wantsSource; }

  // Lets another thread end a fix: once `abandoned` holds true, a fix that waits for the service
  // fails within about a second as one without a reply, and so does every later one. Null, as at
  // first, lets every fix take its time.
  void setAbandoned(std::shared_ptr<const std::atomic<bool>> abandoned) {
    _abandoned = std::move(abandoned);
  }

  // True when the network can carry a fix: the name of GetDeployment().probeHost resolves and the
  // system has a route to it. Nothing is sent, so this does not say that the service is up.
  bool checkNetwork() const;

  // Corrects `address`, of several lines, and returns the text, post-processed by
  // capitalizeAddress(): empty where the service knew candidates only. Nil on failure:
  //   "No internet connection available"      checkNetwork() is false; nothing was asked
  //   "Invalid Address"                       the service turned the address down
  //   "Request completed OK, but ..."         no reply, or none that can be read
  std::optional<QString> fixAddressQuick(const QString& address);

  // The same, and the candidates with it, whose texts are not post-processed.
  std::optional<AddressFix> fixAddress(const QString& address);

  // The message of the last fix that failed; nil after one that succeeded and before the first.
  std::optional<QString> lastResult() const { return _lastResult; }
  void setLastResult(const std::optional<QString>& lastResult) { _lastResult = lastResult; }

  // What the service's reply to the last fix says besides the address, as the footnotes that
  // CorrectionReview takes. The report of no reply where none came.
  const VerifyReport& lastReport() const { return _lastReport; }

  // Post-processes a corrected text: fixPunctuation(), then fixCase(), then trimmed.
  QString capitalizeAddress(const QString& text) const;

  // Returns `text` in the case that was set; empty for a case that does not exist.
  QString fixCase(const QString& text) const;

  // Returns `text` without punctuation, line by line and trimmed; where punctuation is kept, `text`
  // as it is, not even trimmed.
  QString fixPunctuation(const QString& text) const;

  // Returns one line without the characters of Unicode's categories Pc, Pd, Ps, Pe, Pi, Pf and Po,
  // trimmed, a run of white space (Zs and the tab) reduced to its first character; punctuation does
  // not end such a run, so "12 - B ST." gives "12 B ST". Symbols ($ +) stay. Works on 16-bit
  // characters: one beyond that range stays, whatever its category.
  QString fixPunctuationLine(const QString& line) const;

  // Returns `text` in mixed case, word by word, trimmed. Only blanks separate words, and every
  // blank is kept.
  QString fixMixedCase(const QString& text) const;

  // Returns one word in mixed case: capitalized ("main" gives "Main"), with a second capital in
  // names like O'Neil, then replaced by the product's spelling, then by the user's.
  QString fixMixedCaseOneWord(const QString& word) const;

  // fixAddressWithDialog:punctuation:capitalization:mixedCase:. Shows the batch window, in which
  // the user corrects `entries` (none of them null) at once and reviews what comes of them, and
  // blocks until it is closed; events are handled meanwhile. `punctuation` says whether punctuation
  // is removed, the other two are those of setCapitalization() and setMixedCase(). This client's
  // own settings and lastResult() are neither used nor changed.
  //
  // Where the user applies, each entry that was corrected and is still in the window is given its
  // text with setValue(), in the order of `entries`, and then ReloadAddressBookNotification is
  // posted with this client as the object, also when no entry was corrected. Returns the value of
  // the first entry that was written; nil where none was, and where the user cancelled: then
  // nothing is written and nothing posted. Needs a QApplication and runs on its thread.
  std::optional<QString> fixAddressWithDialog(const QList<std::shared_ptr<AddressEntry>>& entries,
                                              bool punctuation, qint32 capitalization,
                                              const std::optional<QString>& mixedCase);

  // isAddress:equalTo:. True when both texts hold the same letters and digits in the same order,
  // whatever their case, spacing, punctuation and line breaks.
  static bool isAddress(const QString& text, const QString& equalTo);

  // The message for a FixResult; "Unexpected error code ..." with the number for one that has none.
  // The messages are English, and are never translated or changed.
  static QString stringForResult(qint32 result);

 private:
  void initDefaultMixedCaseDict();
  template <typename Result, typename Read>
  std::optional<Result> runFix(const QString& address, bool quick, Read read);

  qint32 _capitalization = CapitalizationUpper;
  bool _removePunctuation = true;
  qint32 _candidates = 0;
  bool _wantsSource = false;
  std::optional<QHash<QString, QString>> _mixedCaseDict;
  QHash<QString, QString> _defaultMixedCaseDict;
  std::optional<QString> _lastResult;
  VerifyReport _lastReport;
  std::shared_ptr<const std::atomic<bool>> _abandoned;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_POSTWRIGHTCLIENT_H_
