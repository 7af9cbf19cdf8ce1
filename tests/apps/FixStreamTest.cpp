#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <regex>
#include <string>
#include <thread>

#include "tests/apps/CommandRows.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/LoopbackServer.h"

namespace postwright {

namespace {

constexpr int kSilentNumber = 999;
constexpr int kSlowNumber = 998;

// Answers "N main street" with "N MAIN ST", after a time that depends on N; never if N is silent.
LoopbackServer::Answer AnswerUnevenly(const std::string& request) {
  std::smatch found;
  if (!std::regex_search(request, found, std::regex("([0-9]+)(%20|\\+| )MAIN"))) {
    return LoopbackServer::Page("<R/>");
  }
  const int number = std::stoi(found[1]);
  if (number == kSilentNumber) {
    return {""};
  }
  std::this_thread::sleep_for(
      std::chrono::milliseconds(number == kSlowNumber ? 500 : number * 7 % 5 * 10));
  return LoopbackServer::Page("<R><Address><Address2>" + found[1].str() +
                              " MAIN ST</Address2><City>AUSTIN</City><State>TX</State>"
                              "<Zip5>78701</Zip5></Address></R>");
}

std::string Label(int number) {
  return std::to_string(number) + " main street, austin tx 78701";
}

std::string LabelLine(int number) {
  return R"({"id":)" + std::to_string(number) + R"(,"address":")" + Label(number) + "\"}\n";
}

std::string Record(int number) {
  return R"({"id":)" + std::to_string(number) + R"(,"address":")" + Label(number) +
         R"(","fixed":")" + std::to_string(number) +
         R"( MAIN ST\nAUSTIN TX 78701","result":"","confirmation":"form-only","reason":"","status":1})" +
         "\n";
}

// What an earlier run said of it: status 3 or 4.
std::string Failed(int number, int status) {
  return R"({"id":)" + std::to_string(number) + R"(,"address":")" + Label(number) +
         R"(","fixed":"","result":"?","confirmation":"","reason":"?","status":)" +
         std::to_string(status) + "}\n";
}

std::string Unanswered(int number) {
  return Failed(number, 4);
}

// The lines from 1 to `count`, as `line` makes them.
std::string Lines(int count, std::string (*line)(int)) {
  std::string lines;
  for (int number = 1; number <= count; ++number) {
    lines += line(number);
  }
  return lines;
}

class FixStreamTest : public testing::Test {
 protected:
  const LoopbackServer server_{AnswerUnevenly};
  const ScratchFolder folder_;
  const std::string there_ = "cd $folder; ";
  const std::string fix_ = "$postwright fix --jsonl --server " + server_.GetEndpoint();
};

TEST_F(FixStreamTest, KeepsTheOrderOfTheLines) {
  const std::string input = Lines(40, LabelLine) + "3\n" + LabelLine(41);
  const std::string records =
      Lines(40, Record) +
      R"({"address":"","fixed":"","result":"The line is not a JSON string","confirmation":"","reason":"no-label","status":3})" +
      "\n" + Record(41);
  for (const char* jobs : {"1", "2", "7", "64"}) {
    SCOPED_TRACE(jobs);
    const ProgramRun run = RunCommand(fix_ + " --jobs " + jobs, input, folder_);
    EXPECT_EQ(run.output, records);
    EXPECT_EQ(run.errors,
              "postwright: line 41 is not a JSON string; an empty record takes its place\n");
    EXPECT_EQ(run.status, 1);
  }
}

