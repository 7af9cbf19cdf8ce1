#ifndef POSTWRIGHT_SERVICE_PAGE_HTML_H_
#define POSTWRIGHT_SERVICE_PAGE_HTML_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace postwright::service::html {

// What a page is written with. Everything that somebody typed goes through here, into the text of
// an element or the value of an attribute in quotation marks. Pure, for any thread.

// Returns UTF-8 text as a page has it: a character that has a meaning there as its reference,
// one that turns text round or is no text (ShownText) as U+FFFD. Line feeds and tabs stay.
std::string Text(std::string_view text);
std::string Text(std::wstring_view text);

// A run of a text, in elements of the wide string.
struct Span {
  std::size_t begin;
  std::size_t end;
};

// The same with each span in an element: "del", "ins". Spans ascend and do not meet.
std::string Marked(std::wstring_view text, const std::vector<Span>& spans,
                   std::string_view element);

// A field that is sent and not shown.
std::string Hidden(std::string_view name, std::string_view value);

}  // namespace postwright::service::html

#endif  // POSTWRIGHT_SERVICE_PAGE_HTML_H_
