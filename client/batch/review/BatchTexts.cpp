#include "client/batch/review/BatchTexts.h"

#include <QLocale>
#include <QStringList>
#include <cmath>

#include "client/LocalizedString.h"
#include "client/ReviewWords.h"
#include "client/suite/StringHelpers.h"

namespace postwright {
namespace {

QString number(qsizetype value) {
  return QLocale().toString(static_cast<qlonglong>(value));
}

// "2 errors, 1 open choice and 3 addresses as typed".
QString joined(QStringList parts) {
  const QString last = parts.takeLast();
  return parts.isEmpty() ? last : parts.join(QStringLiteral(", ")) + localizedString("SAnd") + last;
}

}  // namespace

QString statusText(const BatchResultRecord::Values& values) {
  if (values.pending) {
    return {};
  }
  switch (values.status) {
    case AddressStatusUnchanged:
      return localizedString("SStatusUnchanged");
    case AddressStatusFixed:
      return localizedString(values.own ? "SStatusOwn" : "SStatusFixed");
    case AddressStatusMultiple:
      return localizedString(values.isDoubtful() ? "SStatusDoubtful" : "SStatusMultiple");
    case AddressStatusError:
      return localizedString(values.isUnanswered() ? "SStatusNotChecked" : "SStatusError");
  }
  return {};
}

QString hintText(const BatchResultRecord::Values& values) {
  if (values.pending) {
    return localizedString("SProcessing");
  }
  switch (values.status) {
    case AddressStatusFixed:
      return values.fixed.isEmpty() ? localizedString("SHintBlank") : QString();
    case AddressStatusMultiple:
      return values.isDoubtful() ? values.remark
                                 : localizedString("SHintMultiple", values.matches.size());
    case AddressStatusError:
      return values.failure();
    default:
      return {};
  }
}

QString whyText(const BatchResultRecord::Values& values) {
  if (!values.pending && values.status == AddressStatusUnchanged) {
    return values.own ? localizedString("SKeptTyped") : values.remark;
  }
  return !values.pending && values.own ? localizedString("SFixedOwn") : hintText(values);
}

QString confirmationText(const BatchResultRecord::Values& values) {
  const bool isAnswer = values.isWellWritten() ||
                        (!values.pending && !values.own && values.status == AddressStatusFixed);
  return isAnswer ? sentenceOf(values.confirmation) : QString();
}

QString foundText(const BatchResultRecord::Values& values) {
  if (values.isFoundRight()) {
    return localizedString("SFoundRight");
  }
  const QString known = sentenceOf(values.confirmation);
  return localizedString("SNothingToCorrect") + (known.isEmpty() ? known : u' ' + known);
}

QString unconfirmedText(const Confirmation& confirmation) {
  switch (confirmation.Kind()) {
    case ConfirmationUnitMissing:
      return localizedString("SCandidateUnitMissing");
    case ConfirmationUnitNotKnown:
      return localizedString("SCandidateUnitNotKnown");
    case ConfirmationNumberNotKnown:
      return localizedString("SCandidateNumberNotKnown");
    case ConfirmationFormOnly:
      return localizedString("SCandidateFormOnly");
    default:
      return {};
  }
}

QString spokenStatus(const BatchResultRecord::Values& values) {
  const QString known =
      values.candidates.isEmpty() ? confirmationText(values) : unconfirmedText(values.confirmation);
  const QString status = statusText(values);
  return known.isEmpty() || values.pending ? status : status + QStringLiteral(". ") + known;
}

QString changeText(const Change& change) {
  const char* key = change.from.isEmpty() ? "SSpokenAdded"
                    : change.to.isEmpty() ? "SSpokenRemoved"
                                          : "SSpokenChanged";
  const QStringList words =
      change.from.isEmpty() ? QStringList{change.to} : QStringList{change.from, change.to};
  return StringHelpers::stringWithFormat(localizedString(key), words);
}

QStringList moveTexts(const Differences& differences) {
  QStringList texts;
  for (const Move& move : differences.moves) {
    texts.append(StringHelpers::stringWithFormat(
        localizedString("SSpokenMoved"), {move.word, number(move.fromLine), number(move.toLine)}));
  }
  return texts;
}

QStringList changeTexts(const Differences& differences) {
  QStringList texts = moveTexts(differences);
  for (const Change& change : differences.changes) {
    texts.append(changeText(change));
  }
  return texts;
}

QString spokenText(const QString& fixed, const QStringList& changes) {
  return (QStringList{fixed} + changes).join(QStringLiteral(". "));
}

QStringList firstChanges(const QStringList& changes, qsizetype most) {
  constexpr qsizetype kLongestChange = 120;
  QStringList lines;
  for (const QString& change : changes.first(std::min(changes.size(), most))) {
    lines.append(change.size() > kLongestChange ? change.first(kLongestChange) + u'…' : change);
  }
  if (changes.size() > most) {
    lines.append(localizedString("SMoreChanges", changes.size() - most));
  }
  return lines;
}

QString toolTipText(const BatchResultRecord::Values& values, const QStringList& changes) {
  constexpr qsizetype kMostChanges = 12;
  QStringList lines{statusText(values), whyText(values), confirmationText(values)};
  for (const QString& change : firstChanges(changes, kMostChanges)) {
    if (!lines.contains(change)) {  // the reason of a doubt is one of its changes
      lines.append(change);
    }
  }
  lines.removeAll(QString());
  // Plain text: what a label holds is never read as markup.
  return QStringLiteral("<p style='white-space:pre'>") + lines.join(u'\n').toHtmlEscaped() +
         QStringLiteral("</p>");
}

QString segmentText(AddressStatus status, qsizetype count) {
  const auto caption = [status] {
    switch (status) {
      case AddressStatusFixed:
        return localizedString("SFilterFixed");
      case AddressStatusMultiple:
        return localizedString("SFilterMultiple");
      case AddressStatusError:
        return localizedString("SFilterError");
      default:
        return localizedString("SFilterUnchanged");
    }
  }();
  return StringHelpers::stringWithFormat(localizedString("SFilterCount"), {caption, number(count)});
}

QString doubtfulText(qsizetype count) {
  return StringHelpers::stringWithFormat(localizedString("SReasonCount"),
                                         {localizedString("SFilterDoubtful"), number(count)});
}

QString applyText(const ReviewCounts& counts) {
  return counts.toApply() == 0 ? localizedString("SApplyNothing")
         : counts.formed == 0  ? localizedString("SApply", counts.fixed)
         : counts.fixed == 0   ? localizedString("SApplyForm", counts.formed)
                               : localizedString("SApplyBoth", counts.toApply());
}

QString summaryText(const ReviewCounts& counts) {
  if (counts.total() == 0) {
    return {};
  }
  const qsizetype right = counts.right();
  if (right == counts.total() && counts.formed == 0) {
    return localizedString("SAllRight", counts.total());
  }
  QStringList kept;
  if (counts.kept > 0) {
    kept.append(localizedString("STypedKept", counts.kept));
  }
  if (const qsizetype refused = counts.errors - counts.notAsked; refused > 0) {
    kept.append(localizedString("SErrorsKept", refused));
  }
  if (counts.multiple > 0) {
    kept.append(localizedString("SChoicesKept", counts.multiple));
  }
  if (const qsizetype unjudged = counts.pending + counts.notAsked; unjudged > 0) {
    kept.append(localizedString("SPendingKept", unjudged));
  }
  QStringList sentences{counts.fixed > 0 ? localizedString("SCorrected", counts.fixed)
                                         : localizedString("SNoneCorrected")};
  if (right > 0) {
    sentences.append(localizedString("SRight", right));
  }
  if (counts.unconfirmed > 0) {
    sentences.append(localizedString("SUnconfirmed", counts.unconfirmed));
  }
  if (counts.formed > 0) {
    sentences.append(localizedString("SFormed", counts.formed));
  }
  if (!kept.isEmpty()) {
    sentences.append(StringHelpers::stringWithFormat(localizedString("SKept"), {joined(kept)}));
  }
  if (counts.blank > 0) {
    sentences.append(localizedString("SBlanked", counts.blank));
  }
  return sentences.join(u' ');
}

QString progressText(qsizetype done, qsizetype total,
                     const std::optional<std::chrono::seconds>& left) {
  const QString counted =
      StringHelpers::stringWithFormat(localizedString("SProgress"), {number(done), number(total)});
  if (!left) {
    return counted;
  }
  const auto seconds = left->count();
  const QString time = seconds < 60     ? localizedString("SSecondsLeft", seconds)
                       : seconds < 3600 ? localizedString("SMinutesLeft", (seconds + 30) / 60)
                                        : localizedString("SHoursLeft", (seconds + 1800) / 3600);
  return StringHelpers::stringWithFormat(localizedString("SProgressTime"), {counted, time});
}

std::optional<std::chrono::seconds> timeLeft(qsizetype done, qsizetype total,
                                             std::chrono::milliseconds elapsed) {
  constexpr qsizetype kFewest = 5;
  constexpr std::chrono::seconds kSoonest{1};
  if (done < kFewest || elapsed < kSoonest) {
    return std::nullopt;
  }
  const double each = static_cast<double>(elapsed.count()) / static_cast<double>(done);
  const auto left =
      std::chrono::seconds(std::llround(each * static_cast<double>(total - done) / 1000.0));
  return left < std::chrono::seconds(2) ? std::nullopt : std::optional(left);
}

QString bannerText(const ReviewCounts& counts, const QString& why,
                   std::optional<std::chrono::milliseconds> gaveUp) {
  QStringList sentences{why};
  if (gaveUp) {
    const auto minutes = std::chrono::round<std::chrono::minutes>(*gaveUp).count();
    sentences +=
        {localizedString("SGaveUp", minutes), localizedString("SNotAskedYet", counts.pending)};
  } else if (counts.notAsked > 0) {
    if (why.isEmpty()) {
      sentences +=
          localizedString(counts.noNetwork == counts.notAsked ? "SNoNetwork" : "SServiceDown");
    }
    sentences += localizedString("SNotChecked", counts.notAsked);
  }
  sentences.removeAll(QString());
  return sentences.join(u' ');
}

QString waitingText(std::chrono::seconds waited) {
  return StringHelpers::stringWithFormat(localizedString("SWaiting"), {number(waited.count())});
}

QString stoppedText(const ReviewCounts& counts) {
  return StringHelpers::stringWithFormat(
      localizedString("SStopped"),
      {number(counts.total() - counts.pending), number(counts.total())});
}

QString severalText(const ReviewCounts& counts) {
  const std::pair<const char*, qsizetype> parts[] = {
      {"SFilterUnchanged", counts.unchanged}, {"SFilterFixed", counts.fixed},
      {"SFilterMultiple", counts.multiple},   {"SFilterError", counts.errors - counts.notAsked},
      {"SStatusNotChecked", counts.notAsked}, {"SNotAskedShort", counts.pending},
  };
  QStringList texts;
  for (const auto& [key, count] : parts) {
    if (count > 0) {
      texts.append(localizedString(key).remove(u'&') + QStringLiteral(": ") + number(count));
    }
  }
  return localizedString("SSeveral", counts.total()) + u'\n' + texts.join(QStringLiteral(", "));
}

QString reasonText(const QString& reason, qsizetype count) {
  return StringHelpers::stringWithFormat(localizedString("SReasonCount"), {reason, number(count)});
}

QString emptyText(qsizetype total) {
  return total == 0 ? localizedString("SNoAddresses") : localizedString("SNoneShown");
}

}  // namespace postwright
