#import "platform/macos/app/CommandFolder.h"

#include "platform/posix/UnixSocket.h"

#import <Foundation/Foundation.h>

#include <array>

#include <unistd.h>

namespace corvane::macos {

namespace {

constexpr const char *folderName = "Corvane";

std::filesystem::path applicationSupport() {
    NSURL *folder = [NSFileManager.defaultManager URLForDirectory:NSApplicationSupportDirectory
                                                         inDomain:NSUserDomainMask
                                                appropriateForURL:nil
                                                           create:YES
                                                            error:nil];
    return folder == nil ? std::filesystem::path() : folder.fileSystemRepresentation;
}

std::filesystem::path temporaryFiles() {
    std::array<char, 1024> folder{};
    confstr(_CS_DARWIN_USER_TEMP_DIR, folder.data(), folder.size());
    return folder.data();
}

} // namespace

std::filesystem::path commandFolder() {
    const auto usual = applicationSupport() / folderName;
    return usual.is_absolute() && posix::canHoldSocket(usual) ? usual
                                                              : temporaryFiles() / folderName;
}

} // namespace corvane::macos
