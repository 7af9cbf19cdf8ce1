// How much faster `postwright fix --jsonl --jobs 16` is than one job against a server on loopback
// that takes 50 ms to answer; and `postwright parse --jsonl --jobs N`, with a job for each
// processor, than one. Wall time over the same labels. The records of both runs are compared before
// the ratio is printed.

#include <arpa/inet.h>
#include <microhttpd.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

#include "bench/FigureBefore.h"

namespace postwright {

namespace {

constexpr int kFixed = 640;
constexpr int kParsed = 400'000;
constexpr std::chrono::milliseconds kServiceTime(50);
constexpr char kReply[] =
    "<AddressValidateResponse><Address ID=\"0\"><Address2>12 N MAIN ST APT 4</Address2>"
    "<City>SPRINGFIELD</City><State>IL</State><Zip5>62701</Zip5><Zip4>1234</Zip4>"
    "</Address></AddressValidateResponse>";

// A thread for each connection, so that none waits for another.
MHD_Result Answer(void*, MHD_Connection* connection, const char*, const char*, const char*,
                  const char*, size_t*, void**) {
  static MHD_Response* reply = MHD_create_response_from_buffer(
      sizeof kReply - 1, const_cast<char*>(kReply), MHD_RESPMEM_PERSISTENT);
  std::this_thread::sleep_for(kServiceTime);
  return MHD_queue_response(connection, MHD_HTTP_OK, reply);
}

std::string StartServer() {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  MHD_Daemon* daemon =
      MHD_start_daemon(MHD_USE_THREAD_PER_CONNECTION | MHD_USE_INTERNAL_POLLING_THREAD, 0, nullptr,
                       nullptr, &Answer, nullptr, MHD_OPTION_SOCK_ADDR, &address, MHD_OPTION_END);
  if (daemon == nullptr) {
    std::cerr << "no loopback server could be started\n";
    std::exit(1);
  }
  return "127.0.0.1:" +
         std::to_string(MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_BIND_PORT)->port);
}

// Returns the seconds that the program took with the options `work` and that many jobs.
double Time(const std::string& work, int jobs, const std::string& labels,
            const std::string& records) {
  const std::string command = "no_proxy='*' '" POSTWRIGHT_PROGRAM "' " + work + " --jsonl --jobs " +
                              std::to_string(jobs) + " '" + labels + "' > '" + records + "'";
  const auto begin = std::chrono::steady_clock::now();
  if (std::system(command.c_str()) != 0) {
    std::cerr << "failed: " << command << '\n';
    std::exit(1);
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

std::string Read(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// Prints the ratio; false where the records differ.
bool Compare(const std::string& work, int count, int jobs, const std::string& folder) {
  std::ofstream labels(folder + "/labels");
  for (int number = 1; number <= count; ++number) {
    labels << "\"Jane Doe\\n" << number << " n main street apt 4\\nspringfield il 62701\"\n";
  }
  labels.close();
  const double one = Time(work, 1, folder + "/labels", folder + "/one");
  const double many = Time(work, jobs, folder + "/labels", folder + "/many");
  const std::string ratio = "1 job / " + std::to_string(jobs) + " jobs";
  const bool isSame = Read(folder + "/one") == Read(folder + "/many");
  std::cout << work.substr(0, work.find(' ')) << ", " << count << " labels: 1 job " << one << " s, "
            << jobs << " jobs " << many << " s\n"
            << ratio << ": " << one / many << "  " << FigureBefore(ratio) << '\n'
            << (isSame ? "" : "but the records differ\n");
  return isSame;
}

int Run() {
  std::string folder = (std::filesystem::temp_directory_path() / "bench-jobs-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    std::cerr << "no folder can be made: " << folder << '\n';
    return 1;
  }
  const int processors = std::max(2, static_cast<int>(std::thread::hardware_concurrency()));
  const bool isSame = Compare("fix --server " + StartServer(), kFixed, 16, folder) &&
                      Compare("parse", kParsed, processors, folder);
  std::filesystem::remove_all(folder);
  return isSame ? 0 : 1;
}

}  // namespace
}  // namespace postwright

int main() {
  return postwright::Run();
}
