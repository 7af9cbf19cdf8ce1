#include "service/VerifyService.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <vector>

#include "common/SmallText.h"
#include "service/http/FormFields.h"
#include "service/protocol/CutQuery.h"
#include "service/protocol/VerifyReply.h"

namespace postwright::service {
namespace {

constexpr std::string_view kPath = "/ShippingAPI.dll";
constexpr size_t kLongestApiName = 40;

using Clock = std::chrono::steady_clock;

HttpReply XmlReply(std::string body, std::string note) {
  return {200, "text/xml; charset=UTF-8", std::move(body), std::move(note)};
}

// An API's name as a reply may have it.
std::string PrintableApi(std::string_view api) {
  std::string name(api.substr(0, kLongestApiName));
  std::erase_if(name, [](char c) { return c <= ' ' || c > '~'; });
  return name;
}

// Says whether a body is the document itself; a form's would begin with a field's name.
bool IsDocument(std::string_view body) {
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (body.starts_with(mark)) {
      return true;
    }
  }
  return Trim(body).starts_with('<');
}

// What the first field of that name says; empty where there is none.
std::string_view ExtensionOf(const HttpRequest& request, std::string_view name) {
  const auto found = std::find_if(
      request.extensions.begin(), request.extensions.end(),
      [name](const auto& extension) { return EqualsIgnoringCase(extension.first, name); });
  return found == request.extensions.end() ? std::string_view() : found->second;
}

// How many candidates a request asks for: a number from 1 on, of which more than there may be is as
// many; anything else asks for none.
size_t CandidatesWanted(const HttpRequest& request) {
  const std::string_view value = ExtensionOf(request, kCandidatesHeader);
  size_t wanted = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), wanted);
  const bool isNumber = end == value.data() + value.size() && error != std::errc::invalid_argument;
  return !isNumber                                 ? 0
         : error == std::errc::result_out_of_range ? postal::Candidate::kMost
                                                   : std::min(wanted, postal::Candidate::kMost);
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

std::string NoteOf(AddressCall call) {
  return "api=" + std::string(WordsOf(call).api);
}

// A client's text cannot end a field or the quotes around all of them.
void AppendField(std::string& text, std::string_view field) {
  if (!text.empty()) {
    text += '|';
  }
  for (const char c : field) {
    if (c == '"' || c == '|' || c == '\\') {
      text += '\\';
    }
    text += c;
  }
}

std::string Describe(const RequestAddress& asked) {
  std::string text;
  for (const std::string* field :
       {&asked.address1, &asked.address2, &asked.city, &asked.state, &asked.zip5}) {
    AppendField(text, *field);
  }
  return text;
}

std::string Describe(const AddressAnswer& answer) {
  if (const auto* rejection = std::get_if<postal::Rejection>(&answer)) {
    return std::string(VerifyReply::NumberOf(*rejection));
  }
  if (const auto* fault = std::get_if<ServiceFault>(&answer)) {
    return fault->kind;
  }
  const auto& fields = std::get<ReplyFields>(answer);
  std::string text;
  for (const std::string* field :
       {&fields.address1, &fields.address2, &fields.city, &fields.state, &fields.zip5}) {
    AppendField(text, *field);
  }
  return text;
}

}  // namespace

struct VerifyService::Document {
  Document(VerifyRequest asked, bool wantsItsSource, Respond whenDone)
      : request(std::move(asked)),
        wantsSource(wantsItsSource),
        left(request.addresses.size()),
        respond(std::move(whenDone)) {
    replies.reserve(request.addresses.size());
    for (const RequestAddress& address : request.addresses) {
      replies.push_back({address.id, {}});
    }
  }

  const Clock::time_point begun = Clock::now();
  const VerifyRequest request;
  const bool wantsSource;
  std::vector<ReplyAddress> replies;  // the outcome of each written by one thread
  std::atomic<size_t> left;
  const Respond respond;
};

VerifyService::VerifyService(AnswerSource& source, const UserList* users, Options options)
    : source_(source),
      users_(users),
      options_(std::move(options)),
      path_(options_.pathPrefix + std::string(kPath)) {}

VerifyService::~VerifyService() {
  source_.Stop();
}

