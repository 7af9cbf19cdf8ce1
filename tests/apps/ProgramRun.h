#ifndef POSTWRIGHT_TESTS_APPS_PROGRAMRUN_H_
#define POSTWRIGHT_TESTS_APPS_PROGRAMRUN_H_

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace postwright {

// A folder that is removed with its object, files and all.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  std::string File(const std::string& name) const { return (path_ / name).string(); }
  std::size_t CountFiles() const;

 private:
  std::filesystem::path path_;
};

struct ProgramRun {
  int status = -1;
  std::string output;
  std::string errors;
};

// Runs `command` in bash, in which $postwright is the program under test and $folder a scratch
// folder, with `input` as its standard input.
ProgramRun RunCommand(const std::string& command, const std::string& input,
                      const ScratchFolder& folder);

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& text);

// The local Verify service, for as long as the object lives.
class VerifyDaemon {
 public:
  VerifyDaemon();
  ~VerifyDaemon();
  const std::string& Endpoint() const { return endpoint_; }
  pid_t Process() const { return process_; }

 private:
  ScratchFolder folder_;
  pid_t process_ = -1;
  std::string endpoint_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_APPS_PROGRAMRUN_H_
