#pragma once

#include <string>

namespace corvane::contract {

/// Keeps a picture of the screen, for somebody to look at, in the folder that the environment
/// variable CORVANE_PICTURES names; does nothing without that variable.
void keepPicture(const std::string &name);

} // namespace corvane::contract
