#pragma once

#include "support/Failure.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <utility>

namespace corvane {

/// Reads the members of a JSON object one by one. A member that cannot be read leaves its target as
/// it was; the first such member is remembered. A strict reader checks the `outcome`, a forgiving
/// one does not. The object outlives its members.
///
/// A `Read` is called with a value and gives an `Outcome` of what the target holds.
class JsonMembers {
  public:
    explicit JsonMembers(const nlohmann::json &json) : json_(json) {
        if (!json.is_object()) {
            problem_ = Failure{"not an object"};
        }
    }

    /// A member that has to be there.
    template <typename Target, typename Read>
    void required(const char *key, Read read, Target &target) {
        if (const nlohmann::json *const value = find(key)) {
            take(key, read(*value), target);
        } else {
            remember(key, "missing");
        }
    }

    /// A member that may be missing or null: then the target stays as it is.
    template <typename Target, typename Read>
    void optional(const char *key, Read read, Target &target) {
        if (const nlohmann::json *const value = find(key)) {
            take(key, read(*value), target);
        }
    }

    /// The value, or what was wrong with the first member that could not be read.
    template <typename Value>
    Outcome<Value> outcome(Value value) const {
        if (problem_) {
            return std::unexpected(*problem_);
        }
        return value;
    }

  private:
    /// Null for a member that is missing or null.
    const nlohmann::json *find(const char *key) const {
        const auto found = json_.find(key);
        return found == json_.end() || found->is_null() ? nullptr : &*found;
    }

    template <typename Value, typename Target>
    void take(const char *key, Outcome<Value> value, Target &target) {
        if (value) {
            target = *std::move(value);
        } else {
            remember(key, value.error().description);
        }
    }

    void remember(const char *key, const std::string &problem) {
        if (!problem_) {
            problem_ = Failure{std::string(key) + ": " + problem};
        }
    }

    const nlohmann::json &json_;
    std::optional<Failure> problem_;
};

} // namespace corvane
