#include <fcntl.h>
#include <gtest/gtest.h>
#include <postwright/Deployment.h>
#include <postwright/LocalAnswers.h>
#include <postwright/LocalService.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/ReportingServices.h>
#include <postwright/postwright_local.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "service/LocalSource.h"
#include "service/VerifyService.h"
#include "service/http/HttpServer.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

using Files = std::vector<std::filesystem::path>;

const std::filesystem::path kData = std::filesystem::path(POSTWRIGHT_SOURCE_DIR) / "data";

// The made-up towns in one base, and in two: one for Millrace and one for the rest.
class SampleFiles {
 public:
  SampleFiles() {
    std::ifstream town(kData / "sample/town.csv");
    std::string row;
    std::getline(town, row);
    std::string first = row + '\n';
    std::string rest = first;
    while (std::getline(town, row)) {
      (row.find(",MILLRACE,") != std::string::npos ? first : rest) += row + '\n';
    }
    const postal::ZipList zips = postal::SampleZips();
    postal::Import(File("whole.base"), "town", {kData / "sample/town.csv"}, zips);
    postal::Import(File("first.base"), "first", {folder_.Write("first.csv", first)}, zips);
    postal::Import(File("rest.base"), "rest", {folder_.Write("rest.csv", rest)}, zips);
  }

  std::string File(const std::string& name) const { return folder_.File(name); }

  // The lists of ZIP codes and these bases.
  Files With(const std::vector<std::string>& bases) const {
    Files files = {kData / "us-zips.tsv", kData / "sample/zips.tsv"};
    for (const std::string& base : bases) {
      files.emplace_back(File(base));
    }
    return files;
  }

  const TempFolder& Folder() const { return folder_; }

 private:
  TempFolder folder_;
};

const SampleFiles& Sample() {
  static const SampleFiles files;
  return files;
}

// The real service on a free loopback port, set as the one to ask.
class LoopbackService {
 public:
  explicit LoopbackService(const Files& files) : source_(files) {
    SetDeployment({server_.Address(), "305KQVZ61948", "127.0.0.1"});
  }

 private:
  LocalSource source_;
  VerifyService service_{source_, nullptr, {}};
  RequestLog log_{open("/dev/null", O_WRONLY | O_CLOEXEC), ""};
  HttpServer server_{ListenAddress::Parse("127.0.0.1:0"),
                     {},
                     std::bind_front(&VerifyService::Answer, &service_),
                     log_};
};

// Each test leaves the network as it found it.
class LocalServiceTest : public testing::Test {
 protected:
  ~LocalServiceTest() override { SetLocalAnswers({}); }
};

// The whole result of asking.
std::string Told(const ReportingServices& services) {
  const FetchReport& fetch = services.Fetch();
  std::ostringstream told;
  told << fetch.outcome << ' ' << fetch.httpStatus << ' ' << fetch.retryAfter << '\n'
       << services.Reply();
  return told.str();
}

std::string FixAndTell(const std::wstring& label, int candidates) {
  ReportingServices services;
  services.WantCandidates(candidates);
  std::string text;
  try {
    text = services.UCS2ToUTF8(Postwright::Fix(label, true, &services)->GetExactAddress());
  } catch (const PostwrightException& failure) {
    text = "failed with " + std::to_string(failure.GetResult());
  }
  return text + '\n' + Told(services);
}

std::string ReadAndTell(const std::wstring& path) {
  ReportingServices services;
  const std::string host = GetDeployment().verifyHost;
  services.ReadUrl((L"http://" + std::wstring(host.begin(), host.end()) + path).c_str());
  return Told(services);
}

