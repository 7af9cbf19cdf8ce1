#include "service/http/LibraryConnection.h"

#include <microhttpd.h>

#include <charconv>

#include "service/http/ListenAddress.h"

namespace postwright::service {

int LibraryConnection::SocketOf(MHD_Connection* connection) {
  return MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD)->connect_fd;
}

std::string LibraryConnection::HostOf(MHD_Connection* connection) {
  return ListenAddress::HostOf(
      MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS)->client_addr);
}

std::string_view LibraryConnection::ValueOf(MHD_Connection* connection, const char* header) {
  const char* const text = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, header);
  return text != nullptr ? text : "";
}

size_t LibraryConnection::LengthOf(MHD_Connection* connection) {
  const std::string_view digits = ValueOf(connection, MHD_HTTP_HEADER_CONTENT_LENGTH);
  size_t length = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), length);
  return length;
}

RequestHead LibraryConnection::HeadOf(MHD_Connection* connection, std::string_view version,
                                      std::string_view target) {
  RequestHead head{version, target, {}};
  const auto take = [](void* fields, MHD_ValueKind, const char* name, const char* value) {
    static_cast<decltype(head.fields)*>(fields)->emplace_back(name, value != nullptr ? value : "");
    return MHD_YES;
  };
  MHD_get_connection_values(connection, MHD_HEADER_KIND, take, &head.fields);
  return head;
}

MHD_Response* LibraryConnection::ResponseOf(const HttpReply& reply, bool closes) {
  MHD_Response* const response = MHD_create_response_from_buffer(
      reply.body.size(), const_cast<char*>(reply.body.data()), MHD_RESPMEM_MUST_COPY);
  if (response == nullptr) {
    return nullptr;
  }
  const auto add = [response](const char* name, const std::string& value) {
    MHD_add_response_header(response, name, value.c_str());
  };
  add(MHD_HTTP_HEADER_CONTENT_TYPE, reply.contentType);
  if (reply.retryAfter.count() > 0) {
    add(MHD_HTTP_HEADER_RETRY_AFTER, std::to_string(reply.retryAfter.count()));
  }
  for (const auto& [name, value] : reply.fields) {
    add(name.c_str(), value);
  }
  if (reply.status == MHD_HTTP_METHOD_NOT_ALLOWED) {
    add(MHD_HTTP_HEADER_ALLOW, "GET, HEAD, POST");
  }
  if (closes) {
    add(MHD_HTTP_HEADER_CONNECTION, "close");
  }
  return response;
}

}  // namespace postwright::service
