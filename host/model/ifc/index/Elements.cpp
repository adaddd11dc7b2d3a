#include "model/ifc/index/Elements.hpp"
#include "text/Guid.hpp"

#include "model/ifc/values/InstanceScan.hpp"

#include <sys/auxv.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace model::ifc {

namespace {

constexpr Element Free = 0xFFFFFFFFU;

/// Sixteen bytes that nobody knows before the process starts: a file made so that all its GlobalIds have one hash
/// would take time with the square of their number.
struct HashKey {
    std::uint64_t first = 0, second = 0;

    HashKey() {
        const void* random = std::bit_cast<const void*>(::getauxval(AT_RANDOM));
        if (random == nullptr) return;
        std::memcpy(&first, random, 8);
        std::memcpy(&second, static_cast<const char*>(random) + 8, 8);
    }
};

/// The upper and the lower half of the product of two numbers, folded.
std::uint64_t foldedProduct(std::uint64_t a, std::uint64_t b) {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

/// GlobalIds of one source often share most of their bits; all sixteen bytes take part.
std::size_t hashOf(const Guid& guid) {
    static const HashKey Key;
    std::uint64_t high = 0, low = 0;
    std::memcpy(&high, guid.data(), 8);
    std::memcpy(&low, guid.data() + 8, 8);
    return static_cast<std::size_t>(foldedProduct(foldedProduct(high ^ Key.first, low ^ Key.second) ^ Key.first,
                                                  0x9E3779B97F4A7C15ULL ^ Key.second));
}

/// The part of an instance's text in which its GlobalId stands.
void prefetch(std::string_view text) {
    constexpr std::size_t CacheLine = 64;
    __builtin_prefetch(text.data());
    __builtin_prefetch(text.data() + std::min(text.size(), CacheLine));
}

struct Product {
    step::Slot slot;
    std::string_view text;
};

/// What the keywords of a file say of its instances, in one pass over them.
class Survey {
public:
    Survey(const step::StepFile& file, Classes& classes) : file_(file), counts_(file.keywordCount()) {
        std::vector<bool> isProduct(file.keywordCount());
        for (std::size_t keyword = 0; keyword < isProduct.size(); ++keyword) {
            isProduct[keyword] = classes.ofKeyword(static_cast<step::KeywordCode>(keyword)).role == Role::Product;
        }
        const auto count = static_cast<step::Slot>(file.slotCount());
        for (step::Slot slot = 0; slot < count; ++slot) {
            const step::KeywordCode keyword = file.keyword(slot);
            if (keyword == step::NoKeyword) continue;
            ++counts_[keyword];
            if (isProduct[keyword]) products_.push_back({slot, file.text(slot)});
        }
        for (std::size_t keyword = 0; keyword < counts_.size(); ++keyword) {
            if (classes.ofKeyword(static_cast<step::KeywordCode>(keyword)).entity != nullptr) counts_[keyword] = 0;
        }
    }

    const std::vector<Product>& products() const { return products_; }
    std::vector<UnknownClass> unknownClasses() const {
        std::vector<UnknownClass> classes;
        for (std::size_t keyword = 0; keyword < counts_.size(); ++keyword) {
            if (counts_[keyword] == 0) continue;
            const auto code = static_cast<step::KeywordCode>(keyword);
            classes.push_back({std::string(file_.keywordText(code)), counts_[keyword]});
        }
        std::sort(classes.begin(), classes.end(),
                  [](const UnknownClass& a, const UnknownClass& b) { return a.name < b.name; });
        return classes;
    }

private:
    const step::StepFile& file_;
    std::vector<Product> products_;
    std::vector<std::uint64_t> counts_;  // By keyword code: the instances of a class that the schema does not know.
};

}  // namespace

std::optional<Guid> globalIdOf(std::string_view instanceText) {
    const std::string_view text = leadingString(instanceText, 0);
    return text.size() < 2 ? std::nullopt : text::fromGlobalId(text.substr(1, text.size() - 2));
}

Elements::Elements(const step::StepFile& file, Classes& classes) {
    const Survey survey(file, classes);
    unknownClasses_ = survey.unknownClasses();
    const std::vector<Product>& products = survey.products();
    // At most half full: the search for a GUID that is not there ends at a free one.
    buckets_.assign(std::bit_ceil(2 * products.size() + 1), Free);
    // Texts and buckets lie scattered over memory that no cache holds: waiting for each would take longer than all the
    // rest. So they are asked for some time before they are needed.
    constexpr std::size_t Ahead = 16;
    std::vector<std::pair<step::Slot, Guid>> read;
    read.reserve(products.size());
    for (std::size_t i = 0; i < products.size(); ++i) {
        if (i + Ahead < products.size()) prefetch(products[i + Ahead].text);
        if (const auto guid = globalIdOf(products[i].text)) {
            read.emplace_back(products[i].slot, *guid);
        } else {
            ++invalidCount_;
        }
    }
    slots_.reserve(read.size());
    guids_.reserve(read.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        if (i + Ahead < read.size())
            __builtin_prefetch(&buckets_[hashOf(read[i + Ahead].second) & (buckets_.size() - 1)]);
        add(read[i].first, read[i].second);
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
