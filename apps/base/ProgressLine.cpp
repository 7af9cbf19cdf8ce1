#include "apps/base/ProgressLine.h"

#include <unistd.h>

#include <iostream>

namespace postwright::postal {
namespace {

constexpr std::string_view kName = "postwright-base: ";
constexpr std::string_view kEraseLine = "\r\033[K";

}  // namespace

ProgressLine::ProgressLine(Form form)
    : form_(form),
      terminal_(form == Form::Text && isatty(STDERR_FILENO) == 1),
      shown_(form == Form::Json ? Clock::time_point() : begun_) {}

bool ProgressLine::IsDue() {
  const std::chrono::milliseconds period(terminal_ || form_ == Form::Json ? 200 : 10'000);
  const Clock::time_point now = Clock::now();
  if (form_ == Form::Quiet || now - shown_ < period) {
    return false;
  }
  shown_ = now;
  return true;
}

void ProgressLine::Draw(const std::string& text, const char* step, const Figures& figures) {
  if (form_ == Form::Json) {
    std::cout << "{\"step\":\"" << step << '"';
    for (const auto& [name, figure] : figures) {
      std::cout << ",\"" << name << "\":" << figure;
    }
    std::cout << "}\n" << std::flush;
  } else if (form_ == Form::Text) {
    std::cerr << (terminal_ ? kEraseLine : kName) << text << (terminal_ ? "" : "\n") << std::flush;
    drawn_ = terminal_;
  }
}

void ProgressLine::Say(const std::string& text) {
  std::cerr << (drawn_ ? kEraseLine : "") << kName << text << '\n';
  drawn_ = false;
}

std::string Thousands(int64_t number) {
  std::string text = std::to_string(number);
  for (auto at = static_cast<int64_t>(text.size()) - 3; at > 0; at -= 3) {
    text.insert(static_cast<size_t>(at), 1, ',');
  }
  return text;
}

}  // namespace postwright::postal
