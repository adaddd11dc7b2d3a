#include "RandomModel.hpp"
#include "text/Guid.hpp"

#include "model/step/StepFile.hpp"

#include <set>
#include <stdexcept>

const std::vector<std::string> SetNames = {"S", "T"};
const std::vector<std::string> PropertyNames = {"P", "Q", "R"};
const std::vector<std::string> Labels = {"A", "B"};

namespace {

using model::step::StepFile;

const std::vector<std::string> NominalValues = {"$",
                                                "'bare'",
                                                "IFCLABEL('old')",
                                                "IfcText( /* kept */ 'it''s \\X2\\00DC\\X0\\' )",
                                                "IFCREAL(1.5)",
                                                "IFCPOSITIVELENGTHMEASURE(2.)",
                                                "IFCINTEGER(007)",
                                                "IFCBOOLEAN(.T.)",
                                                "IFCLOGICAL(.U.)",
                                                "IFCLABEL('\\X2\\00')"};

Id randomProperty(Dice& dice, TinyModel& ifc) {
    const std::string name = dice.pick(PropertyNames), quoted = "'" + name + "'";
    switch (dice.below(12)) {
        case 0:
            return ifc.add("IfcPropertyListValue", {{"Name", quoted}, {"ListValues", "(IFCLABEL('l'))"}});
        case 1:
            return ifc.add("IfcPropertyEnumeratedValue",
                           {{"Name", quoted}, {"EnumerationValues", "(IFCLABEL('e'),IFCLABEL('f'))"}});
        case 2:
            return ifc.add("IfcPropertyBoundedValue", {{"Name", quoted}, {"UpperBoundValue", "IFCREAL(1.)"}});
        default:
            return ifc.single(name, dice.pick(NominalValues));
    }
}

/// What the host lists and what it does not.
struct Objects {
    Ids elements, groups, types;

    Ids describable() const { return joined(elements, groups); }
    Ids classifiable() const { return joined(describable(), types); }

private:
    static Ids joined(Ids ids, const Ids& more) {
        ids.insert(ids.end(), more.begin(), more.end());
        return ids;
    }
};

void addObjects(Dice& dice, TinyModel& ifc, Objects& objects) {
    const std::vector<std::string> classes = {"IfcWall", "IfcWall", "IfcDoor", "IfcStairFlight", "IfcSpace"};
    // Now and then so many that their relations are long.
    const std::size_t count = dice.oneIn(20) ? 150 : 2 + dice.below(3);
    for (std::size_t i = 0; i < count; ++i)
        objects.elements.push_back(ifc.element(dice.pick(classes), "E" + std::to_string(i)));
    if (dice.oneIn(2)) objects.groups.push_back(ifc.add("IfcGroup", {{"Name", "'Group'"}}));
    if (dice.oneIn(3)) objects.groups.push_back(ifc.add("IfcProject", {{"Name", "'Project'"}}));
}

void addRelation(Dice& dice, TinyModel& ifc, const Objects& objects, const Ids& sets, const Ids& properties) {
    if (ifc.schema == "IFC2X3" && dice.oneIn(3)) {
        ifc.overrideProperties(dice.some(objects.describable()), dice.pick(sets), dice.some(properties));
    } else if (ifc.schema != "IFC2X3" && dice.oneIn(3)) {
        ifc.giveSetOfSets(dice.some(objects.describable()), dice.some(sets));
    } else {
        ifc.give(dice.some(objects.describable()), dice.pick(sets));
    }
}

/// Users of properties and sets that are no objects.
void addOtherUsers(Dice& dice, TinyModel& ifc, const Ids& sets, const Ids& properties) {
    if (dice.oneIn(4)) ifc.raw("IFCFUTURERELATION(" + ref(dice.pick(sets)) + "," + ref(dice.pick(properties)) + ")");
    if (dice.oneIn(6)) ifc.raw("(IFCPART(" + refs(dice.some(sets)) + ")IFCWHOLE(" + ref(dice.pick(properties)) + "))");
    if (dice.oneIn(3)) {
        const bool old = ifc.schema == "IFC2X3";
        ifc.add(old ? "IfcExtendedMaterialProperties" : "IfcMaterialProperties",
                {{"Name", "'M'"}, {old ? "ExtendedProperties" : "Properties", refs(dice.some(properties))}});
    }
}

void addClassifications(Dice& dice, TinyModel& ifc, const Objects& objects) {
    Ids references;
    const Id system = ifc.classification("System");
    for (std::size_t i = 0; i < 1 + dice.below(3); ++i) {
        const bool chained = ifc.schema != "IFC2X3" && !references.empty() && dice.oneIn(3);
        const Id source = chained ? dice.pick(references) : dice.oneIn(2) ? system : 0;
        references.push_back(ifc.classificationReference("1", "One", source));
    }
    for (std::size_t i = 0; i < dice.below(4); ++i) {
        ifc.classify(dice.some(objects.classifiable()), dice.oneIn(4) ? "" : dice.pick(Labels), dice.pick(references));
    }
}

class FullReader {
public:
    explicit FullReader(const StepFile& source) : file_(source) {
        for (model::step::Slot slot = 0; slot < file_.slotCount(); ++slot) {
            if (keyword(slot).starts_with("IFCREL")) relations_.push_back(slot);
        }
    }

