#include "apps/base/ImportCommand.h"

#include "apps/DefaultZips.h"
#include "apps/base/ImportRun.h"
#include "apps/base/StopSignals.h"
#include "postal/import/Importer.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

int RunImport(const ImportOptions& options) {
  ZipList zips;
  zips.Load(DefaultZips());
  std::optional<ColumnMap> map;
  if (!options.map.empty()) {
    map = ColumnMap::Parse(options.map);
  }
  ProgressLine progress(options.quiet ? ProgressLine::Form::Quiet : ProgressLine::Form::Text);
  StopSignals::Catch();
  Importer importer(
      options.base,
      {options.source, "", options.licence, options.attribution, !options.partial, {}},
      {options.files.begin(), options.files.end()}, map, zips,
      options.restart ? Earlier::Discard : Earlier::GoOn);
  return RunImporter(importer, options.base, progress);
}

}  // namespace postwright::postal
