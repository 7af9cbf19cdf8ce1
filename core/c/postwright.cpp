#include <postwright/postwright.h>

#include "core/c/Guard.h"
#include "core/c/Handles.h"

#include <postwright/AddressLines.h>
#include <postwright/AddressParser.h>
#include <postwright/Deployment.h>
#include <postwright/FetchTimeout.h>
#include <postwright/FixResult.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <utility>

struct postwright_lines {
  postwright::AddressLines lines;
  std::array<std::string, POSTWRIGHT_LINES_TEXTS> texts;
  std::string putBack;
};

namespace postwright {

namespace {

static_assert(POSTWRIGHT_BAD_REPLY == int{FixResultBadReply} &&
              POSTWRIGHT_INVALID_ADDRESS == int{FixResultInvalidAddress} &&
              POSTWRIGHT_DEFAULT_MATCH == int{FixResultDefaultMatch});

struct ResultRow {
  std::int32_t result;
  const char* text;
};

constexpr ResultRow kResults[] = {
    {POSTWRIGHT_NONE, "Done."},
    {POSTWRIGHT_CONNECTION_FAILED, "The address service could not be reached."},
    {POSTWRIGHT_NO_DATA, "The address service sent no data."},
    {POSTWRIGHT_BAD_REPLY,
     "The address service could not be reached, or its reply was not an answer."},
    {POSTWRIGHT_NO_INTERNET, "There is no network connection."},
    {POSTWRIGHT_INVALID_ADDRESS, "The address service does not know this address."},
    {POSTWRIGHT_INVALID_ZIP, "The ZIP code is invalid."},
    {POSTWRIGHT_INVALID_STATE, "The state is invalid."},
    {POSTWRIGHT_INVALID_CITY, "The city is invalid."},
    {POSTWRIGHT_ADDRESS_NOT_FOUND, "The text holds no US postal address."},
    {POSTWRIGHT_MULTIPLE_MATCH, "Several addresses match."},
    {POSTWRIGHT_STREET_MISMATCH, "The street does not match."},
    {POSTWRIGHT_EXACT_MATCH, "The address matches exactly."},
    {POSTWRIGHT_DEFAULT_MATCH, "The address was corrected."},
    {POSTWRIGHT_BAD_ARGUMENT, "An argument is null or of an unknown size."},
    {POSTWRIGHT_BAD_TEXT, "The text is not UTF-8, or holds a NUL."},
    {POSTWRIGHT_NO_MEMORY, "There is not enough memory."},
    {POSTWRIGHT_CANCELLED, "The correction was cancelled."},
    {POSTWRIGHT_INTERNAL, "An internal error occurred."},
    {POSTWRIGHT_BAD_FILE, "A file cannot be used."},
};

bool IsHost(std::string_view host) {
  return !host.empty() &&
         std::all_of(host.begin(), host.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

postwright_address* NewParsedAddress(const AddressInfo& info) {
  auto address = std::make_unique<postwright_address>();
  constexpr std::pair<int, std::wstring AddressInfo::*> kElements[] = {
      {POSTWRIGHT_PREFIX, &AddressInfo::prefix},
      {POSTWRIGHT_NUMBER, &AddressInfo::number},
      {POSTWRIGHT_PREDIRECTIONAL, &AddressInfo::predirectional},
      {POSTWRIGHT_STREET, &AddressInfo::street},
      {POSTWRIGHT_STREET_SUFFIX, &AddressInfo::streetSuffix},
      {POSTWRIGHT_POSTDIRECTIONAL, &AddressInfo::postdirectional},
      {POSTWRIGHT_SECONDARY_UNIT, &AddressInfo::secondaryUnit},
      {POSTWRIGHT_SECONDARY_NUMBER, &AddressInfo::secondaryNumber},
      {POSTWRIGHT_STREET_LINE, &AddressInfo::streetLine},
      {POSTWRIGHT_CITY, &AddressInfo::city},
      {POSTWRIGHT_STATE, &AddressInfo::state},
      {POSTWRIGHT_ZIP, &AddressInfo::zip},
      {POSTWRIGHT_SUFFIX, &AddressInfo::suffix},
  };
  for (const auto& [element, field] : kElements) {
    address->elements[static_cast<std::size_t>(element)] = Utf8FromWide(info.*field);
  }
  address->text = Utf8FromWide(
      AddressFields(info.prefix, info.streetLine, L"", info.city, info.state, info.zip, info.suffix)
          .ComposeAddressBlock());
  return address.release();
}

postwright_lines* NewLines(const std::wstring& text) {
  const AddressLines lines(text);
  return new postwright_lines{
      lines,
      {Utf8FromWide(lines.GetAbove()), Utf8FromWide(lines.GetRun()), Utf8FromWide(lines.GetBelow()),
       Utf8FromWide(lines.GetBetween()), Utf8FromWide(lines.GetQuestion()),
       CodeOfReason(lines.GetReason()), TextOfReason(lines.GetReason())},
      ""};
}

}  // namespace

std::unique_ptr<postwright_address> NewAddress(const FixedAddress& fixed) {
  const AddressFields& fields = fixed.GetExactMatchAddress();
  auto address = std::make_unique<postwright_address>();
  const std::pair<int, const std::wstring*> elements[] = {
      {POSTWRIGHT_PREFIX, &fields.GetPrefix()},
      {POSTWRIGHT_STREET_LINE, &fields.GetPrimaryStreet()},
      {POSTWRIGHT_URBANIZATION, &fields.GetSecondaryStreet()},
      {POSTWRIGHT_CITY, &fields.GetCity()},
      {POSTWRIGHT_STATE, &fields.GetState()},
      {POSTWRIGHT_ZIP, &fields.GetZip()},
      {POSTWRIGHT_SUFFIX, &fields.GetSuffix()},
  };
  for (const auto& [element, field] : elements) {
    address->elements[static_cast<std::size_t>(element)] = Utf8FromWide(*field);
  }
  address->text = Utf8FromWide(fixed.GetExactAddress());
  return address;
}

}  // namespace postwright

using postwright::Guard;
using postwright::MakeOfText;

const char* postwright_result_text(int32_t result) {
  for (const postwright::ResultRow& row : postwright::kResults) {
    if (row.result == result) {
      return row.text;
    }
  }
  return "The result is unknown to this version of the library.";
}

const char* postwright_version(void) {
  return POSTWRIGHT_VERSION;
}

int32_t postwright_set_service(const char* host, const char* user_id) {
  return Guard([&]() -> std::int32_t {
    postwright::Deployment deployment = postwright::GetDeployment();
    if (host != nullptr && !postwright::IsHost(host)) {
      return POSTWRIGHT_BAD_TEXT;
    }
    deployment.verifyHost = host != nullptr ? host : deployment.verifyHost;
    deployment.userId = user_id != nullptr ? user_id : deployment.userId;
    postwright::SetDeployment(std::move(deployment));
    return POSTWRIGHT_NONE;
  });
}

int32_t postwright_set_timeout(int32_t milliseconds) {
  if (milliseconds <= 0) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  postwright::SetFetchTimeout(std::chrono::milliseconds(milliseconds));
  return POSTWRIGHT_NONE;
}

const char* postwright_address_element(const postwright_address* address, int32_t element) {
  const bool exists = address != nullptr && element >= 0 && element < POSTWRIGHT_ELEMENTS;
  return exists ? address->elements[static_cast<std::size_t>(element)].c_str() : "";
}

const char* postwright_address_text(const postwright_address* address) {
  return address != nullptr ? address->text.c_str() : "";
}

void postwright_address_free(postwright_address* address) {
  delete address;
}

int32_t postwright_parse(const char* text, size_t length, postwright_address** address) {
  return MakeOfText(text, length, address, [&](const std::wstring& label) -> std::int32_t {
    const auto turn = postwright::TakeTurn(nullptr);
    const auto info = postwright::AddressParser::GetInstance()->Parse(label);
    if (info == postwright::AddressInfo()) {
      return POSTWRIGHT_ADDRESS_NOT_FOUND;
    }
    *address = postwright::NewParsedAddress(info);
    return POSTWRIGHT_NONE;
  });
}

int32_t postwright_address_lines(const char* text, size_t length, postwright_lines** lines) {
  return MakeOfText(text, length, lines, [&](const std::wstring& label) -> std::int32_t {
    const auto turn = postwright::TakeTurn(nullptr);
    *lines = postwright::NewLines(label);
    return POSTWRIGHT_NONE;
  });
}

int32_t postwright_lines_outcome(const postwright_lines* lines) {
  return lines != nullptr ? int32_t{lines->lines.GetOutcome()} : POSTWRIGHT_LINES_UNCLEAR;
}

const char* postwright_lines_text(const postwright_lines* lines, int32_t which) {
  const bool exists = lines != nullptr && which >= 0 && which < POSTWRIGHT_LINES_TEXTS;
  return exists ? lines->texts[static_cast<size_t>(which)].c_str() : "";
}

const char* postwright_lines_put_back(postwright_lines* lines, const char* corrected) {
  if (lines == nullptr || corrected == nullptr) {
    return nullptr;
  }
  const std::int32_t result = Guard([&]() -> std::int32_t {
    lines->putBack =
        postwright::Utf8FromWide(lines->lines.PutBack(postwright::WideFromUtf8(corrected)));
    return POSTWRIGHT_NONE;
  });
  return result == POSTWRIGHT_NONE ? lines->putBack.c_str() : nullptr;
}

void postwright_lines_free(postwright_lines* lines) {
  delete lines;
}
