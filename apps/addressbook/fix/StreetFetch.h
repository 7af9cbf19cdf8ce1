#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_STREETFETCH_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_STREETFETCH_H_

#include <QObject>
#include <QProcess>

namespace postwright::addressbook {

// Fetches the streets of a place: `postwright-base fetch` as a process of its own, whose base lies
// where the program finds it by itself. Whatever becomes of it, or of this program, nothing is
// lost: the same place goes on from there.
class StreetFetch : public QObject {
  Q_OBJECT

 public:
  enum class Step { Asking, Fetching, Reading, Sorting };
  struct Progress {
    Step step = Step::Asking;
    int percent = -1;  // of the step; below 0: cannot be told
    int files = 0;     // that were fetched, of so many
    int of = 0;
    qint64 bytes = 0;
    qint64 secondsLeft = -1;  // below 0: cannot be told yet
    qint64 rows = 0;          // that were read
  };
  enum class End { Done, Stopped, Failed };

  explicit StreetFetch(QObject* parent = nullptr);
  ~StreetFetch() override;

  // Begins, where none is running. `place` is as the command has it: "TX", "Travis, TX", "48453".
  // `server` has the same files as the publisher's; empty: the publisher's.
  void start(const QString& place, const QString& server);
  // Ends it as soon as can be, which is told as any other end.
  void stop();
  bool isRunning() const { return _process.state() != QProcess::NotRunning; }

 signals:
  void moved(const postwright::addressbook::StreetFetch::Progress& progress);
  // Why it waits or what it leaves out, in the command's own words.
  void said(const QString& line);
  // `why` is empty but where it failed.
  void ended(postwright::addressbook::StreetFetch::End end, const QString& why);

 private:
  void readProgress();
  void readWords();
  void finish(int code, QProcess::ExitStatus status);
  void fail(QProcess::ProcessError error);

  QProcess _process;
  bool _isStopping = false;
  QString _lastWords;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_STREETFETCH_H_
