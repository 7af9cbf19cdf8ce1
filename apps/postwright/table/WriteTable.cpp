#include "apps/postwright/table/WriteTable.h"

#include <iostream>

namespace postwright {

ExitStatus WriteTable(const AddressTable& table, const QStringList& added,
                      const AddressTable::Answer& answer, Output& output) {
  ExitStatus status = kExitDone;
  const QByteArray bytes = table.Rewrite(added, answer, [&status](const std::string& warning) {
    std::cerr << "postwright: " << warning << '\n';
    status = kExitNotALabel;
  });
  output.Write({bytes.data(), static_cast<std::size_t>(bytes.size())});
  output.Finish();
  return status;
}

}  // namespace postwright
