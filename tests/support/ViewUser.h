#pragma once

#include "presentation/View.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::testing {

/// A user's eyes and hands on a view tree. What is asked for must be there exactly once, visible
/// and enabled; otherwise the test fails.
class ViewUser {
  public:
    /// Works on the tree as it is now; a handler may well replace it.
    explicit ViewUser(View tree) : tree_(std::move(tree)) {}

    /// All texts, in reading order.
    std::vector<std::string> texts() const;

    bool isToggleOn(const std::string &title) const;
    bool isButtonEnabled(const std::string &title) const;

    /// Only what lies inside the stack of that accessibility label.
    ViewUser inside(const std::string &label) const;

    void press(const std::string &title) const;
    /// Performs the button that Return performs.
    void pressReturn() const;
    void turn(const std::string &toggleTitle, bool isOn) const;
    void choose(const std::string &pickerLabel, const std::string &option) const;
    void enterNumber(const std::string &label, std::int64_t value) const;
    void stepUp(const std::string &label) const;
    void stepDown(const std::string &label) const;
    void type(const std::string &label, const std::string &text) const;
    void chooseMenuItem(const std::string &menuLabel, const std::string &title) const;
    void followLink(const std::string &address) const;

  private:
    View tree_;
};

} // namespace corvane::testing
