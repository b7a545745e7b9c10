#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace corvane::macos {

/// Owns one reference to a Core Foundation object; may be empty.
template <typename Reference>
class CFReference {
  public:
    CFReference() = default;
    /// Takes over a reference that the caller owns, as "Create" and "Copy" functions return it.
    explicit CFReference(Reference owned) : reference_(owned) {}
    CFReference(CFReference &&other) noexcept
        : reference_(std::exchange(other.reference_, nullptr)) {}
    CFReference &operator=(CFReference &&other) noexcept {
        std::swap(reference_, other.reference_);
        return *this;
    }
    CFReference(const CFReference &) = delete;
    CFReference &operator=(const CFReference &) = delete;
    ~CFReference() {
        if (reference_ != nullptr) {
            CFRelease(reference_);
        }
    }

    /// Shares an object that somebody else owns.
    static CFReference sharing(Reference borrowed) {
        if (borrowed != nullptr) {
            CFRetain(borrowed);
        }
        return CFReference(borrowed);
    }

    Reference get() const { return reference_; }
    explicit operator bool() const { return reference_ != nullptr; }

  private:
    Reference reference_ = nullptr;
};

} // namespace corvane::macos
