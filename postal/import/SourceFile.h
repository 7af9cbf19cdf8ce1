#ifndef POSTWRIGHT_POSTAL_IMPORT_SOURCEFILE_H_
#define POSTWRIGHT_POSTAL_IMPORT_SOURCEFILE_H_

#include <filesystem>
#include <string>
#include <vector>

namespace postwright::postal {

// A file of a source, which is read from its beginning to its end: one of its own, or one that is
// within a ZIP archive.
struct SourceFile {
  std::filesystem::path path;
  std::string member = {};  // of the archive at `path`; empty: the file itself
  double size = 0;          // in bytes, for telling how far an import is

  // For messages: "collection.zip/us/tx/austin.geojson".
  std::string Name() const { return path.string() + (member.empty() ? "" : "/" + member); }
};

// Returns the files that `path` stands for, at least one, in the order of their names.
//
// A folder stands for those in it and in its folders whose names end as such files do: ".zip",
// ".dbf", ".geojson", ".csv", the latter two also with ".gz" after, in any case of the letters. A
// ZIP archive, whatever it is called, stands for the table in it (.dbf), or else for all of its
// GeoJSON files, or for all of its CSV files, or for the largest text (.txt) in it. Empty files
// within stand for nothing. Any other path is one file, also where nothing is there: opening it
// says so. Throws SourceError where nothing that can be imported is in it.
std::vector<SourceFile> FindSourceFiles(const std::filesystem::path& path);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_SOURCEFILE_H_
