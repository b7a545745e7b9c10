#pragma once

#include "model/CorvaneConfig.h"
#include "model/ProfileStore.h"
#include "support/Failure.h"

#include <string>
#include <string_view>

namespace corvane {

/// The files' text: members sorted by key, one a line, two blanks a level, `"key" : value`.
std::string encodeConfig(const CorvaneConfig &config);
std::string encodeProfileStore(const ProfileStore &store);

/// Forgiving: a member that is missing or unusable takes its default. Fails when the text is not a
/// JSON object.
Outcome<CorvaneConfig> decodeConfig(std::string_view text);

/// Strict: anything wrong anywhere fails the whole.
Outcome<ProfileStore> decodeProfileStore(std::string_view text);

} // namespace corvane
