#include "ChildProcess.h"
#include "Measurement.h"
#include "TemporaryFolder.h"

#include <nlohmann/json.hpp>

#include <map>
#include <stdexcept>
#include <string>

namespace corvane::bench {

namespace {

/// What a benchmark is called in the table, and what it is to reach.
struct Entry {
    std::string name;
    Target target;
};

const std::map<std::string, Entry> &entries() {
    static const std::map<std::string, Entry> all{
        {"buildMenuWith500Profiles", {"menu value built, 500 profiles", {.medianAtMost = 0.3}}},
        {"saveConfigOnMainThread", {"config save, main thread", {.medianAtMost = 0.05}}}};
    return all;
}

} // namespace

std::vector<Figure> measureInProcess(Extent extent) {
    const desktop::TemporaryFolder folder;
    const std::string time = extent == Extent::quick ? "0.1" : "2";
    desktop::ChildProcess benchmarks({.arguments = {CORVANE_BENCHMARKS, "--benchmark_format=json",
                                                    "--benchmark_min_time=" + time},
                                      .environment = {{"PATH", "/usr/bin:/bin"}},
                                      .outputFolder = folder.path()});
    if (benchmarks.waitForEnd() != desktop::ProcessEnd{.exitCode = 0}) {
        throw std::runtime_error("The benchmarks fail: " + benchmarks.standardError());
    }
    const auto results = nlohmann::json::parse(benchmarks.standardOutput());
    std::vector<Figure> figures;
    for (const auto &result : results.at("benchmarks")) {
        const std::string name = result.at("name");
        const Entry &entry = entries().at(name.substr(0, name.find('/')));
        figures.push_back({.name = entry.name,
                           .unit = "ms",
                           .target = entry.target,
                           .median = result.at("median"),
                           .p99 = result.at("p99")});
    }
    return figures;
}

} // namespace corvane::bench
