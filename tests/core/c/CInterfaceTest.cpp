#include <postwright/postwright.h>

#include "tests/support/LoopbackServer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace postwright {

namespace {

struct Free {
  void operator()(postwright_address* address) const { postwright_address_free(address); }
  void operator()(postwright_review* review) const { postwright_review_free(review); }
  void operator()(postwright_canceller* canceller) const { postwright_canceller_free(canceller); }
};
using Address = std::unique_ptr<postwright_address, Free>;
using Canceller = std::unique_ptr<postwright_canceller, Free>;

const std::string kLabel = "Zo\xC3\xAB Doe\n12 main street, apt 4\naustin tx 78701\nfragile";
const std::string kReply =
    "<R><Address><Address2>12 MAIN ST APT 4</Address2><City>PE\xC3\x91O</City><State>TX</State>"
    "<Zip5>78701</Zip5><Zip4>1234</Zip4></Address></R>";

// A host with a network of its own.
struct Host {
  std::string reply = kReply;
  size_t copies = 1;
  int32_t failure = 0;
  postwright_canceller* cancels = nullptr;
  std::vector<std::string> urls;
  std::vector<std::string> log;

  static int32_t ReadUrl(void* context, const char* url, postwright_body* body) {
    auto* host = static_cast<Host*>(context);
    host->urls.emplace_back(url);
    postwright_cancel(host->cancels);
    for (size_t i = 0; i < host->copies; ++i) {
      (void)postwright_body_append(body, host->reply.data(), host->reply.size());
    }
    return host->failure;
  }
  static void Log(void* context, int32_t level, const char* message) {
    static_cast<Host*>(context)->log.push_back(std::to_string(level) + " " + message);
  }
  postwright_services Services() { return {sizeof(postwright_services), this, ReadUrl, Log}; }
};

std::pair<int32_t, Address> FixWith(Host& host, const std::string& text = kLabel) {
  const postwright_services services = host.Services();
  postwright_address* fixed = nullptr;
  const int32_t result = postwright_fix(text.data(), text.size(), &services, host.cancels, &fixed);
  return {result, Address(fixed)};
}

}  // namespace

TEST(CInterfaceTest, SplitsAText) {
  postwright_address* parsed = nullptr;
  ASSERT_EQ(postwright_parse(kLabel.c_str(), POSTWRIGHT_TERMINATED, &parsed), POSTWRIGHT_NONE);
  const Address address(parsed);
  const char* const expected[POSTWRIGHT_ELEMENTS] = {
      "ZO\xC3\x8B DOE",   "12", "",       "MAIN", "ST",    "",       "APT", "4",
      "12 MAIN ST APT 4", "",   "AUSTIN", "TX",   "78701", "FRAGILE"};
  for (int32_t element = 0; element < POSTWRIGHT_ELEMENTS; ++element) {
    EXPECT_STREQ(postwright_address_element(parsed, element), expected[element]) << element;
  }
  EXPECT_STREQ(postwright_address_element(parsed, POSTWRIGHT_ELEMENTS), "");
  EXPECT_STREQ(postwright_address_element(parsed, -1), "");
  EXPECT_STREQ(postwright_address_text(parsed),
               "ZO\xC3\x8B DOE\n12 MAIN ST APT 4\nAUSTIN, TX 78701\nFRAGILE");
}

