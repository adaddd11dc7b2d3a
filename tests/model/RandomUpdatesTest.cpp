// Random updates on random models that share whatever can be shared, and on real ones: nobody but the named element
// sees a difference, the indexes agree with the file read anew, and undoing restores the bytes.

#include "TinyModel.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>

namespace {

/// Draws numbers from a seed, so that a failing case shrinks to one number and can be run again.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : engine(seed) {}

    std::size_t below(std::size_t end) { return end == 0 ? 0 : engine() % end; }
    bool oneIn(std::size_t n) { return below(n) == 0; }
    template <class Value>
    const Value& pick(const std::vector<Value>& values) {
        return values[below(values.size())];
    }
    /// Some of the ids, at least one, in any order and without repetition.
    Ids some(Ids ids) {
        std::shuffle(ids.begin(), ids.end(), engine);
        ids.resize(1 + below(ids.size()));
        return ids;
    }

private:
    std::mt19937 engine;
};

const std::vector<std::string> SetNames = {"S", "T"};
const std::vector<std::string> PropertyNames = {"P", "Q", "R"};
const std::vector<std::string> Labels = {"A", "B"};
const std::vector<std::string> Values = {"x", "y", "it's Ü", ""};

Id randomProperty(Dice& dice, TinyModel& ifc) {
    const std::string name = dice.pick(PropertyNames);
    switch (dice.below(6)) {
        case 0:
            return ifc.single(name, "$");
        case 1:
            return ifc.single(name, "IFCREAL(1.5)");
        case 2:
            return ifc.add("IfcPropertyListValue", {{"Name", "'" + name + "'"}, {"ListValues", "(IFCLABEL('l'))"}});
        default:
            return ifc.single(name, "IFCLABEL('old')");
    }
}

TinyModel randomModel(Dice& dice) {
    TinyModel ifc(dice.pick(std::vector<std::string>{"IFC2X3", "IFC4", "IFC4X3"}));
    Ids walls, properties, sets, types, references;
    for (std::size_t i = 0; i < 2 + dice.below(3); ++i)
        walls.push_back(ifc.element("IfcWall", "W" + std::to_string(i)));
    for (std::size_t i = 0; i < 1 + dice.below(5); ++i) properties.push_back(randomProperty(dice, ifc));
    if (dice.oneIn(3)) {
        properties.push_back(
            ifc.add("IfcComplexProperty", {{"Name", "'C'"}, {"HasProperties", refs(dice.some(properties))}}));
    }
    for (std::size_t i = 0; i < 1 + dice.below(4); ++i) {
        sets.push_back(ifc.set(dice.pick(SetNames), dice.some(properties)));
    }
    for (std::size_t i = 0; i < dice.below(5); ++i) {
        if (ifc.schema == "IFC2X3" && dice.oneIn(3)) {
            ifc.overrideProperties(dice.some(walls), dice.pick(sets), dice.some(properties));
        } else if (ifc.schema != "IFC2X3" && dice.oneIn(3)) {
            ifc.giveSetOfSets(dice.some(walls), dice.some(sets));
        } else {
            ifc.give(dice.some(walls), dice.pick(sets));
        }
    }
    if (dice.oneIn(2)) types.push_back(ifc.type(dice.some(walls), dice.some(sets)));
    if (dice.oneIn(4)) ifc.raw("IFCFUTURERELATION(" + ref(dice.pick(sets)) + "," + ref(dice.pick(properties)) + ")");
    const Id system = ifc.classification("System");
    for (std::size_t i = 0; i < 1 + dice.below(3); ++i) {
        references.push_back(ifc.classificationReference("1", "One", dice.oneIn(2) ? system : 0));
    }
    Ids classified = walls;
    classified.insert(classified.end(), types.begin(), types.end());
    for (std::size_t i = 0; i < dice.below(4); ++i) {
        ifc.classify(dice.some(classified), dice.oneIn(4) ? "" : dice.pick(Labels), dice.pick(references));
    }
    return ifc;
}

