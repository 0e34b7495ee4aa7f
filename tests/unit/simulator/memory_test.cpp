#include "known_day.h"
#include "simulator/device/memory_text.h"
#include "simulator/program/program.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace corvid::simulator {
namespace {

// A closed day, one that runs, a changed configuration and clock.
std::string fullMemory() {
  Configuration configuration;
  configuration.rates[0] = *parsedRate("11600");
  Bench bench(configuration);
  std::vector<std::string> commands = knownDay();
  commands.insert(commands.end(),
                  {"I0Z", "PJ2130", "PJ2100", "PJ6307", "500042", "PG150326",
                   "PHA" + std::string(17, ' ') + "\xA1 \\ \n\x01 \x7F" + std::string(15, ' '),
                   item(" ", 100, 1000, "A"), "101"});
  EXPECT_EQ(bench.firstRefused(commands), "");
  return memoryText(bench.printer.machine());
}

// A text with the last line that belongs to it.
std::string sealed(std::string text) {
  text.erase(text.rfind("end "));
  return text + "end " + checkOf(text) + "\n";
}

std::string damageOf(std::string_view text) {
  Bench bench;
  const std::string before = memoryText(bench.printer.machine());
  try {
    restoreMemory(text, bench.printer.machine());
  } catch (const DamagedMemory& damage) {
    EXPECT_EQ(memoryText(bench.printer.machine()), before) << "the machine is as it was";
    return damage.what();
  }
  return "";
}

TEST(Memory, AnotherPrinterGoesOnWhereOneWasSwitchedOff) {
  const std::string memory = fullMemory();
  Bench bench;
  restoreMemory(memory, bench.printer.machine());
  EXPECT_EQ(memoryText(bench.printer.machine()), memory);
  EXPECT_EQ(bench.printer.machine().now().day, 15);
  EXPECT_EQ(bench.fields("S1")[0], "S142");
  EXPECT_EQ(bench.fields("S3")[0], "11600");
  EXPECT_EQ(bench.fields("S4")[0], "S40000000100");
  ASSERT_EQ(bench.firstRefused({item(" ", 200, 1000, "B"), "101", "RF00000030000003"}), "");
  EXPECT_EQ(bench.fields("U0Z")[9], "0000000300");
  EXPECT_EQ(bench.fields("U3A000001000001")[9], "0000004350");
}

TEST(Memory, NoLevyIsKeptToo) {
  Configuration configuration;
  configuration.igtf.reset();
  Bench without(configuration);
  Bench bench;
  restoreMemory(memoryText(without.printer.machine()), bench.printer.machine());
  EXPECT_FALSE(bench.printer.machine().configuration.igtf);
}

TEST(Memory, EveryChangedOrMissingByteIsFound) {
  const std::string memory = fullMemory();
  for (std::size_t at = 0; at < memory.size(); at += 31) {
    std::string changed = memory;
    changed[at] = changed[at] == '1' ? '2' : '1';
    ASSERT_NE(damageOf(changed), "") << at;
    ASSERT_NE(damageOf(memory.substr(0, at)), "") << at;
  }
  EXPECT_NE(damageOf(memory.substr(0, memory.size() - 1)), "");
  EXPECT_NE(damageOf(memory + "\n"), "");
}

TEST(Memory, LinesThatMakeNoSenseAreToldByNumber) {
  const std::string memory = fullMemory();
  ASSERT_EQ(damageOf(sealed(memory)), "");
  const struct {
    const char* old;
    const char* changed;
    const char* damage;
  } kCases[] = {
      {"memory 1", "memory 2", "line 1: expected a number in its range"},
      {"rate 1 1600\n", "", "line 4: expected rate"},
      {"rate 2 800", "rate 0 800", "line 3: expected a rate's kind"},
      {"rate 2 800", "rate 3 800", "line 3: expected a rate's kind"},
      {"rate 2 800", "rate 2 10000", "line 3: expected a number in its range"},
      {"rate 2 800", "rate 2 8x0", "line 3: expected a number"},
      {"rate 2 800", "rate 2", "line 3: expected a number"},
      {"rate 2 800", "rate 2 800 1", "line 3: expected the line's end"},
      {"cashier 42", "cashier 100", "line 7: expected a number in its range"},
      {"cashier 42", "cashier -1", "line 7: expected a number in its range"},
      {"clock 86400", "clock 9999999999999", "line 8: expected a number in its range"},
      {"header CARACAS\n", "header A\nheader B\nheader C\nheader D\nheader E\nheader F\nheader G\n",
       "line 18: expected no more programmed lines"},
      {"header CARACAS\n", "header A\\q\n", "line 11: expected an escaped text"},
      {"last 4", "last 4294967296", "line 13: expected a number in its range"},
      {"2026 3 15", "2026 2 31", "line 13: expected a time that exists"},
      {"kind 1 100 ", "kind 4294967296 100 ", "line 15: expected a count of documents"},
      {"kind 1 100 ", "kind 1 -100 ", "line 15: expected a number in its range"},
      {"copy F", "copy X", "line 24: expected the end"},
      {"cashier 42", "cashier 042", "not in the form that printers write"},
  };
  for (const auto& c : kCases) {
    std::string text = memory;
    ASSERT_NE(text.find(c.old), std::string::npos) << c.old;
    text.replace(text.find(c.old), std::string_view(c.old).size(), c.changed);
    EXPECT_EQ(damageOf(sealed(text)), c.damage) << c.changed;
  }
}

class InFile : public testing::Test {
 protected:
  InFile() {
    options_.memory = (folder_.path() / "printer.txt").string();
    options_.clock = LocalTime{2026, 3, 14, 10, 30, 15};
  }

