#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_LDIF_LDIFFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_LDIF_LDIFFILE_H_

#include <QCoreApplication>

#include "apps/addressbook/book/BookFile.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

// An address book in LDIF (RFC 2849), as mail programs and directories give it: each address of a
// record an entry, the one at work by the attributes of inetOrgPerson (RFC 2798), the one at home
// by those that mail programs add. It is read and not written.
class LdifFile final : public BookFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::LdifFile)

 public:
  static const BookFormat& bookFormat();

  // Reads a file. Throws FileError.
  explicit LdifFile(const tables::TextFile& text);

  const BookFormat& format() const override { return bookFormat(); }
  QList<Entry> entries() const override { return _entries; }
  // Throws FileError: a book that was read from LDIF is saved as another kind.
  QStringList write(const QString& path, const QList<Entry>& entries) override;

 private:
  QList<Entry> _entries;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_LDIF_LDIFFILE_H_