/// One update of one element. `key` begins the lines of data() that may change, and no others.
struct Update {
    model::Element element;
    std::string key;
    std::function<model::Status(Opened&)> apply;
    /// Whether the element now has the value, or what stands there is no single value and stays.
    std::function<bool(Opened&)> holds;
};

bool hasReference(Opened& model, model::Element element, const std::string& label, const std::string& item) {
    const auto references = model->classifications(element);
    return std::any_of(references->begin(), references->end(), [&](const model::ClassificationReference& reference) {
        return utf8(reference.system) == label && reference.itemReference == utf16(item) && reference.name == u"Name";
    });
}

/// Of two of one set and name, in two sets of one name, either will do: a split set comes last.
std::function<bool(Opened&)> propertyIs(model::Element element, std::string set, std::string name, std::string value) {
    return [=](Opened& model) {
        const auto properties = model->properties(element);
        return std::any_of(properties->begin(), properties->end(), [&](const model::Property& property) {
            const bool named = utf8(property.set) == set && utf8(property.name) == name;
            return named && (property.kind != model::PropertyKind::Single || valueText(property.value) == value);
        });
    };
}

Update randomUpdate(Dice& dice, Opened& model) {
    const auto element = static_cast<model::Element>(dice.below(model->elementCount()));
    const std::string value = dice.pick(Values);
    const auto properties = model->properties(element);
    if (!properties->empty() && dice.oneIn(2)) {
        const auto picked = dice.pick(*properties);
        // A set may, against the standard, hold two of one name; the first is the one that is set.
        const auto property = *std::find_if(properties->begin(), properties->end(), [&](const model::Property& first) {
            return first.set == picked.set && first.name == picked.name;
        });
        const std::string set = utf8(property.set), name = utf8(property.name);
        const bool text = property.value.primitive == model::Primitive::String;
        const std::string fitting = text ? value : property.value.primitive == model::Primitive::Boolean ? "true" : "7";
        return {element, set + "." + name + "=", [=](Opened& m) { return m.setProperty(element, set, name, fitting); },
                propertyIs(element, set, name, fitting)};
    }
    if (dice.oneIn(3)) {
        const std::string label = dice.pick(Labels);
        return {element, label + "|", [=](Opened& m) { return m.classify(element, label, value, "Name"); },
                [=](Opened& m) { return hasReference(m, element, label, value); }};
    }
    if (dice.oneIn(4)) {
        return {element, "Description=", [=](Opened& m) { return m.setAttribute(element, "Description", value); },
                [=](Opened& m) { return m.attribute(element, "Description") == value; }};
    }
    const std::string set = dice.pick(SetNames), name = dice.pick(PropertyNames);
    // A number there may refuse the text; a text is what a new property becomes.
    return {element, set + "." + name + "=", [=](Opened& m) { return m.setProperty(element, set, name, value); },
            [=](Opened& m) { return m.property(element, set, name) != "(none)"; }};
}

std::multiset<std::string> linesBut(const std::string& data, const std::string& key) {
    std::multiset<std::string> lines;
    for (std::size_t begin = 0; begin < data.size();) {
        const auto end = data.find('\n', begin);
        std::string line = data.substr(begin, end - begin);
        if (!line.starts_with(key)) lines.insert(std::move(line));
        begin = end + 1;
    }
    return lines;
}

/// Applies an update and says what is wrong afterwards; empty where all is well.
std::string applyAndCheck(Opened& model, const Update& update) {
    const auto before = model.snapshot();
    const std::string bytes = model->bytes();
    const model::Status status = update.apply(model);
    const auto after = model.snapshot();
    if (!status && model->bytes() != bytes) return "a refused update changed the file: " + status.error().message;
    if (status && !update.holds(model)) return "an update that succeeded is not there: " + update.key;
    for (model::Element element = 0; element < before.size(); ++element) {
        const bool named = element == update.element;
        const bool same = named ? linesBut(before[element], update.key) == linesBut(after[element], update.key)
                                : before[element] == after[element];
        if (!same) return "key " + update.key + "\nbefore:\n" + before[element] + "\nafter:\n" + after[element];
    }
    return {};
}

