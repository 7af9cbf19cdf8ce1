#ifndef POSTWRIGHT_TESTS_POSTAL_BASE_SAMPLEBASE_H_
#define POSTWRIGHT_TESTS_POSTAL_BASE_SAMPLEBASE_H_

#include <filesystem>
#include <string>
#include <vector>

#include "postal/base/AddressBase.h"
#include "postal/import/Importer.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

// The shipped ZIP codes, and those of the made-up town.
ZipList SampleZips();

// Imports files completely. Returns what became of their rows.
ImportCounts Import(const std::filesystem::path& base, const std::string& source,
                    const std::vector<std::filesystem::path>& files, const ZipList& zips,
                    bool whole = true);

// What a base knows, whatever numbers its rows have.
std::string Content(const std::string& file);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_TESTS_POSTAL_BASE_SAMPLEBASE_H_
