#include "postal/base/BaseFile.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>

#include "common/SmallText.h"
#include "postal/base/BaseSchema.h"
#include "postal/places/ZipList.h"

namespace postwright::postal::BaseFile {
namespace {

// The beginning of the file; SQLite documents it at https://www.sqlite.org/fileformat.html.
constexpr size_t kHeader = 100;
constexpr size_t kVersionOffset = 60;
constexpr size_t kApplicationOffset = 68;

// nullopt, with errno, where the file cannot be opened.
std::optional<std::string> ReadHeader(const std::filesystem::path& file) {
  std::string header(kHeader, '\0');
  std::ifstream input(file, std::ios::binary);
  if (!input) {
    return std::nullopt;
  }
  input.read(header.data(), kHeader);
  header.resize(static_cast<size_t>(input.gcount()));
  return header;
}

int64_t NumberAt(const std::string& header, size_t offset) {
  uint32_t number = 0;
  for (size_t i = 0; i < sizeof number; ++i) {
    number = number << 8U | static_cast<unsigned char>(header[offset + i]);
  }
  return number;
}

}  // namespace

bool IsMeant(const std::filesystem::path& file) {
  return EqualsIgnoringCase(file.extension().string(), ".base") ||
         ReadHeader(file).value_or("").starts_with(BaseSchema::kMagic);
}

void Check(const std::filesystem::path& file) {
  const std::optional<std::string> read = ReadHeader(file);
  if (!read) {
    throw ZipListError(file.string() + ": cannot be read: " + std::strerror(errno));
  }
  const std::string& header = *read;
  if (header.size() < kHeader || !header.starts_with(BaseSchema::kMagic) ||
      NumberAt(header, kApplicationOffset) != BaseSchema::kApplicationId) {
    throw ZipListError(file.string() +
                       ": is not an address base; 'postwright-base import' makes one");
  }
  const int64_t version = NumberAt(header, kVersionOffset);
  if (version != BaseSchema::kVersion) {
    throw ZipListError(file.string() + ": is of version " + std::to_string(version) +
                       ", this program reads " + std::to_string(BaseSchema::kVersion) +
                       "; import its sources again");
  }
}

}  // namespace postwright::postal::BaseFile