// A label without an answer holds up those after it, but none before it. A killed process leaves no
// worker running.
TEST_F(FixStreamTest, EndsWithItsWorkers) {
  WriteFile(folder_.File("labels"), LabelLine(1) + LabelLine(kSilentNumber) + LabelLine(2));
  WriteFile(folder_.File("many"), Lines(300, LabelLine));
  WriteFile(folder_.File("kept"), "as it was\n");
  const std::string run = there_ + fix_ +
                          " --jobs 3 labels > out & "
                          "until [ -s out ]; do sleep 0.02; done; ";
  const std::string left = "; pgrep -f --runstates R,S,D 'server " + server_.GetEndpoint() + "'";
  CheckCommands(
      {
          {"ended", run + "kill $!; wait $!; echo $?; cat out" + left, 1, "143\n" + Record(1), ""},
          {"killed", run + "kill -9 $!; wait $! 2>&-; echo $?; sleep 0.5" + left, 1, "137\n", ""},
          {"file as it was",
           there_ + fix_ +
               " --jobs 3 --output kept labels & sleep 0.3; kill $!; wait $!; "
               "cat kept; ls | wc -l" +
               left,
           1, "as it was\n4\n", ""},
          {"reader gone",
           there_ + fix_ + " --jobs 3 many | head -n 1; echo ${PIPESTATUS[0]}" + left, 1,
           Record(1) + "141\n", ""},
      },
      folder_);
}

// Both workers are killed, one of them over the silent label; the third label has a new one.
TEST_F(FixStreamTest, ReplacesADeadWorker) {
  WriteFile(folder_.File("labels"), LabelLine(1) + LabelLine(kSilentNumber));
  WriteFile(folder_.File("more"), LabelLine(2));
  CheckCommands(
      {{"killed",
        there_ + "coproc " + fix_ +
            " --jobs 2 --explain; input=${COPROC[1]}; cat labels >&$input; "
            "read -r -t 30 -u ${COPROC[0]} one; pkill -9 -P $COPROC_PID; "
            "read -r -t 30 -u ${COPROC[0]} two; cat more >&$input; "
            "read -r -t 30 -u ${COPROC[0]} three; exec {input}>&-; "
            "echo \"$two\"; echo \"${three//,/ }\" | cut -c 1-8",
        0,
        R"({"id":999,"address":"999 main street, austin tx 78701","fixed":"",)"
        R"("result":"The worker process that was fixing this address was ended by )"
        "signal 9 (Killed)\",\"confirmation\":\"\",\"reason\":\"worker-ended\","
        R"("confirmation_text":"","reason_text":"The process that asked about it ended )"
        R"(before there was an answer. Ask again.","source":"","source_text":"","changes":[],)"
        R"("status":4})"
        "\n{\"id\":2 \n",
        ""}},
      folder_);
}

// The worker answers while its parent is stopped, and dies before the parent reads the answer.
TEST_F(FixStreamTest, GivesTheAnswerOfAWorkerThatDiedBehindIt) {
  WriteFile(folder_.File("labels"), LabelLine(kSlowNumber));
  CheckCommands({{"killed",
                  there_ + "coproc " + fix_ +
                      " --jobs 2; input=${COPROC[1]}; cat labels >&$input; sleep 0.3; "
                      "kill -STOP $COPROC_PID; sleep 3; pkill -9 -P $COPROC_PID; "
                      "kill -CONT $COPROC_PID; read -r -t 30 -u ${COPROC[0]} one; "
                      "exec {input}>&-; echo \"$one\"",
                  0, Record(kSlowNumber), ""}},
                folder_);
}

TEST_F(FixStreamTest, GoesOnWhereARunWasKilled) {
  WriteFile(folder_.File("labels"), Lines(120, LabelLine));
  const std::string run = there_ + fix_ + " --jobs 3 --resume out labels";
  CheckCommands({{"killed",
                  run + " & until (( $(wc -l < out) > 20 )) 2>&-; do sleep 0.02; done; "
                        "kill -9 $!; wait $! 2>&-; printf '{\"id\":' >> out; echo $?",
                  0, "0\n", ""}},
                folder_);
  const std::string before = ReadFile(folder_.File("out"));
  CheckCommands({{"resumed", run + "; echo $?", 0, "0\n", ""}}, folder_);
  EXPECT_LT(before.size(), Lines(100, Record).size());
  EXPECT_EQ(ReadFile(folder_.File("out")), Lines(120, Record));
  CheckCommands({{"nothing left to do", run + "; cat out", 0, Lines(120, Record), ""}}, folder_);
}

