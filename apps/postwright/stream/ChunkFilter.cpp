#include "apps/postwright/stream/ChunkFilter.h"

#include <charconv>
#include <utility>

#include "apps/postwright/stream/LabelLine.h"

namespace postwright {

namespace {

// Enough lines that handing them over costs next to nothing, and few enough that all workers have
// some.
constexpr std::size_t kMostLines = 512;
constexpr std::size_t kMostOfChunk = std::size_t{64} << 10U;
constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

constexpr int kMostDeaths = 2;

std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return line;
}

std::size_t NumberOf(std::string_view text) {
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

ExitStatus ChunkFilter::Do() {
  while (!IsDone()) {
    HandOut();
    WriteKnown();
    if (!IsDone()) {
      WaitForEvents();
    }
  }
  return status_;
}

bool ChunkFilter::MayTakeMore() const {
  return !isEnded_ && bytes_ < kMostBytes;
}

void ChunkFilter::HandOut() {
  while (!due_.empty() && workers_.HasRoom()) {
    Give(due_.front());
    due_.pop_front();
  }
  while (MayTakeMore() && lines_.IsLineAtHand() && workers_.HasRoom()) {
    TakeLines();
  }
}

// Takes what is at hand, up to a chunk, and hands it out; or the end.
void ChunkFilter::TakeLines() {
  Chunk chunk;
  while (chunk.count < kMostLines && chunk.text.size() < kMostOfChunk && lines_.IsLineAtHand()) {
    if (!lines_.Next()) {
      isEnded_ = true;
      break;
    }
    if (lines_.IsTooLong()) {
      AddTooLong(std::move(chunk));
      return;
    }
    if (chunk.count++ == 0) {
      chunk.number = lines_.Number();
    } else {
      chunk.text += '\n';
    }
    chunk.text += lines_.Line();
  }
  if (chunk.count > 0) {
    Give(Add(std::move(chunk)));
  }
}

// The line at which the input stands was never held, so no worker can have it.
void ChunkFilter::AddTooLong(Chunk before) {
  if (before.count > 0) {
    Give(Add(std::move(before)));
  }
  Chunk chunk;
  chunk.number = lines_.Number();
  chunk.count = 1;
  KnowUnanswered(Add(std::move(chunk)), LabelLineParser().Parse(lines_).problem);
}

ChunkFilter::Place ChunkFilter::Add(Chunk chunk) {
  bytes_ += chunk.text.size();
  chunks_.push_back(std::move(chunk));
  return std::prev(chunks_.end());
}

void ChunkFilter::Give(Place chunk) {
  handed_.emplace(ticket_, chunk);
  workers_.Give(ticket_++, {}, std::to_string(chunk->count) + '\n' + chunk->text);
}

void ChunkFilter::WaitForEvents() {
  const bool wantsInput = MayTakeMore() && !lines_.IsLineAtHand() && workers_.HasRoom();
  if (handed_.empty() && !wantsInput) {
    return;  // what was due had no room, and has it now
  }
  const LineWorkers::Events events = workers_.Wait(wantsInput ? lines_.Descriptor() : -1, -1);
  if (events.isReadable) {
    lines_.ReadSome();
  }
  for (const LineWorkers::Answer& answer : events.answers) {
    Note(answer);
  }
}

void ChunkFilter::Note(const LineWorkers::Answer& answer) {
  const Place chunk = handed_.extract(answer.ticket).mapped();
  std::string_view text = answer.record.line;
  if (!text.empty()) {
    text.remove_suffix(kAnswerEnd.size() - 1);
    const std::size_t problems = text.starts_with('\n') ? 0 : text.find("\n\n") + 1;
    Know(chunk, std::string(text.substr(0, problems)), std::string(text.substr(problems + 1)));
  } else if (chunk->count > 1) {
    Split(chunk);
  } else if (++chunk->deaths < kMostDeaths) {
    due_.push_back(chunk);
  } else {
    const std::string problem = "could not be read: the worker process " + answer.ending;
    KnowUnanswered(chunk, problem);
  }
}

// Each line becomes a chunk of its own.
void ChunkFilter::Split(Place chunk) {
  std::string_view rest = chunk->text;
  for (std::size_t line = 0; line < chunk->count; ++line) {
    Chunk alone;
    alone.number = chunk->number + line;
    alone.count = 1;
    alone.text = TakeLine(rest);
    due_.push_back(chunks_.insert(chunk, std::move(alone)));
  }
  bytes_ -= chunk->count - 1;  // line feeds
  chunks_.erase(chunk);
}

void ChunkFilter::Know(Place chunk, std::string problems, std::string records) {
  bytes_ += problems.size() + records.size() - chunk->text.size();
  chunk->problems = std::move(problems);
  chunk->text = std::move(records);
  chunk->isKnown = true;
}

void ChunkFilter::KnowUnanswered(Place chunk, const std::string& problem) {
  LabelLine label;
  label.problem = problem;
  Know(chunk, "0 " + problem + '\n', answer_(label).line);
}

void ChunkFilter::WriteKnown() {
  if (chunks_.empty() || !chunks_.front().isKnown) {
    return;
  }
  while (!chunks_.empty() && chunks_.front().isKnown) {
    const Chunk& chunk = chunks_.front();
    Report(chunk);
    output_.Write(chunk.text);
    bytes_ -= chunk.problems.size() + chunk.text.size();
    chunks_.pop_front();
  }
  output_.Flush();
}

void ChunkFilter::Report(const Chunk& chunk) {
  for (std::string_view rest = chunk.problems; !rest.empty();) {
    const std::string_view problem = TakeLine(rest);
    const std::size_t blank = problem.find(' ');
    progress_.Say("line " + std::to_string(chunk.number + NumberOf(problem.substr(0, blank))) +
                  std::string(problem.substr(blank)) + "; an empty record takes its place");
    status_ = kExitNotALabel;
  }
}

void ChunkFilter::Serve(const LineAnswer& answer) {
  LineReader lines("-");
  LabelLineParser parser;
  Output output("");
  while (lines.Next()) {
    const std::size_t count = NumberOf(lines.Line());
    std::string problems;
    std::string records;
    for (std::size_t line = 0; line < count && lines.Next(); ++line) {
      const LabelLine label = parser.Parse(lines);
      if (!label.problem.empty()) {
        problems += std::to_string(line) + ' ' + label.problem + '\n';
      }
      records += answer(label).line;
    }
    output.Write(PackRecord(LineRecord(problems.append("\n").append(records).append(".\n"))));
    output.Flush();
  }
}

}  // namespace postwright
