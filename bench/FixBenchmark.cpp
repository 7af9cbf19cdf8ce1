// What a fix costs beyond the transport: Postwright::Fix() over loopback against a bare kept-alive
// GET of the same URL from the same server, in processor time of the calling thread.

#include "bench/FixLoop.h"
#include "bench/RatioReporter.h"

#include <postwright/Deployment.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>

#include <arpa/inet.h>
#include <curl/curl.h>
#include <microhttpd.h>
#include <sys/socket.h>

#include <cstdlib>
#include <iostream>
#include <locale>

namespace postwright {

namespace {

constexpr char kReply[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<AddressValidateResponse><Address ID=\"0\"><Address2>12 N MAIN ST APT 4</Address2>"
    "<City>SPRINGFIELD</City><State>IL</State><Zip5>62701</Zip5><Zip4>1234</Zip4>"
    "<DeliveryPoint>04</DeliveryPoint><CarrierRoute>C001</CarrierRoute>"
    "<DPVConfirmation>Y</DPVConfirmation><DPVCMRA>N</DPVCMRA><DPVFootnotes>AABB</DPVFootnotes>"
    "<Business>N</Business><CentralDeliveryPoint>N</CentralDeliveryPoint><Vacant>N</Vacant>"
    "</Address></AddressValidateResponse>";
constexpr wchar_t kLabel[] = L"JOHN SMITH\n12 n main street apt 4\nspringfield il 62701";

MHD_Result Answer(void*, MHD_Connection* connection, const char*, const char*, const char*,
                  const char*, size_t*, void** request) {
  static int seen = 0;
  if (*request == nullptr) {  // the header: answering now would end the connection
    *request = &seen;
    return MHD_YES;
  }
  static MHD_Response* reply = MHD_create_response_from_buffer(
      sizeof kReply - 1, const_cast<char*>(kReply), MHD_RESPMEM_PERSISTENT);
  return MHD_queue_response(connection, MHD_HTTP_OK, reply);
}

// Starts a server on a free loopback port, on threads of its own; it lives as long as the process.
std::string StartServer() {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  MHD_Daemon* daemon = MHD_start_daemon(MHD_USE_EPOLL_INTERNAL_THREAD, 0, nullptr, nullptr, &Answer,
                                        nullptr, MHD_OPTION_SOCK_ADDR, &address, MHD_OPTION_END);
  if (daemon == nullptr) {
    std::cerr << "no loopback server could be started\n";
    std::exit(1);
  }
  return "127.0.0.1:" +
         std::to_string(MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_BIND_PORT)->port);
}

// Fixes the label once and returns the URL that was asked.
std::string RecordUrl() {
  class Recorder final : public MacPlatformServices {
   public:
    std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override {
      asked = UCS2ToUTF8(url);
      return MacPlatformServices::ReadUrl(url);
    }
    std::string asked;
  };
  Recorder services;
  (void)Postwright::Fix(kLabel, true, &services);
  return services.asked;
}

void BareGet(benchmark::State& state) {
  const std::string url = RecordUrl();
  CURL* curl = curl_easy_init();
  std::string body;
  const auto keep = +[](char* bytes, size_t size, size_t count, void* to) {
    static_cast<std::string*>(to)->append(bytes, size * count);
    return size * count;
  };
  curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, keep);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, &body);
  for (auto _ : state) {
    body.clear();
    if (curl_easy_perform(curl) != CURLE_OK || body.size() != sizeof kReply - 1) {
      state.SkipWithError("the reply did not come");
      break;
    }
  }
  curl_easy_cleanup(curl);
}

void Fix(benchmark::State& state) {
  FixAgainAndAgain(state, kLabel);
}

int Run(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  benchmark::Initialize(&argc, argv);
  Deployment deployment = GetDeployment();
  deployment.verifyHost = StartServer();
  SetDeployment(deployment);
  benchmark::RegisterBenchmark("fix", Fix);
  benchmark::RegisterBenchmark("bare GET", BareGet);
  RatioReporter reporter;
  reporter.AddRatio("fix / bare kept-alive GET of the same URL", "fix", "bare GET");
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}

}  // namespace
}  // namespace postwright

int main(int argc, char** argv) {
  return postwright::Run(argc, argv);
}
