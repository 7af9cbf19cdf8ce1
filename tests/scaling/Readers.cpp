#include "tests/scaling/Readers.h"

#include <postwright/AddressLines.h>
#include <postwright/AddressParser.h>
#include <postwright/CandidateFix.h>
#include <postwright/CorrectionReview.h>
#include <postwright/LabelForm.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/ReportingServices.h>
#include <postwright/VerifyReport.h>

#include <QTemporaryDir>

#include "apps/addressbook/formats/vcard/VCardFile.h"
#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/table/AddressTable.h"
#include "apps/tables/CsvReader.h"
#include "apps/tables/FileError.h"
#include "apps/tables/FormulaGuard.h"
#include "client/MixedCaseDictionary.h"
#include "common/WideText.h"
#include "fuzz/InputFile.h"
#include "postal/import/RowReader.h"
#include "postal/import/SourceFormats.h"
#include "service/Verifier.h"
#include "service/VerifyService.h"
#include "service/http/FormFields.h"
#include "service/http/HeadCheck.h"
#include "service/protocol/CutQuery.h"
#include "service/upstream/PostalApi.h"
#include "service/upstream/VerifyXml.h"

namespace postwright::scaling {
namespace {

using fuzz::InputFile;

constexpr const wchar_t* kLabel = L"12 MAIN ST\nAUSTIN TX 78701";

void ReadLabel(const std::string& text, const std::string& /*other*/) {
  const std::wstring label = WideFromUtf8(text);
  AddressParser::GetInstance()->Parse(label);
  const AddressLines lines(label);
  lines.PutBack(lines.GetQuestion());
}

class ReplyServices final : public ReportingServices {
 public:
  explicit ReplyServices(const std::string& reply) : reply_(reply.begin(), reply.end()) {}

  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* /*url*/) override {
    return std::make_unique<std::vector<std::uint8_t>>(reply_);
  }

 private:
  std::vector<std::uint8_t> reply_;
};

void FixLabel(const std::wstring& label, const std::string& reply) {
  ReplyServices services(reply);
  try {
    FixWithCandidates(label, false, 50, &services);
  } catch (const PostwrightException&) {
  }
  VerifyReport(reply, {});
}

// Up to the request; there is no answer.
void AskAboutLabel(const std::string& text, const std::string& /*other*/) {
  FixLabel(WideFromUtf8(text), {});
}

void ReadReply(const std::string& text, const std::string& /*other*/) {
  FixLabel(kLabel, text);
}

void EscapeForUrl(const std::string& text, const std::string& /*other*/) {
  MacPlatformServices().UrlEscape(WideFromUtf8(text));
}

void Review(const std::string& text, const std::string& other) {
  CorrectionReview(WideFromUtf8(text), WideFromUtf8(other), {});
}

void ReadJsonLine(const std::string& text, const std::string& /*other*/) {
  const InputFile file(text);
  LineReader reader(file.Descriptor(), "labels");
  LabelLineParser parser;
  while (reader.Next()) {
    parser.Parse(reader);
  }
}

void ReadCsv(const std::string& text, const std::string& /*other*/) {
  const QByteArray bytes = QByteArray::fromStdString(text);
  const char delimiter = tables::CsvReader::guessDelimiter(bytes);
  tables::CsvReader(delimiter).readRows(bytes, [](const tables::CsvRow&) { return true; });
  tables::guardFormulas(bytes, delimiter);
}

void FixTable(const std::string& text, const std::string& /*other*/) {
  const AddressTable table(text, "table", "name=1,street=2,zip=3");
  table.Rewrite(
      {QStringLiteral("status")},
      [](const LabelColumns& columns, QStringList& cells) {
        if (const auto changed = columns.WithLabel(cells, columns.LabelOf(cells) + u'A')) {
          cells = *changed;
        }
        return QStringList(QStringLiteral("fixed"));
      },
      [](const std::string&) {});
}

void FixVCards(const std::string& text, const std::string& /*other*/) {
  static const QTemporaryDir folder;
  addressbook::VCardFile file(tables::TextFile::of(QByteArray::fromStdString(text)));
  QList<addressbook::Entry> entries = file.entries();
  for (addressbook::Entry& entry : entries) {
    entry.label = QStringLiteral("Jo Smith\n12 MAIN ST\nAUSTIN TX 78701");
  }
  file.write(folder.filePath(QStringLiteral("a.vcf")), entries);
}

void ImportRows(const std::string& text, const std::string& /*other*/) {
  static const postal::ZipList zips;
  const InputFile file(text);
  const auto source =
      postal::OpenSource(postal::FindSourceFiles(file.Path()).front(), std::nullopt);
  postal::RowReader reader(zips);
  postal::AddressRow row;
  for (bool goesOn = true; goesOn;) {
    try {
      goesOn = source->Next(row);
      reader.ReadStreet(row, reader.ReadCity(row).state);
      reader.ReadNumber(row[postal::Field::Number]);
      reader.ReadUnit(row[postal::Field::Unit]);
    } catch (const postal::RowError&) {
    }
  }
}

// A line a field.
void CheckHead(const std::string& text, const std::string& /*other*/) {
  service::RequestHead head{"HTTP/1.1", "/", {{"Host", "localhost"}}};
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    const std::size_t colon = std::min(line.find(": "), line.size() - 2);
    head.fields.emplace_back(line.substr(0, colon), line.substr(colon + 2));
    rest.remove_prefix(line.size() + 1);
  }
  service::ObjectionTo(head);
  service::IsForwarded(head);
  service::ExtensionsOf(head);
}

