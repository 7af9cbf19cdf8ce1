#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_BOOKFORMATS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_BOOKFORMATS_H_

#include <QList>
#include <QString>
#include <memory>

#include "apps/addressbook/book/BookFile.h"
#include "apps/addressbook/book/BookFormat.h"

namespace postwright::addressbook {

// Every kind of address book that the program knows: the program's own first, CSV, which any text
// may be, last. A new kind is a line of this table; dialogs, messages and the desktop entry (by a
// test) follow it.
const QList<const BookFormat*>& bookFormats();

// The kind that the ending of `path` names; null where it names none.
const BookFormat* formatForPath(const QString& path);

// What the dialogs for opening and saving call a kind: "vCard file (*.vcf *.vcard)".
QString nameFilter(const BookFormat& format);

// The sentence for a file that is of no kind.
QString knownFormatsSentence();

// Reads the address book at `path`, whose kind is told by what it holds and not by its name; only
// an empty file is what its name says. Throws FileError with a message that does not name the file.
std::unique_ptr<BookFile> openBookFile(const QString& path);

// A new file of the kind that the name of `path` asks for, the program's own where it asks for
// none.
std::unique_ptr<BookFile> newBookFile(const QString& path);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_BOOKFORMATS_H_
