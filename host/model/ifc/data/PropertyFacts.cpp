#include "model/ifc/data/PropertyFacts.hpp"

#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/StringDecoder.hpp"

namespace model::ifc {

namespace {

using step::Slot;

std::u16string nameAt(std::string_view instanceText, int place) {
    std::u16string name;
    const std::string_view string = place < 0 ? std::string_view() : leadingString(instanceText, place);
    if (!string.empty()) step::decodeString(string, name);
    return name;
}

bool hasValue(const FactValues& values) {
    return values.size() > 1 || values.front().kind != FactValue::Kind::None;
}

bool isSet(const Class& cls) {
    return cls.entity != nullptr && cls.entity->isA("IfcPropertySetDefinition");
}

/// The attribute that holds the members; empty for a predefined set, whose attributes are its properties.
std::string_view membersOf(const Entity& holder) {
    if (holder.isA("IfcPropertySet")) return "HasProperties";
    if (holder.isA("IfcElementQuantity")) return "Quantities";
    if (holder.isA("IfcRelOverridesProperties")) return "OverridingProperties";
    return {};
}

step::Value argumentNamed(const step::Instance& instance, const Entity& entity, std::string_view attribute) {
    const int index = entity.attributeIndex(attribute);
    const bool there = index >= 0 && static_cast<std::size_t>(index) < instance.arguments.size();
    return there ? instance.arguments[static_cast<std::size_t>(index)] : step::Value{step::ValueKind::Unset, {}};
}

}  // namespace

PropertyFacts::PropertyFacts(Workspace& work, NameTest set, NameTest property)
    : work_(work), set_(std::move(set)), property_(std::move(property)) {}

std::vector<PropertyFacts::Holder> PropertyFacts::ownHolders(Slot element) {
    std::vector<Holder> sets, overriding;
    work_.inverseReferences.forEachUse(element, [&](const Use& use) {
        const Class& cls = work_.classes.of(use.user);
        const bool overrides = cls.role == Role::OverridesProperties;
        if (!overrides && cls.role != Role::DefinesByProperties) return true;
        if (cls.attributeIndex(Field::Related) != use.attributeIndex) return true;
        for (const Slot set : work_.forwardReferences.of(use.user, Field::Relating)) {
            const Class& setClass = work_.classes.of(set);
            if (!isSet(setClass)) continue;
            std::u16string name = nameAt(work_.file.text(set), setClass.attributeIndex(Field::Name));
            if (!set_(name)) continue;
            if (overrides) overriding.push_back({use.user, name});
            sets.push_back({set, std::move(name)});
        }
        return true;
    });
    // In front: what a relation overrides is found before what it hides.
    overriding.insert(overriding.end(), sets.begin(), sets.end());
    return overriding;
}

std::vector<PropertyFacts::Holder> PropertyFacts::typeHolders(Slot element) {
    std::vector<Holder> holders;
    const Slot type = work_.typeObject(element);
    if (type == step::NoSlot) return holders;
    for (const Slot set : work_.forwardReferences.of(type, Field::HasPropertySets)) {
        const Class& cls = work_.classes.of(set);
        if (!isSet(cls)) continue;
        std::u16string name = nameAt(work_.file.text(set), cls.attributeIndex(Field::Name));
        if (set_(name)) holders.push_back({set, std::move(name)});
    }
    return holders;
}

/// Those of the type come first, as a list of all that an element has puts them.
std::vector<PropertyFacts::Sets> PropertyFacts::setsByName(Slot element) {
    std::vector<Sets> sets;
    std::map<std::u16string, std::size_t> places;  // no hash: a file can be made so that all its names have one
    const auto placeOf = [&](const std::u16string& name) -> Sets& {
        const auto [place, isNew] = places.try_emplace(name, sets.size());
        if (isNew) sets.emplace_back();
        return sets[place->second];
    };
    for (const Holder& holder : typeHolders(element)) placeOf(holder.setName).type.push_back(holder.slot);
    for (const Holder& holder : ownHolders(element)) placeOf(holder.setName).own.push_back(holder.slot);
    return sets;
}

FactValues PropertyFacts::of(Element element) {
    const bool single = set_.exact() || property_.exact();
    for (const Sets& sets : setsByName(work_.elements.slot(element))) {
        Found found = findIn(sets);
        if (found.there && (hasValue(found.values) || !single)) return std::move(found.values);
    }
    return noValue();
}

PropertyFacts::Found PropertyFacts::findIn(const Sets& sets) {
    Found inherited = firstIn(sets.type, property_);
    // Where any of several names will do, the first one is the type's, and the element's own value for that counts.
    const NameTest wanted = inherited.there ? NameTest{inherited.name, {}} : property_;
    Found own = firstIn(sets.own, wanted);
    const bool inherits = !own.there || (set_.exact() && property_.exact() && !hasValue(own.values));
    return inherits && inherited.there ? inherited : own;
}

PropertyFacts::Found PropertyFacts::firstIn(const std::vector<Slot>& holders, const NameTest& property) {
    for (const Slot holder : holders) {
        Found found = find(holder, property);
        if (found.there) return found;
    }
    return {};
}

PropertyFacts::Found PropertyFacts::find(Slot holder, const NameTest& property) {
    if (work_.file.text(holder).size() <= ShortText) return read(holder, property);
    const auto key = std::pair(holder, property.exact() ? u"=" + property.name : std::u16string(u"/"));
    const auto known = known_.find(key);
    return known != known_.end() ? known->second : known_.emplace(key, read(holder, property)).first->second;
}

PropertyFacts::Found PropertyFacts::read(Slot holder, const NameTest& property) {
    const Entity& entity = *work_.classes.of(holder).entity;
    const std::string_view members = membersOf(entity);
    if (members.empty()) return readPredefined(holder, property);
    Found found;
    forEachReference(work_.file.text(holder), argumentBit(entity.attributeIndex(members)),
                     [&](unsigned, std::string_view token) {
                         const Slot member = work_.file.find(tokenId(token));
                         if (member == step::NoSlot || work_.classes.of(member).entity == nullptr) return true;
                         std::u16string name = nameAt(work_.file.text(member), 0);
                         if (property(name)) found = {true, std::move(name), valueOf(member)};
                         return !found.there;
                     });
    return found;
}

PropertyFacts::Found PropertyFacts::readPredefined(Slot set, const NameTest& property) {
    const auto attributes = work_.classes.of(set).entity->attributes();
    step::Instance instance;
    if (!work_.file.read(set, instance)) return {};
    // GlobalId, OwnerHistory, Name and Description are no properties.
    constexpr std::size_t OfEveryRoot = 4;
    for (std::size_t i = OfEveryRoot; i < attributes.size() && i < instance.arguments.size(); ++i) {
        const std::u16string name(attributes[i].name.begin(), attributes[i].name.end());
        FactValues values = attributeValues(instance.arguments[i], attributes[i].base);
        if (hasValue(values) && property(name)) return {true, name, std::move(values)};
    }
    return {};
}

FactValues PropertyFacts::valueOf(Slot property) {
    const Entity& entity = *work_.classes.of(property).entity;
    step::Instance instance;
    if (!work_.file.read(property, instance)) return otherValue();
    if (entity.isA("IfcPhysicalSimpleQuantity")) {
        // Behind Name, Description and Unit, whatever the kind of quantity calls it.
        constexpr std::size_t QuantityPlace = 3;
        return instance.arguments.size() > QuantityPlace
                   ? attributeValues(instance.arguments[QuantityPlace], BaseType::Real)
                   : noValue();
    }
    for (const std::string_view attribute : {"NominalValue", "EnumerationValues", "ListValues"}) {
        if (entity.attributeIndex(attribute) < 0) continue;
        return propertyValues(argumentNamed(instance, entity, attribute), work_.schema);
    }
    return otherValue();
}

}  // namespace model::ifc
