// La racine des classes : ce que plateforme/macos en appelle.
#pragma once

#include <objc/NSObjCRuntime.h>
#include <stddef.h>
#include <stdint.h>

@class NSString;

@protocol NSObject
- (BOOL)isKindOfClass:(Class)genre;
- (BOOL)respondsToSelector:(SEL)selecteur;
- (Class)class;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
+ (instancetype)alloc;
+ (Class)class;
- (instancetype)init;
- (id)copy;
- (NSString*)description;
@end
