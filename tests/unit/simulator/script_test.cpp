// Steering by a file: when its lines come true, and what a power cut leaves.
#include "simulator/program/script.h"

#include "bench.h"
#include "simulator/program/program.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace corvid::simulator {
namespace {

const std::string kStatus = "\x02\x60\x40\x03\x23";

// A program with a script, and its answers to a host.
struct ScriptBench {
  explicit ScriptBench(const std::string& script) {
    options.script = (folder.path() / "script").string();
    options.paper = kConsole;
    std::ofstream(options.script, std::ios::binary) << script;
    program.emplace(options, out);
  }
  std::string raw(std::string_view bytes) {
    program->receive(bytes, Moment{});
    return program->takeDue(Moment{});
  }
  std::string command(std::string_view text) { return raw(framed(text)); }
  [[nodiscard]] bool hasPrinted(const std::string& text) const {
    return out.str().find(text) != std::string::npos;
  }

  TempFolder folder;
  Options options;
  std::ostringstream out;
  std::optional<Program> program;
};

TEST(Script, LinesComeTrueAtTheirCommands) {
  ScriptBench bench(
      "# a comment\r\n\r\n"
      "  answer S1 first  \n"
      "at 2 refuse 1\r\n"
      "at 2 noise 1 zz\n"
      "after 3 state\n"
      "after 3 lose 1\n"
      "at 4 silent 1");
  EXPECT_EQ(bench.command("S1"), framed("first"));
  EXPECT_EQ(bench.raw("\x02w\x03?"), kNakAnswer) << "a damaged command does not count";
  EXPECT_EQ(bench.raw("\x05"), kStatus) << "nor does a status request";
  EXPECT_EQ(bench.command("w"), "zz" + kNakAnswer);
  EXPECT_EQ(bench.out.str(), "");
  EXPECT_EQ(bench.command("w"), "") << "done, and the answer lost";
  EXPECT_EQ(bench.out.str(), "status 96 64\ndrawer 1\ninvoice 0\n");
  EXPECT_EQ(bench.command("w"), "") << "not heard, and counted";
  EXPECT_EQ(bench.command("w"), kAckAnswer);
}

TEST(Script, TellsTheLineThatItDoesNotUnderstand) {
  const struct {
    const char* text;
    const char* reason;
  } kCases[] = {
      {"# one\ndance", "line 2: unknown command"},
      {"at 3 refuse", "line 1: arguments not understood"},
      {"\n\nat refuse 1", "line 3: a command's number is missing"},
      {"after 0 refuse 1", "line 1: a command's number is missing"},
      {"at 1 quit", "line 1: quit has no place in a script"},
      {"at 1 at 2 refuse 1", "line 1: unknown command"},
      {"power-cut", "line 1: arguments not understood"},
      {"power-cut perhaps", "line 1: arguments not understood"},
  };
  for (const auto& [text, reason] : kCases) {
    try {
      const Script script(text);
      ADD_FAILURE() << text;
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), reason);
    }
  }
  Options options;
  options.script = "no/such/file";
  std::ostringstream out;
  EXPECT_THROW(Program(options, out), std::runtime_error);
}

// An invoice is closed, the next one is open when the power goes at its second item.
const std::string kSale = item("!", 1000, 1000, "PAN");
const std::string kNext = item("!", 1000, 1000, "QUESO");

TEST(PowerCut, KeepsTheMemoryAndAnnulsOrResumesTheDocument) {
  const struct {
    const char* script;
    bool isCarriedOut;
    std::string payment;  // the answer to the document's payment afterwards
    int invoices;
  } kCases[] = {
      {"at 4 power-cut annul", false, kNakAnswer, 1},
      {"after 4 power-cut annul", true, kNakAnswer, 1},
      {"at 4 power-cut resume", false, kAckAnswer, 2},
      {"after 4 power-cut resume", true, kAckAnswer, 2},
  };
  for (const auto& item : kCases) {
    ScriptBench bench(std::string(item.script) + " 2\n");
    for (const std::string& text : {kSale, std::string("101"), kSale}) {
      EXPECT_EQ(bench.command(text), kAckAnswer) << item.script;
    }
    EXPECT_EQ(bench.command(kNext), "") << item.script;
    EXPECT_EQ(bench.hasPrinted("QUESO"), item.isCarriedOut) << item.script;
    EXPECT_EQ(bench.hasPrinted("ANULADO"), item.invoices == 1) << item.script;
    EXPECT_EQ(bench.raw("\x05") + bench.raw("\x05"), "") << "the power is off";
    EXPECT_NE(bench.raw("\x05"), "") << item.script;
    EXPECT_EQ(bench.command("101"), item.payment) << item.script;
    bench.program->steer("state\n");
    EXPECT_TRUE(bench.hasPrinted("\ninvoice " + std::to_string(item.invoices))) << item.script;
  }
}

TEST(PowerCut, LosesWhatIsVolatileOrOnItsWay) {
  ScriptBench bench("after 4 power-cut resume\nat 6 bytewise 1\n");
  for (const char* text : {"iS*MARIA", "T1"}) EXPECT_EQ(bench.command(text), kAckAnswer);
  bench.program->steer("error 72\n");
  // Three rows, of which the host has taken one.
  bench.program->steer("answer U3A 1\nmore U3A 2\n");
  EXPECT_EQ(bench.command("U3A"), framed("1", kEtb));
  EXPECT_EQ(bench.command("w"), "");
  EXPECT_EQ(bench.raw("\x06"), "");
  EXPECT_EQ(bench.raw("\x05"), kStatus) << "neither training nor an error";
  EXPECT_EQ(bench.command(kSale), kAckAnswer);
  EXPECT_FALSE(bench.hasPrinted("MARIA"));
  bench.program->receive(framed("101"), Moment{});
  bench.program->steer("power-cut annul\n");
  EXPECT_EQ(bench.program->takeDue(Moment{} + std::chrono::hours(1)), "");
}

TEST(HangUp, TakesThePlaceOfAnAnswer) {
  ScriptBench bench("at 2 hang-up 1");
  EXPECT_EQ(bench.command("w"), kAckAnswer);
  EXPECT_FALSE(bench.program->takeHangUp());
  EXPECT_EQ(bench.raw(framed("w") + "\x05"), "") << "nobody is there any more";
  EXPECT_TRUE(bench.program->takeHangUp());
  EXPECT_FALSE(bench.program->takeHangUp());
  EXPECT_EQ(bench.raw("\x05"), kStatus);
}

}  // namespace
}  // namespace corvid::simulator
