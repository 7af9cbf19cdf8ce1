#ifndef POSTWRIGHT_POSTAL_FETCH_FILEPART_H_
#define POSTWRIGHT_POSTAL_FETCH_FILEPART_H_

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "common/HttpFetch.h"

namespace postwright::postal {

// The beginning of a file that is being fetched, and of which version of it that is.
class FilePart {
 public:
  // What an earlier fetch has left at `file`, or nothing.
  explicit FilePart(const std::filesystem::path& file);

  uint64_t Size() const { return size_; }

  // What a request asks for the rest with; nothing where all is wanted.
  std::vector<std::string> Headers() const;

  // Makes room for an answer: at the end for the rest (status 206), or for all of it (200), and
  // keeps what its head says of the version. Returns false for a rest that does not begin where
  // this ends. Throws FetchError where the disk fails, as the others do.
  bool Begin(const HttpHead& head);
  void Append(std::string_view bytes);

  // The size of the whole file, as the last head told it; 0: it did not.
  uint64_t WholeSize() const { return whole_; }

  void Flush();
  void Discard();
  // Gives the part the name of the whole.
  void Keep();

 private:
  void Open(std::ios::openmode mode);
  [[noreturn]] void Fail() const;
  void NoteVersion(const HttpHead& head) const;
  std::string Version() const;

  std::filesystem::path file_;
  std::filesystem::path part_;
  std::filesystem::path version_;
  std::ofstream stream_;
  uint64_t size_ = 0;
  uint64_t whole_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FILEPART_H_
