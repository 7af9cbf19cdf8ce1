#include "postal/import/FixedRecords.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "common/SmallText.h"
#include "postal/import/RowSource.h"

namespace postwright::postal {
namespace {

constexpr size_t kMostLineBreak = 2;  // bytes
constexpr size_t kZipLength = 5;

bool IsRecord(std::string_view record, std::string_view kinds) {
  return record[0] == 'C' ? record.find("COPYRIGHT") != std::string_view::npos
                          : kinds.find(record[0]) != std::string_view::npos &&
                                AllDigits(record.substr(1, kZipLength));
}

// How many bytes of line break follow the first record.
size_t LineBreakOf(std::string_view head, size_t length) {
  size_t bytes = 0;
  while (bytes < kMostLineBreak && length + bytes < head.size() &&
         (head[length + bytes] == '\r' || head[length + bytes] == '\n')) {
    ++bytes;
  }
  return bytes;
}

}  // namespace

bool FixedRecords::IsLikely(std::string_view head, size_t length, std::string_view kinds) {
  const size_t step = length + LineBreakOf(head, length);
  size_t records = 0;
  for (; head.size() >= length; head.remove_prefix(std::min(step, head.size())), ++records) {
    if (!IsRecord(head.substr(0, length), kinds)) {
      return false;
    }
  }
  return records > 0;
}

FixedRecords::FixedRecords(const SourceFile& file, size_t length) : length_(length), bytes_(file) {
  Fill(length + kMostLineBreak);
  step_ = length + LineBreakOf(record_, length);
  GoTo(0);
}

void FixedRecords::Fill(size_t size) {
  record_.clear();
  for (int byte = 0; record_.size() < size && (byte = bytes_.Get()) != ByteReader::kEnd;) {
    record_ += static_cast<char>(byte);
  }
}

bool FixedRecords::Next() {
  Fill(step_);
  if (record_.empty() || record_ == "\x1A") {  // DOS ends a text so
    return false;
  }
  ++read_;
  if (record_.size() < length_) {
    throw RowError("is cut short");
  }
  return true;
}

std::string_view FixedRecords::Field(size_t from, size_t width) const {
  return Trim(std::string_view(record_).substr(from, width));
}

// A zero that belongs to the number has a hyphen in front.
std::string FixedRecords::NumberField(size_t from, size_t width) const {
  std::string_view field = Field(from, width);
  while (field.size() > 1 && field[0] == '0' && IsAlnum(field[1])) {
    field.remove_prefix(1);
  }
  return std::string(field);
}

std::string FixedRecords::StreetField(size_t from) const {
  constexpr size_t kWidths[] = {2, 28, 4, 2};  // predirectional, name, suffix, postdirectional
  std::string street;
  for (const size_t width : kWidths) {
    const std::string_view element = Field(from, width);
    street += street.empty() || element.empty() ? "" : " ";
    street += element;
    from += width;
  }
  return street;
}

void FixedRecords::GoTo(int64_t records) {
  bytes_.GoTo(records * static_cast<int64_t>(step_));
  read_ = records;
}

}  // namespace postwright::postal
