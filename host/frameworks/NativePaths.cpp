#include "NativePaths.hpp"

#include "NarrowText.hpp"
#include "NeverDestroyed.hpp"
#include "text/Unicode.hpp"

#include <unicode/normalizer2.h>

#include <map>

namespace frameworks {

namespace {

std::map<std::string, std::string>& keptPaths() {
    static auto& paths = frameworks::neverDestroyed<std::map<std::string, std::string>>();
    return paths;
}

std::string narrow(const icu::UnicodeString& text) {
    return text::toUtf8({text.getBuffer(), static_cast<std::size_t>(text.length())});
}

std::string composed(const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const rules = icu::Normalizer2::getNFCInstance(status);
    return U_SUCCESS(status) != 0 ? narrow(rules->normalize(text, status)) : narrow(text);
}

}  // namespace

void rememberPath(const std::string& bytes) {
    const icu::UnicodeString text = decodeNarrow(bytes);
    for (const std::string& key : {narrow(text), composed(text)}) {
        // The path met last counts: where a text is its own path, an older one of the same text is given up.
        if (key == bytes) {
            keptPaths().erase(key);
        } else {
            keptPaths().insert_or_assign(key, bytes);
        }
    }
}

std::string nativePath(const char* text) {
    const auto kept = keptPaths().find(text);
    return kept == keptPaths().end() ? std::string(text) : kept->second;
}

}  // namespace frameworks
