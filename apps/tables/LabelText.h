#ifndef POSTWRIGHT_APPS_TABLES_LABELTEXT_H_
#define POSTWRIGHT_APPS_TABLES_LABELTEXT_H_

#include <QString>
#include <QStringList>
#include <optional>

namespace postwright::tables {

// Reads the lines of a label as they are, for showing them in columns and for giving them back to
// a file that keeps city, state and ZIP code apart. Nothing is corrected here.

// The line "Austin, TX 78701-1234" in its pieces, each as it was written.
struct PlaceParts {
  QString city;
  QString state;
  QString zip;
};

// A label around its place line, which is the last line that reads as one.
struct LabelParts {
  QStringList above;
  std::optional<PlaceParts> place;
  QStringList below;  // empty without a place
};

// A label in the columns of a list.
struct LabelSummary {
  QString name;
  QString street;
  QString place;  // city and state
  QString zip;
};

// Returns `text` with line feeds for line breaks of any kind, blanks at the ends of lines and blank
// lines at both ends removed. Blank lines inside stay.
QString tidyLabel(const QString& text);

// Returns the letters and digits of `text`, upper case, in their order.
QString lettersOf(QStringView text);

// Tells whether two texts differ in nothing but case, spacing and punctuation.
bool sameLetters(QStringView a, QStringView b);

// Reads a line of city, state and ZIP code; the state in two letters, or in full after a comma.
// Nil for any other line.
std::optional<PlaceParts> readPlace(const QString& line);

LabelParts partLabel(const QString& label);

LabelSummary summarizeLabel(const QString& label);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_LABELTEXT_H_
