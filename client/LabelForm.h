#ifndef POSTWRIGHT_CLIENT_LABELFORM_H_
#define POSTWRIGHT_CLIENT_LABELFORM_H_

#include <postwright/ClientExport.h>
#include <postwright/PostwrightClient.h>

#include <QString>

namespace postwright {

// How corrected text is to look, in place of the client's own removal of punctuation, which takes
// every sign, those that tell two addresses apart among them. The numbers are kept for good.

enum PunctuationForm : qint32 {
  PunctuationKeep = 0,    // as the service wrote it
  PunctuationPostal = 1,  // without what USPS Publication 28 leaves out
  PunctuationRemove = 2,  // none but the hyphen of a ZIP+4
};

enum NameForm : qint32 {
  NamesAsTyped = 0,   // names, companies and notes stay as they are
  NamesSameCase = 1,  // they take the case of the address
};

struct LabelForm {
  PunctuationForm punctuation = PunctuationPostal;
  NameForm names = NamesAsTyped;  // of the lines around the address
};

// Returns the lines of an address with the punctuation that is wanted, and then in the case of
// `client`, which must not remove any itself. Postal form keeps the hyphen beside a digit (12-34,
// ZIP+4), the slash between two letters or digits, the point between digits (39.2 RD), "#" and "&";
// an apostrophe and the points of initials go, any other sign separates words (USPS Publication 28,
// sections 354 and D1).
POSTWRIGHT_CLIENT_EXPORT QString addressInForm(const QString& address, PunctuationForm punctuation,
                                               const PostwrightClient& client);

// Returns `text` in the case of `client`, line by line, its blanks and line breaks as they are.
POSTWRIGHT_CLIENT_EXPORT QString labelInCase(const QString& text, const PostwrightClient& client);

// Returns `corrected` with those lines above and below its address as they are in `typed` that
// differ from it in case and punctuation alone: lines without a digit, from either end inwards, up
// to the first that is none of these.
POSTWRIGHT_CLIENT_EXPORT QString withNamesAsTyped(const QString& corrected, const QString& typed);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_LABELFORM_H_
