#pragma once

#include <string>
#include <vector>

class QWidget;

namespace corvane::contract {

/// What a screen reader says about the visible controls of a window of this process, in its order,
/// a line each as `desktop::SpokenControl` words it.
std::vector<std::string> spokenText(QWidget &window);

} // namespace corvane::contract
