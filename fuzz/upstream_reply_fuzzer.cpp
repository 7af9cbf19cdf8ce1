// Bytes of an upstream's reply, into the gateway's reader. The answer is complete (UTF-8, one line
// a field) or a fault, and reads the same when written as a reply of our own.

#include "fuzz/InputText.h"
#include "fuzz/Require.h"
#include "service/upstream/PostalApi.h"
#include "service/upstream/VerifyXml.h"

namespace {

using namespace postwright;
using namespace postwright::service;
using fuzz::Require;

void CheckFields(const ReplyFields& fields) {
  for (const ReplyField& field : kReplyFields) {
    Require(IsUtf8(fields.*field.member), "a field is UTF-8");
  }
  const std::string document = VerifyReply::Compose({{{}, fields}}, {.isLong = true});
  Require(IsUtf8(document), "the reply is UTF-8");
  const UpstreamAnswer again = VerifyXml::Read(document);
  const auto* const read = std::get_if<ReplyFields>(&again);
  Require(read != nullptr, "what we write is read");
  Require(VerifyReply::Compose({{{}, *read}}, {.isLong = true}) == document,
          "and written again it is the same");
}

void Check(const UpstreamAnswer& answer) {
  if (const auto* const fields = std::get_if<ReplyFields>(&answer)) {
    CheckFields(*fields);
  } else if (const auto* const rejection = std::get_if<postal::Rejection>(&answer)) {
    Require(VerifyReply::RejectionOf(VerifyReply::NumberOf(*rejection)) == *rejection,
            "a rejection has a number of its own");
  } else {
    Require(IsUtf8(std::get<UpstreamFault>(answer).detail), "a fault's detail is UTF-8");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const postal::ZipList zips;
  constexpr int kStatuses[] = {200, 200, 200, 400, 401, 403, 404, 429, 503};
  const std::string_view body = fuzz::TextOf(data, size);
  Check(VerifyXml::Read(body));
  RequestAddress asked;
  asked.address2 = "12 MAIN ST";
  asked.city = "AUSTIN";
  asked.state = "TX";
  HttpAnswer answer;
  answer.status = kStatuses[size % std::size(kStatuses)];
  answer.body = body;
  Check(PostalApi::Read(answer, asked, zips));
  answer.status = 200;
  Check(PostalApi::Read(answer, asked, zips));
  return 0;
}
