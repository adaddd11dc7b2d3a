#include "model/ifc/data/ClassificationEditor.hpp"

#include "model/ifc/data/ClassificationData.hpp"
#include "model/ifc/values/InQuotes.hpp"
#include "model/ifc/values/ValueText.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

using step::Slot;

bool sameSource(const ClassificationReference& a, const ClassificationReference& b) {
    return a.source == b.source && a.edition == b.edition && a.classificationName == b.classificationName;
}

bool sameEntry(const ClassificationReference& a, const ClassificationReference& b) {
    return a.location == b.location && a.itemReference == b.itemReference && a.name == b.name;
}

std::string stepText(const std::optional<std::u16string>& text) {
    return text ? step::encodeString(*text) : "$";
}

class ClassificationEditor {
public:
    ClassificationEditor(Workspace& workspace, Element element, const ClassificationReference& target,
                         std::vector<std::string>& notes)
        : work_(workspace), edit_(workspace, element), wanted_(target), notes_(notes) {}

    Status run() {
        if (wanted_.system.empty())
            return Error{ErrorKind::BadName, text::message("the classification system has no label")};
        const auto own = findBy(edit_.slot());
        if (!own.empty()) return isSettled(own.front().data) ? Status{} : changeFirst(own);
        const Slot type = work_.typeObject(edit_.slot());
        const auto inherited = type == step::NoSlot ? own : findBy(type);
        return !inherited.empty() && isSettled(inherited.front().data) ? Status{} : create();
    }

    Status remove() {
        const auto own = findBy(edit_.slot());
        if (!own.empty()) return removeFirst(own);
        const Slot type = work_.typeObject(edit_.slot());
        if (type == step::NoSlot || findBy(type).empty()) return {};
        return Error{ErrorKind::Refused,
                     text::message("the element has it from its type, which gives it to others, too")};
    }

private:
    /// The object's classifications of the wanted label.
    std::vector<AssignedClassification> findBy(Slot object);
    bool isSettled(const ClassificationReference& held) const {
        return sameEntry(held, wanted_) && sameSource(held, wanted_);
    }

    Status removeFirst(const std::vector<AssignedClassification>& held);
    Status changeFirst(const std::vector<AssignedClassification>& held);
    Status change(const AssignedClassification& held);
    Status changeInPlace(Slot reference, const std::string& source);
    Status create();

    Status checkTexts() const;
    Status checkReadable(Slot reference) const;
    void fill(InstanceBuilder& reference, const std::string& source) const;
    bool saysSource() const;
    /// Whether source() will make one.
    bool lacksSource();
    /// "#12", a classification that fits, made if there is none; "$" where nothing is said of it.
    Result<std::string> source();
    std::string relationPurpose() const { return "classification relation " + text::toUtf8(wanted_.system); }

    Workspace& work_;
    ElementEdit edit_;
    const ClassificationReference& wanted_;
    std::vector<std::string>& notes_;
};

std::vector<AssignedClassification> ClassificationEditor::findBy(Slot object) {
    std::vector<AssignedClassification> found;
    forEachAssigned(work_, object, [&](const AssignedClassification& candidate) {
        if (candidate.data.system == wanted_.system) found.push_back(candidate);
    });
    return found;
}

/// Which of several of one label is meant nobody can tell; the first in the file is taken, and it is said.
Status ClassificationEditor::changeFirst(const std::vector<AssignedClassification>& held) {
    Status changed = change(held.front());
    if (changed && held.size() > 1) {
        notes_.push_back(text::message("the element has {} classifications {}; the first one was changed", held.size(),
                                       inQuotes(wanted_.system)));
    }
    return changed;
}

Status ClassificationEditor::removeFirst(const std::vector<AssignedClassification>& held) {
    const Slot relation = held.front().relation, reference = held.front().reference;
    for (const Slot slot : {edit_.slot(), reference}) {
        if (Status editable = edit_.check(slot); !editable) return editable;
    }
    if (Status editable = edit_.checkRelation(relation); !editable) return editable;
    if (held.size() > 1) {
        notes_.push_back(text::message("the element has {} classifications {}; the first one was removed", held.size(),
                                       inQuotes(wanted_.system)));
    }
    if (!edit_.isAlone(relation)) return edit_.leave(relation);
    if (!edit_.isUnused(relation)) {
        return Error{ErrorKind::Refused,
                     text::message("relation {} is referred to, so it has to stay", edit_.reference(relation))};
    }
    if (Status erased = work_.file.erase(relation); !erased) return erased;
    // The system stays: it is a statement of the whole model. The reference is asked about only now: the relation was a
    // user of it.
    const bool needed = work_.classes.of(reference).role != Role::ClassificationReference || !edit_.isUnused(reference);
    return needed ? Status{} : work_.file.erase(reference);
}

