#pragma once

#include "platform/Localisation.h"

#include <map>

namespace corvane::testing {

/// The translations a test gives; English without one. Set them before other threads start.
class FakeLocalisation : public platform::Localisation {
  public:
    std::string text(std::string_view english) const override {
        const auto found = translations.find(english);
        return found == translations.end() ? std::string(english) : found->second;
    }

    std::map<std::string, std::string, std::less<>> translations;
};

} // namespace corvane::testing
