#ifndef POSTWRIGHT_CORE_ENGINE_POSTWRIGHT_H_
#define POSTWRIGHT_CORE_ENGINE_POSTWRIGHT_H_

#include <postwright/AddressFields.h>
#include <postwright/AddressInfo.h>
#include <postwright/Export.h>
#include <postwright/FixedAddress.h>
#include <postwright/IPlatformServices.h>
#include <postwright/PostwrightException.h>

#include <cstdint>
#include <memory>
#include <string>

class TiXmlDocument;
class TiXmlElement;
class TiXmlText;

namespace postwright {

// Corrects one US postal address against a USPS Web Tools "Verify" service.
//
//   MacPlatformServices services;
//   try {
//     Show(Postwright::Fix(L"12 main st\naustin tx 78701", true, &services)->GetExactAddress());
//   } catch (const PostwrightException& failure) {
//     Explain(failure.GetResult());
//   }
//
// The character locale must be UTF-8 before the first fix and stay so, std::locale's and the C
// library's alike. One line sets both, after a QApplication, which sets the latter
// from the environment:
//
//   std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
//
// Without std::locale's, the parser drops letters beyond A to Z; without setlocale()'s, a field
// that holds one is sent empty and comes back empty, a city for instance.
//
// Blocks for as long as ReadUrl does. Fixes must not overlap: they share the parser.
class POSTWRIGHT_CORE_EXPORT Postwright {
 public:
  // Finds the address in `text` (any line breaks; the lines above and below it are kept) and asks
  // the service of GetDeployment() for its standard form with exactly one ReadUrl. A text in which
  // no address is found is sent all the same, its fields empty: the service, not the parser, turns
  // it down. `services` is borrowed for the call. `flag` changes nothing; hosts pass true for a
  // quick fix and false for a full one, which differ in what the host makes of them.
  //
  // Returns a result that the caller owns, never null, always FixResultDefaultMatch: the text above
  // the address, the service's delivery line, urbanization, city, state and ZIP+4, the text below.
  // Throws PostwrightException with
  //   FixResultInvalidAddress  the service answered with an error for this address
  //   FixResultBadReply        `services` or what its ReadUrl returned was null, or the reply was
  //                            empty (no network too), no XML, or had no Address; so is a reply
  //                            that holds a NUL, is not UTF-8 (nor ISO-8859-1 or Windows-1252 and
  //                            declared so), or is built to exhaust the XML parser: elements
  //                            nested deeper than 100, an element of more than 100 attributes,
  //                            more than 100,000 tags and attributes
  // and std::bad_alloc. The cause goes to LogError or LogWarning of `services`.
  static std::unique_ptr<FixedAddress> Fix(const std::wstring& text, bool flag,
                                           IPlatformServices* services);

  // The same for address.ComposeAddressBlock(): the fields are read from that text again, and how
  // they were split before plays no part.
  static std::unique_ptr<FixedAddress> Fix(const AddressFields& address, bool flag,
                                           IPlatformServices* services);

  Postwright(const Postwright&) = delete;
  Postwright& operator=(const Postwright&) = delete;

 protected:
  // The steps of one fix. They are not an interface for hosts: a test derives to reach them.
  Postwright(const std::wstring& text, bool flag, IPlatformServices* services);

  std::unique_ptr<FixedAddress> Fix();

  std::wstring ComposeRequestUrl();
  std::unique_ptr<TiXmlDocument> MakeRequestToServer();
  std::unique_ptr<TiXmlDocument> MakeRequestToServer(const std::wstring& url);
  std::unique_ptr<FixedAddress> ProcessMatch(const TiXmlElement* root);

  std::wstring GetChildValue(const TiXmlElement* parent, const char* name);
  std::int32_t GetChildValueInt(const TiXmlElement* parent, const char* name);
  TiXmlText* AddChildElement(TiXmlElement* parent, const char* name, const std::string& text);

 private:
  AddressInfo info_;
  [[maybe_unused]] bool flag_;
  IPlatformServices* services_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_POSTWRIGHT_H_
