#ifndef POSTWRIGHT_CLIENT_REVIEWWORDS_H_
#define POSTWRIGHT_CLIENT_REVIEWWORDS_H_

#include <postwright/AddressLines.h>
#include <postwright/Confirmation.h>
#include <postwright/CorrectionReview.h>
#include <postwright/VerifyReport.h>

#include <QString>

namespace postwright {

// What the core says to a person, in the language of the library's tables. English is the core's
// own; the other tables have a text for each code, "SCore-" in front of it, and what a table lacks
// is said in English. Any thread.

// "suffix in standard form".
QString wordsOf(CorrectionRule rule);

// A doubt as a sentence, with the words that it is about.
QString sentenceOf(const CorrectionChange& doubt);

// The first doubt of a review; empty where there is none.
QString reasonOf(const CorrectionReview& review);

QString sentenceOf(LeftAloneReason reason);

// "form only, nobody has checked the street", and the same as a sentence, after which stands who
// says so; empty where nobody was asked.
QString wordsOf(const Confirmation& confirmation);
QString sentenceOf(const Confirmation& confirmation);

struct FailureWords {
  QString reason;    // and what to do
  QString proposal;  // the label with its fault mended, where nothing else can be meant; else empty
};

// Why a fix of `label` failed: what the text lacks, what the service said of it, or that it was not
// reached.
FailureWords failureOf(const QString& label, const VerifyReport& report);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_REVIEWWORDS_H_
