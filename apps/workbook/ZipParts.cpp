#include "apps/workbook/ZipParts.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "apps/tables/FileError.h"

namespace postwright::workbook {

namespace {

constexpr qsizetype kStep = 1024 * 1024;

[[noreturn]] void failAs(const char* reason) {
  throw tables::FileError(
      ZipParts::tr("The file is damaged, or protected by a password (%1). Open it in the program "
                   "that made it and save it again.")
          .arg(QString::fromUtf8(reason)));
}

[[noreturn]] void failAs(zip_error_t& error) {
  const QByteArray reason = zip_error_strerror(&error);
  zip_error_fini(&error);
  failAs(reason.constData());
}

}  // namespace

ZipParts::ZipParts(QByteArray archive)
    : _bytes(std::move(archive)),
      _source(sourceOf(_bytes)),
      _archive(open(_source.get(), ZIP_RDONLY)) {}

// The library frees bytes that were lent to an archive once that is written (1.7.3), so each has a
// copy of its own; of no bytes it takes none, and frees none.
ZipParts::Source ZipParts::sourceOf(const QByteArray& archive) {
  const auto size = static_cast<size_t>(archive.size());
  void* const copy = size == 0 ? nullptr : std::malloc(size);
  if (copy != nullptr) {
    std::memcpy(copy, archive.constData(), size);
  } else if (size > 0) {
    throw std::bad_alloc();
  }
  zip_error_t error;
  zip_error_init(&error);
  Source source(zip_source_buffer_create(copy, size, 1, &error));
  if (!source) {
    std::free(copy);
    failAs(error);
  }
  return source;
}

// The archive has a share of its own in the source.
ZipParts::Archive ZipParts::open(zip_source_t* source, int flags) {
  zip_error_t error;
  zip_error_init(&error);
  Archive archive(zip_open_from_source(source, flags, &error));
  if (!archive) {
    failAs(error);
  }
  zip_source_keep(source);
  return archive;
}

bool ZipParts::has(const QByteArray& name) const {
  return zip_name_locate(_archive.get(), name.constData(), 0) >= 0;
}

QByteArray ZipParts::read(const QByteArray& name) const {
  const std::unique_ptr<zip_file_t, Close> file(zip_fopen(_archive.get(), name.constData(), 0));
  if (!file) {
    failAs(zip_strerror(_archive.get()));
  }
  QByteArray bytes;
  for (qsizetype size = 0;;) {
    bytes.resize(size + kStep);
    const zip_int64_t count = zip_fread(file.get(), bytes.data() + size, kStep);
    if (count < 0) {
      failAs(zip_file_strerror(file.get()));
    }
    size += count;
    if (size > kLargestPart) {
      throw tables::FileError(
          tr("A part of the file is larger than 256 MiB. Save the sheet as CSV, and open that."));
    }
    if (count == 0) {
      bytes.resize(size);
      return bytes;
    }
  }
}

QByteArray ZipParts::with(const QByteArray& name, const QByteArray& bytes) const {
  const Source source = sourceOf(_bytes);
  Archive archive = open(source.get(), 0);
  put(archive.get(), {name, bytes}, zip_name_locate(archive.get(), name.constData(), 0));
  return closed(std::move(archive), source.get());
}

QByteArray ZipParts::make(const QList<Part>& parts) {
  const Source source = sourceOf({});
  Archive archive = open(source.get(), ZIP_CREATE | ZIP_TRUNCATE);
  for (const Part& part : parts) {
    put(archive.get(), part, -1);
  }
  return closed(std::move(archive), source.get());
}

// Gives the member at a place, or a new one for -1, its contents, which live until the archive is
// closed.
void ZipParts::put(zip_t* archive, const Part& part, zip_int64_t place) {
  zip_source_t* const contents = zip_source_buffer(archive, part.bytes.constData(),
                                                   static_cast<zip_uint64_t>(part.bytes.size()), 0);
  const bool isNew = place < 0;
  if (isNew && contents != nullptr) {
    place = zip_file_add(archive, part.name.constData(), contents, ZIP_FL_ENC_UTF_8);
  } else if (contents != nullptr &&
             zip_file_replace(archive, static_cast<zip_uint64_t>(place), contents, 0) != 0) {
    place = -1;
  }
  if (contents == nullptr || place < 0 ||
      (part.isStored &&
       zip_set_file_compression(archive, static_cast<zip_uint64_t>(place), ZIP_CM_STORE, 0) != 0)) {
    failAs(zip_strerror(archive));
  }
}

QByteArray ZipParts::closed(Archive archive, zip_source_t* source) {
  if (zip_close(archive.get()) != 0) {
    failAs(zip_strerror(archive.get()));
  }
  static_cast<void>(archive.release());  // closing has freed it
  zip_stat_t stat;
  if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0) {
    failAs(zip_error_strerror(zip_source_error(source)));
  }
  QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
  const zip_int64_t count = zip_source_read(source, bytes.data(), stat.size);
  zip_source_close(source);
  if (count != bytes.size()) {
    failAs("short read");
  }
  return bytes;
}

}  // namespace postwright::workbook
