// Stand-ins for the few Core Foundation calls of an add-on's binding. Bundle, URL and string are one record here: a
// text with a count of references. Live objects are registered, so a reference that is null, released once too often or
// no reference at all is told apart and reported instead of followed.

#include "CoreFoundationObjects.hpp"
#include "FrontEnd.hpp"
#include "NarrowText.hpp"
#include "NeverDestroyed.hpp"

#include <CoreFoundation/CoreFoundation.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <memory>
#include <unordered_map>

extern "C" const CFAllocatorRef kCFAllocatorDefault = nullptr;

namespace {

struct Object {
    icu::UnicodeString text;
    int references = 1;
};

std::unordered_map<CFTypeRef, std::unique_ptr<Object>>& liveObjects() {
    static auto& objects = frameworks::neverDestroyed<std::unordered_map<CFTypeRef, std::unique_ptr<Object>>>();
    return objects;
}

Object* find(CFTypeRef reference, const char* caller) {
    const auto found = liveObjects().find(reference);
    if (found != liveObjects().end()) return found->second.get();
    DBPrintf("%s: %p is no live object\n", caller, reference);
    return nullptr;
}

template <class Reference>
Reference create(icu::UnicodeString text) {
    auto object = std::make_unique<Object>(Object{std::move(text)});
    auto* const address = object.get();
    liveObjects().emplace(address, std::move(object));
    return reinterpret_cast<Reference>(address);
}

std::u16string_view view(const icu::UnicodeString& text) {
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

const icu::Normalizer2* normalizer(CFStringNormalizationForm form) {
    UErrorCode status = U_ZERO_ERROR;
    switch (form) {
        case kCFStringNormalizationFormD:
            return icu::Normalizer2::getNFDInstance(status);
        case kCFStringNormalizationFormKD:
            return icu::Normalizer2::getNFKDInstance(status);
        case kCFStringNormalizationFormC:
            return icu::Normalizer2::getNFCInstance(status);
        case kCFStringNormalizationFormKC:
            return icu::Normalizer2::getNFKCInstance(status);
    }
    return nullptr;
}

}  // namespace

CFBundleRef frameworks::createBundle(std::string_view path) {
    return create<CFBundleRef>(decodeNarrow(path));
}

std::size_t frontend::liveCoreFoundationObjects() {
    return liveObjects().size();
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle) {
    const Object* const object = find(bundle, __func__);
    return object == nullptr ? nullptr : create<CFURLRef>(object->text);
}

CFStringRef CFURLCopyLastPathComponent(CFURLRef url) {
    const Object* const object = find(url, __func__);
    if (object == nullptr) return nullptr;
    icu::UnicodeString path = object->text;
    while (path.length() > 1 && path.endsWith(u'/')) path.truncate(path.length() - 1);
    return create<CFStringRef>(path.length() == 1 ? path : path.tempSubString(path.lastIndexOf(u'/') + 1));
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle pathStyle) {
    const Object* const object = find(url, __func__);
    return object == nullptr || pathStyle != kCFURLPOSIXPathStyle ? nullptr : create<CFStringRef>(object->text);
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex maxLength, CFStringRef text) {
    const Object* const object = find(text, __func__);
    if (object == nullptr || (maxLength != 0 && object->text.length() > maxLength)) return nullptr;
    return create<CFMutableStringRef>(object->text);
}

void CFStringNormalize(CFMutableStringRef text, CFStringNormalizationForm form) {
    Object* const object = find(text, __func__);
    const icu::Normalizer2* const rules = normalizer(form);
    if (object == nullptr || rules == nullptr) return;
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString normalized = rules->normalize(object->text, status);
    if (U_SUCCESS(status) != 0) object->text = std::move(normalized);
}

Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize, CFStringEncoding encoding) {
    if (buffer == nullptr || bufferSize <= 0) return 0;
    const Object* const object = find(text, __func__);
    const auto capacity = static_cast<std::size_t>(std::min<CFIndex>(bufferSize, INT32_MAX - 1));
    const bool fits = object != nullptr && encoding == kCFStringEncodingUTF8 &&
                      frameworks::encodeNarrow(view(object->text), buffer, capacity) < capacity;
    if (!fits) buffer[0] = '\0';
    return fits ? 1 : 0;
}

CFTypeRef CFRetain(CFTypeRef reference) {
    Object* const object = find(reference, __func__);
    if (object == nullptr) return nullptr;
    ++object->references;
    return reference;
}

void CFRelease(CFTypeRef reference) {
    Object* const object = find(reference, __func__);
    if (object != nullptr && --object->references == 0) liveObjects().erase(reference);
}
