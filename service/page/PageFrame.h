#ifndef POSTWRIGHT_SERVICE_PAGE_PAGEFRAME_H_
#define POSTWRIGHT_SERVICE_PAGE_PAGEFRAME_H_

#include <string>
#include <string_view>

#include "service/http/HttpMessage.h"

namespace postwright::service {

// What goes into the page; HTML but for what was typed.
struct PageParts {
  std::string label = {};        // as it was typed
  std::string labelAnswer = {};  // empty where nothing was asked
  std::string table = {};
  std::string tableAnswer = {};
  std::string state = {};
  std::string version = {};
};

// The page as a whole: its forms with what was typed in them, and the answers. One file, of which
// everything else that a browser may load or run is shut out by a Content-Security-Policy.
HttpReply ReplyWithPage(int status, const PageParts& parts, std::string note);

// A piece of the page for its script, or a file to save, under the same rules.
HttpReply ReplyWithPiece(std::string type, std::string body, std::string note);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_PAGEFRAME_H_
