#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    @autoreleasepool {
        NSApplication.sharedApplication.activationPolicy = NSApplicationActivationPolicyAccessory;
        return RUN_ALL_TESTS();
    }
}
