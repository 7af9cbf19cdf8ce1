#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHOPTIONS_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHOPTIONS_H_

#include <postwright/LabelForm.h>

#include <chrono>

namespace postwright {

// What the batch window does beyond its plain form, for PostwrightController::setOptions(): a host
// that sets nothing gets the window as it has always been, which asks no question, waits for no
// service and selects nothing by itself. A plain value.
//
//   BatchOptions options = BatchOptions::all();
//   options.waitsForService = false;  // an outage ends each record as it comes
//   window.setOptions(options);
struct BatchOptions {
  // The lines that are the address are asked about alone, the others stay as they were typed, and a
  // correction that nothing accounts for is not made: it waits for the person beside the text as
  // typed, with the reason (fixReviewed()). `form` says what becomes of punctuation and names, in
  // place of the window's own `removePunctuation`. A host's own AskFunction goes before both.
  bool reviewsCorrections = false;
  LabelForm form = {};

  // A record that stays unchanged is given in the form of corrected text, too, unless that would
  // lose something of it: results() then has it beside the corrected ones, and it counts as
  // unchanged. What a person left as typed stays so, and what nobody was asked about.
  bool sameFormForAll = false;

  // The run can be stopped after the record under way and gone on with; what is there can be
  // applied meanwhile. Closing the window with work in it (corrections, choices, edits, ignored
  // records) asks once whether to apply, discard or stay; without work it closes.
  bool keepsWork = false;

  // Any record can be edited and asked about again, and the person's own text be taken as the
  // correction. After asking again the next record that needs the person is selected.
  bool editsAnyRecord = false;

  // Several records can be selected, and ignored, asked about or taken as typed at once; a change
  // made in one can be made in all that have the same words.
  bool selectsSeveral = false;

  // A click on a column sorts by it (the third one gives the host's order back); errors can be
  // listed by reason; the first record that needs the person is selected as soon as it is known,
  // unless the person has selected one.
  bool findsProblems = false;

  // A service that leaves three records in a row without an answer is waited for, with growing
  // pauses: it is asked again after firstPause, then after twice as long each time, at most
  // longestPause. One that says when it wants to be asked again (Retry-After) is waited for as long
  // as it says. Without any answer for giveUpAfter, that time not counted, the run ends, and
  // records without an answer stay pending. A single one that gets none while others do is an error
  // as without the option.
  bool waitsForService = false;
  std::chrono::milliseconds firstPause{2000};
  std::chrono::milliseconds longestPause{60000};
  std::chrono::milliseconds giveUpAfter{600000};

  // The service is asked for candidates, and each that it names can be chosen: a dialog asks for
  // the number in its range, and the address that this makes is asked about before it is taken as
  // confirmed. A host's own AskFunction goes by the client that it is given.
  bool offersCandidates = false;

  // The window uses the application's font, QApplication::font(), in the list and in its fields, in
  // whatever size it has; rows are two lines high at least.
  bool usesHostFont = false;

  // Once a run has ended, how it went can be looked at in figures and saved as a report.
  bool summarizes = false;

  // Everything.
  static BatchOptions all() {
    BatchOptions options;
    options.reviewsCorrections = options.sameFormForAll = options.keepsWork =
        options.editsAnyRecord = options.selectsSeveral = true;
    options.findsProblems = options.waitsForService = options.offersCandidates = true;
    options.usesHostFont = options.summarizes = true;
    return options;
  }
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHOPTIONS_H_
