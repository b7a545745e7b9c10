#pragma once

#include <string>
#include <string_view>

namespace corvane::platform {

/// Translations of the program's texts. Any thread.
class Localisation {
  public:
    virtual ~Localisation() = default;

    /// The text in the user's language; the English text itself where there is no translation.
    virtual std::string text(std::string_view english) const = 0;
};

} // namespace corvane::platform
