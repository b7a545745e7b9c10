#pragma once

#include "presentation/BorderlessWindow.h"

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

/// A borderless window above the others.
@interface MacOverlayWindow : NSWindow

- (instancetype)initWithDescription:(const corvane::BorderlessWindow &)description
                        contentView:(NSView *)contentView NS_DESIGNATED_INITIALIZER;
/// What it was made for; the frame may have changed since.
@property(nonatomic, readonly) corvane::BorderlessWindow windowDescription;

- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)isDeferred NS_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
