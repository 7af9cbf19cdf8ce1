// Bytes of a query, into the Verify service. Whatever they are, the answer is one complete document
// of the interface: the declaration and a single line of UTF-8 that ends with the root's end tag.

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "common/Encoding.h"
#include "service/Verifier.h"
#include "service/VerifyService.h"

namespace {

using namespace postwright;
using namespace postwright::service;

void Require(bool property) {
  if (!property) {
    std::abort();
  }
}

bool IsWhole(std::string_view body) {
  constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  if (!body.starts_with(kDeclaration)) {
    return false;
  }
  body.remove_prefix(kDeclaration.size());
  const bool printable = IsUtf8(body) && std::all_of(body.begin(), body.end(), [](char c) {
                           return static_cast<unsigned char>(c) >= ' ';
                         });
  return printable &&
         ((body.starts_with("<Error><Number>") && body.ends_with("</Source></Error>")) ||
          (body.starts_with("<AddressValidateResponse>") &&
           body.ends_with("</AddressValidateResponse>")));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const postal::ZipList zips;
  static Verifier verifier(zips);
  static VerifyService service(verifier, nullptr, {});
  const std::string query(data, data + size);
  int answers = 0;
  const auto check = [&answers](const HttpReply& reply) {
    Require(IsWhole(reply.body));
    ++answers;
  };
  service.Answer({"GET", "/ShippingAPI.dll", query, ""}, check);
  service.Answer({"POST", "/ShippingAPI.dll", "API=Verify", query}, check);
  Require(answers == 2);
  return 0;
}
