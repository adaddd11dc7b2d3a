#include "model/ifc/index/GlobalIdAllocator.hpp"

#include "model/ifc/index/Elements.hpp"
#include "text/Guid.hpp"

#include <uuid/uuid.h>

#include <algorithm>
#include <cstring>

namespace model::ifc {

namespace {

/// The name space of all GlobalIds made here. Never to be changed: files hold GlobalIds that follow from it.
constexpr Guid NameSpace = {0x6B, 0x1D, 0x4C, 0x52, 0x8E, 0x07, 0x4F, 0x3A,
                            0x9C, 0x61, 0x2F, 0xD4, 0x77, 0x0B, 0xE5, 0x18};

/// A version 5 UUID (RFC 4122: from a name, by SHA-1).
Guid namedGuid(const std::string& name) {
    Guid guid{};
    uuid_generate_sha1(guid.data(), NameSpace.data(), name.data(), name.size());
    return guid;
}

/// Half of the GUID's length does: where two share a fingerprint by chance, a free GUID is passed over.
std::uint64_t fingerprint(const Guid& guid) {
    std::uint64_t high = 0, low = 0;
    std::memcpy(&high, guid.data(), 8);
    std::memcpy(&low, guid.data() + 8, 8);
    return high * 0x9E3779B97F4A7C15ULL ^ low;
}

}  // namespace

GlobalIdAllocator::GlobalIdAllocator(const step::StepFile& stepFile, Classes& knownClasses)
    : file_(stepFile), classes_(knownClasses) {}

std::string GlobalIdAllocator::globalId(const Guid& element, std::string_view purpose) {
    if (!built_) build();
    const std::string name = text::guidText(element) + ' ' + std::string(purpose);
    Guid guid = namedGuid(name);
    // Counted and not random, so that the same updates give the same bytes.
    for (unsigned number = 2; isTaken(guid); ++number) guid = namedGuid(name + ' ' + std::to_string(number));
    return '\'' + text::toGlobalId(guid) + '\'';
}

void GlobalIdAllocator::build() {
    std::vector<std::uint64_t> taken;
    std::set<std::uint64_t> takenByNew;
    const auto slots = static_cast<step::Slot>(file_.slotCount());
    for (step::Slot slot = 0; slot < slots; ++slot) {
        if (!classes_.ofKeyword(file_.keyword(slot)).rooted || !file_.present(slot)) continue;
        const auto guid = globalIdOf(file_.text(slot));
        if (!guid) continue;
        if (file_.isNew(slot)) {
            takenByNew.insert(fingerprint(*guid));
        } else {
            taken.push_back(fingerprint(*guid));
        }
    }
    std::sort(taken.begin(), taken.end());
    taken_ = std::move(taken);
    takenByNew_ = std::move(takenByNew);
    built_ = true;
}

void GlobalIdAllocator::forgetAll() noexcept {
    built_ = false;
}

bool GlobalIdAllocator::isTaken(const Guid& guid) const {
    return std::binary_search(taken_.begin(), taken_.end(), fingerprint(guid)) ||
           takenByNew_.contains(fingerprint(guid));
}

std::optional<Guid> GlobalIdAllocator::addedGuid(step::Slot slot) {
    if (!built_ || !file_.isNew(slot) || !file_.present(slot)) return std::nullopt;
    return classes_.of(slot).rooted ? globalIdOf(file_.text(slot)) : std::nullopt;
}

void GlobalIdAllocator::beforeChange(step::Slot slot) {
    if (const auto guid = addedGuid(slot)) takenByNew_.erase(fingerprint(*guid));
}

void GlobalIdAllocator::afterChange(step::Slot slot) {
    if (const auto guid = addedGuid(slot)) takenByNew_.insert(fingerprint(*guid));
}

}  // namespace model::ifc
