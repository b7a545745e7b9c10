#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    @autoreleasepool {
        NSApplication.sharedApplication.activationPolicy = NSApplicationActivationPolicyAccessory;
        return RUN_ALL_TESTS();
    }
}