    std::map<Id, std::string> all() const {
        std::map<Id, std::string> objects;
        for (model::step::Slot slot = 0; slot < file_.slotCount(); ++slot) {
            const auto word = keyword(slot);
            // What is shared is compared as its users see it: properties, sets and references come in copies.
            const bool shared = word.starts_with("IFCREL") || word.starts_with("IFCPROPERTY") ||
                                word == "IFCCOMPLEXPROPERTY" || word == "IFCCLASSIFICATIONREFERENCE";
            if (!shared && file_.present(slot)) objects[file_.id(slot)] = inFull(slot);
        }
        return objects;
    }

private:
    std::string_view keyword(model::step::Slot slot) const { return file_.keywordText(file_.keyword(slot)); }

    std::string inFull(model::step::Slot slot) const {
        std::string text = written(bodyOf(slot));
        const std::string member = ref(file_.id(slot));
        for (const model::step::Slot relation : relations_) {
            model::step::Instance instance;
            if (!file_.read(relation, instance)) throw std::invalid_argument(std::string(file_.text(relation)));
            std::vector<model::step::Value> members;
            bool named = false;
            std::string said(instance.keyword);
            for (const model::step::Value& value : instance.arguments) {
                const bool namesIt = splitAggregate(value, members) &&
                                     std::any_of(members.begin(), members.end(),
                                                 [&](const model::step::Value& each) { return each.text == member; });
                named = named || namesIt;
                said += namesIt ? ",(it)" : "," + written(value.text);
            }
            if (named) text += "\n  " + said;
        }
        return text;
    }

    /// From the '=' on; empty for an instance that is not there.
    std::string_view bodyOf(model::step::Slot slot) const {
        const std::string_view text = file_.text(slot);
        return text.substr(std::min(text.find('='), text.size()));
    }

    /// The text with the instances themselves in place of their ids.
    std::string written(std::string_view text, int depth = 0) const {
        constexpr int Deepest = 12;
        std::string result;
        for (std::size_t at = 0; at < text.size();) {
            if (text[at] != '#' || depth == Deepest) {
                result += text[at++];
                continue;
            }
            const auto end = std::min(text.find_first_not_of("0123456789", at + 1), text.size());
            const auto target = file_.find(std::stoull(std::string(text.substr(at + 1, end - at - 1))));
            result += written(bodyOf(target), depth + 1);
            at = end;
        }
        return result;
    }

    const StepFile& file_;
    std::vector<model::step::Slot> relations_;
};

}  // namespace

TinyModel randomModel(Dice& dice) {
    TinyModel ifc(dice.pick(std::vector<std::string>{"IFC2X3", "IFC4", "IFC4X3"}));
    Objects objects;
    addObjects(dice, ifc, objects);
    Ids properties, sets;
    for (std::size_t i = 0; i < 1 + dice.below(5); ++i) properties.push_back(randomProperty(dice, ifc));
    if (dice.oneIn(3)) {
        properties.push_back(
            ifc.add("IfcComplexProperty", {{"Name", "'C'"}, {"HasProperties", refs(dice.some(properties))}}));
    }
    for (std::size_t i = 0; i < 1 + dice.below(4); ++i) {
        sets.push_back(ifc.set(dice.pick(SetNames), dice.some(properties)));
    }
    for (std::size_t i = 0; i < dice.below(5); ++i) addRelation(dice, ifc, objects, sets, properties);
    if (dice.oneIn(2)) objects.types.push_back(ifc.type(dice.some(objects.elements), dice.some(sets)));
    if (dice.oneIn(4)) {
        objects.types.push_back(
            ifc.add("IfcWallType", {{"Name", "'Unused'"}, {"HasPropertySets", refs(dice.some(sets))}}));
    }
    addOtherUsers(dice, ifc, sets, properties);
    addClassifications(dice, ifc, objects);
    return ifc;
}

std::map<Id, std::string> objectsInFull(const std::string& bytes) {
    const auto file = StepFile::fromBytes(bytes);
    if (!file) throw std::invalid_argument(file.error().message);
    return FullReader(**file).all();
}

std::string faultsOf(const std::string& bytes) {
    if (bytes.find("()") != std::string::npos) return "a list was emptied";
    const bool historyIsDue = bytes.find("('IFC2X3')") != std::string::npos;
    std::set<std::string> globalIds;
    for (auto at = bytes.find("('"); at != std::string::npos; at = bytes.find("('", at + 1)) {
        const std::string text = bytes.substr(at + 2, 22);
        if (!text::fromGlobalId(text) || bytes[at + 24] != '\'') continue;
        if (!globalIds.insert(text).second) return "two roots have the GlobalId " + text;
        if (historyIsDue && bytes[at + 26] == '$') return "a root without an owner history: " + text;
    }
    return {};
}
