#include <postwright/PostwrightClient.h>

#include <postwright/CandidateFix.h>
#include <postwright/Deployment.h>
#include <postwright/FixedAddress.h>
#include <postwright/NetworkReachability.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/ReportingServices.h>

#include <QFile>

#include "client/EngineTexts.h"
#include "client/FixGate.h"
#include "client/MixedCaseDictionary.h"
#include "client/suite/StringHelpers.h"

namespace postwright {

const QString PostwrightResultsKey = QStringLiteral("PostwrightResults");
const QString ReloadAddressBookNotification = QStringLiteral("ReloadAddressBookNotification");

namespace {

struct ResultMessage {
  FixResult result;
  const char* message;
};

constexpr ResultMessage kMessages[] = {
    {FixResultConnectionFailed, "Unable to connect to the server"},
    {FixResultNoData, "Unable to get data from the server"},
    {FixResultBadReply, "Request completed OK, but the server's reply is unexpected/wrong"},
    {FixResultNoInternet, "No internet connection available"},
    {FixResultInvalidAddress, "Invalid Address"},
    {FixResultInvalidZip, "Invalid Zip Code"},
    {FixResultInvalidState, "Invalid State"},
    {FixResultInvalidCity, "Invalid City"},
    {FixResultAddressNotFound, "Invalid address (Address not found)"},
    {FixResultMultipleMatch, "Multiple match"},
    {FixResultStreetMismatch, "Street address does not match"},
    {FixResultExactMatch, "exact match"},
    {FixResultDefaultMatch, "default match"},
};

bool IsPunctuation(QChar character) {
  return character.isPunct();
}

bool IsWhiteSpace(QChar character) {
  return character.category() == QChar::Separator_Space || character == u'\t';
}

std::unique_ptr<FixedAddress> FixInTurn(const std::wstring& text, bool quick,
                                        ReportingServices& services, qint32 candidates) {
  const FixGate::Pass pass;
  return candidates > 0 ? FixWithCandidates(text, quick, candidates, &services)
                        : Postwright::Fix(text, quick, &services);
}

// Why the network cannot carry a fix; FetchOutcomeUnknown where it can. A host that only stands for
// the network says nothing of the service's name.
FetchOutcome whyUnreachable() {
  const Deployment& deployment = GetDeployment();
  const std::string& probe = deployment.probeHost;
  const FetchOutcome why = WhyUnreachable(probe);
  const bool isService =
      deployment.verifyHost == probe || deployment.verifyHost.starts_with(probe + ':');
  return why == FetchOutcomeNotResolved && !isService ? FetchOutcomeNoNetwork : why;
}

}  // namespace

PostwrightClient::PostwrightClient(QObject* parent) : QObject(parent) {
  initDefaultMixedCaseDict();
}

PostwrightClient::~PostwrightClient() = default;

// A dictionary that cannot be read is an empty one: the text is then capitalized and no more.
void PostwrightClient::initDefaultMixedCaseDict() {
  QFile resource(QStringLiteral(":/com.tarnix.pallo.postwright/MixCaseDict.txt"));
  if (resource.open(QIODevice::ReadOnly)) {
    _defaultMixedCaseDict = parseDefaultSpellings(QString::fromUtf8(resource.readAll()));
  }
}

void PostwrightClient::setMixedCase(const std::optional<QString>& mixedCase) {
  _mixedCaseDict = parseUserSpellings(mixedCase);
}

bool PostwrightClient::checkNetwork() const {
  return whyUnreachable() == FetchOutcomeUnknown;
}

// One fix with all that both forms share. `read` makes the result of what the engine found; a
// failure leaves the caller's text as it was, and gives nil and a message.
template <typename Result, typename Read>
std::optional<Result> PostwrightClient::runFix(const QString& address, bool quick, Read read) {
  _lastReport = VerifyReport();
  if (const FetchOutcome why = whyUnreachable(); why != FetchOutcomeUnknown) {
    _lastReport = VerifyReport("", {.outcome = why});
    setLastResult(stringForResult(FixResultNoInternet));
    return std::nullopt;
  }
  ReportingServices services(_abandoned.get());
  if (_wantsSource) {
    services.WantSource();
  }
  try {
    const std::unique_ptr<FixedAddress> fixed =
        FixInTurn(coreString(StringHelpers::trim(address), services), quick, services,
                  quick ? 0 : _candidates);
    _lastReport = VerifyReport(services.Reply(), services.Fetch());
    Result result = read(*fixed, services);
    setLastResult(std::nullopt);
    return result;
  } catch (const PostwrightException& failure) {
    _lastReport = VerifyReport(services.Reply(), services.Fetch());
    setLastResult(stringForResult(failure.GetResult()));
    return std::nullopt;
  }
}

std::optional<QString> PostwrightClient::fixAddressQuick(const QString& address) {
  return runFix<QString>(address, true,
                         [this](const FixedAddress& fixed, IPlatformServices& services) {
                           return capitalizeAddress(hostString(fixed.GetExactAddress(), services));
                         });
}

std::optional<AddressFix> PostwrightClient::fixAddress(const QString& address) {
  return runFix<AddressFix>(
      address, false, [this](const FixedAddress& fixed, IPlatformServices& services) {
        AddressFix fix{capitalizeAddress(hostString(fixed.GetExactAddress(), services)),
                       selectorsForCandidates(fixed, services)};
        if (_candidates > 0) {
          fix.Candidates = {fixed.GetAddressMatches().begin(), fixed.GetAddressMatches().end()};
        }
        return fix;
      });
}

QString PostwrightClient::capitalizeAddress(const QString& text) const {
  return StringHelpers::trim(fixCase(fixPunctuation(text)));
}

QString PostwrightClient::fixCase(const QString& text) const {
  switch (_capitalization) {
    case CapitalizationUpper:
      return text.toUpper();
    case CapitalizationLower:
      return text.toLower();
    case CapitalizationMixed:
      return fixMixedCase(text);
    default:
      return {};
  }
}

QString PostwrightClient::fixPunctuation(const QString& text) const {
  if (!_removePunctuation) {
    return text;
  }
  QString fixed;
  for (const QString& line : StringHelpers::lines(text)) {
    fixed += fixPunctuationLine(line) + u'\n';
  }
  return StringHelpers::trim(fixed);
}

QString PostwrightClient::fixPunctuationLine(const QString& line) const {
  QString kept;
  kept.reserve(line.size());
  bool afterWhiteSpace = false;
  for (const QChar character : line) {
    const bool whiteSpace = IsWhiteSpace(character);
    if (IsPunctuation(character) || (whiteSpace && afterWhiteSpace)) {
      continue;
    }
    kept += character;
    afterWhiteSpace = whiteSpace;
  }
  return StringHelpers::trim(kept);
}

QString PostwrightClient::fixMixedCase(const QString& text) const {
  QString fixed;
  for (const QString& line : StringHelpers::lines(text)) {
    QStringList words = line.split(u' ');
    for (QString& word : words) {
      word = fixMixedCaseOneWord(word);
    }
    fixed += words.join(u' ') + u'\n';
  }
  return StringHelpers::trim(fixed);
}

QString PostwrightClient::fixMixedCaseOneWord(const QString& word) const {
  if (StringHelpers::isNilOrEmpty(word)) {
    return word;
  }
  const QString key = mixedCaseKey(word);
  const QString spelling = _defaultMixedCaseDict.value(key, key);
  return _mixedCaseDict ? _mixedCaseDict->value(spelling, spelling) : spelling;
}

bool PostwrightClient::isAddress(const QString& text, const QString& equalTo) {
  return StringHelpers::alphanumericOnly(text).toUpper() ==
         StringHelpers::alphanumericOnly(equalTo).toUpper();
}

QString PostwrightClient::stringForResult(qint32 result) {
  for (const ResultMessage& row : kMessages) {
    if (row.result == result) {
      return QString::fromLatin1(row.message);
    }
  }
  return QStringLiteral("Unexpected error code %1").arg(result);
}

}  // namespace postwright
