#include "postal/import/CsvRows.h"

#include <algorithm>
#include <new>

#include "common/Encoding.h"

namespace postwright::postal {
namespace {

constexpr std::string_view kMarks[] = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
constexpr size_t kUtf16Mark = 2;

// The states of libcsv's parser that are needed here; its header does not name them.
constexpr int kRowNotBegun = 0;
constexpr int kFieldBegun = 2;

}  // namespace

CsvRows::CsvRows(const SourceFile& file) : bytes_(file) {
  if (csv_init(&parser_, CSV_APPEND_NULL) != 0) {
    throw std::bad_alloc();
  }
  ReadMark();
  csv_set_delim(&parser_, static_cast<unsigned char>(GuessDelimiter()));
}

CsvRows::~CsvRows() {
  csv_free(&parser_);
}

void CsvRows::ReadMark() {
  std::string begin;
  for (int byte = 0;
       begin.size() < kMarks[0].size() && (byte = bytes_.Get()) != ByteReader::kEnd;) {
    begin += static_cast<char>(byte);
  }
  for (const std::string_view mark : kMarks) {
    if (begin.starts_with(mark)) {
      mark_ = mark;
      isUtf16_ = mark.size() == kUtf16Mark;
    }
  }
}

char CsvRows::GuessDelimiter() {
  constexpr std::string_view kDelimiters = ",\t|;";
  const RowPlace begin = {static_cast<int64_t>(mark_.size()), 1};
  GoTo(begin);
  ReadLine();
  const char best = *std::max_element(kDelimiters.begin(), kDelimiters.end(), [&](char a, char b) {
    return std::count(text_.begin(), text_.end(), a) < std::count(text_.begin(), text_.end(), b);
  });
  GoTo(begin);
  return best;
}

bool CsvRows::Next() {
  const RowPlace begin = Place();
  bool hasPassed = false;
  bool isRead = ReadRow(&hasPassed);
  if (hasPassed) {  // it is closed after what was passed over: that is part of it
    GoTo(begin);
    isRead = ReadRow(nullptr);
  }
  return isRead;
}

bool CsvRows::ReadRow(bool* hasPassed) {
  cellCount_ = 0;
  rowDone_ = false;
  while (!rowDone_) {
    const RowPlace line = Place();
    const bool isFirst = IsBetweenRows();
    rowBegin_ = isFirst ? line : rowBegin_;
    if (!ReadLine()) {
      if (IsWithinQuotes()) {
        GiveUpRow(line);
      }
      csv_fini(&parser_, OnCell, OnRow, this);
      break;
    }
    behindFirstLine_ = isFirst ? Place() : behindFirstLine_;
    if (static_cast<size_t>(position_ - rowBegin_.position) > kLongestRow) {
      GiveUpRow(line);
    }
    Feed();
    if (hasPassed != nullptr && isFirst && IsWithinQuotes()) {
      *hasPassed = PassOpenLines();
    }
  }
  return rowDone_;
}

// Where a row was given up that is open at the end of each of its lines, one that begins among them
// and is open at the end of its first line is so, too, as far as that one was read: without this,
// many open quotation marks would be read again for each.
bool CsvRows::PassOpenLines() {
  if (position_ < openFrom_ || position_ >= openUntil_.position) {
    return false;
  }
  if (isOpenForGood_) {
    RefuseRow("a quotation mark is not closed");
  }
  Seek(openUntil_);
  return true;
}

int CsvRows::ReadUnit() {
  const int first = bytes_.Get();
  if (!isUtf16_ || first == ByteReader::kEnd) {
    return first;
  }
  const int second = bytes_.Get();
  const bool isBigEndian = mark_ == kMarks[2];
  return second == ByteReader::kEnd ? second
         : isBigEndian              ? first << 8 | second
                                    : second << 8 | first;
}

int CsvRows::TakeUnit() {
  const int unit = ahead_;
  if (unit != ByteReader::kEnd) {
    position_ += isUtf16_ ? 2 : 1;
    ahead_ = ReadUnit();
  }
  return unit;
}

// Reads one line with its end; of an overlong one no more than shows that it is.
bool CsvRows::ReadLine() {
  text_.clear();
  for (int c = 0;
       c != '\n' && (c != '\r' || ahead_ == '\n') && (c = TakeUnit()) != ByteReader::kEnd;) {
    if (text_.size() > kLongestRow) {
      continue;
    }
    if (isUtf16_) {
      text_ += static_cast<char>(c >> 8);
    }
    text_ += static_cast<char>(c);
  }
  if (isUtf16_ && !text_.empty()) {
    text_ = DecodeDocument("\xFE\xFF" + text_);
  }
  ++line_;
  return !text_.empty();
}

void CsvRows::Feed() {
  if (csv_parse(&parser_, text_.data(), text_.size(), OnCell, OnRow, this) != text_.size()) {
    throw std::bad_alloc();
  }
}

bool CsvRows::IsBetweenRows() const {
  return parser_.pstate == kRowNotBegun;
}

bool CsvRows::IsWithinQuotes() const {
  return parser_.pstate == kFieldBegun && parser_.quoted != 0;
}

void CsvRows::Restart() {
  const unsigned char delimiter = csv_get_delim(&parser_);
  csv_free(&parser_);
  if (csv_init(&parser_, CSV_APPEND_NULL) != 0) {
    throw std::bad_alloc();
  }
  csv_set_delim(&parser_, delimiter);
}

// `line` is where its last line begins.
void CsvRows::GiveUpRow(const RowPlace& line) {
  if (IsBetweenRows()) {
    RefuseRow("is longer than 64 KiB");
  }
  openFrom_ = behindFirstLine_.position;
  openUntil_ = line;
  isOpenForGood_ = text_.size() > kLongestRow;
  RefuseRow("a quotation mark is not closed");
}

// Only the first line of such a row is given up: the others may be rows of their own.
void CsvRows::RefuseRow(const char* why) {
  GoTo(behindFirstLine_);
  throw RowError(why);
}

void CsvRows::GoTo(const RowPlace& place) {
  Restart();
  Seek(place);
}

void CsvRows::Seek(const RowPlace& place) {
  bytes_.GoTo(place.position);
  ahead_ = ReadUnit();
  position_ = place.position;
  line_ = place.line;
}

void CsvRows::OnCell(void* text, size_t length, void* self) {
  auto& rows = *static_cast<CsvRows*>(self);
  if (rows.cellCount_ == rows.cells_.size()) {
    rows.cells_.emplace_back();
  }
  rows.cells_[rows.cellCount_++].assign(static_cast<const char*>(text), length);
}

void CsvRows::OnRow(int, void* self) {
  static_cast<CsvRows*>(self)->rowDone_ = true;
}

}  // namespace postwright::postal
