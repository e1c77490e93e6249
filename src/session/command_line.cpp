// SPDX-License-Identifier: MIT
#include "session/command_line.h"

#include <getopt.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <string_view>

#include "state/window_limits.h"

namespace sylvomex {

const char* const kUsage =
    "sylvomex [--root DIR] [--size WxH] [--record FILE] [--begin FILE] [--plain]\n"
    "sylvomex --script FILE [--root DIR] [--size WxH] [--record FILE] [--show [--pace SECONDS]]\n"
    "         [--journal FILE | --resume FILE]\n"
    "\n"
    "  --root DIR     DIR holds the drives: DIR/c, DIR/d, DIR/e, DIR/f\n"
    "                 (else $SYLVOMEX_ROOT, else ~/sylvomex)\n"
    "  --script FILE  plays a script, - is standard input\n"
    "  --size WxH     client size of the main window, 1280x1024\n"
    "  --record FILE  writes what is done as a script\n"
    "  --begin FILE   plays a script on the desktop, then leaves it to the hand\n"
    "  --plain        the desktop without its aids: no undo, no strip below the panes\n"
    "  --journal FILE writes the journal of a script's session, as the desktop does of its own\n"
    "  --resume FILE  does again what stands in a journal that was not ended by Exit, then plays\n"
    "                 the script, if any; the journal goes on\n"
    "  --show         shows the windows while the script plays\n"
    "  --pace SECONDS lets each step be seen for that time, 0 to 3600, before the next one\n"
    "  --help         this text\n";

namespace {

std::optional<double> Side(std::string_view text) {
  int side = 0;
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, side);
  if (parsed.ec != std::errc() || parsed.ptr != end || side < 1 || side > kLargestWindowSide) {
    return std::nullopt;
  }
  return side;
}

bool Set_Size(SessionOptions& options, std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross == std::string_view::npos) return false;
  const std::optional<double> width = Side(text.substr(0, cross));
  const std::optional<double> height = Side(text.substr(cross + 1));
  if (!width || !height) return false;
  options.width = *width;
  options.height = *height;
  return true;
}

}  // namespace

std::filesystem::path Default_Root() {
  if (const char* const root = std::getenv("SYLVOMEX_ROOT"); root != nullptr && *root != '\0') {
    return root;
  }
  const char* const home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr ? home : ".") / "sylvomex";
}

bool Take_Size(CommandLine& line, std::string_view text, std::ostream& err) {
  line.size_given = Set_Size(line.options, text);
  if (!line.size_given) {
    err << "--size takes a width and a height of 1 to " << kLargestWindowSide
        << " pixels such as 1280x1024, not \"" << text << "\"\n";
  }
  return line.size_given;
}

bool Take_Pace(CommandLine& line, std::string_view text, std::ostream& err) {
  constexpr double kLongest = 3600;  // seconds
  double seconds = 0;
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, seconds);
  if (parsed.ec != std::errc() || parsed.ptr != end || !(seconds >= 0 && seconds <= kLongest)) {
    err << "--pace takes a number of seconds from 0 to 3600 such as 0.5, not \"" << text << "\"\n";
    return false;
  }
  line.options.pace = seconds;
  return true;
}

namespace {

/// False for an invalid option.
bool Take_Option(CommandLine& line, int option, std::ostream& err) {
  switch (option) {
    case 'r':
      line.options.root = optarg;
      return true;
    case 's':
      line.options.script = optarg;
      return true;
    case 'o':
      line.options.record = optarg;
      return true;
    case 'j':
      line.options.journal = optarg;
      return true;
    case 'm':
      line.options.resume = optarg;
      return true;
    case 'w':
      line.options.show = true;
      return true;
    case 'p':
      line.plain = true;
      return true;
    case 'h':
      line.help = true;
      return true;
    case 'z':
      return Take_Size(line, optarg, err);
    case 'c':
      return Take_Pace(line, optarg, err);
    case 'b':
      line.begin = optarg;
      return true;
    default:
      err << "unknown option or missing argument; see --help\n";
      return false;
  }
}

}  // namespace

std::optional<CommandLine> Parse_Command_Line(int argc, char** argv, std::ostream& err) {
  static constexpr std::array<option, 12> kOptions{{{"root", required_argument, nullptr, 'r'},
                                                    {"script", required_argument, nullptr, 's'},
                                                    {"size", required_argument, nullptr, 'z'},
                                                    {"record", required_argument, nullptr, 'o'},
                                                    {"begin", required_argument, nullptr, 'b'},
                                                    {"journal", required_argument, nullptr, 'j'},
                                                    {"resume", required_argument, nullptr, 'm'},
                                                    {"show", no_argument, nullptr, 'w'},
                                                    {"pace", required_argument, nullptr, 'c'},
                                                    {"plain", no_argument, nullptr, 'p'},
                                                    {"help", no_argument, nullptr, 'h'},
                                                    {nullptr, 0, nullptr, 0}}};
  CommandLine line;
  line.options.root = Default_Root();
  optind = 0;  // restarts the scan
  opterr = 0;
  for (;;) {
    const int option = getopt_long(argc, argv, "", kOptions.data(), nullptr);
    if (option == -1) break;
    if (!Take_Option(line, option, err)) return std::nullopt;
  }
  if (optind < argc) {
    err << "\"" << argv[optind] << "\" is no option; see --help\n";
    return std::nullopt;
  }
  return line;
}

}  // namespace sylvomex
