#include "postal/cut/LineCollector.h"

#include <optional>

#include "postal/cut/SentWords.h"

namespace postwright::postal {

bool LineCollector::Add(const SentLine& line, LinePlace place) {
  if (place == LinePlace::Above) {
    above_ += (above_.empty() ? "" : "\n") + line.text;
  } else if (place == LinePlace::Unit) {
    Append(street_, {"#", line.words[0]});
  } else if (place == LinePlace::Continues) {
    const std::optional<Words> joined = JoinStreet(street_, line.words);
    street_ = joined.value_or(Words());
    return joined.has_value();
  }
  return place != LinePlace::Unsure;
}

}  // namespace postwright::postal
