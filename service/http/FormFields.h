#ifndef POSTWRIGHT_SERVICE_HTTP_FORMFIELDS_H_
#define POSTWRIGHT_SERVICE_HTTP_FORMFIELDS_H_

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace postwright::service {

// The fields of a query or of a form's body: `name=value` separated by `&`, percent escapes, `+`
// for a blank. A `%` without two hexadecimal digits after it is literal.
//
//   FormFields("API=Verify&XML=%3Ca/%3E").Find("xml");   // "<a/>"
class FormFields {
 public:
  explicit FormFields(std::string_view encoded);

  // Returns the value of the first field of that name in any case; nullopt where there is none. The
  // view is valid as long as the object.
  std::optional<std::string_view> Find(std::string_view name) const;

 private:
  std::vector<std::pair<std::string, std::string>> fields_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_FORMFIELDS_H_
