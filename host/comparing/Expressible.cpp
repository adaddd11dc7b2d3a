#include "comparing/Expressible.hpp"

#include "comparing/Values.hpp"
#include "model/ifc/index/Workspace.hpp"
#include "readback/Items.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"

#include <algorithm>

namespace comparing {

namespace {

using model::Element;
using model::Model;
using readback::Place;

/// The add-on's buffer for a line, its line end not counted.
constexpr std::size_t LongestLine = 2047;

bool breaksLines(std::string_view text) {
    using namespace std::string_view_literals;
    return text.find_first_of("\t\r\n\0"sv) != std::string_view::npos;
}

std::string textBefore(std::string_view text, char end) {
    return std::string(text.substr(0, text.find(end)));
}

/// The codes of truth values, as the add-on reads them.
std::string spokenOut(const std::string& asked) {
    if (asked == ".T.") return "true";
    return asked == ".F." ? "false" : asked;
}

std::size_t lengthOf(const Change& change, const std::string& old) {
    return text::GuidLength + change.item.size() + old.size() + change.asked.size() + 3;
}

/// The changes of one element.
class ElementTrial {
public:
    ElementTrial(Model& model, Element element)
        : model_(model), element_(element), guid_(model.workspace().elements.guid(element)) {}

    model::Status run(std::vector<Change>& changes) {
        auto attributes = model_.attributes(element_);
        auto properties = model_.properties(element_);
        auto classifications = model_.classifications(element_);
        if (!attributes) return attributes.error();
        if (!properties) return properties.error();
        if (!classifications) return classifications.error();
        data_ = {std::move(*attributes), std::move(*properties), std::move(*classifications)};
        named_ = !model_.name(element_).empty();
        // The review list is made before anything is changed.
        std::vector<Place> places;
        for (const Change& change : changes)
            places.push_back(change.writable() ? readback::placeOf(model_, element_, change.item) : Place{});
        for (std::size_t i = 0; i < changes.size(); ++i) {
            Change& change = changes[i];
            if (change.writable()) change.obstacle = obstacleOf(change, places[i]);
        }
        return {};
    }

private:
    std::string obstacleOf(Change& change, const Place& place);
    std::string obstacleOfLine(const Change& change) const;
    bool leadsThere(const Change& change, const Place& place) const;
    bool isReal(const Change& change) const;
    bool reviewedAsSame(Change& change) const;
    std::string tryOut(const Change& change, const Place& place);
    std::optional<std::string> heldAt(const Place& place) const;

    Model& model_;
    Element element_;
    model::Guid guid_;
    updatefile::ElementData data_;
    bool named_ = false;
};

std::string ElementTrial::obstacleOfLine(const Change& change) const {
    if (guid_ == model::Guid{}) return "the element's GUID is null, which names no element";
    if (!named_) return "the element has no Name, so the review list would refuse the line";
    if (breaksLines(change.asked)) return "the value holds a TAB, a line end or a zero, which a line cannot hold";
    if (breaksLines(change.item)) return "the item's name holds a TAB, a line end or a zero, which a line cannot hold";
    if (lengthOf(change, {}) > LongestLine) return "the line would be longer than 2047 bytes and be cut";
    return {};
}

bool ElementTrial::leadsThere(const Change& change, const Place& place) const {
    switch (place.kind) {
        case Place::Kind::Attribute:
            return change.kind == ChangeKind::Attribute;
        case Place::Kind::Property:
            return change.kind == ChangeKind::Property && text::toUtf8(place.set) == change.set &&
                   place.isNew == !change.old;
        case Place::Kind::Classification:
            return change.kind == ChangeKind::Classification;
        case Place::Kind::None:
            break;
    }
    return false;
}

/// Whether the property holds a real number now, so that a zero more at its end is still the same number.
bool ElementTrial::isReal(const Change& change) const {
    const auto& properties = data_.properties;
    return std::any_of(properties.begin(), properties.end(), [&](const model::Property& property) {
        return property.value.primitive == model::Primitive::Real && text::toUtf8(property.set) == change.set &&
               text::toUtf8(property.name) == textBefore(change.item, '[');
    });
}

/// The review list does not let a row be ticked whose new value it takes for the current one. A number can be written
/// in another way.
bool ElementTrial::reviewedAsSame(Change& change) const {
    const auto current = updatefile::currentText(data_, text::fromUtf8(textBefore(change.item, '[')));
    const std::string held = text::toUtf8(current.text);
    const auto same = [&] { return held == textBefore(spokenOut(change.asked), '{'); };
    if (same() && change.kind == ChangeKind::Property && isReal(change) && change.asked.find('e') == std::string::npos)
        change.asked += '0';
    return same();
}

/// What the element holds there now, for comparing with Change::now.
std::optional<std::string> ElementTrial::heldAt(const Place& place) const {
    if (place.kind == Place::Kind::Property) return propertyText(model_, element_, place.set, place.property);
    if (place.kind == Place::Kind::Attribute) return attributeText(model_, element_, place.attribute);
    return readback::textOf(readback::storedAt(model_, element_, place));
}

std::string ElementTrial::tryOut(const Change& change, const Place& place) {
    if (place.isNew) {
        // The add-on makes a label of it first, and what it is refused stays refused.
        model::Property label{place.set, place.property, model::PropertyKind::Single, false, {}};
        label.value.type = "IfcLabel";
        label.value.string = text::fromUtf8(change.asked);
        if (const auto made = model_.setProperty(element_, label); !made) return made.error().message;
    }
    if (place.kind == Place::Kind::Classification && !change.old) {
        model::ClassificationReference made;
        made.system = place.system;
        if (const auto added = model_.setClassification(element_, made); !added) return added.error().message;
    }
    const auto stored = readback::storeAsAsked(model_, element_, place, change.asked, readback::DecimalSign::Point);
    if (!stored) return stored.error().message;
    const auto held = heldAt(place);
    if (held == change.now) return {};
    return "the import would store \"" + held.value_or("") + "\" there, by the type of the item";
}

std::string ElementTrial::obstacleOf(Change& change, const Place& place) {
    if (std::string obstacle = obstacleOfLine(change); !obstacle.empty()) return obstacle;
    // Again, since what an update before it makes can take the name.
    if (!leadsThere(change, place) || !leadsThere(change, readback::placeOf(model_, element_, change.item)))
        return "the item's name alone leads to another item, or to none";
    if (reviewedAsSame(change)) return "the review list takes the old and the new value for the same";
    return tryOut(change, place);
}

}  // namespace

model::Status judgeChanges(Model& a, std::vector<ChangedElement>& changed) {
    constexpr std::int32_t TakeBack = 1;
    model::Status status;
    const auto ran = a.command("Try out updates", [&] {
        for (ChangedElement& element : changed) {
            status = ElementTrial(a, element.a).run(element.changes);
            if (!status) break;
        }
        return TakeBack;
    });
    // What the user would be told of these edits is of no concern: they have not been made.
    a.takeNotes();
    return ran ? status : model::Status(ran.error());
}

std::string updateLine(const Model& a, const ChangedElement& element, const Change& change) {
    const std::string guid = text::guidText(a.workspace().elements.guid(element.a));
    std::string old = change.old.value_or("");
    if (breaksLines(old) || lengthOf(change, old) > LongestLine) old.clear();
    return guid + '\t' + change.item + '\t' + old + '\t' + change.asked + '\n';
}

}  // namespace comparing
