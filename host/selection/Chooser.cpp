#include "selection/Chooser.hpp"

#include "model/ifc/data/PropertyFacts.hpp"
#include "model/ifc/schema/NearName.hpp"
#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <map>
#include <set>

namespace selection {

namespace {

using model::Element;
using model::ifc::Entity;
using model::ifc::NameTest;
using model::ifc::Schema;
using model::ifc::SchemaVersion;
using model::step::NoSlot;
using model::step::Slot;

NameTest testOf(const Word& word) {
    if (!word.pattern) return {text::fromUtf8(word.text), {}};
    // A copy of the pattern shares its state: that one text was too much is seen by givenUp().
    return {{}, [pattern = *word.pattern](std::u16string_view name) { return pattern.matches(name); }};
}

/// Of a set: whoever names a property alone does not care where it is.
NameTest anyName() {
    return {{}, [](std::u16string_view) { return true; }};
}

bool isChoice(const Facet& facet) {
    return facet.subject == Subject::Class || facet.subject == Subject::Instance;
}

bool anySchemaHas(std::string_view className) {
    constexpr SchemaVersion All[] = {SchemaVersion::Ifc2x3, SchemaVersion::Ifc4, SchemaVersion::Ifc4x3};
    return std::ranges::any_of(
        All, [className](SchemaVersion version) { return Schema::of(version).entity(className) != nullptr; });
}

std::optional<model::Guid> guidOf(const std::string& name) {
    const auto guid = text::fromGlobalId(name);
    return guid ? guid : text::parseGuid(name);
}

/// Whether something holds of what elements share, found out once for each: it may be long, and have thousands of
/// elements.
template <class Shared>
class Answers {
public:
    template <class Find>
    bool of(const Shared& shared, Find&& find) {
        const auto [known, isNew] = known_.try_emplace(shared, false);
        if (isNew) known->second = find();
        return known->second;
    }

private:
    std::map<Shared, bool> known_;
};

}  // namespace

Chooser::Chooser(const model::Model& model, const Expression& expression)
    : model_(model),
      expression_(expression),
      work_(model.workspace()),
      facts_(work_),
      shared_(work_),
      chosen_(model.elementCount(), false) {}

model::Result<std::vector<Element>> Chooser::run() {
    for (const Group& group : expression_.groups) {
        if (model::Status done = choose(group); !done) return done.error();
    }
    Elements elements;
    for (Element element = 0; element < chosen_.size(); ++element) {
        if (chosen_[element]) elements.push_back(element);
    }
    return elements;
}

model::Status Chooser::choose(const Group& group) {
    auto elements = base(group);
    if (!elements) return elements.error();
    for (const Facet& facet : group) {
        if (!isChoice(facet)) keep(facet, *elements);
    }
    // Marked and not listed: an element that several groups choose comes once, and all come in file order.
    for (const Element element : *elements) chosen_[element] = true;
    return givenUp();
}

/// The classes and elements that the group names, each taken in or out in its turn; without any, all elements.
model::Result<Chooser::Elements> Chooser::base(const Group& group) {
    const auto first = std::ranges::find_if(group, isChoice);
    std::vector<bool> taken(chosen_.size(), first == group.end() || first->negated);
    for (const Facet& facet : group) {
        if (!isChoice(facet)) continue;
        const auto meant = named(facet);
        if (!meant) return meant.error();
        for (std::size_t i = 0; i < taken.size(); ++i) {
            if ((*meant)[i]) taken[i] = !facet.negated;
        }
    }
    Elements elements;
    for (Element element = 0; element < taken.size(); ++element) {
        if (taken[element]) elements.push_back(element);
    }
    return elements;
}

model::Result<std::vector<bool>> Chooser::named(const Facet& facet) {
    if (facet.subject == Subject::Instance) {
        std::vector<bool> meant(chosen_.size());
        const auto guid = guidOf(facet.name.text);
        const auto element = guid ? model_.find(*guid) : std::nullopt;
        if (element) meant[*element] = true;
        return meant;
    }
    if (const Entity* ifcClass = work_.schema.entity(facet.name.text)) return ofClass(*ifcClass);
    // No mistake, just nothing: the same selection may be asked of models of several schemas.
    if (anySchemaHas(facet.name.text)) return std::vector<bool>(chosen_.size());
    model::ifc::NearestName near(facet.name.text);
    for (const Entity& entity : work_.schema.entities()) near.offer(entity.name());
    const std::string meant = near.found().empty() ? "" : text::message(", but {}", near.found());
    return complaint(expression_.text, facet.name.place,
                     text::message("{} has no class {}{}", model_.schemaName(), facet.name.text, meant));
}

std::vector<bool> Chooser::ofClass(const Entity& ifcClass) {
    std::vector<bool> meant(chosen_.size());
    for (Element element = 0; element < meant.size(); ++element) {
        meant[element] = facts_.entity(element).isA(ifcClass);
    }
    return meant;
}

void Chooser::keep(const Facet& facet, Elements& elements) {
    switch (facet.subject) {
        case Subject::Item:
            return keepByItem(facet, elements);
        case Subject::Property:
            return keepByProperty(facet, elements);
        case Subject::Type:
            return keepByType(facet, elements);
        case Subject::Material:
            return keepByMaterial(facet, elements);
        case Subject::Classification:
            return keepByClassification(facet, elements);
        case Subject::Location:
            return keepByLocation(facet, elements);
        case Subject::Class:
        case Subject::Instance:
            break;
    }
}

/// Whether any element of any class of the schema could have it.
bool Chooser::isAttribute(std::string_view name) const {
    const Entity* product = work_.schema.entity("IfcProduct");
    const auto entities = work_.schema.entities();
    return std::ranges::any_of(
        entities, [&](const Entity& entity) { return entity.isA(*product) && entity.attributeIndex(name) >= 0; });
}

void Chooser::keepByItem(const Facet& facet, Elements& elements) {
    if (!isAttribute(facet.name.text)) return keepByProperty(facet, elements);
    const Comparer comparer(facet.comparison);
    std::erase_if(elements,
                  [&](Element element) { return !comparer.holds(facts_.attribute(element, facet.name.text)); });
}

void Chooser::keepByProperty(const Facet& facet, Elements& elements) {
    const Comparer comparer(facet.comparison);
    const bool anySet = facet.subject == Subject::Item;
    model::ifc::PropertyFacts property(work_, anySet ? anyName() : testOf(facet.set), testOf(facet.name));
    Answers<std::size_t> answers;
    std::erase_if(elements, [&](Element element) {
        return !answers.of(shared_.properties(element), [&] { return comparer.holds(property.of(element)); });
    });
}

void Chooser::keepByType(const Facet& facet, Elements& elements) {
    const Comparer comparer(facet.comparison);
    const auto isMeant = [&](Slot type) {
        if (type == NoSlot) return comparer.asksForNothing();
        return comparer.any(facts_.name(type)) || (!comparer.asksForNothing() && comparer.any(facts_.globalId(type)));
    };
    Answers<Slot> answers;
    std::erase_if(elements, [&](Element element) {
        const Slot type = facts_.typeObject(element);
        return answers.of(type, [&] { return isMeant(type); }) == comparer.negated();
    });
}

void Chooser::keepByMaterial(const Facet& facet, Elements& elements) {
    using Materials = std::vector<Slot>;
    const Comparer comparer(facet.comparison);
    Answers<Slot> ofOne;
    const auto isMeant = [&](Slot material) {
        return ofOne.of(material, [&] {
            return comparer.any(facts_.name(material)) || comparer.any(facts_.attributeOf(material, "Category"));
        });
    };
    Answers<const Materials*> ofAll;
    std::erase_if(elements, [&](Element element) {
        const Materials& materials = facts_.materials(element);
        const bool holds = ofAll.of(&materials, [&] {
            return comparer.asksForNothing() ? materials.empty() : std::ranges::any_of(materials, isMeant);
        });
        return holds == comparer.negated();
    });
}

void Chooser::keepByClassification(const Facet& facet, Elements& elements) {
    using Fact = model::ifc::ClassificationFact;
    const Comparer comparer(facet.comparison);
    Answers<const Fact*> answers;
    const auto isMeant = [&](const Fact* fact) {
        return answers.of(fact, [&] { return comparer.any(fact->code) || comparer.any(fact->title); });
    };
    std::map<Slot, std::set<Slot>> systemsOfTypes;  // those in which the type has one that is meant
    const auto holds = [&](Element element) {
        const auto own = facts_.ownClassifications(element);
        const Slot type = facts_.typeObject(element);
        if (comparer.asksForNothing()) return own.empty() && facts_.classificationsOfType(type).empty();
        if (std::ranges::any_of(own, isMeant)) return true;
        const auto [inherited, isNew] = systemsOfTypes.try_emplace(type);
        if (isNew) {
            for (const Fact* fact : facts_.classificationsOfType(type))
                if (isMeant(fact)) inherited->second.insert(fact->system);
        }
        // The element's own ones stand for all of their system.
        std::set<Slot> replaced;
        for (const Fact* fact : own)
            if (inherited->second.contains(fact->system)) replaced.insert(fact->system);
        return replaced.size() < inherited->second.size();
    };
    std::erase_if(elements, [&](Element element) { return holds(element) == comparer.negated(); });
}

void Chooser::keepByLocation(const Facet& facet, Elements& elements) {
    const Comparer comparer(facet.comparison);
    Places known;
    std::erase_if(elements, [&](Element element) { return standsIn(comparer, element, known) == comparer.negated(); });
}

/// What is found out of a place counts for everything that stands in it.
bool Chooser::standsIn(const Comparer& comparer, Element element, Places& known) {
    Slot place = facts_.place(element);
    if (comparer.asksForNothing()) return place == NoSlot;
    std::vector<Slot> passed;
    bool found = false;
    for (; place != NoSlot && !found; place = facts_.outerPlace(place)) {
        const auto [entry, isNew] = known.try_emplace(place, false);
        if (!isNew) {
            found = entry->second;
            break;
        }
        passed.push_back(place);
        found = comparer.any(facts_.name(place)) || comparer.any(facts_.globalId(place));
    }
    for (const Slot inner : passed) known[inner] = found;
    return found;
}

model::Status Chooser::givenUp() const {
    for (const Group& group : expression_.groups) {
        for (const Facet& facet : group) {
            for (const Word* word : {&facet.set, &facet.name, &facet.comparison.value}) {
                if (!word->pattern || !word->pattern->gaveUp()) continue;
                return complaint(
                    expression_.text, word->place,
                    text::message("the expression tries too many ways on some text; write it with fewer * and +"));
            }
        }
    }
    return {};
}

}  // namespace selection
