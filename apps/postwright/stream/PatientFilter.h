#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PATIENTFILTER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PATIENTFILTER_H_

#include <cstddef>
#include <deque>
#include <functional>
#include <set>
#include <string>

#include "apps/postwright/stream/LineSource.h"
#include "apps/postwright/stream/LineWorkers.h"
#include "apps/postwright/stream/Outage.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/stream/Progress.h"

namespace postwright {

// What makes the record of a label whose worker process died: the text says how, as in "was ended
// by signal 9 (Killed)".
using DeadWorkerAnswer = std::function<std::string(const LabelLine&, const std::string&)>;

// Has the lines of a source answered by workers and puts the records in the order of the lines,
// each as soon as it and all before it are known. Reads on while it writes; what it holds at a time
// is bounded, in lines and in bytes.
//
// A line that the service left without an answer is asked about once more when the service has
// answered another, or when there is nothing else to do; only then does its record say so. While
// there is an outage, no line is asked about but one at a time, to see whether it is over: those
// without an answer in turn and then a new one, since the service may leave just these without.
class PatientFilter {
 public:
  // What several filters of one run share. Borrows everything. `answer` is asked here about lines
  // that are not labels alone.
  struct Run {
    LineWorkers& workers;
    const LineAnswer& answer;
    const DeadWorkerAnswer& answerForDead;
    const RunClock& clock;
    Outage& outage;
    Progress& progress;
  };

  PatientFilter(LineSource& lines, Output& output, Run& run)
      : lines_(lines), output_(output), run_(run) {}

  // Answers everything up to the end of the source. False where the outage became hopeless: every
  // line that was taken has its record all the same.
  bool Do();

 private:
  // A line that has been read and whose record has not been written.
  struct Entry {
    LabelLine label = {};
    std::string line = {};
    std::string record = {};  // empty until it is known; of a held line, what says so
    std::size_t bytes = 0;    // of the line, and then of the record
    int misses = 0;           // questions without an answer that are the line's own matter
    bool isKnown = false;     // the record is to be written
    bool isCopied = false;    // it had its record before
  };

  bool IsDone() const { return isEnded_ && entries_.empty(); }
  bool MayTakeMore() const;
  void Ask();
  void Probe();
  bool ProbeNewLine();
  void TakeLines();
  bool Take();
  void Give(std::size_t ticket);
  void SettleWhereIdle();
  void WaitForEvents();
  int LongestWait(bool wantsInput) const;
  void Note(const LineWorkers::Answer& answer);
  void Miss(std::size_t ticket, const LineRecord& record);
  void SettleHeld();
  void Know(std::size_t ticket, std::string record);
  void WriteKnown();
  void GiveUp();
  Entry& At(std::size_t ticket) { return entries_[ticket - first_]; }

  LineSource& lines_;
  Output& output_;
  Run& run_;
  std::deque<Entry> entries_;   // in the order of the lines
  std::size_t first_ = 0;       // the ticket of the first entry
  std::size_t bytes_ = 0;       // of all entries
  std::size_t asked_ = 0;       // lines that workers have
  std::set<std::size_t> held_;  // without an answer
  std::set<std::size_t> due_;   // to be asked about again
  std::size_t turn_ = 0;        // of the held lines, which is the next probe
  bool isProbing_ = false;
  bool isEnded_ = false;  // the source
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PATIENTFILTER_H_
