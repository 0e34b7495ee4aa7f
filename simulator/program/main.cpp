// corvid-printer: a simulated fiscal printer at the end of a serial line.
#include "simulator/program/help.h"
#include "simulator/program/options.h"
#include "simulator/program/program.h"

#include <exception>
#include <iostream>

namespace {

int run(const std::vector<std::string_view>& arguments) {
  using corvid::simulator::parsedOptions;
  const auto [options, error] = parsedOptions(arguments);
  if (!error.empty()) {
    std::cerr << "corvid-printer: " << error << "; see corvid-printer --help\n";
    return 2;
  }
  if (options.isHelpWanted) {
    std::cout << corvid::simulator::help();
    return 0;
  }
  corvid::simulator::Program program(options, std::cout);
  corvid::simulator::serve(options, program);
  return program.finish();
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return run({arguments + 1, arguments + count});
  } catch (const std::exception& failure) {
    std::cerr << "corvid-printer: " << failure.what() << '\n';
    return 1;
  }
}
