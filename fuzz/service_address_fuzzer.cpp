// Fields of an address, a line each (Address1, Address2, city, state, ZIP), into the Verify
// service's decision. Its answer is standard: asked for that, it answers word for word the same. Of
// several lines only the delivery line is asked about again, as a client would.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "service/Verifier.h"

namespace {

using namespace postwright;
using namespace postwright::service;

// Cities of every kind, to reach the decisions on the last line.
const postal::ZipList& Zips() {
  static const postal::ZipList* const zips = [] {
    std::istringstream rows(
        "78701\tAustin\tTX\n78702\tAustin\tTX\n78634\tHutto\tTX\n18302\tEast Stroudsburg\tPA\n"
        "92688\tRancho Santa Margarita\tCA\n00979\tCarolina\tPR\n09012\tAPO\tAE\n"
        "62701\tSpringfield\tIL\n01103\tSpringfield\tMA\n63101\tSaint Louis\tMO\n"
        "40202\tLouisville\tKY\n");
    auto* loaded = new postal::ZipList;
    loaded->Read(rows, "rows");
    return loaded;
  }();
  return *zips;
}

RequestAddress ReadFields(const std::uint8_t* data, std::size_t size) {
  RequestAddress address;
  const std::array<std::string*, 5> fields = {&address.address1, &address.address2, &address.city,
                                              &address.state, &address.zip5};
  size_t field = 0;
  for (size_t i = 0; i < size && field < fields.size(); ++i) {
    if (data[i] == '\n') {
      ++field;
    } else {
      *fields[field] += static_cast<char>(data[i] & 0x7F);
    }
  }
  return address;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Verifier verifier(Zips());
  const ReplyAddress first = verifier.Verify(ReadFields(data, size));
  const auto* fields = std::get_if<ReplyFields>(&first.outcome);
  if (fields == nullptr) {
    return 0;  // turned down
  }
  RequestAddress again;
  again.address1 = fields->address1;
  again.address2 = fields->address2.substr(fields->address2.rfind('\n') + 1);
  again.city = fields->city;
  again.state = fields->state;
  again.urbanization = fields->urbanization;
  again.zip5 = fields->zip5;
  const ReplyAddress second = verifier.Verify(again);
  const auto* stable = std::get_if<ReplyFields>(&second.outcome);
  if (stable == nullptr || stable->address1 != fields->address1 ||
      stable->address2 != again.address2 || stable->city != fields->city ||
      stable->state != fields->state || stable->zip5 != fields->zip5 ||
      stable->urbanization != fields->urbanization || !stable->footnotes.empty()) {
    std::fprintf(stderr, "'%s' '%s' became '%s' '%s' %s\n", fields->address1.c_str(),
                 fields->address2.c_str(), stable == nullptr ? "" : stable->address1.c_str(),
                 stable == nullptr ? "turned down" : stable->address2.c_str(),
                 stable == nullptr ? "" : stable->footnotes.c_str());
    std::abort();
  }
  return 0;
}
