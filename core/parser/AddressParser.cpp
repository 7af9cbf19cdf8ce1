#include <postwright/AddressParser.h>

#include "core/parser/AddressReader.h"
#include "core/parser/ValuePatterns.h"
#include "core/parser/Vocabulary.h"

#include <postwright/Utils.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace postwright {

namespace {

constexpr size_t kUsualLine = 64;

std::map<std::wstring, std::wstring> ToTable(const std::vector<Vocabulary::VocabularyRow>& rows) {
  std::map<std::wstring, std::wstring> table;
  for (const Vocabulary::VocabularyRow& row : rows) {
    table.emplace(row.written, row.standard);
  }
  return table;
}

std::map<std::wstring, std::wstring> ToTable(const std::vector<Vocabulary::SuffixRow>& rows) {
  std::map<std::wstring, std::wstring> table;
  for (const Vocabulary::SuffixRow& row : rows) {
    for (const wchar_t* written : row.written) {
      table.emplace(written, row.standard);
    }
  }
  return table;
}

// Which field of the record a key stands for; null for a key that no field has.
std::wstring AddressInfo::*FieldFor(std::wstring_view key) {
  constexpr std::pair<std::wstring_view, std::wstring AddressInfo::*> kFields[] = {
      {L"NUMBER", &AddressInfo::number},
      {L"PREDIRECTIONAL", &AddressInfo::predirectional},
      {L"STREET", &AddressInfo::street},
      {L"SUFFIX", &AddressInfo::streetSuffix},
      {L"POSTDIRECTIONAL", &AddressInfo::postdirectional},
      {L"SECONDARYUNIT", &AddressInfo::secondaryUnit},
      {L"SECONDARYNUMBER", &AddressInfo::secondaryNumber},
      {L"STREETLINE", &AddressInfo::streetLine},
      {L"CITY", &AddressInfo::city},
      {L"STATE", &AddressInfo::state},
      {L"ZIP", &AddressInfo::zip},
  };
  const auto* const row =
      std::ranges::find(kFields, key, [](const auto& field) { return field.first; });
  return row == std::end(kFields) ? nullptr : row->second;
}

void CollapseBlanks(std::wstring& text) {
  const auto bothBlank = [](wchar_t left, wchar_t right) { return left == L' ' && right == L' '; };
  text.erase(std::unique(text.begin(), text.end(), bothBlank), text.end());
}

std::wstring ComposeStreetLine(const AddressInfo& info) {
  std::wstring line;
  line.reserve(kUsualLine);
  for (const std::wstring* element :
       {&info.number, &info.predirectional, &info.street, &info.streetSuffix, &info.postdirectional,
        &info.secondaryUnit, &info.secondaryNumber}) {
    line.append(line.empty() ? 0 : 1, L' ').append(*element);
  }
  CollapseBlanks(line);
  return Utils::TrimString(line);
}

}  // namespace

AddressParser* AddressParser::instance_ = nullptr;

AddressParser* AddressParser::GetInstance() {
  if (instance_ == nullptr) {
    instance_ = new AddressParser;
  }
  return instance_;
}

AddressParser::AddressParser()
    : directionMap_(ToTable(Vocabulary::Directions())),
      stateMap_(ToTable(Vocabulary::States())),
      suffixMap_(ToTable(Vocabulary::Suffixes())),
      numberedUnitMap_(ToTable(Vocabulary::NumberedUnits())),
      plainUnitMap_(ToTable(Vocabulary::PlainUnits())),
      groupNames_{L"NUMBER1",
                  L"NUMBER2",
                  L"NUMBER3",
                  L"NUMBER4",
                  L"PREDIRECTIONAL1",
                  L"STREET1",
                  L"STREET2",
                  L"STREET3",
                  L"STREET4",
                  L"SUFFIX1",
                  L"SUFFIX2",
                  L"SUFFIX3",
                  L"POSTDIRECTIONAL1",
                  L"POSTDIRECTIONAL2",
                  L"POSTDIRECTIONAL3",
                  L"SECONDARYUNIT1",
                  L"SECONDARYUNIT2",
                  L"SECONDARYUNIT3",
                  L"SECONDARYNUMBER1",
                  L"SECONDARYNUMBER2",
                  L"STREETLINE",
                  L"CITY",
                  L"STATE",
                  L"ZIP"} {
  unitMap_.insert(numberedUnitMap_.begin(), numberedUnitMap_.end());
  unitMap_.insert(plainUnitMap_.begin(), plainUnitMap_.end());
  InitializeRegex();
  reader_ = std::make_unique<AddressReader>(
      PostalWords(directionMap_, suffixMap_, stateMap_, numberedUnitMap_, plainUnitMap_));
  valuePatterns_ = std::make_unique<ValuePatterns>(unitMap_);
}

