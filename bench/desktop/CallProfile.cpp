#include "CallProfile.h"

#include "harness/TextFile.h"

#include <cctype>
#include <stdexcept>

namespace corvane::bench {

namespace {

/// The names of a profile: "(7) name" where one appears first, "(7)" afterwards.
class Names {
  public:
    const std::string &resolve(const std::string &text) {
        const auto end = text.find(')') + 1;
        std::string &name = names_[text.substr(0, end)];
        if (end < text.size()) {
            name = text.substr(end + 1);
        }
        return name;
    }

  private:
    std::map<std::string, std::string> names_;
};

bool isCost(const std::string &line) {
    constexpr std::string_view positions = "+-*";
    return !line.empty() && (std::isdigit(static_cast<unsigned char>(line.front())) != 0 ||
                             positions.contains(line.front()));
}

} // namespace

/// A function's block holds its own costs and, after each "calls=", the whole cost of the calls.
CallProfile::CallProfile(const std::filesystem::path &file) {
    constexpr std::string_view sum = "totals: ";
    Names names;
    double *cost = nullptr;
    bool isWhole = false;
    for (const std::string &line : desktop::wholeLines(desktop::readFile(file))) {
        if (line.starts_with("fn=")) {
            cost = &costs_[names.resolve(line.substr(3))];
        } else if (line.starts_with("cfn=")) {
            names.resolve(line.substr(4));
        } else if (line.starts_with(sum)) {
            total_ = std::stod(line.substr(sum.size()));
            isWhole = true;
        } else if (isCost(line) && cost != nullptr) {
            *cost += std::stod(line.substr(line.rfind(' ')));
        }
    }
    if (!isWhole) {
        throw std::runtime_error("No sum in " + file.string());
    }
}

double CallProfile::of(std::string_view function) const {
    for (auto found = costs_.lower_bound(std::string(function));
         found != costs_.end() && found->first.starts_with(function); ++found) {
        const std::string_view rest = std::string_view(found->first).substr(function.size());
        if (rest.empty() || rest.front() == '(' || rest.front() == '[') {
            return found->second;
        }
    }
    throw std::runtime_error("The profile has no " + std::string(function));
}

} // namespace corvane::bench
