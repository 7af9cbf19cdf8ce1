#include "service/protocol/XmlDocument.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "common/Encoding.h"

namespace postwright::service {
namespace {

using State = XmlDocument::State;

// XML 1.0, production 2.
constexpr bool IsXmlCharacter(uint32_t c) {
  return c >= 0x20 ? (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF
                   : c == '\t' || c == '\n' || c == '\r';
}

// Says whether `name`, which stands between ampersand and semicolon, stands for a character.
bool IsReference(std::string_view name) {
  if (!name.starts_with('#')) {
    constexpr std::string_view kNames[] = {"amp", "lt", "gt", "quot", "apos"};
    return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
  }
  const bool isHex = name.starts_with("#x");
  name.remove_prefix(isHex ? 2 : 1);
  uint32_t character = 0;
  const auto [end, failure] =
      std::from_chars(name.data(), name.data() + name.size(), character, isHex ? 16 : 10);
  return failure == std::errc() && end == name.data() + name.size() && IsXmlCharacter(character);
}

// Whether a byte of UTF-8 is not a character of XML or may begin what is looked at more closely.
constexpr std::array<bool, 256> kSpecial = [] {
  std::array<bool, 256> special = {};
  for (uint32_t byte = 0; byte < special.size(); ++byte) {
    special[byte] = byte == '&' || byte == '<' || !IsXmlCharacter(byte);
  }
  return special;
}();

// Looks for what the parser lets pass: characters that XML does not have, references that stand for
// none, document types.
class MarkupScan {
 public:
  static State Scan(std::string_view text) { return MarkupScan(text).Scan(); }

 private:
  explicit MarkupScan(std::string_view text) : rest_(text) {}

  State Scan() {
    State state = State::Whole;
    while (state == State::Whole) {
      const auto special = std::find_if(rest_.begin(), rest_.end(), IsSpecial);
      if (special == rest_.end()) {
        break;
      }
      rest_.remove_prefix(static_cast<size_t>(special - rest_.begin()));
      state = Take();
    }
    return state;
  }

  static bool IsXmlByte(char c) { return IsXmlCharacter(static_cast<unsigned char>(c)); }
  static bool IsSpecial(char c) { return kSpecial[static_cast<unsigned char>(c)]; }

  State Take() {
    const char c = rest_.front();
    if (c == '&') {
      return TakeReference();
    }
    if (c == '<' && rest_.size() > 1 && (rest_[1] == '!' || rest_[1] == '?')) {
      return TakeUnread();
    }
    rest_.remove_prefix(1);
    return IsXmlByte(c) ? State::Whole : State::Malformed;
  }

  State TakeReference() {
    constexpr size_t kLongest = 10;  // &#x10FFFF;
    const std::string_view whole = rest_.substr(0, kLongest);
    const size_t end = whole.find(';');
    if (end == std::string_view::npos) {
      return whole.size() < kLongest ? State::CutShort : State::Malformed;
    }
    rest_.remove_prefix(end + 1);
    return IsReference(whole.substr(1, end - 1)) ? State::Whole : State::Malformed;
  }

  // What is between these marks is no markup.
  State TakeUnread() {
    static constexpr std::pair<std::string_view, std::string_view> kMarks[] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [begin, end] : kMarks) {
      if (rest_.starts_with(begin)) {
        const size_t at = rest_.find(end, begin.size());
        const bool isCut = at == std::string_view::npos;
        const std::string_view unread = rest_.substr(0, isCut ? at : at + end.size());
        rest_.remove_prefix(unread.size());
        return !std::all_of(unread.begin(), unread.end(), IsXmlByte) ? State::Malformed
               : isCut                                               ? State::CutShort
                                                                     : State::Whole;
      }
      if (begin.starts_with(rest_)) {
        return State::CutShort;
      }
    }
    return State::Malformed;
  }

  std::string_view rest_;
};

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

void RemoveLast(pugi::xml_node node) {
  while (node.last_child()) {
    node = node.last_child();
  }
  node.parent().remove_child(node);
}

// Goes through a document's nodes with `visit`, which returns whether to go on.
template <typename Visit>
class Walker : public pugi::xml_tree_walker {
 public:
  explicit Walker(Visit visit) : visit_(std::move(visit)) {}
  bool for_each(pugi::xml_node& node) override { return visit_(node, depth()); }

 private:
  Visit visit_;
};

}  // namespace

XmlDocument::XmlDocument(std::string_view bytes) : text_(DecodeDocument(bytes)), state_(Parse()) {}

// The parser takes much that is not well-formed, so what could be taken for another text than the
// sender meant is looked for here.
XmlDocument::State XmlDocument::Parse() {
  const State scanned = MarkupScan::Scan(text_);
  if (scanned == State::Malformed) {
    return State::Malformed;
  }
  const pugi::xml_parse_result parsed = document_.load_buffer(
      text_.data(), text_.size(), pugi::parse_default | pugi::parse_fragment, pugi::encoding_utf8);
  const bool isCut = scanned == State::CutShort || !text_.ends_with('>') ||
                     static_cast<size_t>(parsed.offset) >= text_.size();
  if (!parsed && !isCut) {
    return State::Malformed;
  }
  if (parsed.status == pugi::status_bad_start_element ||
      parsed.status == pugi::status_bad_attribute) {
    RemoveLast(document_.root());  // whose start tag is not whole
  }
  for (const pugi::xml_node node : document_) {
    if (IsText(node) || root_) {
      root_ = {};
      return State::Malformed;  // the document ends with its root
    }
    root_ = node;
  }
  return parsed && root_ && scanned == State::Whole ? State::Whole : State::CutShort;
}

bool XmlDocument::IsCutWithin(pugi::xml_node element) const {
  if (state_ != State::CutShort) {
    return false;
  }
  const std::string endTag = std::string("</") + element.name();
  auto at = static_cast<size_t>(element.offset_debug());
  for (;;) {
    at = text_.find(endTag, at);
    if (at == std::string::npos || at + endTag.size() >= text_.size()) {
      return true;
    }
    at += endTag.size();
    if (text_[at] == '>' || IsBlank(text_[at])) {
      return false;  // no longer name that begins like it
    }
  }
}

bool XmlDocument::IsDeeperThan(size_t most) const {
  bool isDeeper = false;
  Walker walker([&](pugi::xml_node node, int depth) {
    isDeeper = node.type() == pugi::node_element && static_cast<size_t>(depth) + 1 >= most;
    return !isDeeper;
  });
  pugi::xml_node root = root_;
  root.traverse(walker);
  return isDeeper;
}

std::string XmlDocument::TextOf(pugi::xml_node element, size_t most) {
  const pugi::xml_node first = element.first_child();
  if (!first.next_sibling() && (!first || IsText(first))) {
    return std::string(std::string_view(first.value()).substr(0, most));
  }
  std::string text;
  Walker walker([&text](pugi::xml_node node, int) {
    text += IsText(node) ? node.value() : "";
    return true;
  });
  element.traverse(walker);
  text.resize(std::min(text.size(), most));
  return text;
}

}  // namespace postwright::service
