#ifndef POSTWRIGHT_APPS_LABELFORM_H_
#define POSTWRIGHT_APPS_LABELFORM_H_

#include <postwright/PostwrightClient.h>

#include <QString>

namespace postwright {

// How corrected text is to look: what the programs do in place of the client's own removal, which
// takes every sign, those that tell two addresses apart among them.

enum class Punctuation {
  kKeep,    // as the service wrote it
  kPostal,  // without what USPS Publication 28 leaves out
  kRemove,  // none but the hyphen of a ZIP+4
};

enum class NameForm {
  kAsTyped,   // names, companies and notes stay as they are
  kSameCase,  // they take the case of the address
};

// Returns the lines of an address with the punctuation that is wanted, and then in the case of
// `client`, which must not remove any itself. Postal form keeps the hyphen beside a digit (12-34,
// ZIP+4), the slash between two letters or digits, the point between digits (39.2 RD), "#" and "&";
// an apostrophe and the points of initials go, any other sign parts words (USPS Publication 28,
// sections 354 and D1).
QString AddressInForm(const QString& address, Punctuation punctuation,
                      const PostwrightClient& client);

// Returns `text` in the case of `client`, line by line, its blanks and line breaks as they are.
QString LabelInCase(const QString& text, const PostwrightClient& client);

// Returns `corrected` with those lines above and below its address as they stand in `typed` that
// differ from it in case and punctuation alone: lines without a digit, from either end inwards, up
// to the first that is none of these.
QString WithNamesAsTyped(const QString& corrected, const QString& typed);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_LABELFORM_H_
