#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly termination, for as long as it exists.
class TerminationSignals {
  public:
    TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;
    ~TerminationSignals();

  private:
    NSArray<dispatch_source_t> *sources_;
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
