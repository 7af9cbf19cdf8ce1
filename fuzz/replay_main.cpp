// Replaces the fuzzing engine: runs a fuzzer once on each file of the named folders and files, so
// that what was once found stays fixed and every fuzzer stays in the build.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

int Replay(const fs::path& path) {
  if (fs::is_directory(path)) {
    int count = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
      count += Replay(entry.path());
    }
    return count;
  }
  std::fprintf(stderr, "%s\n", path.c_str());  // the last line names the file of a crash
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), {});
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    count += Replay(argv[i]);
  }
  if (count == 0) {
    std::fprintf(stderr, "usage: %s FILE_OR_FOLDER...; no input was found\n", argv[0]);
    return 1;
  }
  return 0;
}
