#include "apps/postwright/LabelFix.h"

#include <postwright/FixResult.h>
#include <postwright/FixedAddress.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>

#include <cwctype>
#include <memory>

namespace postwright {

namespace {

struct ResultText {
  FixResult result;
  const wchar_t* text;
};

constexpr ResultText kResultTexts[] = {
    {FixResultConnectionFailed, L"Unable to connect to the server"},
    {FixResultNoData, L"Unable to get data from the server"},
    {FixResultBadReply, L"Request completed OK, but the server's reply is unexpected/wrong"},
    {FixResultNoInternet, L"No internet connection available"},
    {FixResultInvalidAddress, L"Invalid Address"},
    {FixResultInvalidZip, L"Invalid Zip Code"},
    {FixResultInvalidState, L"Invalid State"},
    {FixResultInvalidCity, L"Invalid City"},
    {FixResultAddressNotFound, L"Invalid address (Address not found)"},
    {FixResultMultipleMatch, L"Multiple match"},
    {FixResultStreetMismatch, L"Street address does not match"},
    {FixResultExactMatch, L"exact match"},
    {FixResultDefaultMatch, L"default match"},
};

std::wstring TextForResult(FixResult result) {
  for (const ResultText& row : kResultTexts) {
    if (row.result == result) {
      return row.text;
    }
  }
  return L"Unexpected error code " + std::to_wstring(static_cast<int>(result));
}

// What two texts are compared by: their letters and digits, in upper case.
std::wstring LettersAndDigits(const std::wstring& text) {
  std::wstring kept;
  for (const wchar_t character : text) {
    if (std::iswalnum(character) != 0) {
      kept += static_cast<wchar_t>(std::towupper(character));
    }
  }
  return kept;
}

}  // namespace

LabelFix FixLabel(const std::wstring& address) {
  MacPlatformServices services;
  try {
    return {Postwright::Fix(address, false, &services)->GetExactAddress(), L""};
  } catch (const PostwrightException& failure) {
    // The user's text stays where it came from; the answer says why there is no other.
    return {L"", TextForResult(failure.GetResult())};
  }
}

bool IsAddressEqual(const std::wstring& address, const std::wstring& other) {
  return LettersAndDigits(address) == LettersAndDigits(other);
}

}  // namespace postwright