TEST_F(FixStreamTest, PutsNewAnswersInTheirPlaces) {
  const std::string noLabel =
      R"({"address":"","fixed":"","result":"The line is not a JSON string","confirmation":"","reason":"no-label","status":3})"
      "\n";
  WriteFile(folder_.File("labels"), Lines(3, LabelLine) + "3\n" + LabelLine(4) + LabelLine(5));
  const std::string out = Record(1) + Failed(2, 3) + Unanswered(3) + noLabel;
  for (const char* jobs : {"1", "3"}) {
    SCOPED_TRACE(jobs);
    WriteFile(folder_.File("out"), out + "{\"id\":4,");
    chmod(folder_.File("out").c_str(), 0640);
    std::filesystem::remove(folder_.File("link"));
    std::filesystem::create_symlink("out", folder_.File("link"));
    const std::size_t asked = server_.GetRequests().size();
    const std::string run = there_ + fix_ + " --jobs " + jobs + " --resume link labels";
    const std::string report = "line 4 is not a JSON string";
    const std::string resumed =
        Record(1) + Failed(2, 3) + Record(3) + noLabel + Record(4) + Record(5);
    CheckCommands({{"unanswered", run + "; cat out; stat -c %a out; ls | wc -l", 0,
                    resumed + "640\n3\n", report}},
                  folder_);
    EXPECT_EQ(server_.GetRequests().size(), asked + 3);
    CheckCommands({{"turned down, too", run + " --retry-failed; cat out", 0,
                    Lines(3, Record) + noLabel + Record(4) + Record(5), report}},
                  folder_);
    EXPECT_EQ(server_.GetRequests().size(), asked + 4);
  }
}

TEST_F(FixStreamTest, KeepsThePartsOfALabelAskedAboutAgain) {
  WriteFile(folder_.File("labels"),
            R"({"id":1,"street":"3 main street","city":"austin","state":"tx","zip":"78701"})");
  CheckCommands({{"in parts",
                  there_ + "$postwright fix --jsonl --server 127.0.0.1:1 --resume out labels; " +
                      fix_ + " --resume out labels; cat out",
                  0, R"("parts":{"street":"3 MAIN ST","city":"AUSTIN","state":"TX",)", ""}},
                folder_);
}

// A run that asks again is killed in the middle: the file is as it was, and nothing that was
// answered is asked about again.
TEST_F(FixStreamTest, LosesNoAnswerThatWasGivenAgain) {
  WriteFile(folder_.File("labels"), Lines(50, LabelLine));
  for (const std::string jobs : {"1", "3"}) {
    SCOPED_TRACE(jobs);
    const std::string before = Lines(40, Unanswered);
    WriteFile(folder_.File("out"), before);
    const std::size_t asked = server_.GetRequests().size();
    const std::string run = there_ + fix_ + " --jobs " + jobs + " --resume out labels";
    CheckCommands({{"killed",
                    run + " & until (( $(wc -l < out.again) > 10 )) 2>&-; do sleep 0.02; done; "
                          "kill -9 $!; wait $! 2>&-; printf '{\"id\":' >> out.again; echo $?",
                    0, "0\n", ""}},
                  folder_);
    EXPECT_EQ(ReadFile(folder_.File("out")), before);
    CheckCommands({{"resumed", run + "; echo $?; ls", 0, "0\nlabels\nout\n", ""}}, folder_);
    EXPECT_EQ(ReadFile(folder_.File("out")), Lines(50, Record));
    EXPECT_LE(server_.GetRequests().size(),
              asked + 50 + 3 * static_cast<std::size_t>(std::stoi(jobs)));
  }
  WriteFile(folder_.File("out"), Lines(2, Unanswered));
  WriteFile(folder_.File("out.again"), Record(2));
  CheckCommands({{"not its own", there_ + fix_ + " --resume out labels", 2, "",
                  "out.again, beside it, is not its own"}},
                folder_);
  EXPECT_EQ(ReadFile(folder_.File("out.again")), Record(2));
}

