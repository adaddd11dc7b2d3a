#pragma once
/* The few Core Foundation calls that an add-on's binding needs, for systems that have no Core Foundation of their own.
 * Names, arguments and ownership are Core Foundation's: what a function with Create or Copy in its name returns, the
 * caller releases with CFRelease. On macOS the system's own header of this name is found first and used instead. */

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define CF_STANDIN_API __attribute__((visibility("default")))

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef struct __CFBundle* CFBundleRef;
typedef const struct __CFURL* CFURLRef;
typedef const struct __CFString* CFStringRef;
typedef struct __CFString* CFMutableStringRef;
typedef unsigned char Boolean;
typedef signed long CFIndex;
typedef uint32_t CFStringEncoding;

enum { kCFStringEncodingUTF8 = 0x08000100 };

typedef enum { kCFURLPOSIXPathStyle = 0 } CFURLPathStyle;

typedef enum {
    kCFStringNormalizationFormD = 0,
    kCFStringNormalizationFormKD = 1,
    kCFStringNormalizationFormC = 2,
    kCFStringNormalizationFormKC = 3
} CFStringNormalizationForm;

CF_STANDIN_API extern const CFAllocatorRef kCFAllocatorDefault;

/* The folder of the bundle, or null. */
CF_STANDIN_API CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle);
/* The name of the file or folder itself, or null. */
CF_STANDIN_API CFStringRef CFURLCopyLastPathComponent(CFURLRef url);
/* The whole path, or null. */
CF_STANDIN_API CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle pathStyle);
/* A copy that can be changed, or null. maxLength is in UTF-16 units; 0: no limit. */
CF_STANDIN_API CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef allocator, CFIndex maxLength, CFStringRef text);
/* Changes the text in place. */
CF_STANDIN_API void CFStringNormalize(CFMutableStringRef text, CFStringNormalizationForm form);
/* Writes the whole text with its terminator, or writes no usable text and returns false where it does not fit. */
CF_STANDIN_API Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize, CFStringEncoding encoding);
/* The object must not be null. A reference to no live object is reported to the debug output and let pass. */
CF_STANDIN_API CFTypeRef CFRetain(CFTypeRef object);
CF_STANDIN_API void CFRelease(CFTypeRef object);

#ifdef __cplusplus
}
#endif
