// AppKit : ce que plateforme/macos en appelle.
#pragma once

#include <Foundation/Foundation.h>

typedef NSString* NSPasteboardType;
typedef NSInteger NSModalResponse;
typedef float NSLayoutPriority;

static const NSLayoutPriority NSLayoutPriorityDefaultLow = 250;

typedef NS_ENUM(NSUInteger, NSEventType) { NSEventTypeLeftMouseUp = 2, NSEventTypeKeyDown = 10 };

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular = 0
};

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskMiniaturizable = 1 << 2
};

typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };

typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutOrientation) {
    NSUserInterfaceLayoutOrientationHorizontal = 0,
    NSUserInterfaceLayoutOrientationVertical = 1
};

typedef NS_ENUM(NSInteger, NSLayoutConstraintOrientation) {
    NSLayoutConstraintOrientationVertical = 1
};

typedef NS_ENUM(NSInteger, NSLayoutAttribute) {
    NSLayoutAttributeTop = 3,
    NSLayoutAttributeLeading = 5
};

typedef NS_ENUM(NSUInteger, NSBezelStyle) { NSBezelStyleRounded = 1 };

typedef NS_ENUM(NSUInteger, NSControlSize) { NSControlSizeRegular = 0, NSControlSizeSmall = 1 };

typedef NS_ENUM(NSUInteger, NSImageScaling) { NSImageScaleProportionallyUpOrDown = 3 };

typedef NSInteger NSTextAlignment;
typedef NSUInteger NSLineBreakMode;

extern "C" const NSPasteboardType NSPasteboardTypeString;
extern "C" NSString* const NSFontAttributeName;
extern "C" NSString* const NSForegroundColorAttributeName;
extern "C" NSString* const NSParagraphStyleAttributeName;

@interface NSColor : NSObject
@property(class, readonly, strong) NSColor* secondaryLabelColor;
@end

@interface NSFont : NSObject
+ (NSFont*)systemFontOfSize:(CGFloat)taille;
+ (NSFont*)boldSystemFontOfSize:(CGFloat)taille;
@end

@interface NSMutableParagraphStyle : NSObject
@property NSTextAlignment alignment;
@property NSLineBreakMode lineBreakMode;
@property CGFloat headIndent;
@end

@interface NSString (NSStringDrawing)
- (NSSize)sizeWithAttributes:(NSDictionary<NSString*, id>*)attributs;
@end

@interface NSImage : NSObject
@property NSSize size;
- (instancetype)initWithContentsOfURL:(NSURL*)adresse;
@end

@interface NSLayoutConstraint : NSObject
+ (void)activateConstraints:(NSArray<NSLayoutConstraint*>*)contraintes;
@end

@interface NSLayoutAnchor<Genre> : NSObject
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<Genre>*)ancre;
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<Genre>*)ancre
                                      constant:(CGFloat)ecart;
@end

@class NSLayoutXAxisAnchor, NSLayoutYAxisAnchor, NSLayoutDimension;

@interface NSLayoutXAxisAnchor : NSLayoutAnchor <NSLayoutXAxisAnchor*>
@end

@interface NSLayoutYAxisAnchor : NSLayoutAnchor <NSLayoutYAxisAnchor*>
@end

@interface NSLayoutDimension : NSLayoutAnchor <NSLayoutDimension*>
- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)valeur;
@end

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) NSInteger clickCount;
@property(readonly, getter=isARepeat) BOOL ARepeat;
@end

@interface NSResponder : NSObject
@end

@interface NSView : NSResponder
@property BOOL translatesAutoresizingMaskIntoConstraints;
@property(copy) NSString* accessibilityLabel;
@property(strong) id accessibilityValue;
@property(readonly, strong) NSLayoutXAxisAnchor* leadingAnchor;
@property(readonly, strong) NSLayoutXAxisAnchor* trailingAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* topAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* bottomAnchor;
@property(readonly, strong) NSLayoutDimension* widthAnchor;
@property(readonly, strong) NSLayoutDimension* heightAnchor;
- (void)addSubview:(NSView*)vue;
- (void)removeFromSuperview;
- (void)setContentHuggingPriority:(NSLayoutPriority)priorite
                   forOrientation:(NSLayoutConstraintOrientation)orientation;
