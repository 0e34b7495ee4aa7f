#include "known_day.h"
#include "simulator/device/memory_text.h"
#include "simulator/program/program.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
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

TEST(Memory, InAFileCarriesTheDayToTheNextRun) {
  const TempFolder folder;
  Options options;
  options.memory = (folder.path() / "printer.txt").string();
  // What a printer of its own run answers to the last of the commands.
  const auto run = [&](const std::vector<std::string>& commands) {
    std::ostringstream out;
    Program program(options, out);
    std::string answer;
    for (const std::string& command : commands) {
      program.receive(framed(command), Moment{});
      answer = program.takeDue(Moment{});
    }
    return answer;
  };
  run({"S1"});
  EXPECT_FALSE(std::filesystem::exists(options.memory)) << "nothing changed, nothing to keep";
  run({item(" ", 100, 1000, "A"), "101"});
  run({item(" ", 250, 1000, "B")});
  const std::string summary = run({item(" ", 200, 1000, "C"), "101", "U0Z"});
  EXPECT_EQ(run({"U0Z"}), summary);
  EXPECT_NE(summary.find("\n00000002\n"), std::string::npos) << "the open document is lost";
  EXPECT_NE(summary.find("\n0000000300\n"), std::string::npos);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1)
      << "no temporary file stays";
}

}  // namespace
}  // namespace corvid::simulator
