#include "postal/import/ZipArchive.h"

#include <zip.h>

#include <algorithm>

#include "postal/import/RowSource.h"

namespace postwright::postal {
namespace {

class MemberStream : public ByteStream {
 public:
  MemberStream(std::shared_ptr<zip_t> archive, std::string name, const std::string& member)
      : archive_(std::move(archive)), name_(std::move(name)) {
    zip_stat_t stat;
    entry_.reset(zip_fopen(archive_.get(), member.c_str(), 0));
    if (!entry_ || zip_stat(archive_.get(), member.c_str(), 0, &stat) != 0) {
      throw SourceError(name_ + "/" + member + ": cannot be read: " + zip_strerror(archive_.get()));
    }
    size_ = static_cast<double>(stat.size);
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
    read_ += static_cast<double>(done);
    return done;
  }

  double Share() const override { return read_ / std::max(size_, 1.0); }

 private:
  struct Close {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
  };

  std::shared_ptr<zip_t> archive_;
  std::string name_;
  std::unique_ptr<zip_file_t, Close> entry_;
  double size_ = 0;
  double read_ = 0;
};

}  // namespace

// A file within comes first, or, in an archive without one, the end of its directory.
bool ZipArchive::IsLikely(std::string_view head) {
  return head.starts_with("PK\x03\x04") || head.starts_with("PK\x05\x06");
}

ZipArchive::ZipArchive(const std::filesystem::path& file) : name_(file.string()) {
  int error = 0;
  archive_.reset(zip_open(file.c_str(), ZIP_RDONLY, &error), [](zip_t* archive) {
    if (archive != nullptr) {
      zip_discard(archive);
    }
  });
  if (!archive_) {
    zip_error_t reason;
    zip_error_init_with_code(&reason, error);
    const std::string text = zip_error_strerror(&reason);
    zip_error_fini(&reason);
    throw SourceError(name_ + ": is not a zip archive that can be read: " + text);
  }
  const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    zip_stat_t stat;
    if (zip_stat_index(archive_.get(), static_cast<zip_uint64_t>(i), 0, &stat) == 0 &&
        (stat.valid & ZIP_STAT_NAME) != 0) {
      members_.push_back({stat.name, (stat.valid & ZIP_STAT_SIZE) != 0 ? stat.size : 0});
    }
  }
}

std::unique_ptr<ByteStream> ZipArchive::Open(const std::string& member) const {
  return std::make_unique<MemberStream>(archive_, name_, member);
}

}  // namespace postwright::postal
