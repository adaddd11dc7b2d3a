#include "comparing/Values.hpp"

#include "comparing/ListText.hpp"
#include "model/ifc/data/PropertyData.hpp"
#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"
#include "updatefile/Designation.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <map>
#include <utility>

namespace comparing {

namespace {

using model::Element;
using model::Model;
using text::toUtf8;

/// The shortest decimal that reads back, with a point: without one, an import would take it for an integer.
std::string realText(double number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    std::string text(digits.data(), end);
    if (text.find_first_of(".en") == std::string::npos) text += ".0";
    return text;
}

bool readsBack(const std::string& text, double number) {
    double read = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    return error == std::errc() && read == number;
}

Value attributeValue(const model::Attribute& attribute) {
    Value value;
    value.name.assign(attribute.name.begin(), attribute.name.end());
    value.shown = value.exact = toUtf8(attribute.value);
    return value;
}

Value classificationValue(const model::ClassificationReference& reference) {
    Value value;
    value.kind = ChangeKind::Classification;
    value.name = reference.system;
    value.shown = toUtf8(reference.itemReference.value_or(u""));
    if (const std::string title = toUtf8(reference.name.value_or(u"")); !title.empty())
        value.shown.append("{").append(title).append("}");
    value.exact = value.shown;
    return value;
}

/// Where the properties that are no single values stand, by set and name; the element's own before its type's.
class Places {
public:
    Places(const Model& model, Element element) : work_(model.workspace()), slot_(work_.elements.slot(element)) {}

    model::step::Slot find(std::u16string_view set, std::u16string_view name) {
        if (!read_) read();
        const auto found = places_.find({std::u16string(set), std::u16string(name)});
        return found == places_.end() ? model::step::NoSlot : found->second;
    }

private:
    void read() {
        read_ = true;
        const auto keep = [this](const model::PropertyView& property, const model::ifc::PropertyPlace& place) {
            // The first of a name counts, as it does for an update.
            if (property.kind != model::PropertyKind::Single)
                places_.try_emplace({std::u16string(property.set), std::u16string(property.name)}, place.property);
            return true;
        };
        model::ifc::forEachOwnProperty(work_, model::ifc::assignedSets(work_, slot_), keep);
        model::ifc::forEachTypeProperty(work_, slot_, keep);
    }

    model::ifc::Workspace& work_;
    model::step::Slot slot_;
    bool read_ = false;
    std::map<std::pair<std::u16string, std::u16string>, model::step::Slot> places_;
};

void readSingle(const model::PropertyValue& held, Value& value) {
    value.plain = held.primitive != model::Primitive::Other;
    value.shown = value.exact = toUtf8(updatefile::propertyText(held));
    if (held.primitive != model::Primitive::Real) return;
    value.exact = realText(held.real);
    value.rounded = !readsBack(value.shown, held.real);
}

Value propertyValue(const Model& model, const model::PropertyView& property, Places& places) {
    Value value;
    value.kind = ChangeKind::Property;
    value.set = property.set;
    value.name = property.name;
    value.propertyKind = property.kind;
    if (property.kind != model::PropertyKind::Single) {
        value.plain = property.kind == model::PropertyKind::Enumerated;
        value.shown = value.exact = listText(model.workspace(), places.find(property.set, property.name));
        return value;
    }
    readSingle(updatefile::valueOf(property), value);
    return value;
}

/// Numbers those that are there several times.
std::vector<Value> counted(std::vector<Value> values) {
    std::map<std::pair<std::u16string, std::u16string>, unsigned> counts;
    for (Value& value : values) value.occurrence = counts[{value.set, value.name}]++;
    return values;
}

std::u16string_view upToBracket(std::u16string_view name) {
    return name.substr(0, name.find(u'['));
}

bool sameItem(const model::PropertyView& a, const model::PropertyView& b) {
    return a.name == b.name && a.set == b.set;
}

bool sameValue(const model::PropertyView& a, const model::PropertyView& b) {
    // What a list or a table holds is not in here.
    return a.kind == model::PropertyKind::Single && b.kind == a.kind && a.primitive == b.primitive &&
           a.integer == b.integer && a.real == b.real && a.boolean == b.boolean && a.string == b.string;
}

/// Valid until properties of the model are read again.
std::vector<model::PropertyView> viewsOf(const Model& model, Element element) {
    std::vector<model::PropertyView> views;
    model.visitProperties(element, [&](const model::PropertyView& property) { views.push_back(property); });
    return views;
}

}  // namespace

model::Result<std::vector<Value>> attributesOf(const Model& model, Element element) {
    const auto attributes = model.attributes(element);
    if (!attributes) return attributes.error();
    std::vector<Value> values;
    // The elements were paired by it, so it is the same.
    for (const model::Attribute& attribute : *attributes)
        if (attribute.name != "GlobalId") values.push_back(attributeValue(attribute));
    return values;
}

model::Result<std::vector<Value>> classificationsOf(const Model& model, Element element) {
    const auto classifications = model.classifications(element);
    if (!classifications) return classifications.error();
    std::vector<Value> values;
    for (const auto& reference : *classifications) values.push_back(classificationValue(reference));
    return counted(std::move(values));
}

std::vector<Value> propertiesNamed(const Model& model, Element element, const Names& names) {
    std::vector<model::PropertyView> views;
    model.visitProperties(element, [&](const model::PropertyView& property) {
        if (names.contains(upToBracket(property.name))) views.push_back(property);
    });
    std::vector<Value> values;
    Places places(model, element);
    for (const model::PropertyView& property : views) values.push_back(propertyValue(model, property, places));
    return counted(std::move(values));
}

Names namesThatDiffer(const Model& a, Element inA, const Model& b, Element inB) {
    const auto before = viewsOf(a, inA), after = viewsOf(b, inB);
    Names names;
    const auto add = [&](const model::PropertyView& property) { names.emplace(upToBracket(property.name)); };
    // From the front and from the end they go side by side, with other values perhaps, and between is what one of them
    // has more.
    const auto [middleA, middleB] = std::mismatch(before.begin(), before.end(), after.begin(), after.end(), sameItem);
    const auto [endA, endB] = std::mismatch(before.rbegin(), std::make_reverse_iterator(middleA), after.rbegin(),
                                            std::make_reverse_iterator(middleB), sameItem);
    std::for_each(middleA, endA.base(), add);
    std::for_each(middleB, endB.base(), add);
    const auto addDifferent = [&](auto inBefore, auto end, auto inAfter) {
        for (; inBefore != end; ++inBefore, ++inAfter)
            if (!sameValue(*inBefore, *inAfter)) add(*inBefore);
    };
    addDifferent(before.begin(), middleA, after.begin());
    addDifferent(endA.base(), before.end(), endB.base());
    return names;
}

std::string itemOf(const Value& value) {
    return value.kind == ChangeKind::Property ? updatefile::designationOf(value.set, value.name) : toUtf8(value.name);
}

}  // namespace comparing
