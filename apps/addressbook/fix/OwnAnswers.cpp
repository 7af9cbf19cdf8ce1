#include "apps/addressbook/fix/OwnAnswers.h"

#include "apps/OwnService.h"

namespace postwright::addressbook {

void OwnAnswers::use() {
  std::vector<File> files = filesNow();
  if (_answers && files == _files) {
    SetLocalAnswers(_answers);
    return;
  }
  UseOwnService();
  _answers = GetLocalAnswers();
  _files = std::move(files);
}

// One that cannot be looked at is told of when it is read.
std::vector<OwnAnswers::File> OwnAnswers::filesNow() {
  std::vector<File> files;
  for (const std::filesystem::path& base : FindBases()) {
    std::error_code failure;
    files.emplace_back(base.string(), std::filesystem::last_write_time(base, failure),
                       std::filesystem::file_size(base, failure));
  }
  return files;
}

}  // namespace postwright::addressbook
