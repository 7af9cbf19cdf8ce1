#include "service/VerifyService.h"

#include <algorithm>

#include "service/http/FormFields.h"
#include "service/protocol/VerifyReply.h"

namespace postwright::service {
namespace {

constexpr std::string_view kPath = "/ShippingAPI.dll";
constexpr size_t kLongestApiName = 40;

HttpReply XmlReply(std::string body, std::string note) {
  return {200, "text/xml; charset=UTF-8", std::move(body), std::move(note)};
}

// An API's name as it may stand in a reply.
std::string PrintableApi(std::string_view api) {
  std::string name(api.substr(0, kLongestApiName));
  std::erase_if(name, [](char c) { return c <= ' ' || c > '~'; });
  return name;
}

// Says whether a body is the document itself; a form's would begin with a field's name.
bool IsDocument(std::string_view body) {
  const size_t first = body.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && body[first] == '<';
}

std::string_view FaultName(RequestFault fault) {
  switch (fault) {
    case RequestFault::Syntax:
      return "syntax";
    case RequestFault::NoUser:
      return "no-user";
    case RequestFault::TooManyAddresses:
      return "too-many-addresses";
  }
  return "";
}

void AppendField(std::string& text, std::string_view field) {
  if (!text.empty()) {
    text += '|';
  }
  text += field;
}

std::string Describe(const RequestAddress& asked) {
  std::string text;
  for (const std::string* field :
       {&asked.address1, &asked.address2, &asked.city, &asked.state, &asked.zip5}) {
    AppendField(text, *field);
  }
  return text;
}

std::string Describe(const ReplyAddress& reply) {
  const auto* fields = std::get_if<ReplyFields>(&reply.outcome);
  if (fields == nullptr) {
    return std::string(VerifyReply::NumberOf(std::get<Rejection>(reply.outcome)));
  }
  std::string text;
  for (const std::string* field :
       {&fields->address1, &fields->address2, &fields->city, &fields->state, &fields->zip5}) {
    AppendField(text, *field);
  }
  return text;
}

}  // namespace

VerifyService::VerifyService(const ZipBase& base, Options options)
    : verifier_(base), options_(std::move(options)) {}

HttpReply VerifyService::Answer(const HttpRequest& request) const {
  if (request.path != options_.pathPrefix + std::string(kPath)) {
    return {404, "text/plain; charset=UTF-8",
            "Nothing is here. Ask for " + options_.pathPrefix + std::string(kPath) +
                "?API=Verify&XML=...\n",
            "path=other"};
  }
  const FormFields query(request.query);
  const FormFields body(request.body);
  const auto field = [&](std::string_view name) {
    const auto inQuery = query.Find(name);
    return inQuery ? inQuery : body.Find(name);
  };
  const std::string api = PrintableApi(field("API").value_or(""));
  if (!EqualsIgnoringCase(api, "Verify")) {
    return XmlReply(VerifyReply::ComposeUnknownApi(api), "api=other");
  }
  return AnswerVerify(IsDocument(request.body) ? request.body : field("XML").value_or(""));
}

HttpReply VerifyService::AnswerVerify(std::string_view document) const {
  const auto read = VerifyRequest::Read(document);
  if (const auto* fault = std::get_if<RequestFault>(&read)) {
    return XmlReply(VerifyReply::ComposeFault(*fault),
                    "api=Verify fault=" + std::string(FaultName(*fault)));
  }
  const auto& request = std::get<VerifyRequest>(read);
  std::vector<ReplyAddress> replies;
  std::transform(request.addresses.begin(), request.addresses.end(), std::back_inserter(replies),
                 [&](const RequestAddress& asked) { return verifier_.Verify(asked); });
  return XmlReply(VerifyReply::Compose(replies, request.revision1), Note(request, replies));
}

std::string VerifyService::Note(const VerifyRequest& request,
                                const std::vector<ReplyAddress>& replies) const {
  const auto rejected = std::count_if(
      replies.begin(), replies.end(),
      [](const ReplyAddress& reply) { return std::holds_alternative<Rejection>(reply.outcome); });
  std::string note = "api=Verify addresses=" + std::to_string(replies.size()) +
                     " rejected=" + std::to_string(rejected);
  for (size_t i = 0; options_.logAddresses && i < replies.size(); ++i) {
    note += " asked=\"" + Describe(request.addresses[i]) + "\" answered=\"" + Describe(replies[i]) +
            '"';
  }
  return note;
}

}  // namespace postwright::service
