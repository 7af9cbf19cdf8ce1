#include "postal/fetch/IndexPage.h"

#include <algorithm>

#include "common/SmallText.h"

namespace postwright::postal {
namespace {

constexpr std::string_view kLink = "href=\"";
constexpr std::string_view kLinkEnd = "</a>";
constexpr size_t kLongestStamp = 100;

bool IsName(std::string_view text) {
  const std::string_view name = text.substr(0, text.size() - (text.ends_with('/') ? 1 : 0));
  return !name.empty() && !name.starts_with('.') &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                  c == '_' || c == '-' || c == '.';
         });
}

// The text without tags, its blanks made one.
std::string PlainText(std::string_view html) {
  std::string text;
  bool isTag = false;
  for (const char c : html.substr(0, 10 * kLongestStamp)) {
    isTag = c == '<' || (isTag && c != '>');
    const bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '<';
    if (isBlank && !text.empty() && text.back() != ' ') {
      text += ' ';
    } else if (!isBlank && !isTag && c != '>') {
      text += c;
    }
  }
  return std::string(Trim(text).substr(0, kLongestStamp));
}

}  // namespace

std::vector<IndexEntry> ReadIndexPage(std::string_view html) {
  std::vector<IndexEntry> entries;
  for (size_t at = html.find(kLink); at != std::string_view::npos;) {
    const std::string_view rest = html.substr(at + kLink.size());
    const std::string_view name = rest.substr(0, rest.find('"'));
    const size_t next = rest.find(kLink);
    if (IsName(name)) {
      const std::string_view behind = rest.substr(0, std::min(next, rest.size()));
      const size_t end = behind.find(kLinkEnd);
      entries.push_back({std::string(name), end == std::string_view::npos
                                                ? ""
                                                : PlainText(behind.substr(end + kLinkEnd.size()))});
    }
    at = next == std::string_view::npos ? next : at + kLink.size() + next;
  }
  return entries;
}

}  // namespace postwright::postal
