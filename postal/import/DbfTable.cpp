#include "postal/import/DbfTable.h"

#include <algorithm>

#include "common/SmallText.h"
#include "postal/import/RowSource.h"

namespace postwright::postal {
namespace {

// The heading of dBASE III: 32 bytes, then 32 for each field, then a carriage return.
constexpr size_t kHeading = 32;
constexpr size_t kDescription = 32;
constexpr size_t kFieldName = 11;
constexpr size_t kFieldLengthOffset = 16;
constexpr size_t kRecordsOffset = 4;
constexpr size_t kHeadingLengthOffset = 8;
constexpr size_t kRecordLengthOffset = 10;
constexpr char kEndOfFields = '\r';
constexpr char kDeleted = '*';
constexpr char kEndOfTable = '\x1A';

// A number of `size` bytes, the lowest first.
uint32_t NumberAt(std::string_view bytes, size_t offset, size_t size) {
  uint32_t number = 0;
  for (size_t i = size; i > 0; --i) {
    number = number << 8U | static_cast<unsigned char>(bytes[offset + i - 1]);
  }
  return number;
}

}  // namespace

// The first byte is the version; that of some is a digit, but no text has a zero byte so early.
bool DbfTable::IsLikely(std::string_view head) {
  constexpr std::string_view kVersions = "\x03\x30\x31\x32\x83\x8B\xF5";
  return head.size() > kHeading && kVersions.find(head[0]) != std::string_view::npos &&
         head.substr(0, kHeading).find('\0') != std::string_view::npos;
}

DbfTable::DbfTable(std::unique_ptr<ByteStream> stream, std::string name)
    : stream_(std::move(stream)), name_(std::move(name)) {
  std::string heading(kHeading, '\0');
  if (stream_->Read(heading.data(), kHeading) < kHeading) {
    Refuse("is not a dBASE table");
  }
  records_ = NumberAt(heading, kRecordsOffset, 4);
  const size_t length = NumberAt(heading, kHeadingLengthOffset, 2);
  const size_t recordLength = NumberAt(heading, kRecordLengthOffset, 2);
  if (length <= kHeading + kDescription) {
    Refuse("is not a dBASE table");
  }
  std::string descriptions(length - kHeading, '\0');
  if (stream_->Read(descriptions.data(), descriptions.size()) < descriptions.size()) {
    Refuse("ends within its heading");
  }
  ReadFields(descriptions);
  if (fields_.empty() || fields_.back().offset + fields_.back().length != recordLength) {
    Refuse("is not a dBASE table: its fields do not make up its records");
  }
  record_.resize(recordLength);
}

void DbfTable::ReadFields(std::string_view descriptions) {
  size_t offset = 1;  // after the mark of a deleted record
  for (; descriptions.size() > kDescription && descriptions[0] != kEndOfFields;
       descriptions.remove_prefix(kDescription)) {
    const std::string_view name = descriptions.substr(0, kFieldName);
    const size_t length = static_cast<unsigned char>(descriptions[kFieldLengthOffset]);
    fields_.push_back({std::string(name.substr(0, name.find('\0'))), offset, length});
    offset += length;
  }
}

std::optional<size_t> DbfTable::FindField(std::string_view name) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&](const FieldPlace& field) { return field.name == name; });
  return found == fields_.end() ? std::nullopt
                                : std::optional(static_cast<size_t>(found - fields_.begin()));
}

bool DbfTable::Next() {
  while (read_ < records_) {
    const size_t count = stream_->Read(record_.data(), record_.size());
    if (count > 0 && record_[0] == kEndOfTable) {
      break;
    }
    if (count < record_.size()) {
      Refuse("ends within record " + std::to_string(read_ + 1) + " of " + std::to_string(records_));
    }
    ++read_;
    if (record_[0] != kDeleted) {
      return true;
    }
  }
  return false;
}

std::string_view DbfTable::Field(size_t index) const {
  constexpr std::string_view kBlanks(" \0", 2);
  return Trim(std::string_view(record_).substr(fields_[index].offset, fields_[index].length),
              kBlanks);
}

void DbfTable::Refuse(const std::string& why) const {
  throw SourceError(name_ + ": " + why);
}

}  // namespace postwright::postal
