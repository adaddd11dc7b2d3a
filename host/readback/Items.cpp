#include "readback/Items.hpp"

#include "text/Ascii.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/ReviewList.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <type_traits>
#include <utility>

namespace readback {

namespace {

using model::Element;
using model::Model;

/// Whether the add-on adds a reference of that label where an element has none.
bool isAdded(std::u16string_view label) {
    const auto& added = updatefile::reviewlist::AddedSystems;
    return std::find(added.begin(), added.end(), text::toUtf8(label)) != added.end();
}

std::vector<model::Attribute> attributesOf(const Model& model, Element element) {
    auto attributes = model.attributes(element);
    return attributes ? std::move(*attributes) : std::vector<model::Attribute>();
}

std::vector<model::ClassificationReference> classificationsOf(const Model& model, Element element) {
    auto references = model.classifications(element);
    return references ? std::move(*references) : std::vector<model::ClassificationReference>();
}

/// The first of each name. Sorted, not hashed: a file can be made so that all its names have one hash.
template <class Item, class Name>
auto byName(const std::vector<Item>& list, Name name) {
    std::map<std::decay_t<std::invoke_result_t<Name, const Item&>>, const Item*> known;
    for (const Item& item : list) known.try_emplace(std::invoke(name, item), &item);
    return known;
}

Truth truthOf(std::string_view word) {
    return truthValue(word).value_or(Truth::False);
}

Stored storedAttribute(const model::Attribute& attribute) {
    Stored stored;
    stored.text = text::toUtf8(attribute.value);
    if (stored.text.empty()) return stored;
    switch (attribute.type) {
        case model::AttributeType::Text:
            stored.kind = Stored::Kind::Text;
            break;
        case model::AttributeType::Integer:
            stored.kind = Stored::Kind::Integer;
            stored.integer = wholeInteger(stored.text).value_or(0);
            break;
        case model::AttributeType::Real:
            stored.kind = Stored::Kind::Real;
            stored.real = wholeReal(stored.text, DecimalSign::Point).value_or(0);
            break;
        case model::AttributeType::Boolean:
        case model::AttributeType::Logical:
            stored.kind = Stored::Kind::Logical;
            stored.truth = truthOf(stored.text);
            break;
        case model::AttributeType::Enumeration:
            stored.kind = Stored::Kind::Enumeration;
            break;
    }
    return stored;
}

/// Of a property that is no enumerated one.
Stored storedProperty(const model::PropertyView& property) {
    Stored stored;
    stored.type = property.type;
    if (property.kind != model::PropertyKind::Single) {
        stored.kind = Stored::Kind::Other;
        return stored;
    }
    switch (property.primitive) {
        case model::Primitive::Integer:
            stored.kind = Stored::Kind::Integer;
            stored.integer = property.integer;
            break;
        case model::Primitive::Real:
            stored.kind = Stored::Kind::Real;
            stored.real = property.real;
            break;
        case model::Primitive::Boolean:
            stored.kind = Stored::Kind::Boolean;
            stored.truth = property.boolean ? Truth::True : Truth::False;
            break;
        case model::Primitive::Logical:
            stored.kind = Stored::Kind::Logical;
            stored.truth = static_cast<Truth>(property.integer);
            break;
        case model::Primitive::String:
            // A value without a type is no value: the file holds `$`.
            stored.kind = property.type.empty() && property.string.empty() ? Stored::Kind::Nothing : Stored::Kind::Text;
            stored.text = text::toUtf8(property.string);
            break;
        case model::Primitive::Other:
            stored.kind = Stored::Kind::Other;
            break;
    }
    return stored;
}

Stored storedEnumeration(const std::vector<std::u16string>& chosen) {
    Stored stored;
    for (const std::u16string& item : chosen) stored.items.push_back(text::toUtf8(item));
    stored.kind = stored.items.empty() ? Stored::Kind::Nothing : Stored::Kind::Enumerated;
    return stored;
}

/// Fills in those of the places that are properties.
void readProperties(const Model& model, Element element, const std::vector<const Place*>& places,
                    std::vector<Stored>& stored) {
    using Key = std::pair<std::u16string_view, std::u16string_view>;  // name and set
    std::multimap<Key, std::size_t> wanted;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i]->kind == Place::Kind::Property) wanted.emplace(Key(places[i]->property, places[i]->set), i);
    }
    if (wanted.empty()) return;
    std::vector<std::size_t> enumerated;
    model.visitProperties(element, [&](const model::PropertyView& property) {
        const auto [begin, end] = wanted.equal_range({property.name, property.set});
        for (auto it = begin; it != end; ++it) {
            if (property.kind == model::PropertyKind::Enumerated) {
                enumerated.push_back(it->second);
            } else {
                stored[it->second] = storedProperty(property);
            }
        }
        wanted.erase(begin, end);  // of several equal ones the first counts
    });
    if (enumerated.empty()) return;
    std::vector<model::PropertyName> names;
    names.reserve(enumerated.size());
    for (const std::size_t i : enumerated) names.push_back({places[i]->set, places[i]->property});
    const auto chosen = model.chosenItems(element, names);
    for (std::size_t i = 0; i < enumerated.size(); ++i) stored[enumerated[i]] = storedEnumeration(chosen[i]);
}