const std::wstring kLabels[] = {
    L"Jane Doe\n12 n main street\nmillrace oh 00011",
    L"14 N Main St Apt 2, Millrace OH 00011-1401",
    L"14 N Main St, Millrace OH",
    L"40 main street\nmillrace oh 00011",
    L"99 N Main St\nMillrace OH 00011",
    L"12 Nowhere Ln\nMillrace OH 00011",
    L"12 Main St\nMillrace OH 78701",
    L"Señora Peña\n1501 north lamar boulevard #4\naustin texas 78703",
    L"1 & 2 'Main' St\tRear\naustin tx 78701",
    L"12 Main St\nAustin TX 10001",
    L"12 Main St\nNowhereville TX",
    L"PO Box 12\nAustin TX 78701",
    L"ring twice",
    L"",
};

const std::wstring kPaths[] = {
    L"/ShippingAPI.dll?API=Verify&XML=",
    L"/ShippingAPI.dll?API=Verify&XML=%3CAddressValidateRequest%3E",
    L"/ShippingAPI.dll?xml=%3CAddressValidateRequest+USERID=%22X%22/%3E&api=verify",
    L"/ShippingAPI.dll?API=Rates&XML=%3Ca/%3E",
    L"/ShippingAPI.dll",
    L"/elsewhere?API=Verify",
    L"/?API=Verify",
};

TEST_F(LocalServiceTest, AnswersAsTheServiceDoesOverLoopback) {
  const Files files = Sample().With({"whole.base"});
  const LoopbackService service(files);
  std::vector<std::function<std::string()>> questions;
  for (const std::wstring& label : kLabels) {
    for (const int candidates : {0, 5, 50}) {
      questions.push_back([&label, candidates] { return FixAndTell(label, candidates); });
    }
  }
  for (const std::wstring& path : kPaths) {
    questions.push_back([&path] { return ReadAndTell(path); });
  }
  std::vector<std::string> overLoopback;
  for (const auto& ask : questions) {
    overLoopback.push_back(ask());
    EXPECT_TRUE(overLoopback.back().find("1 200 0\n") != std::string::npos ||
                overLoopback.back().starts_with("1 404 0\n"))
        << overLoopback.back();
  }
  UseLocalService(files);
  for (size_t i = 0; i < questions.size(); ++i) {
    EXPECT_EQ(questions[i](), overLoopback[i]);
  }
}

TEST_F(LocalServiceTest, SaysWhichFileCannotBeUsed) {
  const TempFolder& folder = Sample().Folder();
  std::ifstream input(Sample().File("whole.base"), std::ios::binary);
  const std::string whole(std::istreambuf_iterator<char>(input), {});
  const std::string cut = folder.Write("cut.base", whole.substr(0, whole.size() / 2));
  const std::string begun = folder.Write("begun.base", whole.substr(0, 50));
  const std::string other = folder.Write("other.base", "not a base\n");
  const struct {
    const char* name;
    Files files;
    std::string problem;  // part of the message
  } rows[] = {
      {"no such file", Sample().With({"gone.base"}), "gone.base: cannot be read"},
      {"half a base", Sample().With({"cut.base"}), cut + ": "},
      {"the beginning of one", Sample().With({"begun.base"}), begun + ": is not an address base"},
      {"no base", Sample().With({"other.base"}), other + ": is not an address base"},
      {"a folder", {folder.File("")}, "cannot be read"},
      {"no ZIP codes", {Sample().File("whole.base")}, "no list of ZIP codes"},
      {"nothing", {}, "no list of ZIP codes"},
  };
  UseLocalService(Sample().With({"whole.base"}));
  const std::string before = FixAndTell(kLabels[0], 0);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    try {
      UseLocalService(row.files);
      ADD_FAILURE() << "it was taken";
    } catch (const LocalServiceError& error) {
      EXPECT_NE(std::string(error.what()).find(row.problem), std::string::npos) << error.what();
    }
    EXPECT_EQ(FixAndTell(kLabels[0], 0), before);
  }
}

