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
    : model_(model),
      standard_(model::ifc::StandardSets::of(model.schemaVersion())),
      facts_(model.workspace()),
      shared_(model.workspace()) {}

ItemCensus::Counted& ItemCensus::entryFor(ItemKind kind, std::u16string_view set, std::u16string_view name) {
    Places& places = places_[static_cast<std::size_t>(kind)];
    auto names = places.find(set);
    if (names == places.end()) names = places.emplace(set, Places::mapped_type()).first;
    if (const auto place = names->second.find(name); place != names->second.end()) return entries_[place->second];
    names->second.emplace(name, entries_.size());
    Counted& entry = entries_.emplace_back();
    ItemRecord& record = entry.record;
    record.kind = kind;
    record.set = toUtf8(set);
    record.name = toUtf8(name);
    record.item = kind == ItemKind::Property ? designationOf(set, name) : record.name;
    entry.name = names_.try_emplace(record.name, names_.size()).first->second;
    lastMet_.resize(names_.size());
    return entry;
}

void ItemCensus::count(Counted& entry, const std::u16string& value) {
    ItemRecord& record = entry.record;
    ++record.elements;
    if (tallies_ != nullptr) tallies_->push_back({static_cast<std::size_t>(&entry - entries_.data()), value.empty()});
    if (value.empty()) {
        ++record.empty;
        return;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(value.data()), value.size() * sizeof(char16_t));
    const model::ifc::Fingerprint sum = model::ifc::keyedSum(bytes, key_);
    if (!entry.values.add(sum.low)) return;
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
    Alike& properties = alikeProperties_[{shared_.properties(element), classes.own}];
    model::Status read = addShared(properties, [&] {
        addProperties(element, classes);
        return model::Status();
    });
    if (!read) return read;
    Alike& classifications = alikeClassifications_[{shared_.classifications(element), classes.own}];
    read = addShared(classifications, [&] { return addClassifications(element, *classes.own); });
    if (!read) return read;
    met_.emplace(classes, toUtf8(facts_.attribute(element, "PredefinedType").front().text));
    return {};
}

/// The first two are read: most sets are one element's, and need no notes. Of the others records() knows how many there
/// are.
model::Status ItemCensus::addShared(Alike& alike, const std::function<model::Status()>& read) {
    if (alike.met < 2) {
        tallies_ = alike.met == 1 ? &alike.tallies : nullptr;
        model::Status done = read();
        tallies_ = nullptr;
        if (!done) return done;
    }
    ++alike.met;
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

void ItemCensus::addProperties(model::Element element, const Classes& classes) {
    ++readings_;
    model_.visitProperties(element, [&](const model::PropertyView& property) {
        Counted& entry = entryFor(ItemKind::Property, property.set, property.name);
        count(entry, propertyText(valueOf(property)));
        setType(entry.record, typeOf(property.kind, property.type));
        // The add-on takes the first property of the name.
        const bool isFirst = std::exchange(lastMet_[entry.name], readings_) != readings_;
        const bool reached = judge(entry, classes) && isFirst;
        const bool writable = property.kind == PropertyKind::Single && property.primitive != model::Primitive::Other;
        if (!reached || !writable) entry.record.changeable = false;
    });
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

/// Once for all elements of the classes.
bool ItemCensus::judge(Counted& entry, const Classes& classes) {
    ItemRecord& record = entry.record;
    const auto [verdict, isNew] = entry.judged.try_emplace(classes, false);
    if (!isNew) return verdict->second;
    // The add-on looks among the attributes first, and for a name up to a bracket.
    verdict->second = !isAttribute(*classes.own, record.name) && record.name.find('[') == std::string::npos;
    const auto standardSet = standard_.find(record.set);
    if (!standardSet || !standardSet->find(record.name)) return verdict->second;
    const bool fits =
        standardSet->isFor(*classes.own) || (classes.type != nullptr && standardSet->isFor(*classes.type));
    if (!fits) record.standard = Standing::OtherClass;
    if (fits && entry.judged.size() == 1) record.standard = Standing::Yes;
    return verdict->second;
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
    for (const AlikeBySource* all : {&alikeProperties_, &alikeClassifications_}) {
        for (const auto& [source, alike] : *all) {
            for (const Tally& tally : alike.tallies) {
                records[tally.entry].elements += alike.met - 2;
                if (tally.empty) records[tally.entry].empty += alike.met - 2;
            }
        }
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const ItemRecord& a, const ItemRecord& b) { return a.kind < b.kind; });
    return records;
}

}  // namespace updatefile
