#include "postal/fetch/FilePart.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <system_error>

#include "common/FileDescriptor.h"
#include "postal/fetch/FetchError.h"

namespace postwright::postal {
namespace {

uint64_t NumberIn(std::string_view text) {
  uint64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// What tells a version of a file, if it does so to the byte: a weak tag does not (RFC 9110, section
// 8.8.1). A date that is young may be that of two versions; the check of the whole file finds that.
std::string VersionOf(const HttpHead& head) {
  const std::string_view tag = head.Find("ETag");
  return std::string(!tag.empty() && !tag.starts_with("W/") ? tag : head.Find("Last-Modified"));
}

}  // namespace

FilePart::FilePart(const std::filesystem::path& file)
    : file_(file), part_(file.string() + ".part"), version_(file.string() + ".part-of") {
  std::error_code none;
  const auto size = std::filesystem::file_size(part_, none);
  size_ = none || Version().empty() ? 0 : size;
}

std::string FilePart::Version() const {
  std::ifstream input(version_);
  std::string version;
  std::getline(input, version);
  return version;
}

std::vector<std::string> FilePart::Headers() const {
  if (size_ == 0) {
    return {};
  }
  return {"Range: bytes=" + std::to_string(size_) + "-", "If-Range: " + Version()};
}

// The version of nothing comes first and that of the bytes last, so that a killed process leaves no
// bytes of one version under the name of another.
bool FilePart::Begin(const HttpHead& head) {
  if (head.status == 206) {
    const std::string_view range = head.Find("Content-Range");
    constexpr std::string_view kUnit = "bytes ";
    if (!range.starts_with(kUnit) || NumberIn(range.substr(kUnit.size())) != size_) {
      return false;
    }
    whole_ = NumberIn(range.substr(std::min(range.find('/'), range.size() - 1) + 1));
    Open(std::ios::app);
    return true;
  }
  whole_ = NumberIn(head.Find("Content-Length"));
  size_ = 0;
  std::filesystem::remove(version_);
  Open(std::ios::trunc);
  NoteVersion(head);
  return true;
}

void FilePart::NoteVersion(const HttpHead& head) const {
  const std::string version = VersionOf(head);
  if (!version.empty() && !(std::ofstream(version_) << version << '\n').flush()) {
    Fail();
  }
}

void FilePart::Open(std::ios::openmode mode) {
  stream_.close();
  stream_.clear();
  stream_.rdbuf()->pubsetbuf(nullptr, 0);  // what came is there, whatever ends the process
  stream_.open(part_, std::ios::binary | std::ios::out | mode);
  if (!stream_) {
    Fail();
  }
}

void FilePart::Append(std::string_view bytes) {
  if (!stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
    Fail();
  }
  size_ += bytes.size();
}

void FilePart::Flush() {
  if (stream_.is_open() && !stream_.flush()) {
    Fail();
  }
}

void FilePart::Fail() const {
  throw FetchError(part_.string() + ": cannot be written: " + std::strerror(errno) +
                   ". What was fetched is kept: the same command goes on");
}

void FilePart::Discard() {
  stream_.close();
  std::filesystem::remove(version_);
  std::filesystem::remove(part_);
  size_ = 0;
}

void FilePart::Keep() {
  stream_.close();
  const FileDescriptor opened(open(part_.c_str(), O_RDONLY | O_CLOEXEC));
  if (opened < 0 || fsync(opened) != 0) {
    Fail();
  }
  std::filesystem::remove(version_);
  std::filesystem::rename(part_, file_);
}

}  // namespace postwright::postal
