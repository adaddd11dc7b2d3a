#include "updatefile/ItemCensus.hpp"

#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"
#include "updatefile/Designation.hpp"

#include <algorithm>
#include <utility>

namespace updatefile {
namespace {

using model::PropertyKind;
using model::ifc::StandardSet;
using text::toUtf8;

constexpr std::size_t ExamplesShown = 3;

/// The kinds that hold more than one value, in the words of the standard.
std::string_view kindName(PropertyKind kind) {
    switch (kind) {
        case PropertyKind::List:
            return "list";
        case PropertyKind::Bounded:
            return "bounded";
        case PropertyKind::Enumerated:
            return "enumerated";
        case PropertyKind::Table:
            return "table";
        case PropertyKind::Reference:
            return "reference";
        case PropertyKind::Single:
            break;
    }
    return {};
}

std::string typeOf(PropertyKind kind, std::string_view valueType) {
    return std::string(kind == PropertyKind::Single ? valueType : kindName(kind));
}

}  // namespace

ItemCensus::ItemCensus(const model::Model& model)
    : model_(model), standard_(model::ifc::StandardSets::of(model.schemaVersion())) {}

ItemCensus::Counted& ItemCensus::entryFor(ItemKind kind, std::u16string_view set, std::u16string_view name) {
    std::u16string key(1, static_cast<char16_t>(kind));
    key.append(set).append(1, u'\0').append(name);
    const auto [place, isNew] = places_.try_emplace(std::move(key), entries_.size());
    if (!isNew) return entries_[place->second];
    ItemRecord& record = entries_.emplace_back().record;
    record.kind = kind;
    record.set = toUtf8(set);
    record.name = toUtf8(name);
    record.item = kind == ItemKind::Property ? designationOf(set, name) : record.name;
    return entries_.back();
}

void ItemCensus::count(Counted& entry, const std::u16string& value) {
    ItemRecord& record = entry.record;
    ++record.elements;
    if (value.empty()) {
        ++record.empty;
        return;
    }
    if (!entry.values.insert(std::hash<std::u16string>()(value)).second) return;
    ++record.distinct;
    if (record.examples.size() < ExamplesShown) record.examples.push_back(toUtf8(value));
}

/// Elements may hold one property by several types; the first is the one that is shown.
void ItemCensus::setType(ItemRecord& record, std::string_view type) {
    if (record.valueType.empty()) record.valueType = type;
}

bool ItemCensus::isAttribute(const Entity& ifcClass, const std::string& name) {
    const auto names = attributeNames_.find(&ifcClass);
    return names != attributeNames_.end() && names->second.contains(name);
}

model::Status ItemCensus::add(model::Element element) {
    const Classes classes{&model_.entity(element), model_.typeEntity(element)};
    if (model::Status read = addAttributes(element, *classes.own); !read) return read;
    if (model::Status read = addProperties(element, classes); !read) return read;
    if (model::Status read = addClassifications(element, *classes.own); !read) return read;
    met_.emplace(classes, model_.predefinedType(element));
    return {};
}

model::Status ItemCensus::addAttributes(model::Element element, const Entity& ifcClass) {
    const auto read = model_.attributes(element);
    if (!read) return read.error();
    const auto [names, isNew] = attributeNames_.try_emplace(&ifcClass);
    for (const model::Attribute& attribute : *read) {
        const std::string name(attribute.name);
        Counted& entry = entryFor(ItemKind::Attribute, {}, std::u16string(name.begin(), name.end()));
        count(entry, attribute.value);
        if (isNew) names->second.insert(name);
        entry.record.standard = Standing::Yes;
        entry.record.changeable = name != "GlobalId";
        if (!entry.record.valueType.empty()) continue;
        const int place = ifcClass.attributeIndex(name);
        setType(entry.record, ifcClass.attributes()[static_cast<std::size_t>(place)].typeName);
    }
    return {};
}

model::Status ItemCensus::addProperties(model::Element element, const Classes& classes) {
    std::unordered_set<std::string> namesBefore;
    const auto read = model_.properties(element);
    if (!read) return read.error();
    for (const model::Property& property : *read) {
        Counted& entry = entryFor(ItemKind::Property, property.set, property.name);
        const std::string name = toUtf8(property.name);
        count(entry, propertyText(property.value));
        setType(entry.record, typeOf(property.kind, property.value.type));
        judge(entry, entry.record.set, name, classes);
        // The add-on looks among the attributes first, and takes the first property of the name up to a bracket.
        const bool reached =
            namesBefore.insert(name).second && !isAttribute(*classes.own, name) && name.find('[') == std::string::npos;
        const bool writable =
            property.kind == PropertyKind::Single && property.value.primitive != model::Primitive::Other;
        if (!reached || !writable) entry.record.changeable = false;
    }
    return {};
}

model::Status ItemCensus::addClassifications(model::Element element, const Entity& ifcClass) {
    const auto read = model_.classifications(element);
    if (!read) return read.error();
    for (const model::ClassificationReference& reference : *read) {
        Counted& entry = entryFor(ItemKind::Classification, {}, reference.system);
        const std::u16string title = reference.name.value_or(u"");
        count(entry, reference.itemReference.value_or(u"") + (title.empty() ? u"" : u"{" + title + u"}"));
        setType(entry.record, "IfcClassificationReference");
        if (isAttribute(ifcClass, toUtf8(reference.system))) entry.record.changeable = false;
    }
    return {};
}

void ItemCensus::judge(Counted& entry, const std::string& set, const std::string& name, const Classes& classes) {
    if (!entry.judged.insert(classes).second) return;
    const bool first = entry.judged.size() == 1;
    const auto standardSet = standard_.find(set);
    if (!standardSet || !standardSet->find(name)) return;
    const bool fits =
        standardSet->isFor(*classes.own) || (classes.type != nullptr && standardSet->isFor(*classes.type));
    if (!fits) entry.record.standard = Standing::OtherClass;
    if (fits && first) entry.record.standard = Standing::Yes;
}

void ItemCensus::addStandard() {
    for (const auto& [classes, predefinedType] : met_) {
        for (std::size_t i = 0; i < standard_.size(); ++i) {
            const StandardSet set = standard_.at(i);
            const bool isFor = set.isFor(*classes.own, predefinedType) ||
                               (classes.type != nullptr && set.isFor(*classes.type, predefinedType));
            if (!isFor) continue;
            for (std::size_t j = 0; j < set.size(); ++j) {
                const auto property = set.property(j);
                const std::u16string setName(set.name().begin(), set.name().end());
                const std::u16string name(property.name.begin(), property.name.end());
                ItemRecord& record = entryFor(ItemKind::Property, setName, name).record;
                if (record.elements > 0) continue;
                setType(record, typeOf(property.kind, property.type));
                record.standard = Standing::Yes;
                record.changeable =
                    property.kind == PropertyKind::Single && !isAttribute(*classes.own, std::string(property.name));
            }
        }
    }
}

std::vector<ItemRecord> ItemCensus::records() const {
    std::vector<ItemRecord> records;
    for (const Counted& entry : entries_) records.push_back(entry.record);
    std::stable_sort(records.begin(), records.end(),
                     [](const ItemRecord& a, const ItemRecord& b) { return a.kind < b.kind; });
    return records;
}

}  // namespace updatefile
