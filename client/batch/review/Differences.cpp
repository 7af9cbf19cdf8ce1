#include "client/batch/review/Differences.h"

#include <QStringList>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace postwright {
namespace {

struct Letter {
  qsizetype start;
  qsizetype length;
  char32_t folded;
  bool operator==(const Letter& other) const { return folded == other.folded; }
};

struct Word {
  qsizetype start = 0;
  qsizetype length = 0;
  std::vector<Letter> letters;
  bool operator==(const Word& other) const { return letters == other.letters; }
};

using Pair = std::pair<std::size_t, std::size_t>;
using Words = std::vector<Word>;

// More cells than this are not compared, of words and of letters.
constexpr std::size_t kMostCells = 10000;

std::vector<Letter> lettersOf(QStringView text, qsizetype start, qsizetype end) {
  std::vector<Letter> letters;
  for (qsizetype i = start; i < end;) {
    const bool two = text[i].isHighSurrogate() && i + 1 < end && text[i + 1].isLowSurrogate();
    const char32_t character =
        two ? QChar::surrogateToUcs4(text[i], text[i + 1]) : char32_t{text[i].unicode()};
    letters.push_back({i, two ? 2 : 1, QChar::toCaseFolded(character)});
    i += two ? 2 : 1;
  }
  return letters;
}

Words wordsOf(QStringView text) {
  Words words;
  for (qsizetype start = 0; start < text.size();) {
    if (text[start].isSpace()) {
      ++start;
      continue;
    }
    qsizetype end = start;
    while (end < text.size() && !text[end].isSpace()) {
      ++end;
    }
    words.push_back({start, end - start, lettersOf(text, start, end)});
    start = end;
  }
  return words;
}

// Pairs rows with columns, in order, so that the pairs' weights come to the most. A weight of 0
// pairs nothing.
template <typename Weight>
std::vector<Pair> align(std::size_t rows, std::size_t columns, Weight weight) {
  std::vector<double> weights((rows + 1) * (columns + 1));
  std::vector<double> best((rows + 1) * (columns + 1));
  const auto at = [columns](std::size_t row, std::size_t column) {
    return row * (columns + 1) + column;
  };
  for (std::size_t row = rows; row-- > 0;) {
    for (std::size_t column = columns; column-- > 0;) {
      const double one = weights[at(row, column)] = weight(row, column);
      best[at(row, column)] = std::max({best[at(row + 1, column)], best[at(row, column + 1)],
                                        one > 0 ? one + best[at(row + 1, column + 1)] : 0.0});
    }
  }
  std::vector<Pair> pairs;
  for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
    const double one = weights[at(row, column)];
    if (one > 0 && best[at(row, column)] <= one + best[at(row + 1, column + 1)]) {
      pairs.emplace_back(row++, column++);
    } else if (best[at(row + 1, column)] >= best[at(row, column + 1)]) {
      ++row;
    } else {
      ++column;
    }
  }
  return pairs;
}

std::vector<Pair> alignLetters(const Word& before, const Word& after) {
  if (before.letters.size() * after.letters.size() > kMostCells) {
    return {};
  }
  return align(before.letters.size(), after.letters.size(), [&](std::size_t i, std::size_t j) {
    return before.letters[i] == after.letters[j] ? 1.0 : 0.0;
  });
}

// 1 for equal words, 0 for words that are not more than half alike.
double likeness(const Word& before, const Word& after) {
  if (before == after) {
    return 1;
  }
  const double common = 2.0 * static_cast<double>(alignLetters(before, after).size());
  const double alike = common / static_cast<double>(before.letters.size() + after.letters.size());
  return alike > 0.5 ? alike : 0;
}

std::vector<Pair> alignWords(const Words& before, const Words& after) {
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t head = 0;
  while (head < shorter && before[head] == after[head]) {
    ++head;
  }
  std::size_t tail = 0;
  while (tail < shorter - head && before.rbegin()[static_cast<std::ptrdiff_t>(tail)] ==
                                      after.rbegin()[static_cast<std::ptrdiff_t>(tail)]) {
    ++tail;
  }
  std::vector<Pair> pairs;
  for (std::size_t i = 0; i < head; ++i) {
    pairs.emplace_back(i, i);
  }
  const std::size_t rows = before.size() - head - tail;
  const std::size_t columns = after.size() - head - tail;
  if (rows * columns <= kMostCells) {
    const auto inner = align(rows, columns, [&](std::size_t i, std::size_t j) {
      return likeness(before[head + i], after[head + j]);
    });
    for (const auto& [i, j] : inner) {
      pairs.emplace_back(head + i, head + j);
    }
  }
  for (std::size_t i = tail; i > 0; --i) {
    pairs.emplace_back(before.size() - i, after.size() - i);
  }
  return pairs;
}

// Adds a mark, to the one before where they touch.
void mark(qsizetype start, qsizetype length, QList<TextMark>& marks) {
  if (!marks.isEmpty() && marks.last().start + marks.last().length == start) {
    marks.last().length += length;
  } else {
    marks.append({start, length});
  }
}

void markLettersOutside(const Word& word, const std::vector<Pair>& pairs, std::size_t Pair::*side,
                        QList<TextMark>& marks) {
  auto kept = pairs.begin();
  for (std::size_t i = 0; i < word.letters.size(); ++i) {
    if (kept != pairs.end() && (*kept).*side == i) {
      ++kept;
    } else {
      mark(word.letters[i].start, word.letters[i].length, marks);
    }
  }
}

QString textOf(const QString& text, const Words& words, std::size_t begin, std::size_t end) {
  QStringList parts;
  for (std::size_t i = begin; i < end; ++i) {
    parts.append(text.mid(words[i].start, words[i].length));
  }
  return parts.join(u' ');
}

void markWords(const Words& words, std::size_t begin, std::size_t end, QList<TextMark>& marks) {
  for (std::size_t i = begin; i < end; ++i) {
    mark(words[i].start, words[i].length, marks);
  }
}

}  // namespace

Differences findDifferences(const QString& before, const QString& after) {
  const Words old = wordsOf(before);
  const Words fresh = wordsOf(after);
  Differences differences;
  std::size_t i = 0;
  std::size_t j = 0;
  const auto skipTo = [&](std::size_t nextOld, std::size_t nextFresh) {
    if (i < nextOld || j < nextFresh) {
      markWords(old, i, nextOld, differences.removed);
      markWords(fresh, j, nextFresh, differences.added);
      differences.changes.append(
          {textOf(before, old, i, nextOld), textOf(after, fresh, j, nextFresh)});
    }
  };
  for (const auto& [row, column] : alignWords(old, fresh)) {
    skipTo(row, column);
    if (!(old[row] == fresh[column])) {
      const std::vector<Pair> letters = alignLetters(old[row], fresh[column]);
      markLettersOutside(old[row], letters, &Pair::first, differences.removed);
      markLettersOutside(fresh[column], letters, &Pair::second, differences.added);
      differences.changes.append(
          {textOf(before, old, row, row + 1), textOf(after, fresh, column, column + 1)});
    }
    i = row + 1;
    j = column + 1;
  }
  skipTo(old.size(), fresh.size());
  return differences;
}

}  // namespace postwright
