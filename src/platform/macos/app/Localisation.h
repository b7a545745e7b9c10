#pragma once

#include "platform/Localisation.h"

namespace corvane::macos {

/// The main bundle's translation tables.
class Localisation : public platform::Localisation {
  public:
    std::string text(std::string_view english) const override;
};

} // namespace corvane::macos
