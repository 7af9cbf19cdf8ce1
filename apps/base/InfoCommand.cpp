#include "apps/base/InfoCommand.h"

#include <iomanip>
#include <iostream>

#include "apps/base/BaseExit.h"
#include "postal/base/AddressBase.h"

namespace postwright::postal {
namespace {

constexpr int kNameWidth = 15;

template <typename Value>
void WriteLine(const char* name, const Value& value) {
  std::cout << std::left << std::setw(kNameWidth) << name << value << '\n';
}

// A licence that was not stated is said to be unknown, so that nobody mistakes it for a free one.
std::string OrUnknown(const std::string& text) {
  return text.empty() ? "not stated when it was imported" : text;
}

}  // namespace

int RunInfo(const std::string& base) {
  const AddressBase opened(base);
  const AddressBase::Lease reader = opened.Borrow();
  WriteLine("ZIP codes", reader->Count("(SELECT DISTINCT zip FROM zip)"));
  WriteLine("streets", reader->Count("street"));
  WriteLine("addresses", reader->Count("point"));
  WriteLine("ranges", reader->Count("number_range"));
  WriteLine("city names", reader->Count("(SELECT DISTINCT zip,key FROM city)"));
  for (const BaseReader::Source& source : reader->Sources()) {
    std::cout << '\n';
    WriteLine("source", source.name);
    WriteLine("licence", OrUnknown(source.licence));
    WriteLine("attribution", OrUnknown(source.attribution));
    WriteLine("format", source.format);
    WriteLine("imported", source.imported);
    WriteLine("rows",
              std::to_string(source.rows) + ", " + std::to_string(source.leftOut) + " left out");
    WriteLine("streets", source.whole ? "all of its ZIP codes" : "some of its ZIP codes");
  }
  return std::cout.flush() ? kExitDone : kExitFailed;
}

}  // namespace postwright::postal
