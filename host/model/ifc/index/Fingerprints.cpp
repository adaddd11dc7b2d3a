#include "model/ifc/index/Fingerprints.hpp"

#include "model/ifc/values/CanonicalText.hpp"
#include "model/ifc/values/InstanceScan.hpp"

#include <cstring>

namespace model::ifc {

namespace {

using step::Slot;

void noReference(std::string_view, std::string&) {}

}  // namespace

Fingerprints::Fingerprints(Workspace& work, const FingerprintKey& key) : work_(work), key_(key) {
    states_.resize(work.file.slotCount(), State::New);
    known_.resize(work.file.slotCount());
}

/// The arguments that say something of the instance itself.
std::uint64_t Fingerprints::followed(const Class& cls) const {
    std::uint64_t arguments = AllArguments;
    // A copied set has another GlobalId, and programs write another owner history with each save.
    if (cls.rooted) arguments &= ~(argumentBit(0) | argumentBit(cls.attributeIndex(Field::OwnerHistory)));
    // What the context says holds for all of the model, not for one element's shape.
    if (cls.entity != nullptr && cls.entity->isA("IfcRepresentation"))
        arguments &= ~argumentBit(cls.entity->attributeIndex("ContextOfItems"));
    return arguments;
}

void Fingerprints::append(const Fingerprint& part, std::string& out) {
    char bytes[sizeof part];
    std::memcpy(bytes, &part, sizeof part);
    out.append(bytes, sizeof bytes);
}

void Fingerprints::appendReference(Slot target, std::string& out) {
    if (target == step::NoSlot) {
        out.push_back('0');
        return;
    }
    const Class& cls = work_.classes.of(target);
    if (cls.rooted) {
        out.push_back('G');
        out.append(leadingString(work_.file.text(target), 0));
        return;
    }
    if (states_[target] == State::New) {
        missing_.push_back(target);
        return;
    }
    out.push_back(states_[target] == State::Done ? 'F' : 'C');
    if (states_[target] == State::Done) append(known_[target], out);
}

/// @return false where instances that it refers to come first; they are in missing_.
bool Fingerprints::compute(Slot slot) {
    const Class& cls = work_.classes.of(slot);
    text_.assign(work_.file.keywordText(work_.file.keyword(slot)));
    missing_.clear();
    appendCanonical(
        work_.file.text(slot), followed(cls),
        [this](std::string_view token, std::string& out) { appendReference(work_.file.find(tokenId(token)), out); },
        text_);
    if (!missing_.empty()) return false;
    known_[slot] = keyedSum(text_, key_);
    states_[slot] = State::Done;
    return true;
}

Fingerprint Fingerprints::of(Slot root) {
    if (root == step::NoSlot || root >= states_.size()) return {};
    // Not by recursion: a file may nest its instances as deep as it likes. A circle is cut where it closes.
    stack_.assign(1, root);
    while (!stack_.empty()) {
        const Slot slot = stack_.back();
        if (states_[slot] == State::Done) {
            stack_.pop_back();
            continue;
        }
        states_[slot] = State::Open;
        if (!compute(slot)) stack_.insert(stack_.end(), missing_.begin(), missing_.end());
    }
    return known_[root];
}

/// What a relation gives to each of its elements: its sets, and the properties in them that it overrides.
const Fingerprint& Fingerprints::ofAssignment(Slot relation) {
    const auto [known, isNew] = assignments_.try_emplace(relation);
    if (!isNew) return known->second;
    std::string text;
    for (const Slot set : work_.forwardReferences.of(relation, Field::Relating)) append(of(set), text);
    if (work_.classes.of(relation).role == Role::OverridesProperties) {
        text.push_back('O');
        for (const Slot property : work_.forwardReferences.of(relation, Field::Overriding)) append(of(property), text);
    }
    return known->second = keyedSum(text, key_);
}

void Fingerprints::appendSets(Slot object, std::string& out) {
    work_.inverseReferences.forEachUse(object, [&](const Use& use) {
        const Class& cls = work_.classes.of(use.user);
        const bool assigns = cls.role == Role::OverridesProperties || cls.role == Role::DefinesByProperties;
        if (assigns && cls.attributeIndex(Field::Related) == use.attributeIndex) append(ofAssignment(use.user), out);
        return true;
    });
}

void Fingerprints::appendClassifications(Slot object, std::string& out) {
    work_.forEachRelation(object, Role::AssociatesClassification, [&](Slot relation) {
        const Class& cls = work_.classes.of(relation);
        out.push_back('L');
        out.append(leadingString(work_.file.text(relation), cls.attributeIndex(Field::Name)));
        append(of(work_.forwardReferences.first(relation, Field::Relating)), out);
        return true;
    });
}

const Fingerprint& Fingerprints::ofType(Slot type) {
    const auto [known, isNew] = types_.try_emplace(type);
    if (!isNew || type == step::NoSlot) return known->second;
    std::string text;
    for (const Slot set : work_.forwardReferences.of(type, Field::HasPropertySets)) append(of(set), text);
    appendClassifications(type, text);
    return known->second = keyedSum(text, key_);
}

Fingerprint Fingerprints::dataOf(Element element) {
    const Slot slot = work_.elements.slot(element);
    std::string text(work_.file.keywordText(work_.file.keyword(slot)));
    appendCanonical(work_.file.text(slot), followed(work_.classes.of(slot)), noReference, text);
    appendSets(slot, text);
    append(ofType(work_.typeObject(slot)), text);
    appendClassifications(slot, text);
    return keyedSum(text, key_);
}

}  // namespace model::ifc