AddressParser::~AddressParser() = default;

AddressInfo AddressParser::Parse(const std::wstring& text) {
  info_ = AddressInfo();
  text_ = Utils::ToUpper(Utils::NormalizeAddress(text));
  ParseAddress();
  return info_;
}

void AddressParser::ParseAddress() {
  if (text_.empty()) {
    return;
  }
  if (const std::optional<AddressCaptures> captures = reader_->Read(text_)) {
    TakeCaptures(*captures);
  }
}

void AddressParser::TakeCaptures(const AddressCaptures& captures) {
  const auto text = [this](int begin, int end) {
    return text_.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
  };
  std::map<std::wstring, std::wstring> named;
  for (size_t group = 0; group < groupNames_.size(); ++group) {
    const Span span = captures.groups[group];
    if (span.end > span.begin) {
      named.emplace_hint(named.end(), groupNames_[group], text(span.begin, span.end));
    }
  }
  info_.prefix = text(0, captures.match.begin);
  info_.suffix = text_.substr(static_cast<size_t>(captures.match.end));
  ExtractAddress(std::move(named));
}

void AddressParser::ExtractAddress(std::map<std::wstring, std::wstring> captures) {
  for (auto& [name, value] : captures) {
    valuePatterns_->Clean(value);
    if (value.empty()) {
      continue;
    }
    const std::wstring key = GetNormalizedKey(name);
    if (std::wstring AddressInfo::*const field = FieldFor(key)) {
      info_.*field = GetNormalizedValueForKey(key, value);
    }
  }
  if (!info_.secondaryNumber.empty() && info_.secondaryUnit.empty()) {
    info_.secondaryUnit = L"APT";
  }
  if (info_.streetLine.empty()) {
    info_.streetLine = ComposeStreetLine(info_);
  }
}

// The order decides: a captured "STREETLINE" is a street, so the line of a box or military address
// lands in the street field, and the street line is always composed of the elements.
std::wstring AddressParser::GetNormalizedKey(const std::wstring& name) const {
  constexpr std::array kKeys = {L"NUMBER",          L"PREDIRECTIONAL", L"STREET",         L"SUFFIX",
                                L"POSTDIRECTIONAL", L"SECONDARYUNIT",  L"SECONDARYNUMBER"};
  for (const wchar_t* key : kKeys) {
    if (name.starts_with(key)) {
      return key;
    }
  }
  return name;
}

// A house number keeps its inner blanks (N 12 W 34): only the caller's copy loses them.
std::wstring AddressParser::GetNormalizedValueForKey(const std::wstring& key,
                                                     std::wstring& value) const {
  std::wstring normalized = value;
  const std::wstring_view name = key;
  if (name == L"PREDIRECTIONAL" || name == L"POSTDIRECTIONAL") {
    normalized = GetNormalizedValueByStaticLookup(directionMap_, value);
  } else if (name == L"SUFFIX") {
    normalized = GetNormalizedValueByStaticLookup(suffixMap_, value);
  } else if (name == L"SECONDARYUNIT") {
    normalized = GetNormalizedValueByRegexLookup(unitMap_, value);
  } else if (name == L"STATE") {
    normalized = GetNormalizedValueByStaticLookup(stateMap_, value);
  } else if (name == L"NUMBER" && value.find(L'/') == std::wstring::npos) {
    std::erase(value, L' ');
  }
  return normalized;
}

// The keys of the states are pattern text, so a name of several words is never found: NEW YORK
// stays as it was written, ILLINOIS becomes IL.
std::wstring AddressParser::GetNormalizedValueByStaticLookup(const Table& map,
                                                             const std::wstring& value) const {
  const auto row = map.find(value);
  return row != map.end() ? row->second : value;
}

std::wstring AddressParser::GetNormalizedValueByRegexLookup(const Table& map,
                                                            const std::wstring& value) const {
  const std::wstring* const key = valuePatterns_->UnitIn(value);
  return key != nullptr ? map.at(*key) : value;
}

}  // namespace postwright
