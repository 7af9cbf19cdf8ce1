#include <gtest/gtest.h>

#include <fstream>

#include "postal/import/SourceFormats.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

constexpr size_t kLength = 182;

std::string ZipPlus4() {
  std::ifstream file(POSTWRIGHT_SOURCE_DIR "/data/sample/licensed/zip4.txt", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string WithBreaks(const std::string& records, const std::string& lineBreak) {
  std::string text;
  for (size_t at = 0; at < records.size(); at += kLength) {
    text += records.substr(at, kLength) + lineBreak;
  }
  return text;
}

std::string With(std::string records, size_t record, size_t at, const std::string& bytes) {
  return records.replace(record * kLength + at, bytes.size(), bytes);
}

// What each row is about, or why it is not taken.
std::string RowsOf(const std::string& file) {
  const auto source = OpenSource({file}, std::nullopt);
  std::string text = source->Format() + ":";
  AddressRow row;
  for (bool goesOn = true; goesOn;) {
    try {
      goesOn = source->Next(row);
      text += goesOn ? " " + row[Field::Low] + "-" + row[Field::High] : "";
    } catch (const RowError& error) {
      text += " [" + std::string(error.what()).substr(0, 8) + "]";
    }
  }
  return text;
}

TEST(LicensedFilesTest, ReadsRecordsAsTheyAreCopied) {
  const std::string records = ZipPlus4();
  const TempFolder folder;
  const std::string all = RowsOf(folder.Write("all", records));
  const std::string begin = "USPS ZIP+4: 100-198 101-199 1-99 150-150";
  EXPECT_TRUE(all.starts_with(begin)) << all;
  const struct {
    const char* name;
    std::string text;
    std::string rows;  // or their beginning
  } files[] = {
      {"a line break after each", WithBreaks(records, "\n"), all},
      {"two bytes of one", WithBreaks(records, "\r\n"), all},
      {"the end that DOS gives a text", records + '\x1A', all},
      {"no copyright", records.substr(kLength), all},
      {"cut short", records.substr(0, 2 * kLength + 90), "USPS ZIP+4: 100-198 [is cut s]"},
      {"another kind", With(records, 1, 17, "X"), "USPS ZIP+4: [is of a ] 101-199"},
      {"another action", With(records, 1, 16, "Q"), "USPS ZIP+4: [neither ] 101-199"},
      {"no number", With(records, 1, 58, std::string(20, ' ')), "USPS ZIP+4: - 101-199"},
      {"all zeros", With(records, 1, 58, std::string(20, '0')), "USPS ZIP+4: 0-0 101-199"},
      {"hyphens", With(records, 1, 58, "0000112-100000112-98"), "USPS ZIP+4: 112-10-112-98"},
  };
  for (const auto& file : files) {
    SCOPED_TRACE(file.name);
    const std::string rows = RowsOf(folder.Write("file", file.text));
    EXPECT_EQ(rows.substr(0, file.rows.size()), file.rows);
  }
}

}  // namespace
}  // namespace postwright::postal