@end

@class NSPasteboard;

@interface NSText : NSView
@property(copy) NSString* string;
@property NSRange selectedRange;
@property(getter=isFieldEditor) BOOL fieldEditor;
- (void)copy:(id)emetteur;
@end

@interface NSTextView : NSText
- (BOOL)writeSelectionToPasteboard:(NSPasteboard*)pressePapiers
                             types:(NSArray<NSPasteboardType>*)genres;
@end

@interface NSStackView : NSView
@property NSUserInterfaceLayoutOrientation orientation;
@property NSLayoutAttribute alignment;
@property NSEdgeInsets edgeInsets;
@property CGFloat spacing;
@property(readonly, copy) NSArray<NSView*>* arrangedSubviews;
- (void)addArrangedSubview:(NSView*)vue;
@end

@interface NSControl : NSView
@property(weak) id target;
@property SEL action;
@property(copy) NSString* stringValue;
@property(copy) NSAttributedString* attributedStringValue;
@property(strong) NSFont* font;
@property NSTextAlignment alignment;
@property NSLineBreakMode lineBreakMode;
@property NSControlSize controlSize;
@end

@interface NSButton : NSControl
@property NSBezelStyle bezelStyle;
@property(copy) NSString* keyEquivalent;
+ (instancetype)buttonWithTitle:(NSString*)titre target:(id)cible action:(SEL)action;
@end

@interface NSPopUpButton : NSButton
@property(readonly) NSInteger indexOfSelectedItem;
- (instancetype)initWithFrame:(NSRect)cadre pullsDown:(BOOL)deroulant;
- (void)addItemWithTitle:(NSString*)titre;
@end

@interface NSTextField : NSControl
@property(copy) NSColor* textColor;
@property CGFloat preferredMaxLayoutWidth;
@property BOOL allowsEditingTextAttributes;
+ (instancetype)labelWithString:(NSString*)texte;
+ (instancetype)wrappingLabelWithString:(NSString*)texte;
@end

@interface NSImageView : NSControl
@property(strong) NSImage* image;
@property NSImageScaling imageScaling;
+ (instancetype)imageViewWithImage:(NSImage*)image;
@end

@interface NSMenuItem : NSObject
@property(strong) id submenu;
@end

@interface NSMenu : NSObject
- (instancetype)initWithTitle:(NSString*)titre;
- (void)addItem:(NSMenuItem*)article;
- (NSMenuItem*)addItemWithTitle:(NSString*)titre action:(SEL)action keyEquivalent:(NSString*)touche;
@end

@class NSWindow;

@protocol NSWindowDelegate <NSObject>
@optional
- (void)windowWillClose:(NSNotification*)notification;
- (id)windowWillReturnFieldEditor:(NSWindow*)fenetre toObject:(id)client;
@end

@interface NSWindow : NSResponder
@property(copy) NSString* title;
@property(strong) NSView* contentView;
@property(weak) id<NSWindowDelegate> delegate;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property(getter=isRestorable) BOOL restorable;
@property BOOL preventsApplicationTerminationWhenModal;
@property BOOL autorecalculatesKeyViewLoop;
- (instancetype)initWithContentRect:(NSRect)cadre
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)tampon
                              defer:(BOOL)differee;
- (void)center;
- (void)makeKeyAndOrderFront:(id)emetteur;
@end

@class NSApplication;

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)application;
@end

@interface NSApplication : NSResponder
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(weak) id<NSApplicationDelegate> delegate;
@property(strong) NSMenu* mainMenu;
@property(readonly, strong) NSEvent* currentEvent;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)politique;
- (void)activateIgnoringOtherApps:(BOOL)devantToutes;
- (void)run;
- (void)terminate:(id)emetteur;
@end

@interface NSAlert : NSObject
@property(copy) NSString* messageText;
@property(copy) NSString* informativeText;
@property(readonly, strong) NSWindow* window;
- (NSModalResponse)runModal;
@end

@interface NSPasteboard : NSObject
@property(class, readonly, strong) NSPasteboard* generalPasteboard;
- (NSInteger)clearContents;
- (BOOL)setString:(NSString*)texte forType:(NSPasteboardType)genre;
@end
