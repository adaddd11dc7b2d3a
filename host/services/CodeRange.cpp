#include "services/CodeRange.hpp"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>

namespace host {

namespace {

struct Search {
    std::uintptr_t base;
    const ElfW(Dyn) * dynamicSection;
    CodeRange found;
};

/// Two images may share a load address of 0 (position-dependent ones), never a dynamic section.
bool isSearched(const dl_phdr_info& image, const Search& search) {
    const auto* end = image.dlpi_phdr + image.dlpi_phnum;
    return image.dlpi_addr == search.base && std::any_of(image.dlpi_phdr, end, [&](const ElfW(Phdr) & header) {
               return header.p_type == PT_DYNAMIC &&
                      image.dlpi_addr + header.p_vaddr == reinterpret_cast<std::uintptr_t>(search.dynamicSection);
           });
}

int visit(dl_phdr_info* image, std::size_t, void* argument) {
    auto& search = *static_cast<Search*>(argument);
    if (!isSearched(*image, search)) return 0;
    for (const auto* header = image->dlpi_phdr; header != image->dlpi_phdr + image->dlpi_phnum; ++header) {
        if (header->p_type != PT_LOAD || (header->p_flags & PF_X) == 0) continue;
        const std::uintptr_t begin = image->dlpi_addr + header->p_vaddr;
        const std::uintptr_t end = begin + header->p_memsz;
        CodeRange& found = search.found;
        found =
            found.end == 0 ? CodeRange{begin, end} : CodeRange{std::min(found.begin, begin), std::max(found.end, end)};
    }
    return 1;
}

}  // namespace

CodeRange codeRangeOf(void* image) {
    link_map* map = nullptr;
    if (dlinfo(image, RTLD_DI_LINKMAP, &map) != 0) return {};
    Search search{map->l_addr, map->l_ld, {}};
    dl_iterate_phdr(&visit, &search);
    return search.found;
}

}  // namespace host
