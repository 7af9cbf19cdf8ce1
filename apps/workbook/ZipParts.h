#ifndef POSTWRIGHT_APPS_WORKBOOK_ZIPPARTS_H_
#define POSTWRIGHT_APPS_WORKBOOK_ZIPPARTS_H_

#include <zip.h>

#include <QByteArray>
#include <QByteArrayList>
#include <QCoreApplication>
#include <QList>
#include <memory>

namespace postwright::workbook {

// The members of a ZIP archive in memory, such as a workbook is.
//
//   ZipParts parts(bytes);
//   QByteArray sheet = parts.read("xl/worksheets/sheet1.xml");
//   QByteArray changed = parts.with("xl/worksheets/sheet1.xml", edited);
class ZipParts {
  Q_DECLARE_TR_FUNCTIONS(postwright::workbook::ZipParts)

 public:
  struct Part {
    QByteArray name;
    QByteArray bytes;
    bool isStored = false;  // not compressed, as the first member of some files has to be
  };

  // The largest member that is read, unpacked: a small archive may hold a text without end.
  static constexpr qint64 kLargestPart = 256LL * 1024 * 1024;

  // Throws FileError where `archive` is not a ZIP archive.
  explicit ZipParts(QByteArray archive);

  bool has(const QByteArray& name) const;

  // Returns a member, unpacked. Throws FileError for one that is not there, is damaged or
  // encrypted, or is larger than kLargestPart.
  QByteArray read(const QByteArray& name) const;

  // Returns the archive with other contents of one member. The packed bytes of all others are
  // copied as they are.
  QByteArray with(const QByteArray& name, const QByteArray& bytes) const;

  // Makes an archive of these members, in this order.
  static QByteArray make(const QList<Part>& parts);

 private:
  struct Close {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_source_t* source) const { zip_source_free(source); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
  };
  using Archive = std::unique_ptr<zip_t, Close>;
  using Source = std::unique_ptr<zip_source_t, Close>;

  static Source sourceOf(const QByteArray& archive);
  static Archive open(zip_source_t* source, int flags);
  static void put(zip_t* archive, const Part& part, zip_int64_t place);
  static QByteArray closed(Archive archive, zip_source_t* source);

  QByteArray _bytes;
  Source _source;
  Archive _archive;
};

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_ZIPPARTS_H_
