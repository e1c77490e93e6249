// SPDX-License-Identifier: MIT
#include "programs/workstation/desktop_command_line.h"

#include <QCommandLineParser>
#include <QFile>
#include <QStringList>

namespace sylvomex {
namespace {

QStringList Words(int argc, char** argv) {
  QStringList words;
  for (int i = 0; i < argc; ++i) words << QString::fromLocal8Bit(argv[i]);
  return words;
}

std::string Value(const QCommandLineParser& parser, const char* option) {
  return QFile::encodeName(parser.value(QLatin1String(option))).toStdString();
}

void Declare(QCommandLineParser& parser) {
  for (const char* name : {"root", "script", "size", "record", "journal", "resume", "begin", "pace",
                           "platform", "style"}) {
    parser.addOption(QCommandLineOption(QString::fromLatin1(name), {}, QStringLiteral("value")));
  }
  for (const char* name : {"show", "plain", "help"})
    parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
}

std::optional<CommandLine> Take(const QCommandLineParser& parser, std::ostream& err) {
  CommandLine line;
  line.options.root =
      parser.isSet("root") ? std::filesystem::path(Value(parser, "root")) : Default_Root();
  line.options.script = Value(parser, "script");
  line.options.record = Value(parser, "record");
  line.options.journal = Value(parser, "journal");
  line.options.resume = Value(parser, "resume");
  line.options.show = parser.isSet("show");
  line.plain = parser.isSet("plain");
  line.begin = Value(parser, "begin");
  line.help = parser.isSet("help");
  if (parser.isSet("size") && !Take_Size(line, Value(parser, "size"), err)) return std::nullopt;
  if (parser.isSet("pace") && !Take_Pace(line, Value(parser, "pace"), err)) return std::nullopt;
  return line;
}

}  // namespace

std::optional<CommandLine> Parse_Desktop_Command_Line(int argc, char** argv, std::ostream& err) {
  QCommandLineParser parser;
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  Declare(parser);
  if (!parser.parse(Words(argc, argv))) {
    err << parser.errorText().toStdString() << "; see --help\n";
    return std::nullopt;
  }
  if (!parser.positionalArguments().isEmpty()) {
    err << "not an option: " << parser.positionalArguments().constFirst().toStdString()
        << "; see --help\n";
    return std::nullopt;
  }
  return Take(parser, err);
}

}  // namespace sylvomex
