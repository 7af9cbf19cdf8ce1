#ifndef POSTWRIGHT_SERVICE_PROTOCOL_REPLYSOURCE_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_REPLYSOURCE_H_

#include <string>

namespace postwright::service {

// Whose word an answer is, as the element `Source` of an address tells a client that asks for it:
// docs/verify-service.md has its form.
struct ReplySource {
  enum class Kind { Untold, Base, ZipList, Upstream, Cache };

  Kind kind = Kind::Untold;
  std::string name = {};  // of the base's file, or of the upstream
  std::string date = {};  // "2026-11-20": when the base was made, or the kept answer given

  bool operator==(const ReplySource&) const = default;

  // Appends the element; nothing where nobody is told.
  void Write(std::string& xml) const;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_REPLYSOURCE_H_