Status ClassificationEditor::change(const AssignedClassification& held) {
    for (const Slot slot : {edit_.slot(), held.reference}) {
        if (Status editable = edit_.check(slot); !editable) return editable;
    }
    if (Status editable = edit_.checkRelation(held.relation); !editable) return editable;
    if (Status fits = checkTexts(); !fits) return fits;
    if (Status readable = checkReadable(held.reference); !readable) return readable;
    const bool isReference = work_.classes.of(held.reference).role == Role::ClassificationReference;
    const bool isAlone = edit_.isAlone(held.relation);
    const bool inPlace = isReference && isAlone && edit_.isUsedOnlyBy(held.reference, held.relation);
    const bool otherSource = !sameSource(held.data, wanted_);
    const std::size_t added = (otherSource && lacksSource() ? 1U : 0U) + (inPlace ? 0U : 1U) + (isAlone ? 0U : 1U);
    if (Status room = edit_.checkRoom(added); !room) return room;
    std::string newSource = held.classification == step::NoSlot ? "$" : edit_.reference(held.classification);
    if (isReference) {
        // Not the classification itself but the chain that leads to it.
        step::Instance instance;
        work_.file.read(held.reference, instance);
        newSource = argument(instance, work_.classes.of(held.reference), Field::ReferencedSource).text;
    }
    if (otherSource) {
        Result<std::string> other = source();
        if (!other) return other.error();
        newSource = std::move(*other);
    }
    if (inPlace) return changeInPlace(held.reference, newSource);
    InstanceBuilder draft = isReference ? edit_.copyOf(held.reference)
                                        : InstanceBuilder(*work_.schema.entity("IfcClassificationReference"));
    fill(draft, newSource);
    const Result<Slot> copy = edit_.add(draft, held.relation);
    if (!copy) return copy.error();
    return edit_.relink(held.relation, Field::Relating, held.reference, *copy, relationPurpose());
}

Status ClassificationEditor::changeInPlace(Slot reference, const std::string& newSource) {
    const std::pair<Field, std::string> texts[] = {{Field::Location, stepText(wanted_.location)},
                                                   {Field::ItemReference, stepText(wanted_.itemReference)},
                                                   {Field::Name, stepText(wanted_.name)},
                                                   {Field::ReferencedSource, newSource}};
    // The instance is read for each anew: the change before has moved the text that its values point into.
    for (const auto& [field, text] : texts) {
        step::Instance instance;
        work_.file.read(reference, instance);
        const step::Value held = argument(instance, work_.classes.of(reference), field);
        std::u16string before, after;
        // The same text may be written in several ways; what is equal stays as it is.
        const bool same = held.kind == step::ValueKind::String && text.front() == '\'' &&
                          step::decodeString(held.text, before) == step::Decoding::Exact &&
                          step::decodeString(text, after) == step::Decoding::Exact && before == after;
        if (same || held.text == text || held.text.empty()) continue;
        if (Status replaced = work_.file.replaceValue(reference, held, text); !replaced) return replaced;
    }
    return {};
}

Status ClassificationEditor::create() {
    if (Status editable = edit_.check(edit_.slot()); !editable) return editable;
    if (Status fits = checkTexts(); !fits) return fits;
    if (Status room = edit_.checkRoom(lacksSource() ? 3 : 2); !room) return room;
    const Result<std::string> newSource = source();
    if (!newSource) return newSource.error();
    InstanceBuilder reference(*work_.schema.entity("IfcClassificationReference"));
    fill(reference, *newSource);
    const Result<Slot> added = edit_.add(reference, edit_.slot());
    if (!added) return added.error();
    InstanceBuilder relation = edit_.newRoot("IfcRelAssociatesClassification", relationPurpose());
    // The label by which the reference is found again: the classification's own name need not be it.
    relation.set("Name", step::encodeString(wanted_.system))
        .set("RelatedObjects", '(' + referenceText(edit_.id()) + ')')
        .set("RelatingClassification", edit_.reference(*added));
    const Result<Slot> related = edit_.add(relation, edit_.slot());
    return related ? Status{} : Status{related.error()};
}

