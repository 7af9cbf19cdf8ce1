#include "postal/import/ByteStream.h"

#include <zip.h>

#include <cerrno>
#include <cstring>
#include <fstream>

#include "common/SmallText.h"
#include "postal/import/RowSource.h"

namespace postwright::postal {
namespace {

class FileStream : public ByteStream {
 public:
  explicit FileStream(const std::filesystem::path& file)
      : name_(file.string()), file_(file, std::ios::binary) {
    if (!file_) {
      throw SourceError(name_ + ": cannot be read: " + std::strerror(errno));
    }
  }

  size_t Read(char* bytes, size_t size) override {
    file_.read(bytes, static_cast<std::streamsize>(size));
    if (file_.bad()) {
      throw SourceError(name_ + ": cannot be read to its end");
    }
    return static_cast<size_t>(file_.gcount());
  }

 private:
  std::string name_;
  std::ifstream file_;
};

bool EndsWith(const std::string& name, const std::string& ending) {
  return name.size() >= ending.size() &&
         EqualsIgnoringCase(std::string_view(name).substr(name.size() - ending.size()), ending);
}

class ZipStream : public ByteStream {
 public:
  ZipStream(const std::filesystem::path& file, const std::string& ending) : name_(file.string()) {
    int error = 0;
    archive_.reset(zip_open(file.c_str(), ZIP_RDONLY, &error));
    if (!archive_) {
      zip_error_t reason;
      zip_error_init_with_code(&reason, error);
      const std::string text = zip_error_strerror(&reason);
      zip_error_fini(&reason);
      throw SourceError(name_ + ": is no zip archive that can be read: " + text);
    }
    Find(ending);
  }

  size_t Read(char* bytes, size_t size) override {
    size_t done = 0;
    while (done < size) {
      const zip_int64_t count = zip_fread(entry_.get(), bytes + done, size - done);
      if (count < 0) {
        throw SourceError(name_ + ": is damaged: " + zip_file_strerror(entry_.get()));
      }
      if (count == 0) {
        break;
      }
      done += static_cast<size_t>(count);
    }
    return done;
  }

 private:
  struct Close {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
  };

  void Find(const std::string& ending) {
    const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
    for (zip_int64_t i = 0; i < count && !entry_; ++i) {
      const auto index = static_cast<zip_uint64_t>(i);
      const char* const name = zip_get_name(archive_.get(), index, 0);
      if (name != nullptr && EndsWith(name, ending)) {
        entry_.reset(zip_fopen_index(archive_.get(), index, 0));
        if (!entry_) {
          throw SourceError(name_ + ": " + name +
                            " cannot be read: " + zip_strerror(archive_.get()));
        }
      }
    }
    if (!entry_) {
      throw SourceError(name_ + ": holds no file whose name ends in " + ending);
    }
  }

  std::string name_;
  std::unique_ptr<zip_t, Close> archive_;
  std::unique_ptr<zip_file_t, Close> entry_;
};

}  // namespace

// A file within comes first, or, in an archive without one, the end of its directory.
bool ByteStream::IsArchive(std::string_view head) {
  return head.starts_with("PK\x03\x04") || head.starts_with("PK\x05\x06");
}

std::unique_ptr<ByteStream> ByteStream::Open(const std::filesystem::path& file,
                                             const std::string& ending) {
  char head[4];
  const size_t length = FileStream(file).Read(head, sizeof head);
  if (IsArchive({head, length})) {
    return std::make_unique<ZipStream>(file, ending);
  }
  return std::make_unique<FileStream>(file);
}

}  // namespace postwright::postal
