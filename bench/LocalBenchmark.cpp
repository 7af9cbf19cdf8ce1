// What a fix costs when it is answered within the process, against one that the real service
// answers over loopback from the same base. Processor time of this process, which runs both.
//
//   bench-local FILE...    lists of ZIP codes and address bases

#include <fcntl.h>
#include <postwright/Deployment.h>
#include <postwright/LocalAnswers.h>
#include <postwright/LocalService.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <locale>
#include <vector>

#include "bench/FixLoop.h"
#include "bench/RatioReporter.h"
#include "service/LocalSource.h"
#include "service/VerifyService.h"
#include "service/http/HttpServer.h"

namespace postwright {

namespace {

constexpr wchar_t kLabel[] = L"JOHN SMITH\n12 n main street apt 4\nmillrace oh 00011";

void Fix(benchmark::State& state) {
  FixAgainAndAgain(state, kLabel);
}

int Run(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  benchmark::Initialize(&argc, argv);
  const std::vector<std::filesystem::path> files(argv + 1, argv + argc);
  service::LocalSource source(files);
  service::VerifyService service(source, nullptr, {.pathPrefix = "", .takesNotes = false});
  service::RequestLog log(open("/dev/null", O_WRONLY | O_CLOEXEC), "");
  service::HttpServer::Limits limits;
  limits.quiet = true;
  const service::HttpServer server(service::ListenAddress::Parse("127.0.0.1:0"), limits,
                                   std::bind_front(&service::VerifyService::Answer, &service), log);
  SetDeployment({server.Address(), "305KQVZ61948", "127.0.0.1"});
  benchmark::RegisterBenchmark("over loopback", [](benchmark::State& state) {
    SetLocalAnswers({});
    Fix(state);
  })->MeasureProcessCPUTime();
  benchmark::RegisterBenchmark("within the process", [&files](benchmark::State& state) {
    UseLocalService(files);
    Fix(state);
  })->MeasureProcessCPUTime();
  RatioReporter reporter;
  reporter.AddRatio("fix over loopback / within the process", "over loopback",
                    "within the process");
  benchmark::RunSpecifiedBenchmarks(&reporter);
  SetLocalAnswers({});
  return 0;
}

}  // namespace
}  // namespace postwright

int main(int argc, char** argv) {
  return postwright::Run(argc, argv);
}
