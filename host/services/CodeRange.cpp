#include "services/CodeRange.hpp"

#include <dlfcn.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace host {

namespace {

struct Search {
    std::uintptr_t base;
    const ElfW(Dyn) * dynamicSection;
    std::span<const ElfW(Phdr)> headers;  ///< What is found: in the image's own memory.
};

/// Two images may share a load address of 0 (position-dependent ones), never a dynamic section.
bool isSearched(const dl_phdr_info& image, const Search& search) {
    const auto* end = image.dlpi_phdr + image.dlpi_phnum;
    return image.dlpi_addr == search.base && std::any_of(image.dlpi_phdr, end, [&](const ElfW(Phdr) & header) {
               return header.p_type == PT_DYNAMIC &&
                      image.dlpi_addr + header.p_vaddr == reinterpret_cast<std::uintptr_t>(search.dynamicSection);
           });
}

/// Takes no memory: an exception that came through the C library's walk would end the program where there is none left.
int visit(dl_phdr_info* image, std::size_t, void* argument) {
    auto& search = *static_cast<Search*>(argument);
    if (!isSearched(*image, search)) return 0;
    search.headers = {image->dlpi_phdr, image->dlpi_phnum};
    return 1;
}

/// The image's executable segments.
std::vector<CodeRange> codeSegments(void* image) {
    link_map* map = nullptr;
    if (dlinfo(image, RTLD_DI_LINKMAP, &map) != 0) return {};
    Search search{map->l_addr, map->l_ld, {}};
    dl_iterate_phdr(&visit, &search);
    std::vector<CodeRange> segments;
    for (const ElfW(Phdr) & header : search.headers) {
        if (header.p_type != PT_LOAD || (header.p_flags & PF_X) == 0) continue;
        const std::uintptr_t begin = search.base + header.p_vaddr;
        segments.push_back({begin, begin + header.p_memsz});
    }
    return segments;
}

/// The processor's return instruction; empty on one that is not known here, where no crash is ever noticed either (see
/// CallGuard.cpp).
#if defined(__x86_64__)
constexpr std::string_view Return = "\xC3";
#elif defined(__aarch64__)
constexpr std::string_view Return = "\xC0\x03\x5F\xD6";
#else
constexpr std::string_view Return;
#endif

/// A segment begins and ends within pages that no other segment shares.
bool silence(const CodeRange& segment) {
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    auto* const begin = reinterpret_cast<char*>(segment.begin / page * page);
    auto* const end = reinterpret_cast<char*>((segment.end + page - 1) / page * page);
    const auto size = static_cast<std::size_t>(end - begin);
    if (Return.empty() || mprotect(begin, size, PROT_READ | PROT_WRITE) != 0) return false;
    for (char* at = begin; at < end; at += Return.size()) std::memcpy(at, Return.data(), Return.size());
    __builtin___clear_cache(begin, end);
    return mprotect(begin, size, PROT_READ | PROT_EXEC) == 0;
}

}  // namespace

CodeRange codeRangeOf(void* image) {
    CodeRange whole;
    for (const CodeRange& segment : codeSegments(image)) {
        whole = whole.end == 0 ? segment
                               : CodeRange{std::min(whole.begin, segment.begin), std::max(whole.end, segment.end)};
    }
    return whole;
}

bool silenceCode(void* image) {
    const std::vector<CodeRange> segments = codeSegments(image);
    return !segments.empty() && std::all_of(segments.begin(), segments.end(), &silence);
}

}  // namespace host
