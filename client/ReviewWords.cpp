#include "client/ReviewWords.h"

#include <postwright/Deployment.h>
#include <postwright/ReviewedFix.h>
#include <postwright/UnreadReason.h>
#include <postwright/VerifyFailure.h>

#include "client/FixGate.h"
#include "client/LocalizedString.h"

namespace postwright {
namespace {

// The text of the table; empty in English, and where the code is too new for it.
QString translated(const char* kind, const char* code) {
  return localizedString((QByteArray("SCore-") + kind + code).constData());
}

QString wordsFor(const char* kind, const char* code, const char* english) {
  const QString words = translated(kind, code);
  return words.isEmpty() ? QString::fromUtf8(english) : words;
}

// Words as they are in a sentence: on one line, and not too many.
QString quoted(const std::wstring& words) {
  constexpr std::size_t kLongest = 60;
  if (words.empty()) {
    return translated("", "nothing");
  }
  QString text = QString::fromStdWString(words.substr(0, kLongest));
  for (QChar& character : text) {
    character = character < u' ' ? QChar(u' ') : character;
  }
  return u'“' + text + (words.size() > kLongest ? QStringLiteral("…”") : QStringLiteral("”"));
}

// What the words say themselves is never taken for a place.
QString filled(const QString& text, const QString& first, const QString& second) {
  QString sentence;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QStringView rest = QStringView(text).sliced(at, std::min<qsizetype>(2, text.size() - at));
    if (rest == u"%1" || rest == u"%2") {
      sentence += rest == u"%1" ? first : second;
      ++at;
    } else {
      sentence += text[at];
    }
  }
  return sentence;
}

QString asSentence(const QString& text) {
  return text.isEmpty() ? text : text.front().toUpper() + text.mid(1) + u'.';
}

// The service's own words, or where it was asked.
QString factOf(const VerifyFailure& failure, const VerifyReport& report) {
  if (failure.IsUnanswered() && failure.Code() != "service-error") {
    return QString::fromStdString(GetDeployment().verifyHost);
  }
  const QString words = QString::fromStdString(report.ErrorDescription());
  return words.isEmpty() ? translated("", "no-words") : words.endsWith(u'.') ? words : words + u'.';
}

}  // namespace

QString wordsOf(CorrectionRule rule) {
  return wordsFor("rule-", CorrectionRuleCode(rule), CorrectionRuleText(rule));
}

QString sentenceOf(const CorrectionChange& doubt) {
  const QString sentence = translated("doubt-", CorrectionRuleCode(doubt.rule));
  return sentence.isEmpty()
             ? QString::fromStdWString(doubt.reason)
             : filled(sentence, quoted(doubt.typed.text), quoted(doubt.corrected.text));
}

QString reasonOf(const CorrectionReview& review) {
  for (const CorrectionChange& change : review.Changes()) {
    if (change.doubt) {
      return sentenceOf(change);
    }
  }
  return {};
}

QString sentenceOf(LeftAloneReason reason) {
  return wordsFor("", CodeOfReason(reason), TextOfReason(reason));
}

QString wordsOf(const Confirmation& confirmation) {
  return wordsFor("confirmation-", confirmation.Code(), confirmation.Text());
}

QString sentenceOf(const Confirmation& confirmation) {
  const QString sentence = asSentence(wordsOf(confirmation));
  const QString source = sourceText(confirmation.Source());
  return sentence.isEmpty() || source.isEmpty() ? sentence : sentence + u' ' + source;
}

QString sourceText(const VerifySource& source) {
  if (source.kind == VerifySourceUntold) {
    return {};
  }
  const QString text = translated("source-", source.Code());
  return text.isEmpty()
             ? QStringLiteral("According to ") + QString::fromStdString(source.Text()) + u'.'
             : filled(text, QString::fromStdString(source.name),
                      QString::fromStdString(source.date));
}

FailureWords failureOf(const QString& label, const VerifyReport& report) {
  const VerifyFailure failure(report, GetDeployment().verifyHost);
  if (!failure.IsUnanswered()) {
    const FixGate::Pass pass;
    const UnreadReason unread(label.toStdWString());
    if (unread.GetCause() != UnreadCauseNone) {
      return {wordsFor("unread-", unread.GetCode(), unread.GetText()),
              QString::fromStdWString(unread.GetProposal())};
    }
  }
  const QString text = translated("failure-", failure.Code().c_str());
  return {text.isEmpty()
              ? QString::fromStdString(failure.Text())
              : filled(text, factOf(failure, report), QString::number(report.Fetch().httpStatus)),
          {}};
}

}  // namespace postwright
