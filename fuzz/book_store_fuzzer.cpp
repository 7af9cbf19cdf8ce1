// Bytes of an address book in the program's own format. It is refused with a reason or read; saved
// and read again, it has the same entries.

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "apps/addressbook/formats/store/StoreFile.h"
#include "apps/tables/FileError.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright::addressbook;
using postwright::fuzz::Require;

// In memory, if the system has a folder there.
QString FileIn(const QString& name) {
  static int count = 0;
  static char* arguments[] = {const_cast<char*>("book_store_fuzzer"), nullptr};
  static const QCoreApplication application(++count, arguments);
  static const QTemporaryDir folder(QStringLiteral("/dev/shm/book-XXXXXX"));
  static const QTemporaryDir usual;
  return (folder.isValid() ? folder : usual).filePath(name);
}

bool AreSame(const Entry& a, const Entry& b) {
  return a.id == b.id && a.label == b.label && a.check.day == b.check.day &&
         (!a.check.day.isValid() ||
          (a.check.text == b.check.text && a.check.failure == b.check.failure));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString path = FileIn(QStringLiteral("a.pwbook"));
  const QString saved = FileIn(QStringLiteral("b.pwbook"));
  QFile::remove(saved);
  QFile file(path);
  Require(file.open(QIODevice::WriteOnly) &&
              file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) ==
                  static_cast<qint64>(size),
          "there is room for the input");
  file.close();
  try {
    StoreFile book(path);
    const QList<Entry> entries = book.entries();
    book.write(saved, entries);
    const QList<Entry> again = StoreFile(saved).entries();
    Require(again.size() == entries.size() &&
                std::equal(again.begin(), again.end(), entries.begin(), AreSame),
            "a saved book has the same entries");
  } catch (const postwright::tables::FileError& error) {
    Require(!error.message().isEmpty(), "a book that is refused is told why");
  }
  return 0;
}
