#include "model/ifc/plan/Rooms.hpp"

#include "model/ifc/data/AttributeData.hpp"
#include "model/ifc/geometry/Placement.hpp"
#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/Numbers.hpp"

#include <algorithm>
#include <array>

namespace model::ifc {

namespace {

using step::Slot;

/// Rooms may share sets, so a set of thousands would be looked through for each of them.
constexpr std::size_t MostSets = 64, MostQuantities = 256;

/// The better name first.
constexpr std::array<std::u16string_view, 2> AreaNames = {u"NetFloorArea", u"GrossFloorArea"};

class AreaReader {
public:
    AreaReader(Workspace& work, Project& project) : work_(work), reader_(work), project_(project) {}

    void readSet(Slot set) {
        if (!isOfClass(reader_, set, "IfcElementQuantity")) return;
        const std::uint64_t quantities = argumentBit(work_.classes.of(set).entity->attributeIndex("Quantities"));
        std::size_t left = MostQuantities;
        forEachReference(reader_.text(set), quantities, [&](unsigned, std::string_view token) {
            readQuantity(reader_.find(tokenId(token)));
            return --left > 0;
        });
    }

    std::optional<double> area() const { return area_; }

private:
    void readQuantity(Slot slot) {
        step::Instance quantity;
        if (!isOfClass(reader_, slot, "IfcQuantityArea") || !reader_.read(slot, quantity)) return;
        const std::u16string name = attributeText(work_, slot, "Name");
        const auto rank =
            static_cast<std::size_t>(std::find(AreaNames.begin(), AreaNames.end(), name) - AreaNames.begin());
        const auto value = step::realValue(argumentNamed(reader_, slot, quantity, "AreaValue"));
        if (rank >= best_ || !value || !(*value > 0)) return;
        const step::Value unit = argumentNamed(reader_, slot, quantity, "Unit");
        const auto size = unit.kind == step::ValueKind::Reference
                              ? project_.sizeOf(reader_, reader_.find(step::referenceId(unit)), "AREAUNIT")
                              : project_.squareMetres();
        if (!size) return;
        best_ = rank;
        area_ = *value * *size;
    }

    Workspace& work_;
    GeometryReader reader_;
    Project& project_;
    std::size_t best_ = AreaNames.size();
    std::optional<double> area_;
};

}  // namespace

RoomFacts roomOf(Workspace& work, Project& project, Slot space) {
    RoomFacts room{attributeText(work, space, "Name"), attributeText(work, space, "LongName"), {}};
    AreaReader reader(work, project);
    std::size_t left = MostSets;
    work.forEachRelation(space, Role::DefinesByProperties, [&](Slot relation) {
        reader.readSet(work.forwardReferences.first(relation, Field::Relating));
        return --left > 0;
    });
    room.area = reader.area();
    return room;
}

}  // namespace model::ifc
