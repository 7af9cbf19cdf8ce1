// Bytes through the C interface: a text, a reply and a correction. Whatever they are, each call
// ends in a documented result, returns a handle exactly where it says so, and gives out nothing but
// UTF-8; a change's offsets lead to its words.

#include <postwright/postwright.h>

#include <algorithm>
#include <cstring>

#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using fuzz::Require;

void RequireText(const char* text) {
  Require(text != nullptr && IsUtf8(text), "what is handed out is UTF-8");
}

void RequireOneOf(std::int32_t result, std::initializer_list<std::int32_t> documented) {
  Require(std::find(documented.begin(), documented.end(), result) != documented.end(),
          "the result is one of those documented");
  RequireText(postwright_result_text(result));
}

void CheckAddress(postwright_address* address) {
  for (std::int32_t element = -1; element <= POSTWRIGHT_ELEMENTS; ++element) {
    RequireText(postwright_address_element(address, element));
  }
  RequireText(postwright_address_text(address));
  postwright_address_free(address);
}

void CheckParse(const std::string& text) {
  postwright_address* address = nullptr;
  const std::int32_t result = postwright_parse(text.data(), text.size(), &address);
  RequireOneOf(result, {POSTWRIGHT_NONE, POSTWRIGHT_ADDRESS_NOT_FOUND, POSTWRIGHT_BAD_TEXT});
  Require((address != nullptr) == (result == POSTWRIGHT_NONE), "there is an address or a reason");
  CheckAddress(address);
}

// Gives the reply in pieces, as a network would.
std::int32_t GiveReply(void* context, const char* url, postwright_body* body) {
  constexpr std::size_t kPiece = 100;
  RequireText(url);
  const std::string& reply = *static_cast<const std::string*>(context);
  for (std::size_t at = 0; at < reply.size(); at += kPiece) {
    Require(postwright_body_append(body, &reply[at], std::min(kPiece, reply.size() - at)) == 0,
            "a small reply is taken");
  }
  return 0;
}

void TakeLog(void*, std::int32_t level, const char* message) {
  Require(level >= POSTWRIGHT_LOG_ERROR && level <= POSTWRIGHT_LOG_INFO, "a level that there is");
  RequireText(message);
}

void CheckFix(const std::string& text, std::string reply) {
  const postwright_services services = {sizeof services, &reply, GiveReply, TakeLog};
  postwright_address* fixed = nullptr;
  const std::int32_t result = postwright_fix(text.data(), text.size(), &services, nullptr, &fixed);
  RequireOneOf(result, {POSTWRIGHT_DEFAULT_MATCH, POSTWRIGHT_INVALID_ADDRESS, POSTWRIGHT_BAD_REPLY,
                        POSTWRIGHT_BAD_TEXT});
  Require((fixed != nullptr) == (result == POSTWRIGHT_DEFAULT_MATCH),
          "there is a correction or a reason");
  CheckAddress(fixed);
}

void CheckLines(const std::string& text, const std::string& corrected) {
  postwright_lines* lines = nullptr;
  const std::int32_t result = postwright_address_lines(text.data(), text.size(), &lines);
  RequireOneOf(result, {POSTWRIGHT_NONE, POSTWRIGHT_BAD_TEXT});
  Require((lines != nullptr) == (result == POSTWRIGHT_NONE), "there are lines or a reason");
  for (std::int32_t which = -1; which <= POSTWRIGHT_LINES_TEXTS; ++which) {
    RequireText(postwright_lines_text(lines, which));
  }
  const char* const label = postwright_lines_put_back(lines, corrected.c_str());
  Require((label != nullptr) == (lines != nullptr && IsUtf8(corrected.c_str())),
          "what is UTF-8 is put back");
  postwright_lines_free(lines);
}

void CheckPart(const std::string& text, const char* words, std::size_t begin, std::size_t end) {
  Require(begin <= end && end <= text.size() && text.substr(begin, end - begin) == words,
          "the offsets of a change lead to its words");
}

void CheckReview(const std::string& typed, const std::string& corrected) {
  postwright_review* review = nullptr;
  const std::int32_t result = postwright_review_new(typed.data(), typed.size(), corrected.data(),
                                                    corrected.size(), "AN", &review);
  RequireOneOf(result, {POSTWRIGHT_NONE, POSTWRIGHT_BAD_TEXT});
  Require((review != nullptr) == (result == POSTWRIGHT_NONE), "there is a review or a reason");
  const std::size_t count = postwright_review_count(review);
  for (std::size_t i = 0; i < count; ++i) {
    const postwright_change* const change = postwright_review_change(review, i);
    RequireText(change->rule);
    RequireText(change->text);
    RequireText(change->reason);
    CheckPart(typed, change->typed, change->typed_begin, change->typed_end);
    CheckPart(corrected, change->corrected, change->corrected_begin, change->corrected_end);
  }
  Require(postwright_review_change(review, count) == nullptr, "nothing comes after the last one");
  postwright_review_free(review);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::UseCharacterLocale();
  const std::vector<std::string> parts = fuzz::PartsOf(fuzz::TextOf(data, size), 3);
  CheckParse(parts[0]);
  CheckFix(parts[0], parts[2]);
  CheckLines(parts[0], parts[1]);
  CheckReview(parts[0], parts[1]);
  return 0;
}
