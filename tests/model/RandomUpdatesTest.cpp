// Random updates on random models that share whatever can be shared, and on real ones: nobody but the named element
// sees a difference, the indexes agree with the file read anew, and undo and redo lead to every state there was.

#include "RandomModel.hpp"

#include "model/ifc/schema/Schema.hpp"
#include "support/Places.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <filesystem>
#include <functional>
#include <set>

namespace {

using model::ifc::BaseType;

/// One update of one element. `key` begins the lines of data() that may change, and no others.
struct Update {
    model::Element element;
    std::string key;
    std::function<model::Status(Opened&)> apply;  ///< Inside a command.
    /// Whether the element now has the value, or what stands there is no single value and stays.
    std::function<bool(Opened&)> holds;
};

const std::vector<std::string> Texts = {"x", "it's Ü", "", " \t ", "C:\\X2\\\\", "#0=(x),;/*", "\xF0\x9F\x8F\xA0"};
const std::vector<std::string> Reals = {"7", "0.1", "-1.5e-07", "1e+20", "0"};
const std::vector<std::string> Integers = {"7", "-12", "0", "9223372036854775807"};

std::string fittingText(Dice& dice, model::Primitive primitive) {
    switch (primitive) {
        case model::Primitive::Integer:
            return dice.pick(Integers);
        case model::Primitive::Real:
            return dice.pick(Reals);
        case model::Primitive::Boolean:
            return dice.oneIn(2) ? "true" : "false";
        case model::Primitive::Logical:
            return dice.pick(std::vector<std::string>{"true", "false", "unknown"});
        default:
            return dice.pick(Texts);
    }
}

// --- Updates of each kind ---

/// Of two of one set and name, in two sets of one name, the first is meant.
std::function<bool(Opened&)> propertyIs(model::Element element, std::string set, std::string name, std::string value) {
    return [=](Opened& model) {
        const auto properties = model->properties(element);
        const auto first = std::find_if(properties->begin(), properties->end(), [&](const model::Property& property) {
            return utf8(property.set) == set && utf8(property.name) == name;
        });
        return first != properties->end() &&
               (first->kind != model::PropertyKind::Single || valueText(first->value) == value);
    };
}

Update knownProperty(Dice& dice, model::Element element, const std::vector<model::Property>& properties) {
    const auto& picked = dice.pick(properties);
    // A set may, against the standard, hold two of one name; the first is the one that is set.
    const auto& property = *std::find_if(properties.begin(), properties.end(), [&](const model::Property& first) {
        return first.set == picked.set && first.name == picked.name;
    });
    const std::string set = utf8(property.set), name = utf8(property.name);
    const std::string text = fittingText(dice, property.value.primitive);
    return {element, set + "." + name + "=",
            [=](Opened& m) { return m->setProperty(element, m.wantedProperty(element, set, name, text)); },
            propertyIs(element, set, name, text)};
}

Update anyProperty(Dice& dice, model::Element element) {
    const std::vector<std::pair<std::string, model::Primitive>> types = {{"IfcLabel", model::Primitive::String},
                                                                         {"IfcReal", model::Primitive::Real},
                                                                         {"IfcInteger", model::Primitive::Integer},
                                                                         {"IfcBoolean", model::Primitive::Boolean},
                                                                         {"IfcLogical", model::Primitive::Logical}};
    const std::string set = dice.pick(SetNames), name = dice.pick(PropertyNames);
    const auto& [type, primitive] = dice.pick(types);
    const std::string text = fittingText(dice, primitive), newType = type;
    // What is there already may be of another kind, so that only its being there can be asked for.
    return {element, set + "." + name + "=",
            [=](Opened& m) { return m->setProperty(element, m.wantedProperty(element, set, name, text, newType)); },
            [=](Opened& m) { return m.property(element, set, name) != "(none)"; }};
}

Update classification(Dice& dice, model::Element element) {
    const std::string label = dice.pick(Labels), item = dice.pick(Texts);
    const auto holds = [=](Opened& m) {
        const auto references = m->classifications(element);
        return std::any_of(references->begin(), references->end(),
                           [&](const model::ClassificationReference& reference) {
                               return utf8(reference.system) == label && reference.itemReference == utf16(item) &&
                                      reference.name == u"Name";
                           });
    };
    return {element, label + "|",
            [=](Opened& m) { return m->setClassification(element, m.wantedReference(element, label, item, "Name")); },
            holds};
}

std::string fittingText(Dice& dice, const model::ifc::Attribute& attribute) {
    if (dice.oneIn(6)) return "";
    switch (attribute.base) {
        case BaseType::Integer:
            return dice.pick(Integers);
        case BaseType::Real:
        case BaseType::Number:
            return dice.pick(Reals);
        case BaseType::Boolean:
        case BaseType::Logical:
            return dice.oneIn(2) ? "true" : "false";
        case BaseType::Enumeration:
            return std::string(attribute.type->items[dice.below(attribute.type->items.size())]);
        default:
            return dice.pick(Texts);
    }
}

Update attribute(Dice& dice, Opened& model, model::Element element) {
    using model::ifc::Schema;
    const auto& schema = Schema::of(*Schema::versionOf(model->schemaName()));
    const auto& entity = *schema.entity(model->info(element).ifcClass);
    const auto listed = model->attributes(element);
    const std::string name(dice.pick(*listed).name);
    const auto& declared = entity.attributes()[static_cast<std::size_t>(entity.attributeIndex(name))];
    const std::string text = fittingText(dice, declared);
    return {element, name + "=", [=](Opened& m) { return m->setAttribute(element, name, utf16(text)); },
            [=](Opened& m) { return m.attribute(element, name) == text; }};
}

Update randomUpdate(Dice& dice, Opened& model) {
    const auto element = static_cast<model::Element>(dice.below(model->elementCount()));
    const auto properties = model->properties(element);
    if (!properties->empty() && dice.oneIn(2)) return knownProperty(dice, element, *properties);
    if (dice.oneIn(3)) return classification(dice, element);
    if (dice.oneIn(3)) return attribute(dice, model, element);
    return anyProperty(dice, element);
}

// --- Commands ---

std::vector<std::string> linesOf(const std::string& data) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < data.size();) {
        const auto end = data.find('\n', begin);
        lines.push_back(data.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

/// The lines in their order, those that may change by their keys alone. What is not yet the element's own has no place
/// that it keeps: lines of such keys are left out.
std::vector<std::string> orderOf(const std::string& data, const std::set<std::string>& keys,
                                 const std::set<std::string>& withoutPlace) {
    std::vector<std::string> order;
    for (const std::string& line : linesOf(data)) {
        const auto key =
            std::find_if(keys.begin(), keys.end(), [&](const std::string& each) { return line.starts_with(each); });
        if (key == keys.end()) order.push_back(line);
        if (key != keys.end() && !withoutPlace.contains(*key)) order.push_back(*key);
    }
    return order;
}

/// Those of the keys that no line of the element's own has. Of a classification it is not listed whether it comes from
/// a type object.
std::set<std::string> keysOfNoOwn(const std::string& data, const std::set<std::string>& keys, bool hasTypes) {
    std::set<std::string> without;
    for (const std::string& key : keys) {
        const auto lines = linesOf(data);
        const bool own = std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
            return line.starts_with(key) && !line.ends_with('^') && !(hasTypes && key.ends_with('|'));
        });
        if (!own) without.insert(key);
    }
    return without;
}

