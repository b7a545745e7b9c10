#include "ClickReport.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace corvane::desktop {

namespace {

constexpr double millisecondsPerSecond = 1e3;

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

} // namespace

ClickReport::ClickReport(const std::vector<ButtonChange> &changes) {
    for (const ButtonChange &change : changes) {
        const auto time = static_cast<double>(change.milliseconds);
        if (change.isPress) {
            pressed_.push_back(time);
        } else {
            ++releases_;
            if (!pressed_.empty()) {
                holds_.push_back(time - pressed_.back());
            }
        }
    }
}

std::string ClickReport::text() const {
    std::ostringstream line;
    line << presses() << " presses, " << releases() << " releases";
    if (pressed_.size() > 1 && !holds_.empty()) {
        line << std::fixed << std::setprecision(2) << ", " << clicksPerSecond()
             << " a second, held for " << median(holds_) << " ms (median), "
             << *std::ranges::max_element(holds_) << " ms at most";
    }
    return line.str();
}

double ClickReport::clicksPerSecond() const {
    const double seconds = (pressed_.back() - pressed_.front()) / millisecondsPerSecond;
    return static_cast<double>(pressed_.size() - 1) / seconds;
}

} // namespace corvane::desktop
