#pragma once

#include <map>
#include <string>

namespace corvane::desktop {

/// The environment variables a program is started with.
using Environment = std::map<std::string, std::string>;

} // namespace corvane::desktop
