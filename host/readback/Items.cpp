#include "readback/Items.hpp"

#include "text/Ascii.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <array>
#include <optional>

namespace readback {

namespace {

using model::Element;
using model::Model;

/// The labels under which the add-on adds a reference that an element does not have.
constexpr std::array<std::u16string_view, 2> NewSystems = {u"SpecSection Classification", u"UniFormat Classification"};

struct Designation {
    std::u16string name, set;
};

/// "Name[Set]": the last character goes, whatever it is, as in the add-on.
Designation parse(std::string_view item) {
    const std::u16string wide = text::fromUtf8(item);
    const std::size_t bracket = wide.find(u'[');
    if (bracket == std::u16string::npos) return {wide, {}};
    const std::u16string inner = wide.substr(bracket + 1);
    return {wide.substr(0, bracket), u"Pset_" + inner.substr(0, inner.empty() ? 0 : inner.size() - 1)};
}

bool hasAttribute(const Model& model, Element element, std::string_view name) {
    const auto attributes = model.attributes(element);
    return attributes && std::any_of(attributes->begin(), attributes->end(),
                                     [&](const model::Attribute& attribute) { return attribute.name == name; });
}

/// The set of the first property of that name; nothing where the element has none.
std::optional<std::u16string> firstSetWith(const Model& model, Element element, std::u16string_view name) {
    std::optional<std::u16string> set;
    model.visitProperties(element, [&](const model::PropertyView& property) {
        if (!set && property.name == name) set = property.set;
    });
    return set;
}

std::optional<model::ClassificationReference> classificationOf(const Model& model, Element element,
                                                               std::u16string_view system) {
    const auto references = model.classifications(element);
    if (!references) return std::nullopt;
    const auto found = std::find_if(references->begin(), references->end(),
                                    [&](const auto& reference) { return reference.system == system; });
    return found == references->end() ? std::nullopt : std::optional(*found);
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

Stored storedPropertyAt(const Model& model, Element element, const Place& place) {
    Stored stored;
    bool found = false, enumerated = false;
    model.visitProperties(element, [&](const model::PropertyView& property) {
        if (found || property.name != place.property || property.set != place.set) return;
        found = true;
        enumerated = property.kind == model::PropertyKind::Enumerated;
        if (!enumerated) stored = storedProperty(property);
    });
    if (!enumerated) return stored;
    for (const std::u16string& item : model.chosenItems(element, place.set, place.property))
        stored.items.push_back(text::toUtf8(item));
    stored.kind = stored.items.empty() ? Stored::Kind::Nothing : Stored::Kind::Enumerated;
    return stored;
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

model::Status storeProperty(Model& model, Element element, const Place& place, std::string_view asked, DecimalSign sign,
                            std::string_view newType) {
    const std::string wanted = newType.empty() ? canonical(asked, storedAt(model, element, place).kind, sign)
                                               : canonicalForType(asked, newType, sign);
    return model.setPropertyText(element, {place.set, place.property, text::fromUtf8(wanted), std::string(newType)});
}

model::Status storeClassification(Model& model, Element element, const Place& place, std::string_view asked) {
    auto reference = classificationOf(model, element, place.system);
    if (!reference) return model::Error{model::ErrorKind::BadName, "the element has no such classification"};
    const AskedClassification wanted = askedClassification(asked);
    reference->itemReference = text::fromUtf8(wanted.code);
    reference->name = text::fromUtf8(wanted.title);
    return model.setClassification(element, *reference);
}

}  // namespace

Place placeOf(const Model& model, Element element, std::string_view item) {
    const Designation wanted = parse(item);
    Place place;
    const std::string attribute = text::toUtf8(wanted.name);
    if (hasAttribute(model, element, attribute)) {
        place.kind = Place::Kind::Attribute;
        place.attribute = attribute;
        return place;
    }
    const auto set = firstSetWith(model, element, wanted.name);
    if (set || !wanted.set.empty()) {
        place.kind = Place::Kind::Property;
        place.set = set.value_or(wanted.set);
        place.property = wanted.name;
        place.isNew = !set;
        return place;
    }
    const bool known = std::find(NewSystems.begin(), NewSystems.end(), wanted.name) != NewSystems.end();
    if (known || classificationOf(model, element, wanted.name)) {
        place.kind = Place::Kind::Classification;
        place.system = wanted.name;
    }
    return place;
}

Stored storedAt(const Model& model, Element element, const Place& place) {
    if (place.kind == Place::Kind::Property) return storedPropertyAt(model, element, place);
    Stored stored;
    if (place.kind == Place::Kind::Attribute) {
        const auto attributes = model.attributes(element);
        if (!attributes) return stored;
        const auto found = std::find_if(attributes->begin(), attributes->end(),
                                        [&](const auto& attribute) { return attribute.name == place.attribute; });
        if (found != attributes->end()) stored = storedAttribute(*found);
    } else if (place.kind == Place::Kind::Classification) {
        if (const auto reference = classificationOf(model, element, place.system)) {
            stored.kind = Stored::Kind::Classification;
            stored.text = text::toUtf8(reference->itemReference.value_or(u""));
            stored.title = text::toUtf8(reference->name.value_or(u""));
        }
    }
    return stored;
}

model::Status storeAsAsked(Model& model, Element element, const Place& place, std::string_view asked, DecimalSign sign,
                           std::string_view newType) {
    switch (place.kind) {
        case Place::Kind::Attribute: {
            const Stored::Kind kind = storedAt(model, element, place).kind;
            return model.setAttribute(element, place.attribute, text::fromUtf8(canonical(asked, kind, sign)));
        }
        case Place::Kind::Property:
            return storeProperty(model, element, place, asked, sign, newType);
        case Place::Kind::Classification:
            return storeClassification(model, element, place, asked);
        case Place::Kind::None:
            break;
    }
    return model::Error{model::ErrorKind::BadName, "nothing on the element has that name"};
}

}  // namespace readback
