#pragma once

#include "platform/Localisation.h"
#include "support/StringTable.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::linux {

/// The translation tables compiled into the program.
class Localisation : public platform::Localisation {
  public:
    /// In the language of the best of the locales, like "de_AT.UTF-8", that has a table.
    explicit Localisation(const std::vector<std::string> &locales);

    std::string text(std::string_view english) const override;

  private:
    StringTable table_;
};

} // namespace corvane::linux
