#include "apps/postwright/table/RowRecords.h"

#include <QJsonDocument>
#include <QJsonValue>

#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/stream/Output.h"

namespace postwright {

namespace {

std::string WriteLabels(const AddressTable& table, RowId id, const ScratchFile& file) {
  Output output(file.Descriptor(), "a temporary file");
  table.ReadLabels([&output, id](const QString& label) {
    JsonRecord text("");
    text.Add("address", label.toStdWString());
    std::string line = text.Line();
    if (id == RowId::kLabel) {
      constexpr std::string_view kMember = R"({"address":)";
      const std::string value = line.substr(kMember.size(), line.size() - kMember.size() - 2);
      line = R"({"id":)" + value + "," + line.substr(1);
    }
    output.Write(line);
  });
  output.Flush();
  return file.Path();
}

}  // namespace

RowRecords::RowRecords(const AddressTable& table, const std::string& kept, RowId id,
                       const Stream& stream)
    : path_(kept.empty() ? scratch_.Path() : kept),
      status_(stream(WriteLabels(table, id, labels_), path_)),
      reader_(path_) {}

QJsonObject RowRecords::Record() const {
  const std::string_view line = reader_.Line();
  return QJsonDocument::fromJson({line.data(), static_cast<qsizetype>(line.size())}).object();
}

}  // namespace postwright
