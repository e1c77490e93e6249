// SPDX-License-Identifier: MIT
#include "region/task_report.h"

#include <nlohmann/json.hpp>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

using Json = nlohmann::ordered_json;

std::string Text_Of(const Json& json) {
  return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

template <class Read>
auto Parsed(std::string_view text, const std::string& name, Read&& read) try {
  return read(Json::parse(text));
} catch (const nlohmann::json::exception& error) {
  throw Refused(name + ": it is damaged: " + error.what());
}

}  // namespace

std::string Report_Text(const TaskReport& report) {
  Json files = Json::object();
  for (const auto& [name, file] : report.files) {
    files[name] = {{"bytes", file.bytes}, {"sha256", file.checksum}};
  }
  return Text_Of({{"plan", report.plan},
                  {"task", report.task},
                  {"kind", report.kind},
                  {"status", "done"},
                  {"host", report.host},
                  {"threads", report.threads},
                  {"seconds",
                   {{"read", report.seconds.read},
                    {"compute", report.seconds.compute},
                    {"write", report.seconds.write},
                    {"total", report.seconds.total}}},
                  {"peak_memory_bytes", report.peak_memory_bytes},
                  {"memory_bytes", report.memory_bytes},
                  {"figures", report.figures},
                  {"files", files}});
}

std::string Failure_Text(const TaskFailure& failure) {
  return Text_Of({{"plan", failure.plan},
                  {"task", failure.task},
                  {"status", "failed"},
                  {"cause", failure.cause},
                  {"tries", failure.tries},
                  {"host", failure.host}});
}

TaskReport Parse_Report(std::string_view text, const std::string& name) {
  return Parsed(text, name, [](const Json& json) {
    TaskReport report;
    report.plan = json.at("plan").get<std::string>();
    report.task = json.at("task").get<std::string>();
    report.kind = json.at("kind").get<std::string>();
    report.host = json.at("host").get<std::string>();
    report.threads = json.at("threads").get<int>();
    const Json& seconds = json.at("seconds");
    report.seconds = {seconds.at("read").get<double>(), seconds.at("compute").get<double>(),
                      seconds.at("write").get<double>(), seconds.at("total").get<double>()};
    report.peak_memory_bytes = json.at("peak_memory_bytes").get<std::uint64_t>();
    report.memory_bytes = json.at("memory_bytes").get<std::uint64_t>();
    report.figures = json.at("figures").get<std::map<std::string, double>>();
    for (const auto& [file, kept] : json.at("files").items()) {
      report.files[file] = {kept.at("bytes").get<std::uint64_t>(),
                            kept.at("sha256").get<std::string>()};
    }
    return report;
  });
}

TaskFailure Parse_Failure(std::string_view text, const std::string& name) {
  return Parsed(text, name, [](const Json& json) {
    return TaskFailure{json.at("plan").get<std::string>(), json.at("task").get<std::string>(),
                       json.at("cause").get<std::string>(), json.at("tries").get<int>(),
                       json.at("host").get<std::string>()};
  });
}

}  // namespace sylvomex