void readAttributes(const Model& model, Element element, const std::vector<const Place*>& places,
                    std::vector<Stored>& stored) {
    const auto attributes = attributesOf(model, element);
    const auto known = byName(attributes, &model::Attribute::name);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i]->kind != Place::Kind::Attribute) continue;
        if (const auto found = known.find(places[i]->attribute); found != known.end())
            stored[i] = storedAttribute(*found->second);
    }
}

void readClassifications(const Model& model, Element element, const std::vector<const Place*>& places,
                         std::vector<Stored>& stored) {
    const auto references = classificationsOf(model, element);
    const auto known = byName(references, &model::ClassificationReference::system);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i]->kind != Place::Kind::Classification) continue;
        const auto found = known.find(places[i]->system);
        if (found == known.end()) continue;
        stored[i].kind = Stored::Kind::Classification;
        stored[i].text = text::toUtf8(found->second->itemReference.value_or(u""));
        stored[i].title = text::toUtf8(found->second->name.value_or(u""));
    }
}

bool anyIs(const std::vector<const Place*>& places, Place::Kind kind) {
    return std::any_of(places.begin(), places.end(), [&](const Place* place) { return place->kind == kind; });
}

/// The text as the model's own parsing wants it: a comma or a *yes* is what people write.
std::string canonical(std::string_view asked, Stored::Kind kind, DecimalSign sign) {
    Stored value;
    value.kind = kind;
    if (kind == Stored::Kind::Boolean || kind == Stored::Kind::Logical) {
        const auto truth = truthValue(asked);
        if (truth) value.truth = *truth;
        return truth ? textOf(value) : std::string(asked);
    }
    if (kind == Stored::Kind::Real) {
        const auto number = wholeReal(asked, sign);
        if (number) value.real = *number;
        return number ? textOf(value) : std::string(asked);
    }
    if (kind == Stored::Kind::Integer) {
        const auto number = wholeInteger(asked);
        return number ? std::to_string(*number) : std::string(asked);
    }
    return kind == Stored::Kind::Enumeration ? text::toUpperCase(asked) : std::string(asked);
}

/// The same for a value whose type is only about to be given.
std::string canonicalForType(std::string_view asked, std::string_view type, DecimalSign sign) {
    if (type == "IfcBoolean") return canonical(asked, Stored::Kind::Boolean, sign);
    if (type == "IfcLogical") return canonical(asked, Stored::Kind::Logical, sign);
    const bool decimalComma = !wholeReal(asked, DecimalSign::Point) && wholeReal(asked, sign);
    return decimalComma ? canonical(asked, Stored::Kind::Real, sign) : std::string(asked);
}

model::Status storeProperty(Model& model, Element element, const Place& place, Stored::Kind held,
                            std::string_view asked, DecimalSign sign, std::string_view newType) {
    // A property that is there keeps its type, so the text is written as that type wants it.
    const std::string wanted = newType.empty() ? canonical(asked, held, sign) : canonicalForType(asked, newType, sign);
    return model.setPropertyText(element, {place.set, place.property, text::fromUtf8(wanted), std::string(newType)});
}

