#include "bench/FigureBefore.h"

#include <array>
#include <cstdio>
#include <memory>

namespace postwright {

std::string FigureBefore(const std::string& text) {
  const std::string command = "'" POSTWRIGHT_FIGURE_BEFORE "' '" + text + "'";
  const std::unique_ptr<FILE, int (*)(FILE*)> answer(popen(command.c_str(), "r"), &pclose);
  std::array<char, 100> line{};
  if (answer == nullptr || fgets(line.data(), line.size(), answer.get()) == nullptr) {
    return {};
  }
  const std::string figure = line.data();
  return figure.substr(0, figure.find('\n'));
}

}  // namespace postwright
