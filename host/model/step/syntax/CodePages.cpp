#include "model/step/syntax/CodePages.hpp"

#include <unicode/ucnv.h>

#include <array>
#include <string>

namespace model::step {

namespace {

using Page = std::array<char16_t, 256>;

/// An unassigned byte stays 0. Without the converter all do: such strings then cannot be decoded, nothing is lost.
Page loadPage(const std::string& name) {
    Page page{};
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name.c_str(), &status);
    for (unsigned byte = 0; byte < page.size() && U_SUCCESS(status); ++byte) {
        const char source = static_cast<char>(byte);
        char16_t target[2] = {};
        UErrorCode failure = U_ZERO_ERROR;
        const int32_t length = ucnv_toUChars(converter, target, 2, &source, 1, &failure);
        if (U_SUCCESS(failure) && length == 1 && target[0] != u'\uFFFD') page[byte] = target[0];
    }
    ucnv_close(converter);
    return page;
}

std::array<Page, 9> loadPages() {
    std::array<Page, 9> pages;
    for (std::size_t i = 0; i < pages.size(); ++i) pages[i] = loadPage("ISO-8859-" + std::to_string(i + 1));
    return pages;
}

/// Bytes 0x80 to 0x9F of Windows-1252, where ISO 8859-1 has controls.
constexpr std::array<char16_t, 32> WindowsUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char16_t latinCharacter(int part, unsigned char byte) {
    static const std::array<Page, 9> pages = loadPages();
    return pages[static_cast<std::size_t>(part - 1)][byte];
}

char16_t windowsCharacter(unsigned char byte) {
    // The five bytes that Windows-1252 leaves free stay what they are, so that each byte shows as something.
    if (byte >= 0x80 && byte < 0xA0) return WindowsUpperControls[byte - 0x80U];
    return byte;
}

}  // namespace model::step
