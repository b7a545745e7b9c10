#pragma once

namespace corvane {

/// Who started the program.
enum class LaunchCause {
    user,
    /// The system, because of the login item.
    login
};

} // namespace corvane
