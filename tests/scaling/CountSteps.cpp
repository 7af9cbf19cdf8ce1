// Has every reader read each of its shapes in two sizes, 1 and 4, while callgrind counts the steps:
// check-scaling.sh compares them. Without callgrind it only reads.
//
//   count-steps [READER...]

#include <valgrind/callgrind.h>

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <locale>

#include "tests/scaling/Readers.h"
#include "tests/scaling/Shapes.h"

namespace {

using namespace postwright::scaling;

void Read(const Reader& reader, const std::string& text, const std::string& other) {
  try {
    reader.read(text, other);
  } catch (const std::exception&) {
    // A refused text counts as read.
  }
}

void Count(const Reader& reader, const Shape& shape) {
  constexpr std::size_t kWarm = 16;
  for (const std::size_t size : {reader.size / kWarm, reader.size, 4 * reader.size}) {
    const std::string text = TextOf(shape, size);
    const std::string other = OtherOf(shape, size);
    CALLGRIND_TOGGLE_COLLECT;
    Read(reader, text, other);
    CALLGRIND_TOGGLE_COLLECT;
    const std::string name =
        std::string(reader.name) + '\t' + std::string(shape.name) + '\t' + std::to_string(size);
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    std::printf("%s\n", name.c_str());
  }
}

bool IsNamed(const Reader& reader, char** begin, char** end) {
  return std::find(begin, end, reader.name) != end;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  for (const Reader& reader : Readers()) {
    for (const Shape& shape : Shapes()) {
      if (shape.reader == reader.name && (argc < 2 || IsNamed(reader, argv + 1, argv + argc))) {
        Count(reader, shape);
      }
    }
  }
  return 0;
}
