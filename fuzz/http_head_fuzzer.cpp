// Lines of a request's head and its query, into the service's checks. A head that passes can be
// read in one way only: at most one Host and one length, chunks or a length and never both. A
// query's fields, escaped again, read the same.

#include <algorithm>
#include <map>

#include "common/SmallText.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"
#include "service/http/FormFields.h"
#include "service/http/HeadCheck.h"
#include "service/protocol/CutQuery.h"

namespace {

using namespace postwright;
using namespace postwright::service;
using fuzz::Require;

std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(text.size(), line.size() + 1));
  return line;
}

// Version, target, then the fields, a line each.
RequestHead ReadHead(std::string_view text) {
  RequestHead head;
  head.version = TakeLine(text);
  head.target = TakeLine(text);
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string_view value = line.substr(std::min(line.size(), colon + 1));
    head.fields.emplace_back(line.substr(0, colon), Trim(value, " "));
  }
  return head;
}

void CheckHead(const RequestHead& head) {
  IsForwarded(head);
  if (!ObjectionTo(head).empty()) {
    return;
  }
  std::map<std::string, std::vector<std::string_view>> fields;
  for (const auto& [name, value] : head.fields) {
    Require(!name.empty() && name.find_first_of(" \t:\r\n") == name.npos, "a field has a name");
    Require(value.find_first_of(std::string_view("\0\r\n", 3)) == value.npos, "and one line");
    std::string key(name);
    std::transform(key.begin(), key.end(), key.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    fields[key].push_back(value);
  }
  const auto& lengths = fields["content-length"];
  const auto& codings = fields["transfer-encoding"];
  Require(fields["host"].size() <= 1, "there is at most one Host");
  Require(lengths.size() + codings.size() <= 1, "a body ends in one way");
  Require(lengths.empty() || (!lengths[0].empty() &&
                              lengths[0].find_first_not_of("0123456789") == std::string_view::npos),
          "a length is a number");
  Require(codings.empty() || head.version == "HTTP/1.1", "chunks are of HTTP/1.1");
}

void CheckQuery(std::string_view query) {
  const FormFields fields(query);
  for (const std::string_view name : {"API", "XML", "a", ""}) {
    const std::optional<std::string_view> value = fields.Find(name);
    if (value) {
      const std::string again = EscapeQuery(name) + "=" + EscapeQuery(*value);
      Require(again == "=" || FormFields(again).Find(name) == value,
              "a field that is escaped again reads the same");
    }
  }
  const std::string joined = JoinCutReferences(query);
  Require(JoinCutReferences(joined) == joined, "what was joined is whole");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::TextOf(data, size);
  CheckHead(ReadHead(text));
  CheckQuery(text);
  return 0;
}
