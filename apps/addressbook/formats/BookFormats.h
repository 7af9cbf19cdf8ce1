#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_BOOKFORMATS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_BOOKFORMATS_H_

#include <QString>
#include <memory>

#include "apps/addressbook/book/BookFile.h"

namespace postwright::addressbook {

// Reads the address book at `path`, whose kind is told by what it holds and not by its name: an
// SQLite database, a text that begins with BEGIN:VCARD, else CSV; only an empty file is what its
// name says. Throws FileError with a message that does not name the file.
std::unique_ptr<BookFile> openBookFile(const QString& path);

// A new file of the kind that the name of `path` asks for: .vcf and .vcard, .csv, .tsv and .txt,
// anything else the program's own.
std::unique_ptr<BookFile> newBookFile(const QString& path);

// The kind that the name of `path` asks for.
BookKind kindForPath(const QString& path);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_BOOKFORMATS_H_
