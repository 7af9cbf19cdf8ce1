#include "core/engine/ReplyGuard.h"

#include "common/Encoding.h"
#include "common/SmallText.h"

#include <algorithm>

namespace postwright {

namespace {

constexpr int kMostLevels = 100;
constexpr int kMostAttributes = 100;
constexpr int kMostParts = 100'000;

constexpr const wchar_t* kBrokenReference = L"a character reference is broken";

constexpr std::string_view kDeclaration = "<?xml";
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kCData = "<![CDATA[";

// True when each "&#" of `text` goes on with digits and a semicolon.
bool HasWholeReferences(std::string_view text) {
  for (std::size_t at = 0; (at = text.find("&#", at)) != std::string_view::npos;) {
    at += 2;
    const bool isHex = text.substr(at).starts_with('x');
    const char* digits = isHex ? "0123456789abcdefABCDEF" : "0123456789";
    at = text.find_first_not_of(digits, isHex ? at + 1 : at);
    if (at == std::string_view::npos || text[at] != ';') {
      return false;
    }
  }
  return true;
}

// Follows TinyXML through a document's tags as far as it can come: a document in which the two part
// ways is one on which TinyXML has given up before.
class TagScanner {
 public:
  explicit TagScanner(std::string_view text) : text_(text) {}

  const wchar_t* FindFault();

 private:
  const wchar_t* PassMarkup();
  const wchar_t* PassDeclaration();
  const wchar_t* PassStartTag();

  bool StandsAt(std::string_view opening) const {
    return text_.compare(at_, opening.size(), opening) == 0;
  }
  bool DeclarationStandsAt() const {
    return EqualsIgnoringCase(text_.substr(at_, kDeclaration.size()), kDeclaration);
  }
  // What TinyXML takes for the first letter of a name.
  bool NameStandsAt(std::size_t at) const {
    const unsigned c = at < text_.size() ? static_cast<unsigned char>(text_[at]) : 0;
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 0x7F;
  }
  // Goes on after the next `closing` that starts at `from` or later, or at the end of the
  // document.
  void PassTo(std::string_view closing, std::size_t from) {
    const std::size_t found = text_.find(closing, from);
    at_ = found == std::string_view::npos ? text_.size() : found + closing.size();
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int level_ = 0;
  int parts_ = 0;  // tags and attributes
};

const wchar_t* TagScanner::FindFault() {
  for (; at_ < text_.size(); ++parts_) {
    const std::size_t begin = at_;
    at_ = std::min(text_.find('<', at_), text_.size());
    if (!HasWholeReferences(text_.substr(begin, at_ - begin))) {
      return kBrokenReference;
    }
    if (parts_ > kMostParts) {
      return L"the document has more than 100,000 tags and attributes";
    }
    if (const wchar_t* fault = PassMarkup()) {
      return fault;
    }
  }
  return nullptr;
}

// Passes what begins with the "<" at at_, if there is one.
const wchar_t* TagScanner::PassMarkup() {
  if (DeclarationStandsAt()) {
    return PassDeclaration();
  }
  if (NameStandsAt(at_ + 1)) {
    return PassStartTag();
  }
  if (StandsAt(kComment)) {
    PassTo("-->", at_ + kComment.size());
  } else if (StandsAt(kCData)) {
    PassTo("]]>", at_ + kCData.size());
  } else {
    if (StandsAt("</")) {
      level_ = std::max(level_ - 1, 0);
    }
    PassTo(">", at_);
  }
  return nullptr;
}

const wchar_t* TagScanner::PassDeclaration() {
  const std::size_t begin = at_;
  PassTo(">", at_);
  const std::string_view declaration = text_.substr(begin, at_ - begin);
  char quote = '\0';
  for (const char c : declaration) {
    if (quote == '\0' ? c == '"' || c == '\'' : c == quote) {
      quote = quote == '\0' ? c : '\0';
    }
  }
  if (!declaration.ends_with('>') || quote != '\0') {
    return L"the XML declaration does not end";
  }
  return HasWholeReferences(declaration) ? nullptr : kBrokenReference;
}

const wchar_t* TagScanner::PassStartTag() {
  const std::size_t begin = at_;
  int attributes = 0;
  char quote = '\0';
  for (; at_ < text_.size(); ++at_) {
    const char c = text_[at_];
    if (quote != '\0') {
      quote = c == quote ? '\0' : quote;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '=' && ++attributes > kMostAttributes) {
      return L"an element has more than 100 attributes";
    } else if (c == '>') {
      break;
    }
  }
  if (!HasWholeReferences(text_.substr(begin, at_ - begin))) {
    return kBrokenReference;
  }
  const bool isEmptyElement = at_ < text_.size() && text_[at_ - 1] == '/';
  parts_ += attributes;
  if (level_ + 1 > kMostLevels) {
    return L"elements are nested deeper than 100";
  }
  level_ += isEmptyElement ? 0 : 1;
  return nullptr;
}

}  // namespace

const wchar_t* FindReplyFault(std::string_view reply) {
  if (reply.find('\0') != std::string_view::npos) {
    return L"the document holds a NUL";
  }
  if (!IsUtf8(reply)) {
    return L"the document is not UTF-8";
  }
  return TagScanner(reply).FindFault();
}

}  // namespace postwright
