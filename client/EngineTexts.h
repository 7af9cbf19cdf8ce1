#ifndef POSTWRIGHT_CLIENT_ENGINETEXTS_H_
#define POSTWRIGHT_CLIENT_ENGINETEXTS_H_

#include <postwright/FixedAddress.h>
#include <postwright/IPlatformServices.h>
#include <postwright/PostwrightSelector.h>

#include <QList>

namespace postwright {

// Returns a selector for each candidate of `fixed`, in its order; none where the outcome does not
// vouch for candidates (FixedAddress::IsAddressMatchesValid). A selector has the bounds of the
// candidate's unit range, also where the candidate spans house numbers only.
QList<PostwrightSelectorPointer> selectorsForCandidates(const FixedAddress& fixed,
                                                        IPlatformServices& services);

// The host's string for the core's, and the other way round, through UTF-8 and so by the process's
// character locale: empty where that cannot express the text. A NUL, at which the core's strings
// end, is left out, so that nothing after it is lost.
QString hostString(const std::wstring& text, IPlatformServices& services);
std::wstring coreString(const QString& text, IPlatformServices& services);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_ENGINETEXTS_H_