// A line nested too deeply is reported as not a label, by whichever worker reads it again.
TEST_F(FixStreamTest, GoesOnBehindALineTooDeep) {
  WriteFile(folder_.File("labels"), LabelLine(1) + "{\"x\":" + std::string(600000, '[') +
                                        std::string(600000, ']') + "}\n" + LabelLine(2));
  const std::string record =
      R"({"address":"","fixed":"","result":"The line has more than 1,000 arrays and objects )"
      R"(inside one another","confirmation":"","reason":"no-label","status":3})"
      "\n";
  WriteFile(folder_.File("begun"), Record(1) + record);
  const std::string run = there_ + fix_ + " --jobs 3 --resume ";
  const std::string records = Record(1) + record + Record(2);
  CheckCommands({{"many jobs", run + "out labels; cat out", 0, records, "line 2 has more than"},
                 {"resumed", run + "begun labels; cat begun", 0, records, "line 2 has more than"}},
                folder_);
}

TEST_F(FixStreamTest, RefusesToResumeWhatIsNotItsOwn) {
  const std::string records = Lines(2, Record);
  WriteFile(folder_.File("labels"), Lines(3, LabelLine));
  WriteFile(folder_.File("shorter"), LabelLine(1));
  WriteFile(folder_.File("other"), LabelLine(2) + LabelLine(1));
  WriteFile(folder_.File("other ids"), R"({"id":"1","address":")" + Label(1) + "\"}\n");
  WriteFile(folder_.File("notes"), "call Ann");
  WriteFile(folder_.File("out"), records + "{half");
  WriteFile(folder_.File("mark"), "\xEF\xBB\xBF" + records);
  CheckCommands(
      {
          {"fewer lines", there_ + fix_ + " --resume out shorter", 2, "",
           "more records than the input"},
          {"other lines", there_ + fix_ + " --resume out other", 2, "",
           "its line 1 is not the record of"},
          {"other ids", there_ + fix_ + " --resume out 'other ids'", 2, "", "line 1 of the input"},
          {"no records", there_ + fix_ + " --resume notes labels", 2, "",
           "line 1 is not a record of a fix"},
          {"labels", there_ + fix_ + " --resume shorter labels", 2, "",
           "line 1 is not a record of a fix"},
          {"a mark", there_ + fix_ + " --resume mark labels", 2, "",
           "line 1 is not a record of a fix"},
          {"itself", there_ + fix_ + " --resume shorter shorter", 2, "", "it is the input itself"},
          {"no file", there_ + fix_ + " --resume /dev/null labels", 2, "",
           "it is not a plain file"},
          {"no folder", there_ + fix_ + " --resume no/out labels", 2, "",
           "cannot open no/out: No such"},
          {"two runs",
           there_ + fix_ + " --resume twice < <(sleep 1) & sleep 0.5; " + fix_ +
               " --resume twice labels; status=$?; wait; exit $status",
           2, "", "another run is writing it"},
      },
      folder_);
  EXPECT_EQ(ReadFile(folder_.File("out")), records + "{half");
  EXPECT_EQ(ReadFile(folder_.File("notes")), "call Ann");
}

// The service is killed after ten answers, and started again once the run has said that it waits.
TEST_F(FixStreamTest, OutlivesTheService) {
  WriteFile(folder_.File("before"), Lines(10, LabelLine));
  WriteFile(folder_.File("labels"), Lines(60, LabelLine));
  for (const char* jobs : {"1", "4"}) {
    SCOPED_TRACE(jobs);
    const VerifyDaemon daemon;
    const std::string serve = "\"${postwright}-verifyd\" --listen " + daemon.Endpoint();
    CheckCommands({{"killed and started again",
                    there_ + "coproc $postwright fix --jsonl --resume out" + jobs + " --jobs " +
                        jobs + " --server " + daemon.Endpoint() +
                        " 2> said; input=${COPROC[1]}; run=$COPROC_PID; cat before >&$input; "
                        "until (( $(wc -l < out" +
                        jobs + ") == 10 )) 2>&-; do sleep 0.02; done; kill -9 " +
                        std::to_string(daemon.Process()) +
                        "; tail -n +11 labels >&$input; exec {input}>&-; "
                        "until grep -q Waiting said; do sleep 0.02; done; " +
                        serve +
                        " 2>&- & "
                        "wait $run; echo $?; kill $!; cat out" +
                        jobs,
                    0, "0\n" + Lines(60, Record), ""}},
                  folder_);
  }
}

