// The host guide's chapters on your own platform services and on threads, without Qt.
//
//   guide-own-services HOST:PORT
//
// The lines between "guide:" and "guide: end" are shown in docs/host-guide.md.

#include <postwright/Deployment.h>
#include <postwright/LogFormat.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>

#include <cstdarg>
#include <iostream>
#include <locale>
#include <mutex>
#include <thread>

namespace {

// guide: log
// Writes what the engine reports of a failure to standard error.
class LoggingServices : public postwright::MacPlatformServices {
 public:
  void LogWarning(const wchar_t* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    Write(format, arguments);
    va_end(arguments);
  }
  void LogError(const wchar_t* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    Write(format, arguments);
    va_end(arguments);
  }

 private:
  void Write(const wchar_t* format, va_list arguments) {
    std::clog << UCS2ToUTF8(postwright::FormatLogMessage(format, arguments)) << '\n';
  }
};
// guide: end

// guide: own-network
// A host's tests need no network: here a drawer of canned replies answers.
class DrawerServices final : public postwright::MacPlatformServices {
 public:
  explicit DrawerServices(std::string reply) : reply_(std::move(reply)) {}

  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t*) override {
    return std::make_unique<std::vector<std::uint8_t>>(reply_.begin(), reply_.end());
  }

 private:
  std::string reply_;
};
// guide: end

// guide: mutex
// Fixes share the parser, so they take turns.
std::unique_ptr<postwright::FixedAddress> FixInTurn(const std::wstring& text,
                                                    postwright::IPlatformServices* services) {
  static std::mutex turn;
  const std::lock_guard<std::mutex> lock(turn);
  return postwright::Postwright::Fix(text, true, services);
}
// guide: end

// Prints the corrected text, or that there is none.
void Show(const std::wstring& text, postwright::IPlatformServices& services) {
  try {
    const std::wstring fixed = FixInTurn(text, &services)->GetExactAddress();
    std::cout << services.UCS2ToUTF8(fixed) + '\n' << std::flush;
  } catch (const postwright::PostwrightException& failure) {
    std::cout << "failed with " + std::to_string(failure.GetResult()) + '\n';
  }
}

void ShowDrawer() {
  // guide: use-own-network
  DrawerServices drawer(
      "<AddressValidateResponse><Address><Address2>12 N MAIN ST</Address2><City>AUSTIN</City>"
      "<State>TX</State><Zip5>78701</Zip5><Zip4>1234</Zip4></Address></AddressValidateResponse>");
  Show(L"Jane Doe\n12 n main street\naustin tx 78701", drawer);
  // guide: end
}

void ShowThreads() {
  // guide: threads
  LoggingServices services;  // stateless, so threads may share it
  std::jthread one([&] { Show(L"12 n main street\naustin tx 78701", services); });
  std::jthread two([&] { Show(L"12 n main street\naustin tx 78701", services); });
  // guide: end
}

}  // namespace

int main(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  if (argc != 2) {
    std::cerr << "usage: guide-own-services HOST:PORT\n";
    return 2;
  }
  postwright::SetDeployment({argv[1], postwright::GetDeployment().userId, argv[1]});
  ShowDrawer();
  LoggingServices services;
  Show(L"the yellow house by the lake", services);
  ShowThreads();
  return 0;
}
