#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_DIFFERENCES_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_DIFFERENCES_H_

#include <QList>
#include <QString>

namespace postwright {

// A run of 16-bit characters of a text; never a part of a character.
struct TextMark {
  qsizetype start;
  qsizetype length;
  bool operator==(const TextMark&) const = default;
};

// Words that replace others; one of the two may be empty.
struct Change {
  QString from;
  QString to;
  bool operator==(const Change&) const = default;
};

// A word that went from one line into another that was there already; lines are counted from 1.
struct Move {
  QString word;
  int fromLine;
  int toLine;
  bool operator==(const Move&) const = default;
};

struct Differences {
  QList<TextMark> removed;    // in the text before, in order
  QList<TextMark> added;      // in the text after, in order
  QList<TextMark> movedFrom;  // in the text before, in order
  QList<TextMark> movedTo;    // in the text after, in order
  QList<Change> changes;      // the same in words, for a reader who cannot see marks
  QList<Move> moves;
};

// Tells what a person has to look at when `before` became `after`: by word, and inside words that
// are more than half alike by character. Words are separated by white space. A line that was broken
// or joined is the same text; a word that left its line for another is not, above all a number that
// went from a name into the street, and is marked as moved. Case does not matter: the user has set
// the case of all texts, and marks on every word would hide the others. A combining mark belongs to
// its letter, and a letter is the same however it is composed.
//
// Texts that differ in more than some hundred words are marked whole between their equal ends, so
// that the time stays bounded.
Differences findDifferences(const QString& before, const QString& after);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_DIFFERENCES_H_
