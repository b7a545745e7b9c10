#pragma once

#include "model/CorvaneConfig.h"
#include "model/ProfileStore.h"
#include "support/Failure.h"

#include <string>
#include <string_view>

namespace corvane {

/// The text of the configuration file. Fails when a rectangle is not finite.
Outcome<std::string> encodeConfig(const CorvaneConfig &config);

/// The text of the profiles file. Fails when a rectangle is not finite.
Outcome<std::string> encodeProfileStore(const ProfileStore &store);

/// Forgiving: a member that is missing or unusable takes its default. Fails when the text is not a
/// JSON object.
Outcome<CorvaneConfig> decodeConfig(std::string_view text);

/// Strict: anything wrong anywhere fails the whole.
Outcome<ProfileStore> decodeProfileStore(std::string_view text);

} // namespace corvane