model::Status storeClassification(Model& model, Element element, const Place& place, std::string_view asked) {
    std::optional<model::ClassificationReference> reference;
    model.visitClassifications(element, [&](const model::ClassificationReference& one) {
        if (!reference && one.system == place.system) reference = one;
    });
    if (!reference)
        return model::Error{model::ErrorKind::BadName, text::message("the element has no such classification")};
    // An empty shell would say that the element is classified, and not as what.
    if (asked.empty()) return model.removeClassification(element, place.system);
    const AskedClassification wanted = askedClassification(asked);
    reference->itemReference = text::fromUtf8(wanted.code);
    reference->name = text::fromUtf8(wanted.title);
    return model.setClassification(element, *reference);
}

/// The set of the first property of each of the names; a name that the element has not is not there.
std::map<std::u16string_view, std::u16string> firstSets(const Model& model, Element element,
                                                        const std::set<std::u16string_view>& names) {
    std::map<std::u16string_view, std::u16string> sets;
    if (names.empty()) return sets;
    model.visitProperties(element, [&](const model::PropertyView& property) {
        if (const auto name = names.find(property.name); name != names.end()) sets.try_emplace(*name, property.set);
    });
    return sets;
}

}  // namespace

std::vector<Place> placesOf(const Model& model, Element element, const std::vector<std::string_view>& items) {
    std::vector<updatefile::Designation> wanted;
    wanted.reserve(items.size());
    for (const std::string_view item : items) wanted.push_back(updatefile::parseDesignation(text::fromUtf8(item)));
    const auto attributeList = attributesOf(model, element);
    const auto attributes = byName(attributeList, &model::Attribute::name);
    // What attributes hide is not looked for: the properties may be thousands.
    std::set<std::u16string_view> names;
    for (const updatefile::Designation& designation : wanted)
        if (!attributes.contains(text::toUtf8(designation.name))) names.insert(designation.name);
    const auto sets = firstSets(model, element, names);
    const auto references =
        sets.size() == names.size() ? std::vector<model::ClassificationReference>() : classificationsOf(model, element);
    const auto systems = byName(references, &model::ClassificationReference::system);
    std::vector<Place> places(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        Place& place = places[i];
        const auto& [name, set] = wanted[i];
        const auto known = sets.find(name);
        // Attributes hide properties and these hide classifications, as in the review list.
        if (std::string attribute = text::toUtf8(name); attributes.contains(attribute)) {
            place.kind = Place::Kind::Attribute;
            place.attribute = std::move(attribute);
        } else if (known != sets.end() || set) {
            place.kind = Place::Kind::Property;
            place.set = known != sets.end() ? known->second : *set;
            place.property = name;
            place.isNew = known == sets.end();
        } else if (systems.contains(name) || isAdded(name)) {
            place.kind = Place::Kind::Classification;
            place.system = name;
        }
    }
    return places;
}

std::vector<Stored> storedAt(const Model& model, Element element, const std::vector<const Place*>& places) {
    std::vector<Stored> stored(places.size());
    readProperties(model, element, places, stored);
    if (anyIs(places, Place::Kind::Attribute)) readAttributes(model, element, places, stored);
    if (anyIs(places, Place::Kind::Classification)) readClassifications(model, element, places, stored);
    return stored;
}

model::Status storeAsAsked(Model& model, Element element, const Place& place, Stored::Kind held, std::string_view asked,
                           DecimalSign sign, std::string_view newType) {
    switch (place.kind) {
        case Place::Kind::Attribute:
            return model.setAttribute(element, place.attribute, text::fromUtf8(canonical(asked, held, sign)));
        case Place::Kind::Property:
            return storeProperty(model, element, place, held, asked, sign, newType);
        case Place::Kind::Classification:
            return storeClassification(model, element, place, asked);
        case Place::Kind::None:
            break;
    }
    return model::Error{model::ErrorKind::BadName, text::message("nothing on the element has that name")};
}

model::Status storeAsAsked(Model& model, Element element, const Place& place, Stored::Kind held, std::string_view asked,
                           DecimalSign sign) {
    if (!place.isNew) return storeAsAsked(model, element, place, held, asked, sign, {});
    const std::string byText(typeByText(asked, sign));
    const std::string standard = model.standardType(place.set, place.property);
    if (standard.empty()) return storeAsAsked(model, element, place, held, asked, sign, byText);
    model::Status stored = storeAsAsked(model, element, place, held, asked, sign, standard);
    // A standard type that cannot hold the text is no reason to lose it: the property was made for this text.
    if (!stored && byText != standard) stored = storeAsAsked(model, element, place, held, asked, sign, byText);
    return stored;
}

}  // namespace readback
