#include "model/step/editing/Changes.hpp"

#include "model/step/editing/HighestId.hpp"
#include "model/step/syntax/Tokens.hpp"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

namespace model::step {

namespace {

std::uint64_t mixed(std::uint64_t number) {
    number = (number ^ number >> 30U) * 0xBF58476D1CE4E5B9U;
    number = (number ^ number >> 27U) * 0x94D049BB133111EBU;
    return number ^ number >> 31U;
}

}  // namespace

// --- Reading ---

const ChangedInstance* Changes::lookUp(Slot slot) const {
    const Place place = index_.places[slot];
    return place.changed() ? &changed_[place.where()] : nullptr;
}

std::string_view Changes::original(const ChangedInstance& instance) const {
    return index_.bytes.substr(instance.offset, index_.lengths[instance.slot]);
}

bool Changes::present(Slot slot) const {
    if (!known(slot)) return false;
    const ChangedInstance* instance = lookUp(slot);
    return instance == nullptr || instance->now.kind != TextState::Kind::Absent;
}

std::string_view Changes::text(Slot slot) {
    if (!known(slot)) return {};
    if (!removals_.empty()) takeOut(slot);
    const ChangedInstance* instance = lookUp(slot);
    if (instance == nullptr) return index_.original(slot);
    if (instance->now.kind == TextState::Kind::Original) return original(*instance);
    return instance->now.text;
}

InstanceId Changes::id(Slot slot) const {
    if (!known(slot)) return 0;
    const ChangedInstance* instance = lookUp(slot);
    if (instance != nullptr && instance->newId != 0) return instance->newId;
    Cursor cursor(instance == nullptr ? index_.original(slot) : original(*instance));
    return scanId(cursor);
}

Slot Changes::find(InstanceId id) const {
    Slot slot = NoSlot;
    if (firstNewId_ != 0 && id >= firstNewId_) {
        if (id - firstNewId_ < newIds_.size()) slot = newIds_[id - firstNewId_];
    } else {
        slot = index_.ids.find(id);
    }
    return slot != NoSlot && present(slot) ? slot : NoSlot;
}

std::uint64_t Changes::offset(Slot slot) const {
    const ChangedInstance* instance = lookUp(slot);
    return instance == nullptr ? index_.places[slot].where() : instance->offset;
}

std::uint32_t Changes::section(Slot slot) const {
    const ChangedInstance* instance = lookUp(slot);
    if (instance != nullptr && instance->newId != 0) return instance->section;
    const auto after = std::upper_bound(index_.sections.begin(), index_.sections.end(), offset(slot),
                                        [](std::uint64_t at, const Section& section) { return at < section.begin; });
    return static_cast<std::uint32_t>(after - index_.sections.begin()) - 1;
}

// --- Changing ---

bool Changes::begin() {
    if (running_) return false;
    running_ = true;
    ++commandCount_;
    current_ = {};
    current_.otherNextId = nextId_;
    return true;
}

ChangedInstance& Changes::changeable(Slot slot) {
    const Place place = index_.places[slot];
    if (place.changed()) return changed_[place.where()];
    ChangedInstance& instance = changed_.emplace_back();
    instance.slot = slot;
    instance.offset = place.where();
    index_.places[slot] = {place.keyword(), true, changed_.size() - 1};
    return instance;
}

/// The journal keeps the state that a command found the instance in.
void Changes::remember(ChangedInstance& instance) {
    if (instance.command == commandCount_) return;
    instance.command = commandCount_;
    current_.entries.push_back({static_cast<std::size_t>(index_.places[instance.slot].where()), instance.now});
}

/// A text that is the file's own again is no change.
TextState Changes::changedTo(const ChangedInstance& instance, std::string newText) const {
    if (instance.newId == 0 && newText == original(instance)) return {};
    return {TextState::Kind::Changed, std::move(newText)};
}

void Changes::set(Slot slot, TextState next) {
    takeOut(slot);
    ChangedInstance& instance = changeable(slot);
    if (next.kind == TextState::Kind::Changed) next = changedTo(instance, std::move(next.text));
    remember(instance);
    exchange(instance, next);
    ++changeCount_;
}

std::optional<std::size_t> Changes::removeReferences(Slot slot, std::size_t attributeIndex, InstanceId member) {
    auto pending = removals_.find(slot);
    if (pending != removals_.end() && pending->second.attributeIndex() == attributeIndex) {
        if (!pending->second.remove(member)) return std::nullopt;
    } else {
        auto fresh = ReferenceRemovals::of(text(slot), attributeIndex);
        if (!fresh || !fresh->remove(member)) return std::nullopt;
        pending = removals_.emplace(slot, std::move(*fresh)).first;
    }
    remember(changeable(slot));
    ++changeCount_;
    return pending->second.left();
}

/// Brings the text of the instance up to date.
void Changes::takeOut(Slot slot) {
    const auto pending = removals_.extract(slot);
    if (pending.empty()) return;
    ChangedInstance& instance = changeable(slot);
    const bool isOriginal = instance.now.kind == TextState::Kind::Original;
    instance.now = changedTo(instance, pending.mapped().applyTo(isOriginal ? original(instance) : instance.now.text));
    weighLater(instance);
}

void Changes::takeOutAll() {
    while (!removals_.empty()) takeOut(removals_.begin()->first);
}

/// Readers hold ids in 64 bits at most, often with a sign.
bool Changes::reserveId() {
    constexpr auto LargestId = static_cast<InstanceId>(std::numeric_limits<std::int64_t>::max());
    if (firstNewId_ == 0) {
        const InstanceId highest = highestId(index_, *this);
        if (highest >= LargestId) return false;
        firstNewId_ = highest + 1;
    }
    if (nextId_ == 0) nextId_ = current_.otherNextId = firstNewId_;
    return nextId_ <= LargestId;
}

Slot Changes::append(std::string_view body, KeywordCode keyword, std::uint32_t section) {
    if (index_.places.size() >= NoSlot - 1 || !reserveId()) return NoSlot;
    const auto slot = static_cast<Slot>(index_.places.size());
    index_.places.push_back({keyword, true, changed_.size()});
    index_.lengths.push_back(0);
    ChangedInstance& instance = changed_.emplace_back();
    instance.slot = slot;
    instance.newId = nextId_++;
    instance.section = section;
    instance.now.kind = TextState::Kind::Absent;
    std::string text = "#" + std::to_string(instance.newId) + "=";
    text += body;
    text += ';';
    set(slot, {TextState::Kind::Changed, std::move(text)});
    return slot;
}

/// What an instance adds to the fingerprint. An instance as the file has it adds nothing, nor does a new one while it
/// is absent.
std::uint64_t Changes::weight(const ChangedInstance& instance) const {
    const std::uint64_t where = instance.newId == 0 ? instance.offset : ~std::uint64_t{instance.section};
    switch (instance.now.kind) {
        case TextState::Kind::Original:
            return 0;
        case TextState::Kind::Absent:
            return instance.newId == 0 ? mixed(where + 1) : 0;
        case TextState::Kind::Changed:
            break;
    }
    return mixed(std::hash<std::string>()(instance.now.text) + mixed(where));
}

std::uint64_t Changes::fingerprint() {
    takeOutAll();
    for (const std::size_t place : notWeighed_) {
        ChangedInstance& instance = changed_[place];
        sum_ -= instance.weight;
        instance.weight = weight(instance);
        sum_ += instance.weight;
        instance.weighed = true;
    }
    notWeighed_.clear();
    return sum_;
}

void Changes::weighLater(ChangedInstance& instance) {
    if (std::exchange(instance.weighed, false)) {
        notWeighed_.push_back(static_cast<std::size_t>(index_.places[instance.slot].where()));
    }
}

void Changes::exchange(ChangedInstance& instance, TextState& state) {
    if (listener_ != nullptr) listener_->beforeChange(instance.slot);
    std::swap(instance.now, state);
    weighLater(instance);
    if (instance.newId != 0) rememberNewId(instance);
    if (listener_ != nullptr) listener_->afterChange(instance.slot);
}

/// After an undo the next new instance gets the same id again, in another slot.
void Changes::rememberNewId(const ChangedInstance& instance) {
    const auto at = static_cast<std::size_t>(instance.newId - firstNewId_);
    if (at >= newIds_.size()) newIds_.resize(at + 1, NoSlot);
    newIds_[at] = instance.now.kind == TextState::Kind::Absent ? NoSlot : instance.slot;
}

// --- Commands ---

bool Changes::commit(std::string name) {
    takeOutAll();
    running_ = false;
    std::erase_if(current_.entries, [this](const Entry& entry) { return entry.other == changed_[entry.instance].now; });
    if (current_.entries.empty()) {
        nextId_ = current_.otherNextId;
        return false;
    }
    current_.name = std::move(name);
    undoable_.push_back(std::move(current_));
    redoable_.clear();
    return true;
}

void Changes::rollback() {
    takeOutAll();  // The listener is to see what it was told of go back.
    running_ = false;
    if (!current_.entries.empty()) exchangeAll(current_);
    current_ = {};
}

void Changes::exchangeAll(Command& command) {
    for (std::size_t i = command.entries.size(); i-- > 0;)
        exchange(changed_[command.entries[i].instance], command.entries[i].other);
    std::reverse(command.entries.begin(), command.entries.end());
    std::swap(nextId_, command.otherNextId);
    ++changeCount_;
}

bool Changes::undo() {
    if (!canUndo()) return false;
    exchangeAll(undoable_.back());
    redoable_.push_back(std::move(undoable_.back()));
    undoable_.pop_back();
    return true;
}

bool Changes::redo() {
    if (!canRedo()) return false;
    exchangeAll(redoable_.back());
    undoable_.push_back(std::move(redoable_.back()));
    redoable_.pop_back();
    return true;
}

}  // namespace model::step
