#import "platform/macos/app/LoginItem.h"

#import "platform/macos/support/Text.h"

#import <ServiceManagement/ServiceManagement.h>

namespace corvane::macos {

namespace {

/// A refusal that leaves the item as it was wanted, such as removing one that is not there, is
/// none.
Outcome<> outcome(BOOL isDone, bool isAsWanted, NSError *error) {
    if (isDone || isAsWanted) {
        return {};
    }
    return std::unexpected(Failure{error == nil ? "" : utf8(error.localizedDescription)});
}

} // namespace

bool LoginItem::isEnabled() const {
    return SMAppService.mainAppService.status == SMAppServiceStatusEnabled;
}

Outcome<> LoginItem::registerItem() {
    NSError *error = nil;
    const BOOL isDone = [SMAppService.mainAppService registerAndReturnError:&error];
    return outcome(isDone, isEnabled(), error);
}

Outcome<> LoginItem::unregisterItem() {
    NSError *error = nil;
    const BOOL isDone = [SMAppService.mainAppService unregisterAndReturnError:&error];
    return outcome(isDone, !isEnabled(), error);
}

} // namespace corvane::macos