TEST(CInterfaceTest, FindsTheAddressLines) {
  const std::string label = "Zo\xC3\xAB 2\n12 Main St\nAttn: Jo\nAustin, T.X. 78701\nFragile";
  postwright_lines* lines = nullptr;
  ASSERT_EQ(postwright_address_lines(label.data(), label.size(), &lines), POSTWRIGHT_NONE);
  EXPECT_EQ(postwright_lines_outcome(lines), POSTWRIGHT_LINES_FOUND);
  const char* const expected[POSTWRIGHT_LINES_TEXTS] = {"Zo\xC3\xAB 2\n",
                                                        "12 Main St\nAttn: Jo\nAustin, T.X. 78701",
                                                        "\nFragile",
                                                        "Attn: Jo",
                                                        "12 Main St,\nAustin, TX 78701",
                                                        "",
                                                        ""};
  for (int32_t text = 0; text < POSTWRIGHT_LINES_TEXTS; ++text) {
    EXPECT_STREQ(postwright_lines_text(lines, text), expected[text]) << text;
  }
  EXPECT_STREQ(postwright_lines_put_back(lines, "12 MAIN ST\nAUSTIN, TX 78701-1234"),
               "Zo\xC3\xAB 2\n12 MAIN ST\nAttn: Jo\nAUSTIN, TX 78701-1234\nFragile");
  EXPECT_EQ(postwright_lines_put_back(lines, "\xFF"), nullptr);
  postwright_lines_free(lines);

  const char* const route = "RR 3 Box 14\nSpringfield IL 62701";
  ASSERT_EQ(postwright_address_lines(route, POSTWRIGHT_TERMINATED, &lines), POSTWRIGHT_NONE);
  EXPECT_EQ(postwright_lines_outcome(lines), POSTWRIGHT_LINES_LEFT_ALONE);
  EXPECT_STREQ(postwright_lines_text(lines, POSTWRIGHT_LINES_REASON), "left-alone-rural-route");
  EXPECT_STREQ(postwright_lines_put_back(lines, "x"), route);
  postwright_lines_free(lines);

  EXPECT_EQ(postwright_address_lines("\xFF", 1, &lines), POSTWRIGHT_BAD_TEXT);
  EXPECT_EQ(postwright_address_lines(nullptr, 0, &lines), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(lines, nullptr);
  EXPECT_STREQ(postwright_lines_text(lines, POSTWRIGHT_LINES_ABOVE), "");
  EXPECT_EQ(postwright_lines_put_back(lines, "x"), nullptr);
}

TEST(CInterfaceTest, FixesThroughTheHostsNetwork) {
  Host host;
  const auto [result, fixed] = FixWith(host);
  EXPECT_EQ(result, POSTWRIGHT_DEFAULT_MATCH);
  EXPECT_STREQ(postwright_address_text(fixed.get()),
               "ZO\xC3\x8B DOE\n12 MAIN ST APT 4\nPE\xC3\x91O, TX 78701-1234\nFRAGILE");
  EXPECT_STREQ(postwright_address_element(fixed.get(), POSTWRIGHT_CITY), "PE\xC3\x91O");
  EXPECT_STREQ(postwright_address_element(fixed.get(), POSTWRIGHT_ZIP), "78701-1234");
  ASSERT_EQ(host.urls.size(), 1U);
  EXPECT_NE(host.urls[0].find("Address2%3E12%20MAIN%20ST%20APT%204%3C"), std::string::npos);
  EXPECT_TRUE(host.log.empty());
}

TEST(CInterfaceTest, FailuresAreResults) {
  const std::string noRoot = "0 Postwright::MakeRequestToServer(): RootElement == NULL";
  const struct {
    const char* name;
    std::string text;
    std::string reply;
    size_t copies;
    int32_t failure;
    int32_t result;
    std::string log;
  } kRows[] = {
      {"turned down", kLabel,
       "<R><Address><Error><Description>No \xC3\xB1</Description></Error></Address></R>", 1, 0,
       POSTWRIGHT_INVALID_ADDRESS, "1 Postwright::Fix(): server error = 'No \xC3\xB1'"},
      {"fetch failed", kLabel, kReply, 1, 7, POSTWRIGHT_BAD_REPLY, noRoot},
      {"endless body", kLabel, std::string(1U << 20U, ' '), 17, 0, POSTWRIGHT_BAD_REPLY, noRoot},
      {"not UTF-8", "12 ma\xEFn st\naustin tx 78701", kReply, 1, 0, POSTWRIGHT_BAD_TEXT, ""},
      {"a NUL", kLabel + std::string(1, '\0'), kReply, 1, 0, POSTWRIGHT_BAD_TEXT, ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    Host host;
    host.reply = row.reply;
    host.copies = row.copies;
    host.failure = row.failure;
    const auto [result, fixed] = FixWith(host, row.text);
    EXPECT_EQ(result, row.result);
    EXPECT_EQ(fixed, nullptr);
    const std::vector<std::string> log(row.log.empty() ? 0 : 1, row.log);
    EXPECT_EQ(host.log, log);
  }
}

TEST(CInterfaceTest, RefusesBadCalls) {
  postwright_address* address = nullptr;
  postwright_services services = {};
  EXPECT_EQ(postwright_parse(nullptr, 0, &address), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_parse("", 0, nullptr), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_parse("", 0, &address), POSTWRIGHT_ADDRESS_NOT_FOUND);
  EXPECT_EQ(postwright_fix("", 0, &services, nullptr, &address), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_parse(nullptr, 7, &address), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_fix(nullptr, 7, nullptr, nullptr, &address), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_body_append(nullptr, "x", 1), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_set_service("a b", nullptr), POSTWRIGHT_BAD_TEXT);
  EXPECT_EQ(postwright_set_timeout(0), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(address, nullptr);
  EXPECT_STREQ(postwright_address_text(nullptr), "");
  EXPECT_STREQ(postwright_result_text(9999),
               "The result is unknown to this version of the library.");
  postwright_address_free(nullptr);
  postwright_cancel(nullptr);
}

// The host gives the whole reply, and then a null piece.
TEST(CInterfaceTest, TakesNoPieceThatIsNotThere) {
  static constexpr auto readUrl = [](void*, const char*, postwright_body* body) {
    EXPECT_EQ(postwright_body_append(body, kReply.data(), kReply.size()), 0);
    EXPECT_EQ(postwright_body_append(body, nullptr, 0), 0);
    EXPECT_EQ(postwright_body_append(body, nullptr, 9), POSTWRIGHT_BAD_ARGUMENT);
    return int32_t{0};
  };
  const postwright_services services = {sizeof services, nullptr, readUrl, nullptr};
  postwright_address* fixed = nullptr;
  EXPECT_EQ(postwright_fix(kLabel.data(), kLabel.size(), &services, nullptr, &fixed),
            POSTWRIGHT_BAD_REPLY);
  EXPECT_EQ(fixed, nullptr);
}

TEST(CInterfaceTest, WaitsNoLongerThanItMay) {
  const LoopbackServer silence(LoopbackServer::Answer{});
  ASSERT_EQ(postwright_set_service(silence.GetEndpoint().c_str(), "C"), POSTWRIGHT_NONE);
  ASSERT_EQ(postwright_set_timeout(200), POSTWRIGHT_NONE);
  postwright_address* fixed = nullptr;
  EXPECT_EQ(postwright_fix(kLabel.data(), kLabel.size(), nullptr, nullptr, &fixed),
            POSTWRIGHT_BAD_REPLY);
  ASSERT_EQ(postwright_set_timeout(120'000), POSTWRIGHT_NONE);
}

// A silent service, asked through the library's own network; the second fix waits for its turn.
TEST(CInterfaceTest, IsCancelledFromAnotherThread) {
  const LoopbackServer silence(LoopbackServer::Answer{});
  ASSERT_EQ(postwright_set_service(silence.GetEndpoint().c_str(), "C"), POSTWRIGHT_NONE);
  const Canceller canceller(postwright_canceller_new());
  std::vector<std::thread> fixes;
  std::atomic<int> cancelled = 0;
  for (int i = 0; i < 2; ++i) {
    fixes.emplace_back([&] {
      postwright_address* fixed = nullptr;
      cancelled += postwright_fix(kLabel.data(), kLabel.size(), nullptr, canceller.get(), &fixed) ==
                   POSTWRIGHT_CANCELLED;
    });
  }
  while (silence.GetRequests().empty()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  postwright_cancel(canceller.get());
  for (std::thread& fix : fixes) {
    fix.join();
  }
  EXPECT_EQ(cancelled, 2);
  EXPECT_EQ(silence.GetRequests().size(), 1U);

  Host host;
  host.cancels = canceller.get();
  EXPECT_EQ(FixWith(host).first, POSTWRIGHT_CANCELLED);
  EXPECT_TRUE(host.urls.empty());
}

TEST(CInterfaceTest, NamesCandidates) {
  Host host;
  host.reply =
      "<R><Address><Error><Description>Multiple.</Description></Error><Candidates><Candidate>"
      "<Address2>MAIN ST</Address2><City>PE\xC3\x91O</City><State>TX</State><Zip5>78701</Zip5>"
      "<PrimaryLow>100</PrimaryLow><PrimaryHigh>198</PrimaryHigh><PrimaryParity>E"
      "</PrimaryParity></Candidate></Candidates></Address></R>";
  const postwright_services services = host.Services();
  const auto fix = [&](int32_t most, postwright_address** fixed, postwright_candidates** found) {
    return postwright_fix_candidates(kLabel.data(), kLabel.size(), &services, nullptr, most, fixed,
                                     found);
  };
  postwright_address* fixed = nullptr;
  postwright_candidates* found = nullptr;
  ASSERT_EQ(fix(50, &fixed, &found), POSTWRIGHT_MULTIPLE_MATCH);
  EXPECT_EQ(fixed, nullptr);
  ASSERT_EQ(postwright_candidates_count(found), 1U);
  const postwright_candidate* candidate = postwright_candidates_at(found, 0);
  EXPECT_STREQ(candidate->text,
               "ZO\xC3\x8B DOE\n(100 - 198) MAIN ST\nPE\xC3\x91O, TX 78701\nFRAGILE");
  EXPECT_EQ(candidate->primary_type, POSTWRIGHT_RANGE_EVEN);
  EXPECT_STREQ(candidate->primary_low, "100");
  EXPECT_STREQ(candidate->primary_high, "198");
  EXPECT_EQ(candidate->secondary_type, POSTWRIGHT_RANGE_NONE);
  EXPECT_STREQ(candidate->secondary_low, "");
  EXPECT_STREQ(postwright_candidates_compose(found, 0, "120", nullptr),
               "ZO\xC3\x8B DOE\n120 MAIN ST\nPE\xC3\x91O, TX 78701\nFRAGILE");
  EXPECT_EQ(postwright_candidates_compose(found, 0, "\xFF", ""), nullptr);
  EXPECT_EQ(postwright_candidates_compose(found, 1, "120", ""), nullptr);
  EXPECT_EQ(postwright_candidates_at(found, 1), nullptr);
  postwright_candidates_free(found);

  host.reply = kReply;
  ASSERT_EQ(fix(1, &fixed, &found), POSTWRIGHT_DEFAULT_MATCH);
  EXPECT_EQ(found, nullptr);
  postwright_address_free(fixed);
  host.failure = 1;
  EXPECT_EQ(fix(1, &fixed, &found), POSTWRIGHT_BAD_REPLY);
  EXPECT_EQ(fix(0, &fixed, &found), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(fix(1, &fixed, nullptr), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(fix(1, nullptr, &found), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_candidates_count(nullptr), 0U);
  postwright_candidates_free(nullptr);
}

// What is known of an answer, through the host's network and from bytes it passes in.
TEST(CInterfaceTest, ReportsOnAnAnswer) {
  const struct {
    const char* name;
    std::string reply;
    int32_t result;
    int32_t confirmation;
    int32_t contradictsNumber;
    const char* texts[POSTWRIGHT_REPORT_TEXTS];
  } kRows[] = {
      {"everything",
       "<R><Address><Address2>12 MAIN ST</Address2><City>A</City><State>TX</State><Zip5>78701"
       "</Zip5><Zip4>1234</Zip4><DeliveryPoint>12</DeliveryPoint><ReturnText>More.</ReturnText>"
       "<CarrierRoute>C022</CarrierRoute><Footnotes>AN</Footnotes><DPVConfirmation>D"
       "</DPVConfirmation><DPVFootnotes>AAN1</DPVFootnotes><Source><Kind>base</Kind><Name>a.base"
       "</Name><Date>2026-11-20</Date></Source></Address></R>",
       POSTWRIGHT_DEFAULT_MATCH,
       POSTWRIGHT_CONFIRMATION_UNIT_MISSING,
       0,
       {"unit-missing", "confirmed but for its unit, which is missing", "", "", "", "", "", "D",
        "AAN1", "AN", "More.", "1234", "C022", "12", "base", "a.base", "2026-11-20",
        "the address base a.base of 2026-11-20"}},
      {"a number that is not there",
       "<R><Address><Address2>12 MAIN ST</Address2><City>A</City><State>TX</State><Zip5>78701"
       "</Zip5><DPVConfirmation>N</DPVConfirmation><DPVFootnotes>AAM3</DPVFootnotes></Address></R>",
       POSTWRIGHT_DEFAULT_MATCH,
       POSTWRIGHT_CONFIRMATION_NUMBER_NOT_KNOWN,
       1,
       {"number-not-known", "the street is known, the number is not", "", "", "", "", "", "N",
        "AAM3", "", "", "", "", "", "", "", "", ""}},
      {"a unit that is not there",
       "<R><Address><Address2>12 MAIN ST # 9</Address2><City>A</City><State>TX</State><Zip5>78701"
       "</Zip5><DPVConfirmation>S</DPVConfirmation><DPVFootnotes>AAC1</DPVFootnotes></Address></R>",
       POSTWRIGHT_DEFAULT_MATCH,
       POSTWRIGHT_CONFIRMATION_UNIT_NOT_KNOWN,
       0,
       {"unit-not-known", "confirmed but for its unit, which is not known", "", "", "", "", "", "S",
        "AAC1", "", "", "", "", "", "", "", "", ""}},
      {"turned down",
       "<R><Address><Error><Number>-2147219401</Number>"
       "<Source>clsAMS</Source><Description>No &#xF1;.</Description></Error></Address></R>",
       POSTWRIGHT_INVALID_ADDRESS,
       POSTWRIGHT_CONFIRMATION_NONE,
       0,
       {"", "", "not-found",
        "The service says: No \xC3\xB1. Look at the street and its number, and at the ZIP code.",
        "-2147219401", "clsAMS", "No \xC3\xB1.", "", "", "", "", "", "", "", "", "", "", ""}},
      {"no answer",
       "<html>\xFF",
       POSTWRIGHT_BAD_REPLY,
       POSTWRIGHT_CONFIRMATION_NONE,
       0,
       {"", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", ""}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    Host host;
    host.reply = row.reply;
    const postwright_services services = host.Services();
    postwright_address* fixed = nullptr;
    postwright_report* reports[2] = {};
    EXPECT_EQ(postwright_fix_report(kLabel.data(), kLabel.size(), &services, nullptr, 0, &fixed,
                                    nullptr, &reports[0]),
              row.result);
    EXPECT_EQ(fixed != nullptr, row.result == POSTWRIGHT_DEFAULT_MATCH);
    postwright_address_free(fixed);
    ASSERT_EQ(postwright_report_new(row.reply.data(), row.reply.size(), &reports[1]),
              POSTWRIGHT_NONE);
    for (postwright_report* report : reports) {
      for (int32_t text = 0; text < POSTWRIGHT_REPORT_TEXTS; ++text) {
        EXPECT_STREQ(postwright_report_text(report, text), row.texts[text]) << text;
      }
      EXPECT_EQ(postwright_report_number(report, POSTWRIGHT_REPORT_FETCH),
                POSTWRIGHT_FETCH_UNKNOWN);
      EXPECT_EQ(postwright_report_number(report, POSTWRIGHT_REPORT_CONFIRMATION), row.confirmation);
      EXPECT_EQ(postwright_report_number(report, POSTWRIGHT_REPORT_CONTRADICTS_NUMBER),
                row.contradictsNumber);
      EXPECT_EQ(postwright_report_number(report, POSTWRIGHT_REPORT_CONTRADICTS_UNIT),
                row.confirmation == POSTWRIGHT_CONFIRMATION_UNIT_NOT_KNOWN ? 1 : 0);
      postwright_report_free(report);
    }
  }
  EXPECT_EQ(postwright_report_new("", 0, nullptr), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_report_number(nullptr, POSTWRIGHT_REPORT_CONFIRMATION), 0);
  EXPECT_STREQ(postwright_report_text(nullptr, POSTWRIGHT_REPORT_REASON), "");
  postwright_report_free(nullptr);
}

// Through the library's own network, with candidates asked for.
TEST(CInterfaceTest, TellsNotAnsweredFromTurnedDown) {
  const LoopbackServer busy(LoopbackServer::Answer{
      "HTTP/1.1 503 Busy\r\nRetry-After: 7\r\nContent-Length: 0\r\n\r\n", true});
  ASSERT_EQ(postwright_set_service(busy.GetEndpoint().c_str(), "C"), POSTWRIGHT_NONE);
  postwright_address* fixed = nullptr;
  postwright_candidates* found = nullptr;
  postwright_report* report = nullptr;
  ASSERT_EQ(postwright_fix_report(kLabel.data(), kLabel.size(), nullptr, nullptr, 50, &fixed,
                                  &found, &report),
            POSTWRIGHT_BAD_REPLY);
  const int32_t expected[POSTWRIGHT_REPORT_NUMBERS] = {POSTWRIGHT_FETCH_ANSWERED, 503, 7, 0, 0, 1};
  for (int32_t number = 0; number < POSTWRIGHT_REPORT_NUMBERS; ++number) {
    EXPECT_EQ(postwright_report_number(report, number), expected[number]) << number;
  }
  EXPECT_STREQ(postwright_report_text(report, POSTWRIGHT_REPORT_REASON), "http-status");
  EXPECT_EQ(postwright_report_number(report, POSTWRIGHT_REPORT_NUMBERS), 0);
  EXPECT_STREQ(postwright_report_text(report, POSTWRIGHT_REPORT_TEXTS), "");
  postwright_report_free(report);

  EXPECT_EQ(postwright_fix_report("x", 1, nullptr, nullptr, 50, &fixed, nullptr, &report),
            POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_fix_report("x", 1, nullptr, nullptr, -1, &fixed, &found, &report),
            POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(report, nullptr);
}

TEST(CInterfaceTest, SaysWhatATextLacks) {
  postwright_unread* unread = nullptr;
  ASSERT_EQ(postwright_unread_reason("Zo\xC3\xAB\n12 Main St\nBoston MA 2108",
                                     POSTWRIGHT_TERMINATED, &unread),
            POSTWRIGHT_NONE);
  EXPECT_EQ(postwright_unread_cause(unread), POSTWRIGHT_UNREAD_SHORT_ZIP);
  EXPECT_STREQ(postwright_unread_text(unread, POSTWRIGHT_UNREAD_CODE), "zip-short");
  EXPECT_STRNE(postwright_unread_text(unread, POSTWRIGHT_UNREAD_EXPLANATION), "");
  EXPECT_STREQ(postwright_unread_text(unread, POSTWRIGHT_UNREAD_PROPOSAL),
               "Zo\xC3\xAB\n12 Main St\nBoston MA 02108");
  EXPECT_STREQ(postwright_unread_text(unread, POSTWRIGHT_UNREAD_TEXTS), "");
  postwright_unread_free(unread);

  ASSERT_EQ(postwright_unread_reason(kLabel.data(), kLabel.size(), &unread), POSTWRIGHT_NONE);
  EXPECT_EQ(postwright_unread_cause(unread), POSTWRIGHT_UNREAD_NONE);
  EXPECT_STREQ(postwright_unread_text(unread, POSTWRIGHT_UNREAD_CODE), "");
  postwright_unread_free(unread);
  EXPECT_EQ(postwright_unread_reason("\xFF", 1, &unread), POSTWRIGHT_BAD_TEXT);
  EXPECT_EQ(unread, nullptr);
  EXPECT_EQ(postwright_unread_cause(nullptr), POSTWRIGHT_UNREAD_NONE);
}

TEST(CInterfaceTest, ExplainsACorrection) {
  const std::string corrected = "ZO\xC3\x8B DOE\n12 MAIN ST APT 4\nAUSTIN, TX 78702";
  postwright_review* made = nullptr;
  ASSERT_EQ(postwright_review_new("Zo\xC3\xAB Doe\n12 main street, apt 4\naustin tx 78701",
                                  POSTWRIGHT_TERMINATED, corrected.data(), corrected.size(),
                                  nullptr, &made),
            POSTWRIGHT_NONE);
  const std::unique_ptr<postwright_review, Free> review(made);
  ASSERT_EQ(postwright_review_count(made), 2U);
  EXPECT_EQ(postwright_review_change(made, 2), nullptr);
  const postwright_change& suffix = *postwright_review_change(made, 0);
  EXPECT_STREQ(suffix.rule, "suffix");
  EXPECT_STREQ(suffix.reason, "");
  EXPECT_STREQ(suffix.typed, "street");
  EXPECT_EQ(suffix.typed_line, 1U);
  EXPECT_EQ(suffix.typed_begin, 17U);
  EXPECT_EQ(suffix.typed_end, 23U);
  EXPECT_EQ(corrected.substr(suffix.corrected_begin, 2), suffix.corrected);
  EXPECT_EQ(postwright_review_doubt(made), postwright_review_change(made, 1));
  EXPECT_STREQ(postwright_review_doubt(made)->rule, "zip-changed");
  EXPECT_STRNE(postwright_review_doubt(made)->reason, "");

  EXPECT_EQ(postwright_review_new("a", 1, "\xFF", 1, "", &made), POSTWRIGHT_BAD_TEXT);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(postwright_review_new(nullptr, 0, "", 0, "", &made), POSTWRIGHT_BAD_ARGUMENT);
  EXPECT_EQ(postwright_review_count(nullptr), 0U);
  EXPECT_EQ(postwright_review_doubt(nullptr), nullptr);
}

}  // namespace postwright
