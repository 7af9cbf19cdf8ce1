#include "client/batch/review/Explanations.h"

#include <algorithm>
#include <vector>

#include "client/LocalizedString.h"
#include "client/ReviewWords.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/LongLines.h"

namespace postwright {
namespace {

// Where the code points of a text begin: a character beyond the first 65,536 counts two in a
// QString and one in a wide string.
class CodePoints {
 public:
  explicit CodePoints(const QString& text) {
    for (qsizetype at = 0; at < text.size(); ++at) {
      if (!text[at].isLowSurrogate()) {
        _begins.push_back(at);
      }
    }
    _begins.push_back(text.size());
  }

  TextMark markOf(const CorrectionPart& part) const {
    const qsizetype start = at(part.begin);
    return {start, at(part.end) - start};
  }

 private:
  qsizetype at(std::size_t codePoint) const {
    return _begins[std::min(codePoint, _begins.size() - 1)];
  }

  std::vector<qsizetype> _begins;
};

bool isShownWhole(const QString& text) {
  return cutLongLines(text).size() == text.size();
}

QString wordsOfPart(const CorrectionPart& part) {
  return QString::fromStdWString(part.text).simplified();
}

// These say by themselves whether words came or went.
bool saysWhatBecame(CorrectionRule rule) {
  constexpr CorrectionRule kRules[] = {
      CorrectionRule::Zip4Added,        CorrectionRule::Zip4Dropped,
      CorrectionRule::SuffixAdded,      CorrectionRule::SuffixDropped,
      CorrectionRule::DirectionalAdded, CorrectionRule::DirectionalDropped,
  };
  return std::find(std::begin(kRules), std::end(kRules), rule) != std::end(kRules);
}

QString textOf(const CorrectionChange& change) {
  if (change.doubt) {
    return sentenceOf(change);
  }
  const Change words{wordsOfPart(change.typed), wordsOfPart(change.corrected)};
  const QString& only = words.from.isEmpty() ? words.to : words.from;
  const bool isOne = words.from.isEmpty() || words.to.isEmpty();
  return isOne && saysWhatBecame(change.rule)
             ? wordsOf(change.rule) + QStringLiteral(": ") + only
             : changeText(words) + QStringLiteral(": ") + wordsOf(change.rule);
}

bool isMove(CorrectionRule rule) {
  return rule == CorrectionRule::WordCrossed || rule == CorrectionRule::WordMoved ||
         rule == CorrectionRule::NumberMoved;
}

}  // namespace

QList<ExplainedChange> explainedChanges(const BatchResultRecord::Values& values) {
  const QString& corrected = values.corrected();
  if (!isShownWhole(values.address) || !isShownWhole(corrected)) {
    return {};
  }
  const CodePoints typedPoints(values.address);
  const CodePoints correctedPoints(corrected);
  QList<ExplainedChange> explained;
  const CorrectionReview review = values.review();
  for (const CorrectionChange& change : review.Changes()) {
    explained.append({typedPoints.markOf(change.typed), correctedPoints.markOf(change.corrected),
                      change.rule, textOf(change)});
  }
  return explained;
}

QStringList changeTexts(const BatchResultRecord::Values& values, const Differences& differences) {
  const QList<ExplainedChange> explained = explainedChanges(values);
  if (explained.isEmpty()) {
    return changeTexts(differences);
  }
  QStringList texts = moveTexts(differences);
  const bool areMovesSaid = !texts.isEmpty();
  for (const ExplainedChange& change : explained) {
    if (!areMovesSaid || !isMove(change.rule)) {
      texts.append(change.text);
    }
  }
  return texts;
}

QMap<QString, qsizetype> countRules(const BatchResultRecordList& records) {
  QMap<QString, qsizetype> counts;
  for (const BatchResultRecordPointer& record : records) {
    const BatchResultRecord::Values values = record->values();
    if (values.pending || values.own || values.status != AddressStatusFixed) {
      continue;
    }
    for (const CorrectionRule rule : values.rules) {
      ++counts[wordsOf(rule)];
    }
  }
  return counts;
}

}  // namespace postwright