void ReadQuery(const std::string& text, const std::string& /*other*/) {
  const std::string joined = service::JoinCutReferences(text);
  service::FormFields(joined).Find("XML");
}

void AnswerRequest(const std::string& text, const std::string& /*other*/) {
  static const postal::ZipList zips;
  static service::Verifier verifier(zips);
  static service::VerifyService answers(verifier, nullptr, {});
  answers.Answer({"POST", "/ShippingAPI.dll", "API=Verify", "XML=" + text},
                 [](const service::HttpReply&) {});
}

void ReadUpstream(const std::string& text, const std::string& /*other*/) {
  static const postal::ZipList zips;
  service::VerifyXml::Read(text);
  service::HttpAnswer answer;
  answer.status = 200;
  answer.body = text;
  service::PostalApi::Read(answer, {}, zips);
}

void PutInCase(const std::string& text, const std::string& other) {
  PostwrightClient client;
  client.setCapitalization(CapitalizationMixed);
  client.setRemovePunctuation(false);
  const QString spellings = QString::fromStdString(other);
  parseDefaultSpellings(spellings);
  client.setMixedCase(spellings);
  const QString label = QString::fromStdString(text);
  labelInCase(label, client);
  withNamesAsTyped(addressInForm(label, PunctuationPostal, client), label);
  addressInForm(label, PunctuationRemove, client);
}

constexpr std::size_t kBytes = 1024;

constexpr Reader kReaders[] = {
    {"label", ReadLabel, 2 * kBytes},       {"question", AskAboutLabel, 4 * kBytes},
    {"reply", ReadReply, 8 * kBytes},       {"url", EscapeForUrl, 16 * kBytes},
    {"review", Review, 2 * kBytes},         {"JSON line", ReadJsonLine, 2 * kBytes},
    {"CSV", ReadCsv, 4 * kBytes},           {"table", FixTable, 2 * kBytes},
    {"vCard", FixVCards, 1 * kBytes},       {"import", ImportRows, 4 * kBytes},
    {"head", CheckHead, 16 * kBytes},       {"query", ReadQuery, 8 * kBytes},
    {"request", AnswerRequest, 8 * kBytes}, {"upstream", ReadUpstream, 8 * kBytes},
    {"mixed case", PutInCase, 1 * kBytes},
};

}  // namespace

std::span<const Reader> Readers() {
  return kReaders;
}

}  // namespace postwright::scaling
