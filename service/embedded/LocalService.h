#ifndef POSTWRIGHT_SERVICE_EMBEDDED_LOCALSERVICE_H_
#define POSTWRIGHT_SERVICE_EMBEDDED_LOCALSERVICE_H_

#include <postwright/LocalExport.h>

#include <filesystem>
#include <stdexcept>
#include <vector>

namespace postwright {

// A file that cannot be used; what() names it, and says what is wrong with it.
class POSTWRIGHT_LOCAL_EXPORT LocalServiceError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Has the process's fixes answered within the process, from files, as postwright-verifyd would
// answer them: no service is started, and nothing is sent over a network.
//
//   UseLocalService({"/usr/share/postwright/us-zips.tsv", "texas.base", "ohio.base"});
//   Postwright::Fix(text, true, &services);
//   SetLocalAnswers({});  // and again by the service of the Deployment (LocalAnswers.h)
//
// The files are lists of ZIP codes, of which there must be one, and any number of address bases
// (postwright-base makes them): without a base nothing is known of streets, and no address is
// confirmed. Several bases answer as one, in which the streets of a ZIP code are those of the first
// that has any there. A base of up to 512 MiB is read into memory, a larger one as it is asked
// about; a base that is replaced meanwhile stays as it was until the next call.
//
// Throws LocalServiceError where a file cannot be read, is damaged or is neither of these; then
// everything stays as it was. Takes as long as reading the files does. Any thread, also while fixes
// are under way: they end with what they began with. A child of fork() answers, too, if no fix was
// under way in its parent when it was born.
POSTWRIGHT_LOCAL_EXPORT void UseLocalService(const std::vector<std::filesystem::path>& files);

}  // namespace postwright

#endif  // POSTWRIGHT_SERVICE_EMBEDDED_LOCALSERVICE_H_
