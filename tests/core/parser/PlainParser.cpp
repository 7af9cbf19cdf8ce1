#include "tests/core/parser/PlainParser.h"

#include "core/parser/AddressGrammar.h"
#include "core/parser/Vocabulary.h"

#include <postwright/Utils.h>

#include <map>

namespace postwright {

using boost::xpressive::wsmatch;
using boost::xpressive::wsregex;

namespace {

using Table = std::map<std::wstring, std::wstring>;

const Table& Words(const std::vector<Vocabulary::VocabularyRow>& rows) {
  static std::map<const void*, Table> tables;
  Table& table = tables[&rows];
  if (table.empty()) {
    for (const auto& row : rows) {
      table.emplace(row.written, row.standard);
    }
  }
  return table;
}

const Table& Suffixes() {
  static const Table table = [] {
    Table rows;
    for (const auto& row : Vocabulary::Suffixes()) {
      for (const wchar_t* written : row.written) {
        rows.emplace(written, row.standard);
      }
    }
    return rows;
  }();
  return table;
}

std::wstring Lookup(const Table& table, const std::wstring& value) {
  return table.count(value) != 0 ? table.at(value) : value;
}

std::wstring LookupUnit(const std::wstring& value) {
  static const Table units = [] {
    Table all = Words(Vocabulary::NumberedUnits());
    all.insert(Words(Vocabulary::PlainUnits()).begin(), Words(Vocabulary::PlainUnits()).end());
    return all;
  }();
  for (const auto& [key, standard] : units) {
    if (boost::xpressive::regex_search(value, wsregex::compile(key))) {
      return standard;
    }
  }
  return value;
}

void Store(const std::wstring& name, std::wstring value, AddressInfo& info) {
  const auto begins = [&name](const wchar_t* key) { return name.starts_with(key); };
  value = boost::xpressive::regex_replace(value, wsregex::compile(LR"(^\s+|\s+$|[^\/\w\s\-\#\&])"),
                                          L"");
  if (value.empty()) {
    return;
  }
  if (begins(L"NUMBER")) {
    info.number = value;
  } else if (begins(L"PREDIRECTIONAL")) {
    info.predirectional = Lookup(Words(Vocabulary::Directions()), value);
  } else if (begins(L"STREET")) {
    info.street = value;
  } else if (begins(L"SUFFIX")) {
    info.streetSuffix = Lookup(Suffixes(), value);
  } else if (begins(L"POSTDIRECTIONAL")) {
    info.postdirectional = Lookup(Words(Vocabulary::Directions()), value);
  } else if (begins(L"SECONDARYUNIT")) {
    info.secondaryUnit = LookupUnit(value);
  } else if (begins(L"SECONDARYNUMBER")) {
    info.secondaryNumber = value;
  } else if (begins(L"CITY")) {
    info.city = value;
  } else if (begins(L"STATE")) {
    info.state = Lookup(Words(Vocabulary::States()), value);
  } else {
    info.zip = value;
  }
}

void Extract(const wsmatch& match, AddressInfo& info) {
  info.prefix = match.prefix().str();
  info.suffix = match.suffix().str();
  for (const wchar_t* name : {L"CITY",
                              L"NUMBER1",
                              L"NUMBER2",
                              L"NUMBER3",
                              L"NUMBER4",
                              L"POSTDIRECTIONAL1",
                              L"POSTDIRECTIONAL2",
                              L"POSTDIRECTIONAL3",
                              L"PREDIRECTIONAL1",
                              L"SECONDARYNUMBER1",
                              L"SECONDARYNUMBER2",
                              L"SECONDARYUNIT1",
                              L"SECONDARYUNIT2",
                              L"SECONDARYUNIT3",
                              L"STATE",
                              L"STREET1",
                              L"STREET2",
                              L"STREET3",
                              L"STREET4",
                              L"STREETLINE",
                              L"SUFFIX1",
                              L"SUFFIX2",
                              L"SUFFIX3",
                              L"ZIP"}) {
    try {
      Store(name, match[name].str(), info);
    } catch (const boost::xpressive::regex_error&) {
      // this pattern has no such group
    }
  }
  if (!info.secondaryNumber.empty() && info.secondaryUnit.empty()) {
    info.secondaryUnit = L"APT";
  }
  const std::wstring line =
      Utils::JoinStrings({info.number, info.predirectional, info.street, info.streetSuffix,
                          info.postdirectional, info.secondaryUnit, info.secondaryNumber},
                         L" ", false);
  info.streetLine =
      Utils::TrimString(boost::xpressive::regex_replace(line, wsregex::compile(L"\\ +"), L" "));
}

}  // namespace

AddressInfo ParsePlainly(const std::wstring& text) {
  AddressInfo info;
  const std::wstring upper = Utils::ToUpper(Utils::NormalizeAddress(text));
  for (const wsregex* pattern : {&gMilitaryAddressRegex, &gPoBoxAddressRegex, &gAddressRegex}) {
    wsmatch match;
    if (!upper.empty() && boost::xpressive::regex_search(upper, match, *pattern)) {
      Extract(match, info);
      break;
    }
  }
  return info;
}

}  // namespace postwright