/// What a command asked for, by element: the keys that may differ, and for each whether it holds.
using Asked = std::map<model::Element, std::map<std::string, std::function<bool(Opened&)>>>;

/// Applies some updates as one command.
struct Applied {
    Applied(Dice& dice, Opened& model, std::size_t count) {
        const bool looksAtBytes = dice.oneIn(2);  // Otherwise relations are left by many elements before they are read.
        const auto ran = model->command("updates", [&] {
            for (std::size_t i = 0; i < count && fault.empty(); ++i)
                apply(randomUpdate(dice, model), model, looksAtBytes);
            return 0;
        });
        if (!ran) fault = ran.error().message;
    }

    void apply(const Update& update, Opened& model, bool looksAtBytes) {
        const std::string before = looksAtBytes ? model->bytes() : "";
        const model::Status done = update.apply(model);
        auto& holds = asked[update.element][update.key];
        if (done) holds = update.holds;
        if (!done && looksAtBytes && model->bytes() != before)
            fault = "a refused update changed the file: " + update.key + ", " + done.error().message;
    }

    Asked asked;
    std::string fault;
};

std::string difference(const std::string& before, const std::string& after) {
    return "\nbefore:\n" + before + "\nafter:\n" + after;
}

/// What is wrong after the updates were applied; empty where all is well.
std::string checkListed(Opened& model, const Asked& asked, const std::vector<std::string>& before) {
    const auto after = model.snapshot();
    const bool hasTypes = model->bytes().find("IFCRELDEFINESBYTYPE") != std::string::npos;
    for (model::Element element = 0; element < before.size(); ++element) {
        const auto named = asked.find(element);
        if (named == asked.end()) {
            if (before[element] != after[element]) return "not named:" + difference(before[element], after[element]);
            continue;
        }
        std::set<std::string> keys;
        for (const auto& [key, holds] : named->second) {
            keys.insert(key);
            if (holds && !holds(model)) return "an update that succeeded is not there: " + key + "\n" + after[element];
        }
        const auto withoutPlace = keysOfNoOwn(before[element], keys, hasTypes);
        if (orderOf(before[element], keys, withoutPlace) != orderOf(after[element], keys, withoutPlace))
            return "named, but not these lines, or not in this order:" + difference(before[element], after[element]);
    }
    return {};
}

