#ifndef POSTWRIGHT_SERVICE_PROTOCOL_CUTQUERY_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_CUTQUERY_H_

#include <string>
#include <string_view>

namespace postwright::service {

// Puts a query together again that its sender has cut by leaving the ampersand of an XML reference
// unescaped: a field that could only be the rest of one (`&lt;`, `&gt;`, `&quot;`, `&#x0A;`,
// `&%23x0A;`) is joined to the one in front of it.
//
//   JoinCutReferences("XML=JANE&%23x0A;DOE")   // "XML=JANE%26%23x0A;DOE"
//
// A reference to a control character that XML does not have becomes a blank. `encoded` is a query
// or a form's body with its escapes; so is what is returned. Pure, linear.
std::string JoinCutReferences(std::string_view encoded);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_CUTQUERY_H_
