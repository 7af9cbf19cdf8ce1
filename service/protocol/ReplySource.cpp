#include "service/protocol/ReplySource.h"

#include "service/protocol/Xml.h"

namespace postwright::service {
namespace {

const char* NameOf(ReplySource::Kind kind) {
  switch (kind) {
    case ReplySource::Kind::Untold:
      break;
    case ReplySource::Kind::Base:
      return "base";
    case ReplySource::Kind::ZipList:
      return "zip-list";
    case ReplySource::Kind::Upstream:
      return "upstream";
    case ReplySource::Kind::Cache:
      return "cache";
  }
  return "";
}

}  // namespace

void ReplySource::Write(std::string& xml) const {
  if (kind == Kind::Untold) {
    return;
  }
  xml += "<Source>";
  AppendElement(xml, "Kind", NameOf(kind));
  if (!name.empty()) {
    AppendElement(xml, "Name", name);
  }
  if (!date.empty()) {
    AppendElement(xml, "Date", date);
  }
  xml += "</Source>";
}

}  // namespace postwright::service
