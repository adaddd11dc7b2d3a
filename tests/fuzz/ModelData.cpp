#include "fuzz/ModelData.hpp"

#include "fuzz/Checks.hpp"

#include <functional>

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

}  // namespace

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

Element someElement(const Model& model, std::string_view bytes) {
    return static_cast<Element>(std::hash<std::string_view>{}(bytes) % model.elementCount());
}

void requirePromises(Model& model, const std::string& bytesBefore, const std::vector<std::u16string>& before,
                     std::optional<Element> changed) {
    const std::string edited = model.bytes();
    const std::vector<std::u16string> after = dataOf(model);
    for (Element other = 0; changed && other < before.size(); ++other)
        require(other == *changed || after[other] == before[other], "a change is seen by another element");
    const auto again = Model::fromBytes(edited);
    require(bool{again}, "a changed model cannot be opened");
    require(dataOf(**again) == after, "a changed model is read otherwise");
    if (edited == bytesBefore) return;
    require(model.undo() && model.bytes() == bytesBefore && dataOf(model) == before, "undo leaves something behind");
    require(model.redo() && model.bytes() == edited && dataOf(model) == after, "redo gives something else");
}

}  // namespace fuzz
