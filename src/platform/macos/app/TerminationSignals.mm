#import "platform/macos/app/TerminationSignals.h"

#import <AppKit/AppKit.h>

#include <csignal>

namespace corvane::macos {

namespace {

dispatch_source_t makeSource(int signalNumber) {
    // The source receives the signal only while its default action does not end the process.
    std::signal(signalNumber, SIG_IGN);
    dispatch_source_t source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_SIGNAL, static_cast<uintptr_t>(signalNumber), 0,
                               dispatch_get_main_queue());
    dispatch_source_set_event_handler(source, ^{
      @autoreleasepool {
          [NSApp terminate:nil];
      }
    });
    dispatch_activate(source);
    return source;
}

} // namespace

TerminationSignals::TerminationSignals()
    : sources_(@[ makeSource(SIGTERM), makeSource(SIGINT), makeSource(SIGHUP) ]) {
    // Nobody reading standard output any more is no reason to end.
    std::signal(SIGPIPE, SIG_IGN);
}

TerminationSignals::~TerminationSignals() {
    for (dispatch_source_t source in sources_) {
        dispatch_source_cancel(source);
    }
}

} // namespace corvane::macos
