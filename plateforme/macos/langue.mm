#include "plateforme/langue.hpp"
#include "plateforme/macos/textes.hpp"

namespace plateforme {

bool seRangeAvant(const std::string& a, const std::string& b) {
    @autoreleasepool {
        NSString* premier = macos::versNSString(a);
        return
            [premier localizedCaseInsensitiveCompare:macos::versNSString(b)] == NSOrderedAscending;
    }
}

std::string horodatageLocal() {
    @autoreleasepool {
        NSDateFormatter* forme = [[NSDateFormatter alloc] init];
        [forme setDateFormat:@"yyyy-MM-dd HH:mm:ss"];
        return macos::versTexte([forme stringFromDate:NSDate.date]);
    }
}

} // namespace plateforme