/// The same of the objects that the host does not list, and of what it does not list of the others.
std::string checkObjects(Opened& model, const Asked& asked, const std::string& before, const std::string& after) {
    auto objects = objectsInFull(before), now = objectsInFull(after);
    for (const auto& [element, keys] : asked) objects.erase(model->info(element).instanceId);
    for (const auto& [id, text] : objects)
        if (now[id] != text) return "#" + std::to_string(id) + difference(text, now[id]);
    return faultsOf(after);
}

// --- Undo ---

struct State {
    std::string bytes;
    std::vector<std::string> data;

    explicit State(Opened& model) : bytes(model->bytes()), data(model.snapshot()) {}
};

/// The states that commands led to, and where undo and redo have led since.
class History {
public:
    explicit History(Opened& opened) : model_(opened), states_{State(opened)} {}

    const State& now() const { return states_[at_]; }
    /// After a command.
    std::string note() {
        State next(model_);
        if (next.bytes == now().bytes)
            return model_->undoSteps().undo.has_value() == (at_ > 0) ? "" : "a command of no change is a step";
        states_.resize(at_ + 1, next);
        states_.push_back(std::move(next));
        ++at_;
        if (Opened(now().bytes).snapshot() != now().data) return "the indexes do not agree with the file read anew";
        return check("a command");
    }
    std::string undo() {
        if (model_->undo() != (at_ > 0)) return "undo";
        at_ -= at_ > 0 ? 1 : 0;
        return check("undo");
    }
    std::string redo() {
        const bool possible = at_ + 1 < states_.size();
        if (model_->redo() != possible) return "redo";
        at_ += possible ? 1 : 0;
        return check("redo");
    }
    std::string undoAll() {
        std::string fault;
        while (at_ > 0 && fault.empty()) fault = undo();
        return fault;
    }

private:
    std::string check(const std::string& what) const {
        if (model_->bytes() != now().bytes) return "other bytes after " + what;
        if (model_.snapshot() != now().data) return "other data after " + what;
        const model::UndoSteps steps = model_->undoSteps();
        if (steps.undo.has_value() != (at_ > 0) || steps.redo.has_value() != (at_ + 1 < states_.size()))
            return "steps after " + what;
        return model_->modified() == (now().bytes != states_.front().bytes) ? "" : "modified() after " + what;
    }

