#include "model/ifc/index/Elements.hpp"
#include "model/base/GlobalId.hpp"

#include "model/ifc/values/InstanceScan.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace model::ifc {

namespace {

constexpr Element Free = 0xFFFFFFFFU;

/// GlobalIds of one source often share most of their bits; all sixteen bytes take part.
std::size_t hashOf(const Guid& guid) {
    std::uint64_t high = 0, low = 0;
    std::memcpy(&high, guid.data(), 8);
    std::memcpy(&low, guid.data() + 8, 8);
    std::uint64_t hash = (high ^ std::rotl(low, 32)) * 0x9E3779B97F4A7C15ULL;
    hash ^= hash >> 32U;
    return static_cast<std::size_t>(hash * 0xD6E8FEB86659FD93ULL >> 16U);
}

struct Product {
    step::Slot slot;
    std::string_view text;
};

std::vector<Product> productsOf(const step::StepFile& file, Classes& classes) {
    std::vector<Product> products;
    const auto count = static_cast<step::Slot>(file.slotCount());
    for (step::Slot slot = 0; slot < count; ++slot) {
        if (classes.ofKeyword(file.keyword(slot)).role == Role::Product) products.push_back({slot, file.text(slot)});
    }
    return products;
}

}  // namespace

std::optional<Guid> globalIdOf(std::string_view instanceText) {
    const std::string_view text = leadingString(instanceText, 0);
    return text.size() < 2 ? std::nullopt : fromGlobalId(text.substr(1, text.size() - 2));
}

Elements::Elements(const step::StepFile& file, Classes& classes) {
    const auto products = productsOf(file, classes);
    buckets_.assign(std::bit_ceil(2 * products.size() + 1), Free);
    for (std::size_t i = 0; i < products.size(); ++i) {
        // They lie scattered over a file that no cache holds: waiting for each would take longer than all the rest.
        constexpr std::size_t Ahead = 16;
        if (i + Ahead < products.size()) __builtin_prefetch(products[i + Ahead].text.data());
        if (const auto guid = globalIdOf(products[i].text)) {
            add(products[i].slot, *guid);
        } else {
            ++invalidCount_;
        }
    }
    std::sort(duplicated_.begin(), duplicated_.end());
    duplicated_.erase(std::unique(duplicated_.begin(), duplicated_.end()), duplicated_.end());
}

void Elements::add(step::Slot slot, const Guid& guid) {
    Element& bucket = buckets_[bucketOf(guid)];
    if (bucket != Free) {
        ++duplicateCount_;
        duplicated_.push_back(bucket);
        return;
    }
    bucket = static_cast<Element>(slots_.size());
    slots_.push_back(slot);
    guids_.push_back(guid);
}

/// Where the GUID is, or where it would go.
std::size_t Elements::bucketOf(const Guid& guid) const {
    const std::size_t mask = buckets_.size() - 1;
    std::size_t bucket = hashOf(guid) & mask;
    while (buckets_[bucket] != Free && guids_[buckets_[bucket]] != guid) bucket = (bucket + 1) & mask;
    return bucket;
}

std::optional<Element> Elements::find(const Guid& guid) const {
    const Element element = buckets_[bucketOf(guid)];
    return element == Free ? std::nullopt : std::optional<Element>(element);
}

bool Elements::hasDuplicates(Element element) const {
    return std::binary_search(duplicated_.begin(), duplicated_.end(), element);
}

}  // namespace model::ifc
