#include "model/Rooms.hpp"

#include "model/base/ElementTypeIds.hpp"
#include "model/ifc/index/Workspace.hpp"

#include <algorithm>
#include <optional>
#include <utility>

namespace model {

namespace {

using ifc::Field;
using step::Slot;

/// The relations that say something about rooms.
enum class Says : std::uint8_t { Nothing, Contains, Decomposes, Bounds };

class RoomFinder {
public:
    explicit RoomFinder(const Model& model) : model_(model), work_(model.workspace()) {}

    std::vector<InRoom> find() {
        addRooms();
        if (found_.empty()) return {};
        passRelations();
        addParts();
        addBounded();
        std::sort(found_.begin(), found_.end());
        found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
        return std::move(found_);
    }

private:
    void addRooms() {
        for (Element element = 0; element < model_.elementCount(); ++element) {
            if (model_.typeId(element) == ElementTypeIds::Zone) found_.push_back({element, element});
        }
    }

    Says saysOf(Slot slot) {
        const step::KeywordCode code = work_.file.keyword(slot);
        if (code == step::NoKeyword) return Says::Nothing;
        while (known_.size() <= code) {
            const ifc::Class& cls = work_.classes.ofKeyword(static_cast<step::KeywordCode>(known_.size()));
            const bool bounds = cls.entity != nullptr && cls.entity->isA("IfcRelSpaceBoundary");
            known_.push_back(cls.role == ifc::Role::Contains     ? Says::Contains
                             : cls.role == ifc::Role::Decomposes ? Says::Decomposes
                             : bounds                            ? Says::Bounds
                                                                 : Says::Nothing);
        }
        return known_[code];
    }

    void passRelations() {
        const auto count = static_cast<Slot>(work_.file.slotCount());
        for (Slot slot = 0; slot < count; ++slot) {
            switch (saysOf(slot)) {
                case Says::Nothing:
                    break;
                case Says::Contains:
                    addContained(slot);
                    break;
                case Says::Decomposes:
                    decompositions_.push_back(slot);
                    break;
                case Says::Bounds:
                    addBoundary(slot);
                    break;
            }
        }
    }

    std::optional<Element> elementOf(Slot slot) const {
        Element low = 0;
        auto high = static_cast<Element>(work_.elements.size());
        while (low < high) {
            const Element middle = low + (high - low) / 2;
            if (work_.elements.slot(middle) < slot) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        if (low == work_.elements.size() || work_.elements.slot(low) != slot) return std::nullopt;
        return low;
    }

    std::optional<Element> roomAt(Slot slot) const {
        const auto element = elementOf(slot);
        return element && model_.typeId(*element) == ElementTypeIds::Zone ? element : std::nullopt;
    }

    void add(Slot slot, Element room) {
        const auto element = elementOf(slot);
        if (element && model_.typeId(*element) != ElementTypeIds::Zone) contained_.push_back({*element, room});
    }

    void addContained(Slot relation) {
        const auto room = roomAt(work_.forwardReferences.first(relation, Field::Relating));
        if (!room) return;
        for (const Slot object : work_.forwardReferences.of(relation, Field::Related)) add(object, *room);
    }

    /// What is contained in a room takes its parts along, and these theirs. Each element is taken once, so a circle
    /// ends.
    void addParts() {
        taken_.resize(model_.elementCount(), false);
        if (contained_.empty()) return;
        std::vector<std::pair<Slot, Slot>> byWhole;
        for (const Slot relation : decompositions_)
            byWhole.emplace_back(work_.forwardReferences.first(relation, Field::Relating), relation);
        std::sort(byWhole.begin(), byWhole.end());
        for (std::size_t i = 0; i < contained_.size(); ++i) {
            const InRoom whole = contained_[i];
            if (taken_[whole.element]) continue;
            taken_[whole.element] = true;
            found_.push_back(whole);
            const Slot slot = work_.elements.slot(whole.element);
            auto relation = std::lower_bound(byWhole.begin(), byWhole.end(), std::pair(slot, Slot{0}));
            for (; relation != byWhole.end() && relation->first == slot; ++relation) {
                for (const Slot part : work_.forwardReferences.of(relation->second, Field::Related))
                    add(part, whole.room);
            }
        }
    }

    void addBoundary(Slot slot) {
        step::Instance boundary;
        const ifc::Entity& entity = *work_.classes.of(slot).entity;
        if (!work_.file.read(slot, boundary)) return;
        const auto target = [&](std::string_view name) {
            const int index = entity.attributeIndex(name);
            if (index < 0 || static_cast<std::size_t>(index) >= boundary.arguments.size()) return step::NoSlot;
            return work_.file.find(step::referenceId(boundary.arguments[static_cast<std::size_t>(index)]));
        };
        const auto element = elementOf(target("RelatedBuildingElement"));
        if (!element) return;
        const std::int32_t type = model_.typeId(*element);
        if (type != ElementTypeIds::Door && type != ElementTypeIds::Window) return;
        if (const auto room = roomAt(target("RelatingSpace"))) bounded_.push_back({*element, *room});
    }

    void addBounded() {
        for (const InRoom& bounded : bounded_) {
            if (!taken_[bounded.element]) found_.push_back(bounded);
        }
    }

    const Model& model_;
    ifc::Workspace& work_;
    std::vector<Says> known_;  // by keyword
    std::vector<InRoom> found_, contained_, bounded_;
    std::vector<Slot> decompositions_;
    std::vector<bool> taken_;
};

}  // namespace

std::vector<InRoom> rooms(const Model& model) {
    return RoomFinder(model).find();
}

}  // namespace model
