#include "simulator/program/options.h"

#include "simulator/program/help.h"

#include <algorithm>
#include <array>

namespace corvid::simulator {
namespace {

// A whole number of at most `digits` digits.
std::optional<int> number(std::string_view text, std::size_t digits) {
  const std::size_t size = text.size();
  const auto value = takeDigits(text, size);
  const bool fits = value && size >= 1 && size <= digits;
  return fits ? std::optional(static_cast<int>(*value)) : std::nullopt;
}

bool setClock(Options& options, std::string_view value) {
  options.clock = parsedTime(value);
  return options.clock.has_value();
}

bool setRates(Options& options, std::string_view value) {
  for (Rate& rate : options.configuration.rates) {
    const auto comma = std::min(value.find(','), value.size());
    const auto parsed = parsedRate(value.substr(0, comma));
    if (!parsed) {
      return false;
    }
    rate = *parsed;
    value.remove_prefix(std::min(comma + 1, value.size()));
  }
  return value.empty();
}

bool setIgtf(Options& options, std::string_view value) {
  options.configuration.igtf = parsedRate(value);
  return value == "none" || options.configuration.igtf.has_value();
}

bool setFlag(Options& options, std::string_view value) {
  const auto equals = std::min(value.find('='), value.size());
  const auto flag = number(value.substr(0, equals), 2);
  const auto setting = number(value.substr(std::min(equals + 1, value.size())), 2);
  if (!flag || !setting || *flag >= static_cast<int>(kFlagCount)) {
    return false;
  }
  options.configuration.flags.at(static_cast<std::size_t>(*flag)) = *setting;
  return true;
}

bool setModel(Options& options, std::string_view value) {
  const auto model = modelNamed(value);
  options.configuration.model = model.value_or(options.configuration.model);
  return model.has_value();
}

bool setNumber(int& target, std::string_view value, std::size_t digits) {
  const auto parsed = number(value, digits);
  target = parsed.value_or(target);
  return parsed.has_value();
}

bool setText(std::string& target, std::string_view value) {
  target = value;
  return !value.empty();
}

// Four numbers with dots, not above 255.
bool isDottedAddress(std::string_view text) {
  constexpr int kParts = 4;
  constexpr int kHighest = 255;
  for (int part = 1; part <= kParts; ++part) {
    const auto dot = std::min(text.find('.'), text.size());
    const auto value = number(text.substr(0, dot), 3);
    const bool isLast = part == kParts;
    if (!value || *value > kHighest || isLast != (dot == text.size())) {
      return false;
    }
    text.remove_prefix(isLast ? dot : dot + 1);
  }
  return true;
}

bool setTcp(Options& options, std::string_view value) {
  constexpr int kHighestPort = 65535;
  const auto colon = std::min(value.find(':'), value.size());
  const auto port = number(value.substr(std::min(colon + 1, value.size())), 5);
  if (!port || *port > kHighestPort || !isDottedAddress(value.substr(0, colon))) {
    return false;
  }
  options.tcp = {std::string(value.substr(0, colon)), static_cast<std::uint16_t>(*port)};
  return true;
}

bool setSilences(Options& options, std::string_view value) {
  options.silences = value == "none" ? Replay::Silences::None : Replay::Silences::AsDumped;
  return value == "none" || value == "dumped";
}

struct Option {
  std::string_view name;
  std::string_view value;
  std::string_view help;
  bool (*set)(Options& options, std::string_view value);
  std::string_view heading{};  // of the options from here on
};

constexpr std::array kOptions = {
    Option{"--tcp", "127.0.0.1:4000", "serve hosts that connect there, one after the other", setTcp,
           "The line to the host, one of"},
    Option{"--port", "COMn", "serve a serial port, byte by byte at 9600 baud (Windows)",
           [](Options& o, std::string_view v) { return setText(o.port, v); }},
    Option{"--pty", "LINK", "serve a pseudo terminal and make LINK point at it (Linux)",
           [](Options& o, std::string_view v) { return setText(o.pty, v); }},
    Option{"--paper", "- | FILE", "show every printed line here, or add it to FILE in UTF-8",
           [](Options& o, std::string_view v) { return setText(o.paper, v); }, "What to see of it"},
    Option{"--wire", "FILE", "add every message to FILE: direction, bytes, hexadecimal",
           [](Options& o, std::string_view v) { return setText(o.wire, v); }},
    Option{
        "--memory", "FILE",
        "go on from the memory in FILE and keep it there; once the file is there, it goes before "
        "--rates, --igtf, --flag, --cashier and --last-invoice",
        [](Options& o, std::string_view v) { return setText(o.memory, v); }, "The printer"},
    Option{
        "--model", "long | short",
        "layout of the counters' reply; with -20, -29, -30, -31 or -38 to -41 after it, fields of "
        "the day's summary",
        setModel},
    Option{"--serial", "TEXT", "serial number",
           [](Options& o, std::string_view v) { return setText(o.configuration.serial, v); }},
    Option{"--rif", "TEXT", "the owner's tax number",
           [](Options& o, std::string_view v) { return setText(o.configuration.rif, v); }},
    Option{"--rates", "21600,20800,23100", "kind (1 included, 2 added) and hundredths of a percent",
           setRates},
    Option{"--igtf", "20300 | none", "the levy on foreign currency that the printer reports",
           setIgtf},
    Option{"--flag", "21=30", "value of a flag; may be repeated", setFlag},
    Option{"--cashier", "N", "cashier on duty, 0 to 99",
           [](Options& o, std::string_view v) { return setNumber(o.configuration.cashier, v, 2); }},
    Option{"--last-invoice", "N", "number of the last invoice printed",
           [](Options& o, std::string_view v) {
             return setNumber(o.configuration.lastInvoice, v, 8);
           }},
    Option{"--clock", "\"2026-03-14 10:30:15\"", "stop the printer's clock there", setClock},
    Option{"--do", "LINE", "obey a line of steering at the start; may be repeated",
           [](Options& o, std::string_view v) {
             o.steering.emplace_back(v);
             return !v.empty();
           },
           "Faults"},
    Option{"--script", "FILE", "obey the lines of FILE, each when its command comes",
           [](Options& o, std::string_view v) { return setText(o.script, v); }},
    Option{"--replay", "FILE", "answer as a library's port dump recorded it, in place of a printer",
           [](Options& o, std::string_view v) { return setText(o.replay, v); }},
    Option{"--silences", "dumped | none",
           "whether a replay keeps the dump's silences, in whole seconds (dumped)", setSilences},
};

// A replay has a dump for all that a printer would be told.
std::string contradictionIn(const Options& options) {
  const bool tellsPrinter = !options.paper.empty() || !options.memory.empty() ||
                            !options.script.empty() || !options.steering.empty();
  return !options.replay.empty() && tellsPrinter
             ? "--replay does not go with --paper, --memory, --script and --do"
             : "";
}

const Option* optionNamed(std::string_view name) {
  const auto* found = std::find_if(kOptions.begin(), kOptions.end(),
                                   [&](const Option& option) { return option.name == name; });
  return found == kOptions.end() ? nullptr : found;
}

}  // namespace

ParsedOptions parsedOptions(const std::vector<std::string_view>& arguments) {
  ParsedOptions parsed;
  for (std::size_t i = 0; i < arguments.size() && parsed.error.empty(); i += 2) {
    const std::string name(arguments[i]);
    const Option* option = optionNamed(name);
    if (name == "--help") {
      parsed.options.isHelpWanted = true;
      return parsed;
    }
    if (option == nullptr) {
      parsed.error = "unknown option " + name;
    } else if (i + 1 == arguments.size()) {
      parsed.error = name + " needs a value";
    } else if (!option->set(parsed.options, arguments[i + 1])) {
      parsed.error = "bad value for " + name + ": " + std::string(arguments[i + 1]);
    }
  }
  if (parsed.error.empty()) {
    parsed.error = contradictionIn(parsed.options);
  }
  return parsed;
}

std::string optionsHelp() {
  std::string text;
  for (const Option& option : kOptions) {
    if (!option.heading.empty()) {
      text.append("\n").append(option.heading).append(":\n");
    }
    text += helpLine(std::string(option.name).append(" ").append(option.value), option.help);
  }
  return text;
}

}  // namespace corvid::simulator
