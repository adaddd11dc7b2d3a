#include "fuzz/Checks.hpp"
#include "model/step/StepFile.hpp"
#include "model/step/syntax/Numbers.hpp"
#include "model/step/syntax/StringDecoder.hpp"

#include <algorithm>
#include <vector>

namespace fuzz {

namespace {

using namespace model;
using namespace model::step;

bool isPart(std::string_view part, std::string_view whole) {
    return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

void checkValue(const Value& value, std::string_view whole) {
    require(isPart(value.text, whole), "a value lies outside its instance");
    std::u16string text;
    if (value.kind == ValueKind::String) decodeString(value.text, text);
    (void)integerValue(value);
    (void)realValue(value);
    (void)referenceId(value);
    (void)enumerationItem(value);
    std::string_view keyword;
    Value inner;
    if (splitTyped(value, keyword, inner)) require(isPart(inner.text, value.text), "an inner value lies outside");
    std::vector<Value> elements;
    if (!splitAggregate(value, elements)) return;
    for (const Value& element : elements) require(isPart(element.text, value.text), "an element lies outside");
}

void checkInstances(const StepFile& file) {
    Instance instance;
    for (Slot slot = 0; slot < file.slotCount(); ++slot) {
        const Slot found = file.find(file.id(slot));
        require(file.id(slot) != 0, "an instance has no id");
        require(found == slot || found == NoSlot, "an id leads to another instance");
        if (!file.read(slot, instance)) continue;
        require(instance.id == file.id(slot), "the id is read differently");
        for (const Value& value : instance.arguments) checkValue(value, file.text(slot));
    }
}

/// Some edit of each kind, spread over the file.
void edit(StepFile& file) {
    const std::size_t count = file.slotCount();
    const Slot neighbour = count == 0 ? NoSlot : static_cast<Slot>(count / 2);
    Instance instance;
    for (Slot slot = 0; slot < count; ++slot) {
        if (slot % 5 == 4) (void)file.erase(slot);
        if (!file.read(slot, instance) || instance.arguments.empty()) continue;
        const std::size_t number = slot % instance.arguments.size();
        const Value value = instance.arguments[number];
        std::vector<Value> elements;
        if (!splitAggregate(value, elements))
            (void)file.replaceValue(slot, value, "'edited'");
        else if (elements.empty() || slot % 2 == 0)
            (void)file.addReference(slot, number, 1);
        else
            (void)file.removeReferences(slot, number, referenceId(elements[0]));
    }
    (void)file.append("NEW('1',$)", neighbour);
    (void)file.insertBehind("NEW('3',$)", neighbour);
    (void)file.append("NEW('2',$)", NoSlot);
}

std::vector<std::string> texts(const StepFile& file) {
    std::vector<std::string> all;
    for (Slot slot = 0; slot < file.slotCount(); ++slot)
        if (file.present(slot)) all.emplace_back(file.text(slot));
    std::sort(all.begin(), all.end());
    return all;
}

}  // namespace

void checkStepFile(std::string_view bytes) {
    const std::string input(bytes);
    const auto opened = StepFile::fromBytes(input);
    if (!opened) {
        require(!opened.error().message.empty(), "a refusal gives no reason");
        return;
    }
    StepFile& file = **opened;
    require(file.bytes() == input, "an unedited file is written otherwise");
    checkInstances(file);
    require(bool{file.begin()}, "no command can be opened");
    edit(file);
    const bool changed = file.commit("Edit");
    const std::string edited = file.bytes();
    require(changed == (edited != input), "an edit and its bytes disagree");
    require(file.modified() == changed, "modified() does not tell the truth");
    const auto again = StepFile::fromBytes(edited);
    require(bool{again}, "an edited file cannot be opened");
    // Next to an open quote any byte more can change what its neighbours mean.
    const bool sound = file.remarks().empty();
    require(!sound || texts(**again) == texts(file), "an edited file is read otherwise");
    if (!changed) return;
    require(file.undo() && file.bytes() == input && !file.modified(), "undo leaves something behind");
    require(file.redo() && file.bytes() == edited, "redo gives other bytes");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkStepFile)
