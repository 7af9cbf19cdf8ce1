// A host of the core with platform services of its own: its network is a drawer of canned replies.

#include <postwright/AddressParser.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>

#include <iostream>
#include <locale>

namespace {

using postwright::IPlatformServices;
using postwright::MacPlatformServices;

// The conversions are the library's; the network and the log are the host's.
class DrawerServices final : public IPlatformServices {
 public:
  explicit DrawerServices(std::string reply) : reply_(std::move(reply)) {}

  std::string UCS2ToUTF8(const std::wstring& text) override { return system_.UCS2ToUTF8(text); }
  std::string UCS2ToUTF8(const wchar_t* text) override { return system_.UCS2ToUTF8(text); }
  std::wstring UTF8ToUCS2(const std::string& text) override { return system_.UTF8ToUCS2(text); }
  std::wstring UTF8ToUCS2(const char* text) override { return system_.UTF8ToUCS2(text); }
  std::wstring UrlEscape(const wchar_t* text) override { return system_.UrlEscape(text); }
  std::wstring UrlEscape(const std::wstring& text) override { return system_.UrlEscape(text); }
  std::wstring UrlUnescape(const wchar_t* text) override { return system_.UrlUnescape(text); }
  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t*) override {
    return std::make_unique<std::vector<std::uint8_t>>(reply_.begin(), reply_.end());
  }
  std::int32_t StringToInt(const wchar_t* text) override { return system_.StringToInt(text); }
  void LogError(const wchar_t*, ...) override { ++complaints; }
  void LogWarning(const wchar_t*, ...) override { ++complaints; }
  void LogInfo(const wchar_t*, ...) override {}

  int complaints = 0;

 private:
  MacPlatformServices system_;
  std::string reply_;
};

bool Expect(bool holds, const char* what) {
  if (!holds) {
    std::cerr << "label-checker: " << what << '\n';
  }
  return holds;
}

}  // namespace

int main() {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  const std::wstring label = L"Jane Doe\n12 n main street apt 4\naustin tx 78701";

  bool good = Expect(
      postwright::AddressParser::GetInstance()->Parse(label).streetLine == L"12 N MAIN ST APT 4",
      "the parser did not find the delivery line");

  DrawerServices answer(
      "<AddressValidateResponse><Address><Address2>12 N MAIN ST APT 4</Address2><City>AUSTIN</City>"
      "<State>TX</State><Zip5>78701</Zip5><Zip4>1234</Zip4></Address></AddressValidateResponse>");
  good &= Expect(postwright::Postwright::Fix(label, true, &answer)->GetExactAddress() ==
                     L"JANE DOE\n12 N MAIN ST APT 4\nAUSTIN, TX 78701-1234",
                 "the reply is not in the fixed address");

  DrawerServices silence("");
  try {
    postwright::Postwright::Fix(label, true, &silence);
    good = Expect(false, "an empty reply was taken for an answer");
  } catch (const postwright::PostwrightException& failure) {
    good &= Expect(failure.GetResult() == postwright::FixResultBadReply && silence.complaints == 1,
                   "an empty reply was not reported as one");
  }
  return good ? 0 : 1;
}