    Opened& model_;
    std::vector<State> states_;
    std::size_t at_ = 0;
};

/// Commands, undo and redo in any order. @return what is wrong; empty where all is well.
std::string liveThrough(Dice& dice, Opened& model, std::size_t steps, bool tiny) {
    History history(model);
    for (std::size_t i = 0; i < steps; ++i) {
        const std::size_t what = dice.below(6);
        std::string fault = what == 0 ? history.undo() : what == 1 ? history.redo() : "";
        if (what > 1) {
            const State before = history.now();
            const Applied applied(dice, model, dice.oneIn(3) ? 1 + dice.below(12) : 1);
            fault = applied.fault;
            if (fault.empty()) fault = checkListed(model, applied.asked, before.data);
            if (fault.empty() && tiny) fault = checkObjects(model, applied.asked, before.bytes, model->bytes());
            if (fault.empty()) fault = history.note();
        }
        if (!fault.empty()) return fault;
    }
    return history.undoAll();
}

/// Over the whole range whatever the size of the case, so that no two cases are likely to be the same.
std::uint32_t anySeed() {
    return *rc::gen::noShrink(rc::gen::resize(rc::kNominalSize, rc::gen::arbitrary<std::uint32_t>()));
}

RC_GTEST_PROP(RandomUpdates, OfTinyModelsAreSeenByTheNamedElementAlone, ()) {
    const std::uint32_t seed = anySeed();
    Dice dice(seed);
    const std::string original = randomModel(dice).text();
    RC_LOG() << "seed " << seed << "\n" << original;
    const bool sharesSets = dice.oneIn(2);
    Opened model(original);
    model->shareNewSets(sharesSets);
    RC_ASSERT(liveThrough(dice, model, 2 + dice.below(10), true) == "");
    RC_ASSERT(model->bytes() == original);
    // What was done and undone before leaves no trace in what the same updates give.
    Opened fresh(original);
    fresh->shareNewSets(sharesSets);
    Dice forUsed(seed), forFresh(seed);
    for (int i = 0; i < 3; ++i) {
        const Applied used(forUsed, model, 3), first(forFresh, fresh, 3);
        RC_ASSERT(model->bytes() == fresh->bytes());
    }
}

RC_GTEST_PROP(RandomUpdates, OfACommandThatFailsAreRolledBack, ()) {
    const std::uint32_t seed = anySeed();
    Dice dice(seed);
    const std::string original = randomModel(dice).text();
    RC_LOG() << "seed " << seed << "\n" << original;
    Opened model(original);
    const State before(model);
    const auto ran = model->command("fails", [&] {
        for (std::size_t i = 0; i < 1 + dice.below(12); ++i) std::ignore = randomUpdate(dice, model).apply(model);
        return 1;
    });
    RC_ASSERT(static_cast<bool>(ran));
    RC_ASSERT(model->bytes() == before.bytes);
    RC_ASSERT(model.snapshot() == before.data);
    RC_ASSERT(!model->undoSteps().undo.has_value());
    // What the model knows of the file has been rolled back with it.
    RC_ASSERT(liveThrough(dice, model, 3, true) == "");
}

class UpdatesOfWholeModel : public ::testing::TestWithParam<std::string> {};

TEST_P(UpdatesOfWholeModel, AreSeenByTheNamedElementAlone) {
    constexpr std::uint32_t Seeds = 2;
    constexpr std::size_t Steps = 12;
    const auto opened = model::Model::open(GetParam());
    ASSERT_TRUE(opened) << opened.error().message;
    const std::string original = (*opened)->bytes();
    for (std::uint32_t seed = 0; seed < Seeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Dice dice(seed);
        Opened model(original);
        ASSERT_EQ(liveThrough(dice, model, Steps, false), "");
        ASSERT_EQ(model->bytes(), original);
    }
}

INSTANTIATE_TEST_SUITE_P(Models, UpdatesOfWholeModel, ::testing::ValuesIn(testing_support::models()),
                         testing_support::nameOfModel);

}  // namespace
