#include <postwright/UnreadReason.h>

#include "core/c/Guard.h"
#include "core/c/Handles.h"

#include <array>
#include <string>

struct postwright_unread {
  std::int32_t cause;
  std::array<std::string, POSTWRIGHT_UNREAD_TEXTS> texts;
};

namespace postwright {

static_assert(POSTWRIGHT_UNREAD_NONE == int{UnreadCauseNone} &&
              POSTWRIGHT_UNREAD_EMPTY == int{UnreadCauseEmpty} &&
              POSTWRIGHT_UNREAD_FOREIGN_COUNTRY == int{UnreadCauseForeignCountry} &&
              POSTWRIGHT_UNREAD_SHORT_ZIP == int{UnreadCauseShortZip} &&
              POSTWRIGHT_UNREAD_NO_ZIP == int{UnreadCauseNoZip} &&
              POSTWRIGHT_UNREAD_NO_STATE == int{UnreadCauseNoState} &&
              POSTWRIGHT_UNREAD_NUMBER_IN_WORDS == int{UnreadCauseNumberInWords} &&
              POSTWRIGHT_UNREAD_NO_HOUSE_NUMBER == int{UnreadCauseNoHouseNumber} &&
              POSTWRIGHT_UNREAD_UNCLEAR == int{UnreadCauseUnclear});

}  // namespace postwright

int32_t postwright_unread_reason(const char* text, size_t length, postwright_unread** unread) {
  return postwright::MakeOfText(text, length, unread, [&](const std::wstring& label) -> int32_t {
    const auto turn = postwright::TakeTurn(nullptr);
    const postwright::UnreadReason reason(label);
    *unread = new postwright_unread{
        reason.GetCause(),
        {reason.GetCode(), reason.GetText(), postwright::Utf8FromWide(reason.GetProposal())}};
    return POSTWRIGHT_NONE;
  });
}

int32_t postwright_unread_cause(const postwright_unread* unread) {
  return unread != nullptr ? unread->cause : POSTWRIGHT_UNREAD_NONE;
}

const char* postwright_unread_text(const postwright_unread* unread, int32_t which) {
  const bool exists = unread != nullptr && which >= 0 && which < POSTWRIGHT_UNREAD_TEXTS;
  return exists ? unread->texts[static_cast<size_t>(which)].c_str() : "";
}

void postwright_unread_free(postwright_unread* unread) {
  delete unread;
}
