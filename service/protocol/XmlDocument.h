#ifndef POSTWRIGHT_SERVICE_PROTOCOL_XMLDOCUMENT_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_XMLDOCUMENT_H_

#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace postwright::service {

// An XML document that somebody sent: UTF-8, UTF-16 with its mark, and what is neither as
// Windows-1252, whatever the declaration says.
//
//   const XmlDocument document(body);
//   if (document.GetState() == XmlDocument::State::Whole) { … document.Root().child("Zip5") … }
//
// A document type is malformed here, and with it entities of the sender's own. Some of what is not
// well-formed is taken, where it leaves no doubt what was meant: an attribute that stands there
// twice (the first counts), a sign in a name that names do not have. Needs memory in proportion to
// the document, and no deeper a stack for deeper nesting.
class XmlDocument {
 public:
  enum class State {
    Whole,
    CutShort,   // well-formed as far as it goes, and ends too early
    Malformed,  // there is no Root
  };

  explicit XmlDocument(std::string_view bytes);

  State GetState() const { return state_; }

  // The element that holds all others; none where the document is cut before it.
  pugi::xml_node Root() const { return root_; }

  // Says whether a document that is cut short was cut within this element, one of the last.
  bool IsCutWithin(pugi::xml_node element) const;

  // Says whether elements are nested in more than `most` others, the root one of them.
  bool IsDeeperThan(size_t most) const;

  // Returns the text of an element, with that of the elements in it: the first `most` bytes.
  static std::string TextOf(pugi::xml_node element, size_t most = std::string::npos);

 private:
  State Parse();

  const std::string text_;
  pugi::xml_document document_;
  pugi::xml_node root_;
  State state_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_XMLDOCUMENT_H_
