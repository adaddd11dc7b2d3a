#include "comparing/Expressible.hpp"

#include "comparing/Values.hpp"
#include "model/ifc/index/Workspace.hpp"
#include "readback/Items.hpp"
#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <tuple>
#include <utility>

namespace comparing {

namespace {

using model::Element;
using model::Model;
using readback::Place;
using Key = std::pair<std::string, std::string>;  // set and name

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

/// Whether the place is the one that the change is about.
bool leadsThere(const Change& change, const Place& place) {
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

/// Changes of one element. Each step is taken for all of them, since there may be thousands. What they are not about is
/// not read: many elements may share properties that are far more than the changes.
class ElementTrial {
public:
    ElementTrial(Model& model, Element element, std::span<Change> changes)
        : model_(model), element_(element), guid_(model.workspace().elements.guid(element)) {
        for (Change& change : changes)
            if (change.writable()) attempts_.push_back({change, {}, {}});
    }

    model::Status run() {
        if (attempts_.empty()) return {};
        if (model::Status read = readCurrent(); !read) return read;
        findPlaces();
        for (Attempt& attempt : attempts_) attempt.change.obstacle = obstacleOf(attempt);
        for (Attempt& attempt : attempts_)
            if (attempt.change.writable()) attempt.change.obstacle = write(attempt);
        return compareWritten();
    }

private:
    struct Attempt {
        Change& change;
        Place place;
        readback::Stored::Kind held;
    };

    bool anyWritable(ChangeKind kind) const;
    Names namesTried() const;
    model::Status readCurrent();
    model::Status readShared();
    void findPlaces();
    std::string obstacleOf(Attempt& attempt);
    std::string obstacleOfLine(const Change& change) const;
    bool nameIsTaken(const Place& place);
    bool reviewedAsSame(Change& change);
    std::string write(const Attempt& attempt);
    model::Status compareWritten();
    void compareWith(const std::vector<Value>& values, ChangeKind kind);

    Model& model_;
    Element element_;
    model::Guid guid_;
    std::vector<Attempt> attempts_;
    bool named_ = false;
    std::map<std::u16string, std::u16string> shown_;  ///< By name: what the review list shows as current.
    std::set<Key> reals_;                             ///< Properties that hold a real number.
    std::set<std::u16string> made_;                   ///< Names of properties that updates before have made.
};

bool ElementTrial::anyWritable(ChangeKind kind) const {
    return std::any_of(attempts_.begin(), attempts_.end(), [kind](const Attempt& attempt) {
        return attempt.change.kind == kind && attempt.change.writable();
    });
}

/// Up to their brackets, as the review list looks for them.
Names ElementTrial::namesTried() const {
    Names names;
    for (const Attempt& attempt : attempts_)
        if (attempt.change.writable()) names.insert(text::fromUtf8(textBefore(attempt.change.item, '[')));
    return names;
}

/// The rules of the review list: attributes hide properties, which hide classifications.
model::Status ElementTrial::readCurrent() {
    const auto attributes = model_.attributes(element_);
    if (!attributes) return attributes.error();
    if (anyWritable(ChangeKind::Property) || anyWritable(ChangeKind::Classification)) {
        if (model::Status read = readShared(); !read) return read;
    }
    for (const model::Attribute& attribute : *attributes) shown_[text::fromUtf8(attribute.name)] = attribute.value;
    named_ = !model_.name(element_).empty();
    return {};
}

/// Of several properties of a name the last is shown.
model::Status ElementTrial::readShared() {
    const auto classifications = model_.classifications(element_);
    if (!classifications) return classifications.error();
    for (const auto& reference : *classifications) shown_[reference.system] = reference.itemReference.value_or(u"");
    const Names names = namesTried();
    model_.visitProperties(element_, [&](const model::PropertyView& property) {
        if (!names.contains(property.name)) return;
        const bool single = property.kind == model::PropertyKind::Single;
        shown_[std::u16string(property.name)] =
            single ? updatefile::propertyText(updatefile::valueOf(property)) : u"????";
        if (single && property.primitive == model::Primitive::Real)
            reals_.insert({text::toUtf8(property.set), text::toUtf8(property.name)});
    });
    return {};
}

void ElementTrial::findPlaces() {
    std::vector<std::string_view> items;
    for (const Attempt& attempt : attempts_) items.push_back(attempt.change.item);
    const std::vector<Place> places = readback::placesOf(model_, element_, items);
    std::vector<const Place*> pointers;
    for (std::size_t i = 0; i < places.size(); ++i) {
        attempts_[i].place = places[i];
        pointers.push_back(&attempts_[i].place);
    }
    const auto held = readback::storedAt(model_, element_, pointers);
    for (std::size_t i = 0; i < held.size(); ++i) attempts_[i].held = held[i].kind;
}

std::string ElementTrial::obstacleOfLine(const Change& change) const {
    if (guid_ == model::Guid{}) return text::message("the element's GUID is null, which names no element");
    if (!named_) return text::message("the element has no Name, so the review list would refuse the line");
    if (breaksLines(change.asked))
        return text::message("the value holds a TAB, a line end or a zero, which a line cannot hold");
    if (breaksLines(change.item))
        return text::message("the item's name holds a TAB, a line end or a zero, which a line cannot hold");
    // Without the old value, which updateLine() leaves out where the line has no room for it.
    if (lengthOf(change, {}) > LongestLine) return text::message("the line would be longer than 2047 bytes and be cut");
    return {};
}

/// The second of two new properties of one name would be written into the first.
bool ElementTrial::nameIsTaken(const Place& place) {
    if (place.kind == Place::Kind::Classification) return made_.contains(place.system);
    return place.isNew && !made_.insert(place.property).second;
}

/// The review list does not let a row be ticked whose new value it takes for the current one. A real number can be
/// written in another way.
bool ElementTrial::reviewedAsSame(Change& change) {
    const std::string name = textBefore(change.item, '[');
    const std::string held = text::toUtf8(shown_[text::fromUtf8(name)]);
    const auto same = [&] { return held == textBefore(spokenOut(change.asked), '{'); };
    const bool real = change.kind == ChangeKind::Property && reals_.contains({change.set, name});
    // Another text for the same number, so that the row can be ticked.
    if (same() && real && change.asked.find('e') == std::string::npos) change.asked += '0';
    return same();
}

std::string ElementTrial::obstacleOf(Attempt& attempt) {
    if (std::string obstacle = obstacleOfLine(attempt.change); !obstacle.empty()) return obstacle;
    if (!leadsThere(attempt.change, attempt.place))
        return text::message("the item's name alone leads to another item, or to none");
    if (reviewedAsSame(attempt.change))
        return text::message("the review list takes the old and the new value for the same");
    return nameIsTaken(attempt.place) ? text::message("another new property of that name would be written instead")
                                      : "";
}

/// What the add-on makes, before the host stores what was asked for. What it is refused stays refused.
model::Status makeNew(Model& model, Element element, const Place& place, const Change& change) {
    if (place.kind == Place::Kind::Classification) {
        model::ClassificationReference reference;
        reference.system = place.system;
        return model.setClassification(element, reference);
    }
    model::Property label{place.set, place.property, model::PropertyKind::Single, false, {}};
    label.value.type = "IfcLabel";
    label.value.string = text::fromUtf8(change.asked);
    return model.setProperty(element, label);
}

std::string ElementTrial::write(const Attempt& attempt) {
    const Change& change = attempt.change;
    if (!change.old) {
        if (const auto made = makeNew(model_, element_, attempt.place, change); !made) return made.error().message;
    }
    const auto stored = readback::storeAsAsked(model_, element_, attempt.place, attempt.held, change.asked,
                                               readback::DecimalSign::Point);
    return stored ? std::string() : stored.error().message;
}

model::Status ElementTrial::compareWritten() {
    // Read again after all writes: a later update may have changed what an earlier one wrote.
    for (const ChangeKind kind : {ChangeKind::Attribute, ChangeKind::Classification}) {
        if (!anyWritable(kind)) continue;
        const auto values =
            kind == ChangeKind::Attribute ? attributesOf(model_, element_) : classificationsOf(model_, element_);
        if (!values) return values.error();
        compareWith(*values, kind);
    }
    if (anyWritable(ChangeKind::Property))
        compareWith(propertiesNamed(model_, element_, namesTried()), ChangeKind::Property);
    return {};
}

void ElementTrial::compareWith(const std::vector<Value>& values, ChangeKind kind) {
    std::map<Key, const Value*> byItem;
    for (const Value& value : values) byItem.try_emplace({text::toUtf8(value.set), itemOf(value)}, &value);
    for (Attempt& attempt : attempts_) {
        Change& change = attempt.change;
        if (change.kind != kind || !change.writable()) continue;
        const auto found = byItem.find({change.set, change.item});
        const auto held = found == byItem.end() ? std::nullopt : std::optional(found->second->text());
        if (held != change.now) {
            change.obstacle =
                text::message("the import would store \"{}\" there, by the type of the item", held.value_or(""));
        }
    }
}

/// The changes of properties and classifications, which stand behind those of attributes.
std::span<Change> sharedPart(ChangedElement& element) {
    const auto isBefore = [](const Change& change, ChangeKind kind) { return change.kind < kind; };
    const auto begin = std::lower_bound(element.changes.begin(), element.changes.end(), ChangeKind::Property, isBefore);
    return {begin, std::lower_bound(begin, element.changes.end(), ChangeKind::Other, isBefore)};
}

/// Tries out the changes of many elements. What an update makes of properties and classifications depends on what these
/// come from, on which attributes there are, and on whether the review takes lines of the element at all: it is tried
/// on one element of each kind.
class Trials {
public:
    explicit Trials(Model& model) : model_(model) {}

    model::Status run(ChangedElement& element) {
        const std::span<Change> shared = sharedPart(element);
        const std::span<Change> all(element.changes);
        if (shared.empty()) return ElementTrial(model_, element.a, all).run();
        const auto [first, isNew] = tried_.try_emplace(kindOf(element), shared);
        if (isNew) return ElementTrial(model_, element.a, all).run();
        for (std::size_t i = 0; i < shared.size(); ++i) {
            shared[i].asked = first->second[i].asked;
            shared[i].obstacle = first->second[i].obstacle;
        }
        return ElementTrial(model_, element.a, all.first(static_cast<std::size_t>(shared.data() - all.data()))).run();
    }

private:
    using Kind = std::tuple<std::size_t, const model::ifc::Entity*, bool, bool>;

    Kind kindOf(const ChangedElement& element) const {
        return {element.sources, &model_.entity(element.a), model_.name(element.a).empty(),
                model_.workspace().elements.guid(element.a) == model::Guid{}};
    }

    Model& model_;
    std::map<Kind, std::span<const Change>> tried_;
};

}  // namespace

model::Status judgeChanges(Model& a, std::vector<ChangedElement>& changed) {
    constexpr std::int32_t TakeBack = 1;
    model::Status status;
    const auto ran = a.command("Trial", [&] {
        Trials trials(a);
        for (ChangedElement& element : changed) {
            status = trials.run(element);
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