TEST_F(FixStreamTest, EndsWhereTheServiceStaysAway) {
  WriteFile(folder_.File("labels"), Lines(30, LabelLine));
  const std::string fix =
      there_ + "$postwright fix --jsonl --server 127.0.0.1:1 --give-up-after 1s ";
  CheckCommands(
      {
          {"many at once", fix + "--jobs 3 labels | tail -n 1; echo ${PIPESTATUS[0]}", 0,
           "\"reason\":\"refused\",\"status\":4}\n75\n", "Waiting for the service, 1 s at most."},
          {"a table",
           there_ + "printf 'street,city,state,zip\\n' > table; for n in {1..9}; do echo \"$n main "
                    "street,austin,tx,78701\" >> table; done; $postwright fix --server 127.0.0.1:1 "
                    "--give-up-after 1s table > fixed; echo $?; tail -n 1 fixed; wc -l < fixed",
           0, "75\n9 main street,austin,tx,78701,not-asked,,,,\n10\n", "records are whole\n"},
          {"a file",
           fix +
               "--output out labels; echo $?; wc -l < out.unfinished-*; "
               "$postwright fix --jsonl --server " +
               server_.GetEndpoint() +
               " --resume out.unfinished-* labels; wc -l < out.unfinished-*",
           0, "75\n3\n30\n", "; go on with --resume out.unfinished-"},
      },
      folder_);
}

TEST_F(FixStreamTest, ShowsProgressOnATerminal) {
  WriteFile(folder_.File("labels"), Lines(9, LabelLine) + "3\n");
  WriteFile(folder_.File("many"), Lines(300, LabelLine));
  const auto onTerminal = [this](const std::string& before, const std::string& behind) {
    return there_ + "export TERM=xterm; script -qec \"" + before + fix_ + behind +
           "\" /dev/null < /dev/null";
  };
  const std::string counts = "9 fixed, 0 unchanged, 1 turned down\r\n";
  CheckCommands(
      {
          {"one job", onTerminal("", " labels > out"), 1, "\r\033[K10 of 10: " + counts, ""},
          {"many", onTerminal("", " --jobs 4 labels >out"), 1, "\r\033[K10 of 10: " + counts, ""},
          {"at first", onTerminal("", " labels > out"), 1, "\r\033[K0 of 10: 0 fixed", ""},
          {"a pipe", onTerminal("cat labels | ", " > out"), 1, "\r\033[K10 done: " + counts, ""},
          {"a report", onTerminal("", " labels > out"), 1,
           "\r\033[Kpostwright: line 10 is not a JSON string; an empty record takes its place"
           "\r\n\r\033[K10 of 10",
           ""},
          {"records between", onTerminal("head -n 1 labels | ", ""), 0,
           "\r\033[K" + Record(1).substr(0, Record(1).size() - 1) + "\r\n\r\033[K1 done: 1 fixed",
           ""},
          {"a terminal that cannot",
           onTerminal("TERM=dumb ", " labels > out") + " | grep -c -e turned -e $'\\033'", 1, "0\n",
           ""},
          {"records at once, the line now and then",
           onTerminal("timeout 20 ", " --jobs 4 many") +
               " | grep -o 'of 300:' | wc -l | grep -c '^..\\?$'",
           0, "1\n", ""},
          {"an outage",
           there_ + "export TERM=xterm; export postwright; script -qec '$postwright fix --jsonl "
                    "--server 127.0.0.1:1 "
                    "--give-up-after 1s labels > out' /dev/null < /dev/null",
           75, ", waiting for the service, ", ""},
          {"quiet", onTerminal("", " --quiet labels > out") + " | grep -c turned", 1, "0\n", ""},
          {"ended by a signal", onTerminal("(echo 3; sleep 5) | timeout 3 ", " > out"), 124,
           "1 turned down\r\n", ""},
      },
      folder_);
}

