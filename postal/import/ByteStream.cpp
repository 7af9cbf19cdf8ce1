#include "postal/import/ByteStream.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "postal/import/GzipStream.h"
#include "postal/import/RowSource.h"
#include "postal/import/ZipArchive.h"

namespace postwright::postal {
namespace {

class FileStream : public ByteStream {
 public:
  explicit FileStream(const SourceFile& file) : name_(file.Name()), size_(file.size) {
    errno = 0;
    if (std::filesystem::exists(file.path) && !std::filesystem::is_regular_file(file.path)) {
      throw SourceError(name_ + ": is not a plain file");
    }
    file_.rdbuf()->pubsetbuf(nullptr, 0);  // who reads takes large pieces
    file_.open(file.path, std::ios::binary);
    if (!file_) {
      throw SourceError(name_ + ": cannot be read: " + std::strerror(errno));
    }
  }

  size_t Read(char* bytes, size_t size) override {
    file_.read(bytes, static_cast<std::streamsize>(size));
    if (file_.bad()) {
      throw SourceError(name_ + ": cannot be read to its end: " + std::strerror(errno));
    }
    const auto count = static_cast<size_t>(file_.gcount());
    position_ += static_cast<double>(count);
    return count;
  }

  double Share() const override { return position_ / std::max(size_, 1.0); }

  bool Seek(int64_t position) override {
    file_.clear();
    file_.seekg(position);
    position_ = static_cast<double>(position);
    return static_cast<bool>(file_);
  }

 private:
  std::string name_;
  double size_;
  std::ifstream file_;
  double position_ = 0;
};

std::unique_ptr<ByteStream> OpenAsItIs(const SourceFile& file) {
  if (file.member.empty()) {
    return std::make_unique<FileStream>(file);
  }
  return ZipArchive(file.path).Open(file.member);
}

}  // namespace

std::unique_ptr<ByteStream> ByteStream::Open(const SourceFile& file) {
  char head[2];
  std::unique_ptr<ByteStream> stream = OpenAsItIs(file);
  const size_t length = stream->Read(head, sizeof head);
  if (!stream->Seek(0)) {
    stream = OpenAsItIs(file);
  }
  if (GzipStream::IsLikely({head, length})) {
    return std::make_unique<GzipStream>(std::move(stream), file.Name());
  }
  return stream;
}

}  // namespace postwright::postal
