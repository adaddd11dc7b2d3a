#include "fuzz/Checks.hpp"
#include "model/Model.hpp"

#include <functional>
#include <vector>

namespace fuzz {

namespace {

using namespace model;

void add(std::u16string& all, std::u16string_view text) {
    all.append(text).push_back(u'\x1F');
}
void add(std::u16string& all, double number) {
    for (const char c : std::to_string(number)) all.push_back(static_cast<char16_t>(c));
    all.push_back(u'\x1F');
}

/// All that the model says of an element.
std::u16string dataOf(const Model& model, Element element) {
    std::u16string all;
    const auto attributes = model.attributes(element);
    const auto properties = model.properties(element);
    const auto references = model.classifications(element);
    require(properties && references, "an element's properties or classifications cannot be read");
    // What is not well formed has no attributes.
    require(attributes || attributes.error().kind == ErrorKind::Refused, "attributes are not read for another reason");
    if (attributes)
        for (const Attribute& attribute : *attributes) add(all, attribute.value);
    for (const Property& property : *properties) {
        add(all, property.set);
        add(all, property.name);
        add(all, property.value.string);
        add(all,
            property.value.real + static_cast<double>(property.value.integer) + (property.value.boolean ? 0.5 : 0));
        add(all, static_cast<int>(property.kind) * 100 + static_cast<int>(property.value.primitive));
    }
    for (const ClassificationReference& reference : *references) {
        for (const auto* text : {&reference.location, &reference.name, &reference.itemReference})
            add(all, text->value_or(u"$"));
        for (const auto* text :
             {&reference.system, &reference.source, &reference.edition, &reference.classificationName})
            add(all, *text);
    }
    return all;
}

std::vector<std::u16string> dataOf(const Model& model) {
    std::vector<std::u16string> all;
    for (Element element = 0; element < model.elementCount(); ++element) all.push_back(dataOf(model, element));
    return all;
}

void lookAround(const Model& model) {
    (void)model.trueNorth();
    (void)model.metresPerUnit();
    for (Element element = 0; element < model.elementCount(); ++element) {
        const ElementInfo info = model.info(element);
        require(model.find(info.guid) == element, "a GUID leads to another element");
        require(model.typeId(element) == info.typeId, "an element has two types");
        (void)model.storey(element);
        (void)model.hasDuplicates(element);
        (void)model.placement(element);
        (void)model.footprint(element);
        (void)model.outline(element);
        (void)model.room(element);
        (void)model.gridAxes(element);
        std::size_t visited = 0;
        model.visitProperties(element, [&](const PropertyView&) { ++visited; });
        require(visited == model.properties(element)->size(), "a visit meets other properties than the list has");
    }
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

Status setSomeClassification(Model& model, Element element) {
    const auto references = *model.classifications(element);
    ClassificationReference wanted;
    if (!references.empty()) wanted = references.back();
    if (wanted.system.empty()) wanted.system = u"Fuzz Classification";
    wanted.itemReference = u"F.1";
    wanted.name = u"Fuzz";
    return model.setClassification(element, wanted);
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
    const std::string edited = model.bytes();
    const std::vector<std::u16string> after = dataOf(model);
    for (Element other = 0; other < before.size(); ++other)
        require(other == element || after[other] == before[other], "a change is seen by another element");
    const auto again = Model::fromBytes(edited);
    require(bool{again}, "a changed model cannot be opened");
    require(dataOf(**again) == after, "a changed model is read otherwise");
    if (edited == input) return;
    require(model.undo() && model.bytes() == input && dataOf(model) == before, "undo leaves something behind");
    require(model.redo() && model.bytes() == edited && dataOf(model) == after, "redo gives something else");
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
    const auto element = static_cast<Element>(std::hash<std::string>{}(input) % model.elementCount());
    checkChange(input, element, setSomeProperty);
    checkChange(input, element, setSomeClassification);
    checkChange(input, element, [](Model& changed, Element one) { return changed.setAttribute(one, "Name", u"Fuzz"); });
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkModel)
