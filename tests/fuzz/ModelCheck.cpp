#include "fuzz/Checks.hpp"
#include "fuzz/ModelData.hpp"
#include "model/Rooms.hpp"
#include "model/ifc/schema/StandardSets.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <functional>
#include <vector>

namespace fuzz {

namespace {

using namespace model;

/// The standard sets that are like a property's, or have properties like it.
void lookUp(const Model& model, Element element, const PropertyView& property) {
    const ifc::StandardSets& sets = ifc::StandardSets::of(model.schemaVersion());
    const ifc::Entity& entity = model.entity(element);
    const std::string set = text::toUtf8(property.set), name = text::toUtf8(property.name);
    const std::string_view nearSet = sets.nearestSet(set), nearName = sets.nearestProperty(name, entity);
    require((nearSet.empty() || nearSet != set) && (nearName.empty() || nearName != name), "a name is near itself");
    for (const ifc::StandardSet& having : sets.having(name)) {
        require(having.find(name).has_value(), "a set has not the property for which it was found");
        require(!having.isFor(entity, model.predefinedType(element)) || having.isFor(entity, {}),
                "a set is for one type of a class, and for none of them");
    }
    (void)model.standardType(property.set, property.name);
}

void lookAround(const Model& model) {
    for (const InRoom& inRoom : rooms(model))
        require(std::max(inRoom.element, inRoom.room) < model.elementCount(), "a room is none of the elements");
    (void)model.trueNorth();
    (void)model.metresPerUnit();
    require(!model.schemaName().empty(), "a model is read by no schema");
    for (const UnknownClass& unknown : model.unknownClasses())
        require(unknown.instances > 0, "a class without instances is not known");
    for (Element element = 0; element < model.elementCount(); ++element) {
        const ElementInfo info = model.info(element);
        require(model.find(info.guid) == element, "a GUID leads to another element");
        require(model.typeId(element) == info.typeId, "an element has two types");
        require(model.entity(element).name() == info.ifcClass, "an element has two classes");
        (void)model.typeEntity(element);
        (void)model.predefinedType(element);
        (void)model.name(element);
        (void)model.storey(element);
        (void)model.hasDuplicates(element);
        (void)model.placement(element);
        (void)model.planKind(element);
        (void)model.footprint(element);
        (void)model.outline(element);
        (void)model.room(element);
        (void)model.gridAxes(element);
        std::vector<PropertyName> names;
        const auto properties = model.properties(element);
        for (const Property& property : *properties) names.push_back({property.set, property.name});
        (void)model.chosenItems(element, names);
        std::size_t visited = 0;
        model.visitProperties(element, [&](const PropertyView& property) {
            lookUp(model, element, property);
            ++visited;
        });
        require(visited == properties->size(), "a visit meets other properties than the list has");
        visited = 0;
        model.visitClassifications(element, [&](const ClassificationReference&) { ++visited; });
        require(visited == model.classifications(element)->size(), "a visit meets other classifications than the list");
    }
}

/// What a value is changed to: texts of the kinds that types tell apart, one too long for a label, characters that the
/// file has to escape.
std::u16string newText(std::size_t number) {
    const std::u16string texts[] = {u"Fuzz", u"",    u"$",          u"'\\\x4E2D",  u"1.5",
                                    u"-7",   u".T.", u"NOTDEFINED", u"2024-02-29", std::u16string(256, u'x'),
                                    u"a, b"};
    return texts[number % std::size(texts)];
}

using Change = std::function<Status(Model&, Element)>;

Status setSomeProperty(Model& model, Element element) {
    const auto properties = *model.properties(element);
    Property wanted;
    for (const Property& property : properties)
        if (property.kind == PropertyKind::Single && property.value.primitive == Primitive::String) wanted = property;
    if (wanted.name.empty()) {
        wanted.set = u"Pset_Fuzz";
        wanted.name = u"Fuzz";
        wanted.value.type = "IfcLabel";
    }
    wanted.value.string += u"'\\\x4E2D";
    return model.setProperty(element, wanted);
}

/// Any property, of whatever type.
Change setProperty(std::size_t number) {
    return [number](Model& model, Element element) {
        const auto properties = *model.properties(element);
        Property wanted;
        wanted.set = wanted.name = u"Fuzz";
        if (!properties.empty()) wanted = properties[number % properties.size()];
        wanted.value.string = newText(number);
        wanted.value.integer = wanted.value.integer == 1 ? 2 : 1;
        wanted.value.real += 0.5;
        wanted.value.boolean = !wanted.value.boolean;
        return model.setProperty(element, wanted);
    };
}

Change setPropertyText(std::size_t number) {
    return [number](Model& model, Element element) {
        constexpr const char* types[] = {"", "IfcReal", "IfcBoolean", "IfcDate", "IfcText", "IfcInteger"};
        const auto properties = *model.properties(element);
        PropertyText wanted{u"Fuzz", u"Fuzz", newText(number / 7), types[number % std::size(types)]};
        if (!properties.empty()) {
            wanted.set = properties[number % properties.size()].set;
            wanted.name = properties[number % properties.size()].name;
        }
        return model.setPropertyText(element, wanted);
    };
}

Change setAttribute(std::size_t number) {
    return [number](Model& model, Element element) {
        const auto attributes = model.attributes(element);
        if (!attributes || attributes->empty()) return model.setAttribute(element, "Name", u"Fuzz");
        const std::string_view name = (*attributes)[number % attributes->size()].name;
        return model.setAttribute(element, name, newText(number / 5));
    };
}

Status setSomeClassification(Model& model, Element element) {
    const auto references = *model.classifications(element);
    ClassificationReference wanted;
    if (!references.empty()) wanted = references.back();
    if (wanted.system.empty()) wanted.system = u"Fuzz Classification";
    wanted.itemReference = u"F.1";
    wanted.name = u"Fuzz";
    return model.setClassification(element, wanted);
}

Status removeSomeClassification(Model& model, Element element) {
    const auto references = *model.classifications(element);
    return model.removeClassification(element, references.empty() ? u"Fuzz" : references.front().system);
}

/// One change of one element, and everything that is promised of it.
void checkChange(const std::string& input, Element element, const Change& change) {
    const auto opened = Model::fromBytes(input);
    Model& model = **opened;
    const std::vector<std::u16string> before = dataOf(model);
    Status done;
    const auto ran = model.command("Fuzz", [&] {
        done = change(model, element);
        return 0;
    });
    require(bool{ran}, "a command cannot be run");
    if (!done) {
        require(!done.error().message.empty(), "a refusal gives no reason");
        require(model.bytes() == input && !model.undoSteps().undo.has_value(),
                "a refused change leaves something behind");
    }
    requirePromises(model, input, before, element);
}

/// What a command gives to all elements alike becomes one.
void checkChangeOfAll(const std::string& input) {
    const auto opened = Model::fromBytes(input);
    Model& model = **opened;
    const std::vector<std::u16string> before = dataOf(model);
    model.shareNewSets(true);
    const auto ran = model.command("Fuzz", [&] {
        for (Element element = 0; element < model.elementCount(); ++element) {
            (void)setSomeClassification(model, element);
            (void)model.setPropertyText(element, {u"Fuzz", u"Fuzz", u"all", "IfcLabel"});
        }
        return 0;
    });
    require(bool{ran}, "a command cannot be run");
    requirePromises(model, input, before, std::nullopt);
}

/// One property after the other in the set that has the most, each a command of its own or all in one.
void checkManyChanges(const std::string& input, Element element, bool inOneCommand) {
    const auto opened = Model::fromBytes(input);
    Model& model = **opened;
    const std::vector<std::u16string> before = dataOf(model);
    const auto properties = *model.properties(element);
    const std::u16string set = properties.empty() ? u"Fuzz" : properties.back().set;
    constexpr unsigned Many = 40;
    const auto add = [&](unsigned number) {
        Property wanted;
        wanted.set = set;
        wanted.name = static_cast<char16_t>(u'0' + number);
        wanted.value.type = "IfcLabel";
        wanted.value.string = u"Fuzz";
        return model.setProperty(element, wanted);
    };
    const auto run = [&](unsigned from, unsigned to) {
        const auto ran = model.command("Fuzz", [&] {
            for (unsigned number = from; number < to; ++number) (void)add(number);
            return 0;
        });
        require(bool{ran}, "a command cannot be run");
    };
    if (inOneCommand) {
        run(0, Many);
        return requirePromises(model, input, before, element);
    }
    for (unsigned number = 0; number < Many; ++number) run(number, number + 1);
    const std::string edited = model.bytes();
    const auto again = Model::fromBytes(edited);
    require(again && dataOf(**again) == dataOf(model), "a changed model is read otherwise");
    while (model.undo()) {
    }
    require(model.bytes() == input && dataOf(model) == before, "undo leaves something behind");
    while (model.redo()) {
    }
    require(model.bytes() == edited, "redo gives something else");
}

}  // namespace

void checkModel(std::string_view bytes) {
    const std::string input(bytes);
    const auto opened = Model::fromBytes(input);
    if (!opened) {
        require(!opened.error().message.empty(), "a refusal gives no reason");
        return;
    }
    const Model& model = **opened;
    lookAround(model);
    (void)dataOf(model);
    require(model.bytes() == input, "a model that was only read is written otherwise");
    // What is wrong in the file's own form is another target's: next to an open quote any byte more changes all.
    if (model.elementCount() == 0 || !model.remarks().empty()) return;
    const Element element = someElement(model, input);
    const std::size_t number = std::hash<std::string_view>{}(bytes.substr(0, bytes.size() / 2));
    for (const Change& change : {Change(setSomeProperty), setProperty(number), setPropertyText(number),
                                 setAttribute(number), Change(setSomeClassification), Change(removeSomeClassification)})
        checkChange(input, element, change);
    checkChangeOfAll(input);
    for (const bool inOneCommand : {false, true}) checkManyChanges(input, element, inOneCommand);
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkModel)