  // What a printer of its own run answers to the last of the commands.
  std::string run(const std::vector<std::string>& commands) {
    std::ostringstream out;
    Program program(options_, out);
    std::string answer;
    for (const std::string& command : commands) {
      program.receive(framed(command), Moment{});
      answer = program.takeDue(Moment{});
    }
    return answer;
  }

  [[nodiscard]] std::string content() const {
    return bytesOf(std::filesystem::path(options_.memory).wstring());
  }

  TempFolder folder_;
  Options options_;
};

TEST_F(InFile, SecondRunGoesOnWithTheDay) {
  run({"S1"});
  EXPECT_FALSE(std::filesystem::exists(options_.memory)) << "nothing changed, nothing to keep";
  run({item(" ", 100, 1000, "A"), "101"});
  run({item(" ", 250, 1000, "B")});
  const std::string summary = run({item(" ", 200, 1000, "C"), "101", "U0Z"});
  EXPECT_EQ(run({"U0Z"}), summary);
  EXPECT_NE(summary.find("\n00000002\n"), std::string::npos) << "the open document is lost";
  EXPECT_NE(summary.find("\n0000000300\n"), std::string::npos);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1)
      << "no temporary file stays";
}

TEST_F(InFile, DamageStopsTheProgramAndLeavesTheFile) {
  run({item(" ", 100, 1000, "A"), "101"});
  const std::string cut = content().substr(0, 500);
  std::ofstream(options_.memory, std::ios::binary | std::ios::trunc) << cut;
  try {
    run({"S1"});
    ADD_FAILURE() << "a damaged memory was taken";
  } catch (const std::runtime_error& failure) {
    EXPECT_EQ(
        std::string(failure.what()).find("the memory file " + options_.memory + " is damaged"), 0U)
        << failure.what();
  }
  EXPECT_EQ(content(), cut);
}

TEST_F(InFile, CommandThatCannotBeKeptIsNotAcknowledged) {
  std::filesystem::create_directory(options_.memory + ".new");
  EXPECT_THROW(run({"PJ2101"}), std::runtime_error);
}

}  // namespace
}  // namespace corvid::simulator
