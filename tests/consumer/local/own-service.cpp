// A host that answers by itself: no service runs.
//
//   own-service FILE...    lists of ZIP codes and address bases

// guide: include
#include <postwright/LocalService.h>
// guide: end
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>

#include <iostream>
#include <locale>
#include <vector>

int main(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  const std::vector<std::filesystem::path> files(argv + 1, argv + argc);
  // guide: use
  try {
    postwright::UseLocalService(files);  // {"/usr/share/postwright/us-zips.tsv", "texas.base"}
  } catch (const postwright::LocalServiceError& error) {
    std::cerr << error.what() << '\n';  // which file, and what is wrong with it
  }
  // guide: end
  try {
    postwright::MacPlatformServices services;
    const std::wstring label = L"12 n main street apt 4\naustin tx 78701";
    return postwright::Postwright::Fix(label, true, &services)->GetExactAddress() ==
                   L"12 N MAIN ST APT 4\nAUSTIN, TX 78701"
               ? 0
               : 1;
  } catch (const postwright::PostwrightException& failure) {
    std::cerr << "failed with " << failure.GetResult() << '\n';
    return 1;
  }
}
