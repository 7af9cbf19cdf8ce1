#ifndef POSTWRIGHT_TESTS_SUPPORT_TEMPFOLDER_H_
#define POSTWRIGHT_TESTS_SUPPORT_TEMPFOLDER_H_

#include <sys/types.h>

#include <string>

namespace postwright {

// A new folder that is removed, with everything in it, when the object goes out of scope.
//
//   const TempFolder folder;
//   AnswerCache cache(folder.File("answers.sqlite"), …);
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // Returns the path of a file in it, which need not exist.
  std::string File(const std::string& name) const { return path_ + '/' + name; }

  // Writes that file and returns its path.
  std::string Write(const std::string& name, const std::string& content, mode_t mode = 0600) const;

 private:
  std::string path_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_TEMPFOLDER_H_
