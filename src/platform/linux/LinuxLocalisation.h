#pragma once

#include "platform/Localisation.h"

namespace corvane::x11 {

/// Every text in English; a translation table would be looked up here.
class LinuxLocalisation : public platform::Localisation {
  public:
    std::string text(std::string_view english) const override { return std::string(english); }
};

} // namespace corvane::x11