/// Undoes everything and redoes as much.
std::string checkUndo(Opened& model, const std::string& original, const std::vector<std::string>& originalData) {
    const std::string bytes = model->bytes();
    const auto data = model.snapshot();
    if (Opened(bytes).snapshot() != data) return "the indexes do not agree with the file read anew";
    int undone = 0;
    while (model->undo()) ++undone;
    if (model->bytes() != original) return "undoing did not restore the bytes";
    if (model.snapshot() != originalData) return "undoing did not restore what is read";
    for (; undone > 0; --undone) model->redo();
    if (model->bytes() != bytes) return "redoing did not restore the bytes";
    if (model.snapshot() != data) return "redoing did not restore what is read";
    return {};
}

RC_GTEST_PROP(RandomUpdates, OfTinyModelsAreSeenByTheNamedElementAlone, (std::uint32_t seed)) {
    Dice dice(seed);
    const std::string original = randomModel(dice).text();
    RC_LOG() << original;
    Opened model(original);
    const auto originalData = model.snapshot();
    for (std::size_t i = 0; i < 1 + dice.below(6); ++i) {
        RC_ASSERT(applyAndCheck(model, randomUpdate(dice, model)) == "");
        if (dice.oneIn(6)) model->undo();
    }
    RC_ASSERT(checkUndo(model, original, originalData) == "");
}

RC_GTEST_PROP(RandomUpdates, InOneCommandAreRolledBackOrUndoneTogether, (std::uint32_t seed)) {
    Dice dice(seed);
    const std::string original = randomModel(dice).text();
    RC_LOG() << original;
    Opened model(original);
    const auto originalData = model.snapshot();
    const bool fails = dice.oneIn(2);
    std::ignore = model->command("many", [&] {
        for (std::size_t i = 0; i < 1 + dice.below(6); ++i) {
            model::Property wanted{
                utf16(dice.pick(SetNames)), utf16(dice.pick(PropertyNames)), model::PropertyKind::Single, false, {}};
            wanted.value.string = utf16(dice.pick(Values));
            std::ignore = model->setProperty(static_cast<model::Element>(dice.below(model->elementCount())), wanted);
        }
        return fails ? 1 : 0;
    });
    if (fails) RC_ASSERT(model->bytes() == original);
    RC_ASSERT(checkUndo(model, original, originalData) == "");
}

std::string readFile(const std::filesystem::path& path) {
    auto opened = model::Model::open(path);
    return opened ? (*opened)->bytes() : std::string{};
}

TEST(RandomUpdates, OfRealModelsAreSeenByTheNamedElementAlone) {
    if (!std::filesystem::exists(MODELS_DIR)) GTEST_SKIP() << "no folder " << MODELS_DIR;
    constexpr std::uint32_t Seeds = 2;
    constexpr int UpdatesEach = 12;
    for (const auto& entry : std::filesystem::directory_iterator(MODELS_DIR)) {
        if (entry.path().extension() != ".ifc") continue;
        const std::string original = readFile(entry.path());
        for (std::uint32_t seed = 0; seed < Seeds; ++seed) {
            SCOPED_TRACE(entry.path().string() + ", seed " + std::to_string(seed));
            Dice dice(seed);
            Opened model(original);
            const auto originalData = model.snapshot();
            for (int i = 0; i < UpdatesEach; ++i) ASSERT_EQ(applyAndCheck(model, randomUpdate(dice, model)), "");
            ASSERT_EQ(checkUndo(model, original, originalData), "");
        }
    }
}

}  // namespace