// `postwright parse --jsonl`, whose workers have many lines at a time.
class ParseStreamTest : public testing::Test {
 protected:
  ParseStreamTest() {
    std::string lines = Lines(1500, LabelLine) + "3\n\n" + LabelLine(7);
    WriteFile(folder_.File("labels"), lines + '"' + std::string(17 << 20, 'x') + "\"\n3\n");
    WriteFile(folder_.File("more"), Lines(1500, LabelLine) + R"("12 elm st, austin tx 78701")");
    CheckCommands({{"alone", parse_ + " labels > records", 1, "", "line 1504 is longer than"},
                   {"alone", parse_ + " more > records-of-more", 0, "", ""}},
                  folder_);
  }

  const ScratchFolder folder_;
  const std::string parse_ = "cd $folder; $postwright parse --jsonl";
};

TEST_F(ParseStreamTest, KeepsTheOrderOfTheLines) {
  const ProgramRun alone = RunCommand(parse_ + " labels", "", folder_);
  for (const char* jobs : {"2", "5"}) {
    SCOPED_TRACE(jobs);
    const ProgramRun run = RunCommand(parse_ + " labels --jobs " + jobs, "", folder_);
    EXPECT_EQ(run.output, ReadFile(folder_.File("records")));
    EXPECT_EQ(run.errors, alone.errors);
    EXPECT_EQ(run.status, 1);
  }
}

// Nothing is lost when a worker dies; a line over which workers die repeatedly is reported.
TEST_F(ParseStreamTest, ReplacesADeadWorker) {
  WriteFile(folder_.File("slow"),
            LabelLine(1) + '"' + std::string(15 << 20, 'x') + "\"\n" + LabelLine(2));
  const std::string empty =
      R"({"prefix":"","number":"","predirectional":"","street":"","street_suffix":"",)";
  const std::string numbers = " | grep -o '\"number\":\"[0-9]*'";
  CheckCommands(
      {{"killed with lines in hand",
        "cd $folder; mkfifo in; $postwright parse --jsonl --jobs 2 < in > out & run=$!; "
        "exec {input}> in; head -n 700 more >&$input; until [ -s out ]; do sleep 0.02; done; "
        "pkill -STOP -P $run; tail -n +701 more >&$input; sleep 0.3; pkill -9 -P $run; "
        "exec {input}>&-; wait $run; cmp out records-of-more",
        0, "", ""},
       {"killed over a line",
        parse_ +
            " --jobs 2 slow > out 2> said & run=$!; kill_workers() { sleep 0.02; pkill -9 -P $run; "
            "}; "
            "until kill_workers; do :; done; until [ -s out ]; do sleep 0.02; done; "
            "until grep -q 'line 2' said; do kill_workers; done; wait $run; echo $?; "
            "cat said >&2; cat out" +
            numbers,
        0, "1\n\"number\":\"1\n\"number\":\"\n\"number\":\"2\n",
        "postwright: line 2 could not be read: the worker process was ended by signal 9 (Killed); "
        "an empty record takes its place\n"}},
      folder_);
}

TEST_F(ParseStreamTest, GoesOnWhereARunWasInterrupted) {
  const std::string part = "cd $folder; head -n 777 records-of-more > out; ";
  const std::string same = "; cmp out records-of-more";
  const std::string resume = "$postwright parse --jsonl --resume out more";
  const std::string refused = resume + " 2> said; echo $?; tr ';' '\n' < said | head -n 1";
  const std::string sed = part + "sed -i ";
  CheckCommands(
      {
          {"one job", part + "printf '{\"id\":77' >> out; " + resume + same, 0, "", ""},
          {"many", part + resume + " --jobs 3" + same, 0, "", ""},
          {"from the start", "cd $folder; rm out; " + resume + " --jobs 2" + same, 0, "", ""},
          {"another id", sed + "'9s/:9,/:10,/' out; " + refused, 0, "its line 9 is not the record",
           ""},
          {"another address", sed + "'101s/MAIN/ELM/' out; " + refused, 0,
           "its line 101 is not the record", ""},
          {"no record", sed + "'3s/prefix/fixed/' out; " + refused, 0, "not a record of a parse",
           ""},
          {"two outputs", part + resume + " --output b", 2, "", "--resume excludes --output"},
      },
      folder_);
}

}  // namespace

}  // namespace postwright