void VerifyService::Answer(const HttpRequest& request, const Respond& respond) {
  if (!EqualsIgnoringCase(request.path, path_)) {
    return respond(TextReply(404, "Nothing is here. Ask for " + path_ + "?API=Verify&XML=...\n",
                             "path=other"));
  }
  const FormFields query(JoinCutReferences(request.query));
  const FormFields body(JoinCutReferences(request.body));
  const auto field = [&](std::string_view name) {
    const auto inQuery = query.Find(name);
    return inQuery ? inQuery : body.Find(name);
  };
  const std::string api = PrintableApi(field("API").value_or(""));
  const auto* const words =
      std::find_if(std::begin(kAddressCalls), std::end(kAddressCalls),
                   [&](const CallWords& each) { return EqualsIgnoringCase(api, each.api); });
  if (words == std::end(kAddressCalls)) {
    return respond(XmlReply(VerifyReply::ComposeUnknownApi(api), "api=other"));
  }
  const bool bodyIsDocument = IsDocument(request.body);
  AnswerCall(
      words->call, bodyIsDocument ? request.body : field("XML").value_or(""),
      {request.client, CandidatesWanted(request), ExtensionOf(request, kSourceHeader) == "1"},
      respond);
}

void VerifyService::AnswerCall(AddressCall call, std::string_view text, const Asker& from,
                               const Respond& respond) {
  auto read = VerifyRequest::Read(text, call);
  if (const auto* fault = std::get_if<RequestFault>(&read)) {
    ++counts_.unreadable;
    return respond(XmlReply(VerifyReply::ComposeFault(*fault),
                            NoteOf(call) + " fault=" + std::string(FaultName(*fault))));
  }
  if (users_ != nullptr && !users_->Allows(std::get<VerifyRequest>(read).userId)) {
    ++counts_.strangers;
    return respond(XmlReply(VerifyReply::ComposeFault(RequestFault::NoUser),
                            NoteOf(call) + " fault=unknown-user"));
  }
  ++counts_.documents;
  for (RequestAddress& address : std::get<VerifyRequest>(read).addresses) {
    address.candidates = from.candidates;
  }
  const auto document = std::make_shared<Document>(std::move(std::get<VerifyRequest>(read)),
                                                   from.wantsSource, respond);
  const std::vector<RequestAddress>& asked = document->request.addresses;
  if (asked.empty()) {
    return Finish(*document);
  }
  // Behind a proxy every client has the proxy's address; the user's name tells them apart there.
  const std::string asker = document->request.userId + ' ' + from.client;
  for (size_t i = 0; i < asked.size(); ++i) {
    source_.Find(asked[i], asker, [this, document, i](AddressAnswer&& answer) {
      if (!document->wantsSource) {
        answer.source = {};
      }
      document->replies[i].outcome = std::move(answer);
      if (--document->left == 0) {
        Finish(*document);
      }
    });
  }
}

// An address that could not be asked for makes an error of the document, which the client sends
// again; what the others were answered is not lost, if the source keeps answers.
void VerifyService::Finish(const Document& document) {
  std::chrono::seconds retryAfter(0);
  for (const ReplyAddress& reply : document.replies) {
    const auto* const rejection = std::get_if<postal::Rejection>(&reply.outcome);
    const auto* const fault = std::get_if<ServiceFault>(&reply.outcome);
    ++(rejection != nullptr ? counts_.rejected[static_cast<size_t>(*rejection)]
       : fault != nullptr   ? counts_.unanswered
                            : counts_.found);
    retryAfter = std::max(retryAfter, fault == nullptr ? retryAfter : fault->retryAfter);
  }
  HttpReply reply = XmlReply(VerifyReply::Compose(document.replies, document.request.form),
                             options_.takesNotes ? Note(document) : std::string());
  reply.retryAfter = retryAfter;
  counts_.seconds.Note(std::chrono::duration<double>(Clock::now() - document.begun).count());
  document.respond(std::move(reply));
}

std::string VerifyService::Note(const Document& document) const {
  size_t rejected = 0;
  std::string fault;
  std::string addresses;
  for (size_t i = 0; i < document.replies.size(); ++i) {
    const AddressAnswer& answer = document.replies[i].outcome;
    rejected += std::holds_alternative<postal::Rejection>(answer) ? 1 : 0;
    if (const auto* failed = std::get_if<ServiceFault>(&answer)) {
      fault = " fault=" + failed->kind;
    }
    if (options_.logAddresses) {
      addresses += " asked=\"" + Describe(document.request.addresses[i]) + "\" answered=\"" +
                   Describe(answer) + '"';
    }
  }
  return NoteOf(document.request.form.call) +
         " addresses=" + std::to_string(document.replies.size()) +
         " rejected=" + std::to_string(rejected) + fault + addresses;
}

}  // namespace postwright::service
