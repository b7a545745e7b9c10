#pragma once

#include <string>
#include <vector>

class QWidget;

namespace corvane::contract {

/// What a screen reader finds in the window, in its order: for each visible control and text its
/// role, its name, its value and its state, as in "check box 'Start at Login' checked".
std::vector<std::string> spokenText(QWidget &window);

} // namespace corvane::contract
