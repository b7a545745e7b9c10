#pragma once

namespace corvane {

/// Who started the program.
enum class LaunchCause {
    user,
    /// The system, as the login item asks it to.
    login
};

} // namespace corvane
