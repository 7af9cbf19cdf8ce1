// The host guide's first chapters: one label through the core, without Qt.
//
//   guide-first-fix HOST:PORT
//
// The lines between "guide:" and "guide: end" are shown in docs/host-guide.md or README.md.

// guide: includes
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>
// guide: end
// guide: parse-include
#include <postwright/AddressParser.h>
// guide: end
// guide: deployment-include
#include <postwright/Deployment.h>
// guide: end

#include <iostream>
#include <locale>

namespace {

void Show(const std::wstring& text) {
  postwright::MacPlatformServices services;
  std::cout << services.UCS2ToUTF8(text) << '\n';
}

// guide: explain
void Explain(postwright::FixResult result) {
  switch (result) {
    case postwright::FixResultInvalidAddress:
      std::cout << "The postal service does not know this address. Please check it.\n";
      break;
    case postwright::FixResultBadReply:
      std::cout << "The address was not checked: the service gave no answer. Try again later.\n";
      break;
    default:
      std::cout << "The address was not checked (" << result << ").\n";
  }
}
// guide: end

void Fix(const std::wstring& text) {
  // guide: fix
  postwright::MacPlatformServices services;
  try {
    Show(postwright::Postwright::Fix(text, true, &services)->GetExactAddress());
  } catch (const postwright::PostwrightException& failure) {
    Explain(failure.GetResult());
  }
  // guide: end
}

void ShowParts() {
  // guide: parse
  const postwright::AddressInfo parts = postwright::AddressParser::GetInstance()->Parse(
      L"Jane Doe\n12 n main street apt 4\naustin, texas 78701");
  Show(parts.streetLine);  // 12 N MAIN ST APT 4
  Show(parts.zip);         // 78701
  // guide: end
}

void AskServer(const std::string& server) {
  // guide: deployment
  postwright::Deployment deployment = postwright::GetDeployment();
  deployment.verifyHost = server;  // "127.0.0.1:8470"
  deployment.probeHost = server;   // what PostwrightClient::checkNetwork() looks for
  postwright::SetDeployment(deployment);
  // guide: end
}

}  // namespace

int main(int argc, char** argv) {
  // guide: locale
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  // guide: end
  if (argc != 2) {
    std::cerr << "usage: guide-first-fix HOST:PORT\n";
    return 2;
  }
  AskServer(argv[1]);
  Fix(L"Señora Peña\n128 Main St.\nCañon City, Colorado 81212");
  Fix(L"the yellow house by the lake");
  ShowParts();
  return 0;
}
