// Foundation : ce que plateforme/macos en appelle.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <objc/NSObject.h>

typedef double CGFloat;
typedef double NSTimeInterval;

struct CGPoint {
    CGFloat x, y;
};
struct CGSize {
    CGFloat width, height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
typedef CGSize NSSize;
typedef CGRect NSRect;

static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat largeur, CGFloat hauteur) {
    return {{x, y}, {largeur, hauteur}};
}

struct NSRange {
    NSUInteger location, length;
};

struct NSEdgeInsets {
    CGFloat top, left, bottom, right;
};

static inline NSEdgeInsets NSEdgeInsetsMake(CGFloat haut, CGFloat gauche, CGFloat bas,
                                            CGFloat droite) {
    return {haut, gauche, bas, droite};
}

struct NSOperatingSystemVersion {
    NSInteger majorVersion, minorVersion, patchVersion;
};

typedef NS_ENUM(NSInteger, NSComparisonResult) { NSOrderedAscending = -1 };

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

typedef NS_ENUM(NSUInteger, NSPropertyListFormat) { NSPropertyListXMLFormat_v1_0 = 100 };
typedef NSUInteger NSPropertyListWriteOptions;

typedef NS_OPTIONS(uint64_t, NSActivityOptions) {
    NSActivityUserInitiatedAllowingIdleSystemSleep = 0x00EFFFFFULL,
    NSActivityLatencyCritical = 0xFF00000000ULL
};

@protocol NSCopying
@end

struct NSFastEnumerationState {
    unsigned long state;
    id __unsafe_unretained* itemsPtr;
    unsigned long* mutationsPtr;
    unsigned long extra[5];
};

@interface NSString : NSObject <NSCopying>
@property(readonly) const char* UTF8String NS_RETURNS_INNER_POINTER;
+ (instancetype)stringWithUTF8String:(const char*)octets;
- (instancetype)initWithBytes:(const void*)octets
                       length:(NSUInteger)longueur
                     encoding:(NSStringEncoding)codage;
- (NSComparisonResult)localizedCaseInsensitiveCompare:(NSString*)autre;
- (NSString*)substringWithRange:(NSRange)etendue;
@end

@interface NSNumber : NSObject
+ (NSNumber*)numberWithBool:(BOOL)valeur;
@end

@interface NSData : NSObject
@property(readonly) const void* bytes NS_RETURNS_INNER_POINTER;
@property(readonly) NSUInteger length;
@end

@interface NSError : NSObject
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSArray<__covariant Objet> : NSObject
+ (instancetype)arrayWithObjects:(const Objet[])objets count:(NSUInteger)nombre;
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)etat
                                  objects:(id __unsafe_unretained[])tampon
                                    count:(NSUInteger)taille;
@end

@interface NSMutableArray<Objet> : NSArray <Objet>
+ (instancetype)array;
- (void)addObject:(Objet)objet;
@end

@interface NSDictionary<__covariant Cle, __covariant Objet> : NSObject
@end

@interface NSMutableDictionary<Cle, Objet> : NSDictionary <Cle, Objet>
+ (instancetype)dictionary;
- (void)setObject:(Objet)objet forKey:(id<NSCopying>)cle;
@end

@interface NSAttributedString : NSObject
- (instancetype)initWithString:(NSString*)texte attributes:(NSDictionary<NSString*, id>*)attributs;
@end

@interface NSMutableAttributedString : NSAttributedString
- (void)appendAttributedString:(NSAttributedString*)suite;
@end

@interface NSDate : NSObject
+ (instancetype)date;
@end

@interface NSDateFormatter : NSObject
- (void)setDateFormat:(NSString*)forme;
- (NSString*)stringFromDate:(NSDate*)date;
@end

@interface NSURL : NSObject
@property(readonly, copy) NSString* path;
+ (NSURL*)fileURLWithPath:(NSString*)chemin;
@end

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
@property(readonly, copy) NSURL* homeDirectoryForCurrentUser;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(readonly, copy) NSString* bundlePath;
@property(readonly, copy) NSString* privateFrameworksPath;
- (NSURL*)URLForResource:(NSString*)nom withExtension:(NSString*)extension;
- (id)objectForInfoDictionaryKey:(NSString*)cle;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (NSString*)stringForKey:(NSString*)cle;
- (void)setObject:(id)valeur forKey:(NSString*)cle;
- (void)removeObjectForKey:(NSString*)cle;
- (BOOL)synchronize;
@end

@interface NSPropertyListSerialization : NSObject
+ (NSData*)dataWithPropertyList:(id)liste
                         format:(NSPropertyListFormat)forme
                        options:(NSPropertyListWriteOptions)options
                          error:(NSError**)erreur;
@end

@interface NSProcessInfo : NSObject
@property(class, readonly, strong) NSProcessInfo* processInfo;
@property(readonly) NSOperatingSystemVersion operatingSystemVersion;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)raison;
- (void)endActivity:(id<NSObject>)activite;
@end

@interface NSAppleEventDescriptor : NSObject
@end

@interface NSAppleScript : NSObject
- (instancetype)initWithSource:(NSString*)source;
- (NSAppleEventDescriptor*)executeAndReturnError:(NSDictionary<NSString*, id>**)erreur;
@end

@interface NSTimer : NSObject
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)intervalle
                                   repeats:(BOOL)repete
                                     block:(void (^)(NSTimer* minuteur))bloc;
- (void)invalidate;
@end

@interface NSNotification : NSObject
@end
