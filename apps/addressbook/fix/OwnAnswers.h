#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_OWNANSWERS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_OWNANSWERS_H_

#include <postwright/LocalAnswers.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

namespace postwright::addressbook {

// The program's own answers (OwnService). The bases are read when they are first asked, and again
// where they have changed since: a large one takes seconds.
class OwnAnswers {
 public:
  // Has the fixes of this process answered so. As UseOwnService().
  void use();

 private:
  using File = std::tuple<std::string, std::filesystem::file_time_type, std::uintmax_t>;

  static std::vector<File> filesNow();

  std::vector<File> _files;  // that were read last
  LocalAnswers _answers;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_OWNANSWERS_H_