// A page instead of an answer: the service failed, and the address was not judged.
TEST_F(LocalServiceTest, FailsWhereABaseTurnsOutToBeDamaged) {
  std::ifstream input(Sample().File("whole.base"), std::ios::binary);
  std::string whole(std::istreambuf_iterator<char>(input), {});
  const std::size_t number = whole.rfind("1201");  // the ZIP+4 of 12 N MAIN ST
  ASSERT_NE(number, std::string::npos);
  const std::size_t page = number / 4096 * 4096;
  whole.replace(page, 4096, 4096, '\xFF');
  Sample().Folder().Write("damaged.base", whole);
  UseLocalService(Sample().With({"damaged.base"}));
  EXPECT_EQ(FixAndTell(kLabels[0], 0),
            "failed with 3\n1 500 0\nThe service could not answer. Try again.\n");
}

TEST_F(LocalServiceTest, AnswersThreadsAtOnce) {
  UseLocalService(Sample().With({"first.base", "rest.base"}));
  const std::wstring paths[] = {
      L"/ShippingAPI.dll?API=Verify&XML=%3CAddressValidateRequest%20USERID=%22X%22%3E%3CAddress%3E"
      L"%3CAddress2%3E12%20N%20MAIN%20ST%3C/Address2%3E%3CCity%3EMILLRACE%3C/City%3E%3CState%3EOH"
      L"%3C/State%3E%3C/Address%3E%3C/AddressValidateRequest%3E",
      L"/ShippingAPI.dll?API=Rates"};
  const std::string answers[] = {ReadAndTell(paths[0]), ReadAndTell(paths[1])};
  EXPECT_NE(answers[0].find("<Zip4>1201</Zip4>"), std::string::npos) << answers[0];
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < 2; ++thread) {
    threads.emplace_back([&] {
      for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(ReadAndTell(paths[i % 2]), answers[i % 2]);
      }
    });
  }
  UseLocalService(Sample().With({"whole.base"}));  // meanwhile
}

// A worker process closes files that it does not know.
TEST_F(LocalServiceTest, AnswersInAChild) {
  RequestAddress asked;
  asked.address2 = "12 N MAIN ST";
  asked.zip5 = "00011";
  for (const size_t mostInMemory : {size_t{0}, postal::AddressBase::kMostInMemory}) {
    LocalSource source(Sample().With({"whole.base"}), mostInMemory);
    const pid_t child = fork();
    if (child == 0) {
      close_range(STDERR_FILENO + 1, ~0U, 0);
      try {
        source.Find(asked, "", [](const AddressAnswer& answer) {
          const auto* const fields = std::get_if<ReplyFields>(&answer);
          _exit(fields != nullptr && fields->zip4 == "1201" ? 0 : 1);
        });
      } catch (const std::exception&) {
      }
      _exit(2);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << mostInMemory;
  }
}

TEST_F(LocalServiceTest, IsTurnedOnFromC) {
  const std::string zips = (kData / "us-zips.tsv").string();
  const char* files[] = {zips.c_str(), nullptr};
  char problem[20] = "not touched";
  EXPECT_EQ(postwright_use_local_service(files, 2, problem, sizeof problem),
            POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_STREQ(problem, "");
  EXPECT_FALSE(GetLocalAnswers());
  EXPECT_EQ(postwright_use_local_service(files, 1, nullptr, 0), POSTWRIGHT_NONE);
  EXPECT_TRUE(GetLocalAnswers());
  files[0] = "/nowhere/at/all.base";
  EXPECT_EQ(postwright_use_local_service(files, 1, problem, sizeof problem), POSTWRIGHT_BAD_FILE);
  EXPECT_STREQ(problem, "/nowhere/at/all.bas");
  EXPECT_TRUE(GetLocalAnswers());
  EXPECT_EQ(postwright_use_local_service(nullptr, 0, nullptr, 0), POSTWRIGHT_NONE);
  EXPECT_FALSE(GetLocalAnswers());
}

}  // namespace
}  // namespace postwright::service
