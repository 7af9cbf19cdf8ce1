// Bytes of a reply, into the engine. Whatever they are, a fix ends in a result or in one of its two
// failures after one request, no document nested deeper than the documented 100 is accepted, and no
// more candidates are read than are allowed.

#include <postwright/CandidateFix.h>
#include <postwright/Postwright.h>
#include <postwright/ReportingServices.h>
#include <postwright/VerifyCandidate.h>

#include <tinyxml.h>

#include <algorithm>
#include <cstdlib>
#include <locale>

namespace {

using namespace postwright;

class BytesServices final : public ReportingServices {
 public:
  BytesServices(const std::uint8_t* data, std::size_t size) : reply_(data, data + size) {}

  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t*) override {
    ++requests;
    Keep(reply_, {});
    return std::make_unique<std::vector<std::uint8_t>>(reply_);
  }

  int requests = 0;

 private:
  std::vector<std::uint8_t> reply_;
};

class OpenPostwright final : public Postwright {
 public:
  explicit OpenPostwright(IPlatformServices* services)
      : Postwright(L"12 MAIN ST\nAUSTIN TX 78701", true, services) {}
  using Postwright::Fix;
  using Postwright::MakeRequestToServer;
};

int Depth(const TiXmlNode* node) {
  int deepest = 0;
  for (const TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling()) {
    deepest = std::max(deepest, Depth(child));
  }
  return deepest + (node->ToElement() != nullptr ? 1 : 0);
}

void Require(bool property) {
  if (!property) {
    std::abort();
  }
}

template <typename Step>
void ExpectResultOrFailure(Step step) {
  try {
    step();
  } catch (const PostwrightException& failure) {
    const FixResult result = failure.GetResult();
    Require(result == FixResultBadReply || result == FixResultInvalidAddress);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static const std::locale previous =
      std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  BytesServices services(data, size);
  OpenPostwright engine(&services);
  ExpectResultOrFailure([&] { Require(engine.Fix()->GetResult() == FixResultDefaultMatch); });
  Require(services.requests == 1);
  ExpectResultOrFailure(
      [&] { Require(Depth(engine.MakeRequestToServer(L"http://localhost/").get()) <= 100); });
  ExpectResultOrFailure([&] {
    const auto fixed = FixWithCandidates(L"12 MAIN ST\nAUSTIN TX 78701", false, 50, &services);
    const std::size_t matches = fixed->GetAddressMatches().size();
    Require(matches <= VerifyCandidate::kMost);
    Require((fixed->GetResult() == FixResultMultipleMatch) == (matches > 0));
  });
  return 0;
}
