#include "client/batch/review/Differences.h"

#include <QHash>
#include <QStringList>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <array>
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
  int line = 0;
  std::vector<Letter> letters;
  bool operator==(const Word& other) const { return letters == other.letters; }
};

using Pair = std::pair<std::size_t, std::size_t>;
using Words = std::vector<Word>;

// More cells than this are not compared, of words and of letters.
constexpr std::size_t kMostCells = 10000;
// Nor more cells of letters in one comparison of texts, all their words together.
constexpr std::size_t kMostLetterCells = 400000;

// A letter with its marks as one number: the composed character where there is one, else a number
// past all characters that the same letters give again.
char32_t foldedLetter(QStringView letter) {
  const QString composed =
      letter.toString().normalized(QString::NormalizationForm_C).toCaseFolded();
  const QList<uint> characters = composed.toUcs4();
  constexpr char32_t kPastCharacters = 0x80000000;
  return characters.size() == 1 ? char32_t{characters.first()}
                                : kPastCharacters | static_cast<char32_t>(qHash(composed));
}

std::vector<Letter> lettersOf(QStringView text, qsizetype start, qsizetype end) {
  constexpr char16_t kFirstCombining = 0x300;
  std::vector<Letter> letters;
  const QStringView word = text.sliced(start, end - start);
  if (std::all_of(word.begin(), word.end(),
                  [](QChar character) { return character < QChar(kFirstCombining); })) {
    for (qsizetype i = start; i < end; ++i) {
      letters.push_back({i, 1, QChar::toCaseFolded(char32_t{text[i].unicode()})});
    }
    return letters;
  }
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word.data(), word.size());
  for (qsizetype from = 0; from < word.size();) {
    const qsizetype next = finder.toNextBoundary();
    const qsizetype to = next < 0 ? word.size() : next;
    letters.push_back({start + from, to - from, foldedLetter(word.sliced(from, to - from))});
    from = to;
  }
  return letters;
}

Words wordsOf(QStringView text) {
  Words words;
  int line = 0;
  for (qsizetype start = 0; start < text.size();) {
    if (text[start].isSpace()) {
      line += text[start] == u'\n' ? 1 : 0;
      ++start;
      continue;
    }
    qsizetype end = start;
    while (end < text.size() && !text[end].isSpace()) {
      ++end;
    }
    words.push_back({start, end - start, line, lettersOf(text, start, end)});
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

// No more than half of the letters are common, whatever their order.
bool isPlainlyUnlike(const Word& before, const Word& after) {
  constexpr std::size_t kBuckets = 64;
  std::array<int, kBuckets> seen{};
  for (const Letter& letter : before.letters) {
    ++seen[letter.folded % kBuckets];
  }
  std::size_t common = 0;
  for (const Letter& letter : after.letters) {
    common += seen[letter.folded % kBuckets]-- > 0 ? 1 : 0;
  }
  return 4 * common <= before.letters.size() + after.letters.size();
}

// 1 for equal words, 0 for words that are not more than half alike. Takes the cells that it
// compares off `budget`; with none left, words are equal or not at all alike.
double likeness(const Word& before, const Word& after, std::size_t& budget) {
  if (before == after) {
    return 1;
  }
  const std::size_t cells = before.letters.size() * after.letters.size();
  if (cells > budget || isPlainlyUnlike(before, after)) {
    return 0;
  }
  budget -= cells;
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
    std::size_t budget = kMostLetterCells;
    const auto inner = align(rows, columns, [&](std::size_t i, std::size_t j) {
      return likeness(before[head + i], after[head + j], budget);
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

// Which line of the text after a line of the text before became: the one that has most of its
// words, the first of several; -1 where none has.
std::vector<int> linesBecome(const Words& old, const Words& fresh, const std::vector<Pair>& pairs) {
  std::vector<int> becomes(old.empty() ? 0 : static_cast<std::size_t>(old.back().line) + 1, -1);
  std::vector<int> most(becomes.size(), 0);
  int line = -1;
  int target = -1;
  int count = 0;
  for (const auto& [i, j] : pairs) {  // in order of both texts: words of one pair of lines adjoin
    count = old[i].line == line && fresh[j].line == target ? count + 1 : 1;
    line = old[i].line;
    target = fresh[j].line;
    if (count > most[static_cast<std::size_t>(line)]) {
      most[static_cast<std::size_t>(line)] = count;
      becomes[static_cast<std::size_t>(line)] = target;
    }
  }
  return becomes;
}

// Words that went from their line into one that another line became. A line that was only broken or
// joined moved none.
void findMoves(const QString& before, const Words& old, const Words& fresh,
               const std::vector<Pair>& pairs, Differences& differences) {
  const std::vector<int> becomes = linesBecome(old, fresh, pairs);
  for (const auto& [i, j] : pairs) {
    const int target = fresh[j].line;
    const bool stays = becomes[static_cast<std::size_t>(old[i].line)] == target;
    if (!stays && std::find(becomes.begin(), becomes.end(), target) != becomes.end()) {
      differences.movedFrom.append({old[i].start, old[i].length});
      differences.movedTo.append({fresh[j].start, fresh[j].length});
      differences.moves.append(
          {before.mid(old[i].start, old[i].length), old[i].line + 1, target + 1});
    }
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
  const std::vector<Pair> pairs = alignWords(old, fresh);
  findMoves(before, old, fresh, pairs, differences);
  for (const auto& [row, column] : pairs) {
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
