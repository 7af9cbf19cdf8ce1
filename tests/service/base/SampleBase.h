#ifndef POSTWRIGHT_TESTS_SERVICE_BASE_SAMPLEBASE_H_
#define POSTWRIGHT_TESTS_SERVICE_BASE_SAMPLEBASE_H_

#include <filesystem>
#include <string>
#include <vector>

#include "service/address/ZipBase.h"
#include "service/base/AddressBase.h"
#include "service/base/import/Importer.h"

namespace postwright::service {

// The ZIP codes that come along, and those of the made-up town.
ZipBase SampleZips();

// Imports files to their end. Returns what became of their rows.
ImportCounts Import(const std::filesystem::path& base, const std::string& source,
                    const std::vector<std::filesystem::path>& files, const ZipBase& zips,
                    bool whole = true);

}  // namespace postwright::service

#endif  // POSTWRIGHT_TESTS_SERVICE_BASE_SAMPLEBASE_H_
