#ifndef POSTWRIGHT_CORE_ENGINE_VERIFYSOURCE_H_
#define POSTWRIGHT_CORE_ENGINE_VERIFYSOURCE_H_

#include <postwright/Export.h>

#include <cstdint>
#include <string>

namespace postwright {

// Numbers never change, new ones may come.
enum VerifySourceKind : std::int32_t {
  VerifySourceUntold = 0,    // the service did not say
  VerifySourceBase = 1,      // an address base, which knows streets and house numbers
  VerifySourceZipList = 2,   // the list of ZIP codes with their cities, which knows no street
  VerifySourceUpstream = 3,  // another service, which was asked
  VerifySourceCache = 4,     // what another service answered on an earlier day
};

// Whose word an answer is. A plain value, read from any thread.
//
//   const VerifySource& source = client.lastReport().Source();
//   // source.Code() "base", source.Text() "the address base texas.base of 2026-11-20"
struct POSTWRIGHT_CORE_EXPORT VerifySource {
  VerifySourceKind kind = VerifySourceUntold;
  std::string name = {};  // the base's file, or the other service; UTF-8, as the service has it
  std::string date = {};  // when the base was made, or the kept answer was given: "2026-11-20"

  // The kind's stable name, for records that programs read: "base", "zip-list", "upstream",
  // "cache"; "" for VerifySourceUntold.
  const char* Code() const;

  // In English, for a person, to put after "according to"; "" for VerifySourceUntold.
  std::string Text() const;

  bool operator==(const VerifySource&) const = default;
};

// Returns the kind of that Code(); VerifySourceUntold for any other text.
POSTWRIGHT_CORE_EXPORT VerifySourceKind VerifySourceKindOf(const std::string& code);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_VERIFYSOURCE_H_