Status ClassificationEditor::checkTexts() const {
    const auto fits = [&](std::string_view entity, std::string_view attribute, const std::u16string& text) -> Status {
        const Entity& cls = *work_.schema.entity(entity);
        const int index = cls.attributeIndex(attribute);
        if (index < 0) return {};
        Status within = checkText(text, cls.attributes()[static_cast<std::size_t>(index)].type);
        if (within) return within;
        return Error{ErrorKind::BadValue, std::string(attribute) + " " + inQuotes(text) + " " + within.error().message};
    };
    if (Status label = fits("IfcRelAssociatesClassification", "Name", wanted_.system); !label) {
        return Error{ErrorKind::BadName, label.error().message};
    }
    const auto entry = [&](std::string_view attribute, const std::optional<std::u16string>& text) {
        return text ? fits("IfcClassificationReference", attribute, *text) : Status{};
    };
    // ItemReference and Identification are one attribute: the schema has one of the two names, the other passes.
    for (const Status& status :
         {entry("Location", wanted_.location), entry("ItemReference", wanted_.itemReference),
          entry("Identification", wanted_.itemReference), entry("Name", wanted_.name),
          fits("IfcClassification", "Source", wanted_.source), fits("IfcClassification", "Edition", wanted_.edition),
          fits("IfcClassification", "Name", wanted_.classificationName)}) {
        if (!status) return status;
    }
    return {};
}

/// A text that cannot be decoded is not overwritten blindly, nor is an instance that lacks the place for one.
Status ClassificationEditor::checkReadable(Slot reference) const {
    const Class& cls = work_.classes.of(reference);
    step::Instance instance;
    if (cls.role != Role::ClassificationReference || !work_.file.read(reference, instance)) return {};
    for (const Field field : {Field::Location, Field::ItemReference, Field::Name, Field::ReferencedSource}) {
        const step::Value held = argument(instance, cls, field);
        if (held.text.empty()) {
            return Error{ErrorKind::Refused,
                         text::message("the file gives {} too few attributes", edit_.reference(reference))};
        }
        if (held.kind == step::ValueKind::Derived) {
            return Error{ErrorKind::Refused,
                         text::message("{} derives a text from others (the file holds *)", edit_.reference(reference))};
        }
        std::u16string text;
        const bool readable =
            held.kind != step::ValueKind::String || step::decodeString(held.text, text) != step::Decoding::Undecodable;
        if (!readable) {
            return Error{
                ErrorKind::Refused,
                text::message("the file holds a text that cannot be decoded, {}; fix it in the program that wrote it",
                              held.text)};
        }
    }
    return {};
}

void ClassificationEditor::fill(InstanceBuilder& reference, const std::string& newSource) const {
    reference.set("Location", stepText(wanted_.location))
        .set("ItemReference", stepText(wanted_.itemReference))   // IFC2X3
        .set("Identification", stepText(wanted_.itemReference))  // later
        .set("Name", stepText(wanted_.name))
        .set("ReferencedSource", newSource);
}

bool ClassificationEditor::saysSource() const {
    return !wanted_.source.empty() || !wanted_.edition.empty() || !wanted_.classificationName.empty();
}

bool ClassificationEditor::lacksSource() {
    return saysSource() && work_.classificationIndex.find(wanted_) == step::NoSlot;
}

Result<std::string> ClassificationEditor::source() {
    if (!saysSource()) return std::string("$");
    if (const Slot found = work_.classificationIndex.find(wanted_); found != step::NoSlot)
        return edit_.reference(found);
    const Entity& entity = *work_.schema.entity("IfcClassification");
    InstanceBuilder draft(entity);
    for (const auto& [name, text] : {std::pair{"Source", &wanted_.source}, std::pair{"Edition", &wanted_.edition},
                                     std::pair{"Name", &wanted_.classificationName}}) {
        // IFC2X3 asks for all three, and gets empty texts for what nobody said.
        const bool optional = entity.attributes()[static_cast<std::size_t>(entity.attributeIndex(name))].optional;
        if (!text->empty() || !optional) draft.set(name, step::encodeString(*text));
    }
    const Result<Slot> added = edit_.add(draft, edit_.slot());
    if (!added) return added.error();
    return edit_.reference(*added);
}

}  // namespace

Status setClassification(Workspace& work, Element element, const ClassificationReference& reference,
                         std::vector<std::string>& notes) {
    return ClassificationEditor(work, element, reference, notes).run();
}

Status removeClassification(Workspace& work, Element element, std::u16string_view system,
                            std::vector<std::string>& notes) {
    ClassificationReference reference;
    reference.system = system;
    return ClassificationEditor(work, element, reference, notes).remove();
}

}  // namespace model::ifc
