#include "tests/apps/ProgramRun.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace postwright {

namespace {

const std::string kPrograms = POSTWRIGHT_PROGRAMS;

}  // namespace

ScratchFolder::ScratchFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "postwright-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no scratch folder can be made: " + name);
  }
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  std::filesystem::remove_all(path_);
}

std::size_t ScratchFolder::CountFiles() const {
  const std::filesystem::directory_iterator files(path_);
  return std::distance(begin(files), end(files));
}

std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

ProgramRun RunCommand(const std::string& command, const std::string& input,
                      const ScratchFolder& folder) {
  const ScratchFolder streams;
  WriteFile(streams.File("command"), command);
  WriteFile(streams.File("in"), input);
  const std::string line = "postwright='" + kPrograms + "/postwright' folder='" + folder.File("") +
                           "' timeout 60 bash '" + streams.File("command") + "' <'" +
                           streams.File("in") + "' >'" + streams.File("out") + "' 2>'" +
                           streams.File("err") + "'";
  const int status = std::system(line.c_str());
  return {WEXITSTATUS(status), ReadFile(streams.File("out")), ReadFile(streams.File("err"))};
}

VerifyDaemon::VerifyDaemon() {
  const std::string log = folder_.File("log");
  process_ = fork();
  if (process_ == 0) {
    const int descriptor = open(log.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(descriptor, STDERR_FILENO);
    const std::string program = kPrograms + "/postwright-verifyd";
    execl(program.c_str(), program.c_str(), "--listen", "127.0.0.1:0", nullptr);
    _exit(127);
  }
  const std::string announcement = "postwright-verifyd: listening on ";
  for (int tries = 0; tries < 1000 && endpoint_.empty(); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const std::string said = ReadFile(log);
    if (said.starts_with(announcement) && said.find('\n') != std::string::npos) {
      endpoint_ = said.substr(announcement.size(), said.find('\n') - announcement.size());
    }
  }
}

VerifyDaemon::~VerifyDaemon() {
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
}

}  // namespace postwright
