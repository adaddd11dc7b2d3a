#include "model/step/editing/Changes.hpp"

#include "model/step/editing/HighestId.hpp"
#include "model/step/syntax/Tokens.hpp"

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>
#include <utility>

namespace model::step {

namespace {

/// The last step of SplitMix64. Weights are added up, so those of numbers that are alike must not be alike.
std::uint64_t mixed(std::uint64_t number) {
    number = (number ^ number >> 30U) * 0xBF58476D1CE4E5B9U;
    number = (number ^ number >> 27U) * 0x94D049BB133111EBU;
    return number ^ number >> 31U;
}

/// What two states of an instance differ in, if that is removals from one list; otherwise null.
const ReferenceRemovals* removalsBetween(const TextState& a, const TextState& b) {
    const auto* first = std::get_if<ListState>(&a);
    const auto* second = std::get_if<ListState>(&b);
    if (first == nullptr || second == nullptr || first->list != second->list) return nullptr;
    return std::get_if<ReferenceRemovals>(&first->list->edits);
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
    return instance == nullptr || !std::holds_alternative<Absent>(instance->now);
}

const ChangedInstance* Changes::lookUpNew(Slot slot) const {
    const ChangedInstance* instance = known(slot) ? lookUp(slot) : nullptr;
    return instance != nullptr && instance->newId != 0 ? instance : nullptr;
}

bool Changes::isNew(Slot slot) const {
    return lookUpNew(slot) != nullptr;
}

std::string_view Changes::text(Slot slot) const {
    if (!known(slot)) return {};
    const ChangedInstance* instance = lookUp(slot);
    return instance == nullptr ? index_.original(slot) : textOf(*instance, instance->now);
}

std::string_view Changes::textOf(const ChangedInstance& instance, const TextState& state) const {
    if (const auto* text = std::get_if<std::string>(&state)) return *text;
    if (const auto* edited = std::get_if<ListState>(&state)) return edited->list->text(edited->edits);
    return std::holds_alternative<AsFound>(state) ? original(instance) : std::string_view();
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
    if (const ChangedInstance* added = lookUpNew(slot)) return added->position.section;
    const auto after = std::upper_bound(index_.sections.begin(), index_.sections.end(), offset(slot),
                                        [](std::uint64_t at, const Section& section) { return at < section.begin; });
    return static_cast<std::uint32_t>(after - index_.sections.begin()) - 1;
}

// --- Order ---

/// An instance of the file hangs on nothing but itself.
Position Changes::position(Slot slot) const {
    const ChangedInstance* added = lookUpNew(slot);
    return added != nullptr ? added->position : Position{0, NoSlot, slot, 0};
}

/// What stands behind what makes trees: below each instance those behind it, in the order they were made in. They are
/// written from the top down, each branch to its end before the next.
bool Changes::before(Slot a, Slot b) const {
    Position first = position(a), second = position(b);
    if (first.root != second.root) return rootBefore(first.root, second.root);
    const auto up = [this](Slot& slot, Position& place) {
        slot = place.behind;
        place = position(slot);
    };
    while (first.depth > second.depth) up(a, first);
    if (a == b) return false;  // The one asked about hung on it, if it was another.
    while (second.depth > first.depth) up(b, second);
    if (a == b) return true;
    while (first.behind != second.behind) {
        up(a, first);
        up(b, second);
    }
    return a < b;
}

/// Instances of the file stand in the order of their slots, and what is new at the end of a section before the first
/// one of the next section.
bool Changes::rootBefore(Slot a, Slot b) const {
    const auto key = [this](Slot slot) {
        const ChangedInstance* added = lookUpNew(slot);
        if (added == nullptr) return std::tuple(slot, true, std::uint32_t{0}, slot);
        const std::uint32_t section = added->position.section;
        return std::tuple(sectionEnds_[section], false, section, slot);
    };
    return key(a) < key(b);
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

/// A record at the end of the list. What follows a change without fail gets its room here.
ChangedInstance& Changes::newRecord() {
    constexpr std::size_t Few = 16;
    if (notWeighed_.capacity() <= changed_.size()) notWeighed_.reserve(2 * changed_.size() + Few);
    return changed_.emplace_back();
}

ChangedInstance& Changes::changeable(Slot slot) {
    const Place place = index_.places[slot];
    if (place.changed()) return changed_[place.where()];
    ChangedInstance& instance = newRecord();
    instance.slot = slot;
    instance.offset = place.where();
    index_.places[slot] = {place.keyword(), true, changed_.size() - 1};
    return instance;
}

/// The journal keeps the state that a command found the instance in. The mark comes last: a change that nothing
/// remembers could never be taken back.
void Changes::remember(ChangedInstance& instance) {
    if (instance.command == commandCount_) return;
    current_.entries.push_back({static_cast<std::size_t>(index_.places[instance.slot].where()), instance.now});
    instance.command = commandCount_;
}

/// A text that is the file's own again is no change.
TextState Changes::changedTo(const ChangedInstance& instance, std::string newText) const {
    if (instance.newId == 0 && newText == original(instance)) return AsFound();
    return TextState(std::move(newText));
}

void Changes::set(Slot slot, TextState next) {
    ChangedInstance& instance = changeable(slot);
    if (auto* text = std::get_if<std::string>(&next)) next = changedTo(instance, std::move(*text));
    remember(instance);
    exchange(instance, next);
    ++changeCount_;
}

std::optional<std::size_t> Changes::removeReferences(Slot slot, std::size_t attributeIndex, InstanceId member) {
    const auto list = listFor<ReferenceRemovals>(slot, attributeIndex);
    if (list == nullptr) return std::nullopt;
    auto& removals = std::get<ReferenceRemovals>(list->edits);
    if (!removals.names(member)) return std::nullopt;
    removals.remove(member);
    giveEdits(slot, list);
    return removals.left();
}

bool Changes::addReference(Slot slot, std::size_t attributeIndex, InstanceId member) {
    const auto list = listFor<ReferenceAdditions>(slot, attributeIndex);
    if (list == nullptr) return false;
    std::get<ReferenceAdditions>(list->edits).add(member);
    giveEdits(slot, list);
    return true;
}

const ListState* Changes::heldList(Slot slot) const {
    const ChangedInstance* instance = lookUp(slot);
    return instance == nullptr ? nullptr : std::get_if<ListState>(&instance->now);
}

/// The list that an edit goes on with: the one that the instance has, if that is of the same kind and argument and has
/// no edits that were taken back since; otherwise a new one. Null where the argument is no list.
template <class Edits>
std::shared_ptr<EditedList> Changes::listFor(Slot slot, std::size_t attributeIndex) {
    const ListState* held = heldList(slot);
    if (held != nullptr) {
        const Edits* edits = std::get_if<Edits>(&held->list->edits);
        const bool goesOn = edits != nullptr && edits->attributeIndex() == attributeIndex;
        if (goesOn && edits->count() == held->edits) return held->list;
    }
    auto edits = Edits::of(text(slot), attributeIndex);
    if (!edits) return nullptr;
    auto list = std::make_shared<EditedList>(text(slot), std::move(*edits));
    if (held != nullptr) list->own(std::string(list->base()));
    return list;
}

/// Lets the instance have all edits of a list that begins with its text, or that it has already.
void Changes::giveEdits(Slot slot, const std::shared_ptr<EditedList>& list) {
    // To write such a text is as fast as to keep the edits.
    constexpr std::size_t ShortText = 512;
    ChangedInstance& instance = changeable(slot);
    if (list->base().size() <= ShortText) {
        TextState next = changedTo(instance, std::string(list->text(list->count())));
        remember(instance);
        instance.now = std::move(next);
    } else {
        // First the same text as a state of the list: the journal needs no copy of it, and an undo step can be told by
        // what it puts back.
        if (!std::holds_alternative<ListState>(instance.now)) {
            if (auto* text = std::get_if<std::string>(&instance.now)) list->own(std::move(*text));
            instance.now = ListState{list, 0};
        }
        remember(instance);
        instance.now = ListState{list, list->count()};
    }
    weighLater(instance);
    ++changeCount_;
}

// --- New instances ---

/// Readers hold ids in 64 bits at most, often with a sign.
constexpr auto LargestId = static_cast<InstanceId>(std::numeric_limits<std::int64_t>::max());

bool Changes::reserveId() {
    if (firstNewId_ == 0) {
        // Ids that only references or comments name count, too: a new instance must not become what those mean.
        const InstanceId highest = highestId(index_, *this);
        if (highest >= LargestId) return false;
        sectionEnds_.clear();
        for (const Section& each : index_.sections) {
            // The file's slots are sorted by their offsets, and none is new yet.
            Slot low = sectionEnds_.empty() ? 0 : sectionEnds_.back(), high = static_cast<Slot>(index_.places.size());
            while (low < high) {
                const Slot middle = low + (high - low) / 2;
                if (offset(middle) < each.end) {
                    low = middle + 1;
                } else {
                    high = middle;
                }
            }
            sectionEnds_.push_back(low);
        }
        firstNewId_ = highest + 1;
    }
    if (nextId_ == 0) nextId_ = current_.otherNextId = firstNewId_;
    return nextId_ <= LargestId;
}

bool Changes::hasRoomFor(std::size_t count) {
    return count == 0 || (count < NoSlot - index_.places.size() && reserveId() && count - 1 <= LargestId - nextId_);
}

Slot Changes::append(std::string_view body, KeywordCode keyword, std::uint32_t section) {
    return add(body, keyword, {section, NoSlot, static_cast<Slot>(index_.places.size()), 0});
}

Slot Changes::insertBehind(std::string_view body, KeywordCode keyword, Slot original) {
    const Position held = position(original);
    return add(body, keyword, {section(original), original, held.root, held.depth + 1});
}

/// The instance begins as an absent one, so that undoing leads back there. Whatever step lacks memory, those before it
/// leave nothing that anybody sees.
Slot Changes::add(std::string_view body, KeywordCode keyword, Position position) {
    if (!hasRoomFor(1)) return NoSlot;
    const auto slot = static_cast<Slot>(index_.places.size());
    std::string text = "#" + std::to_string(nextId_) + "=";
    text += body;
    text += ';';
    const auto idPlace = static_cast<std::size_t>(nextId_ - firstNewId_);
    if (idPlace >= newIds_.size()) newIds_.resize(idPlace + 1, NoSlot);
    ChangedInstance& instance = newRecord();
    instance.slot = slot;
    instance.newId = nextId_;
    instance.position = position;
    instance.now = Absent();
    index_.lengths.push_back(0);
    index_.places.push_back({keyword, true, changed_.size() - 1});
    ++nextId_;
    set(slot, std::move(text));
    return slot;
}

// --- Fingerprint ---

/// What an instance adds to the fingerprint. An instance as the file has it adds nothing, nor does a new one while it
/// is absent.
std::uint64_t Changes::weight(const ChangedInstance& instance) const {
    // By ids and not by slots: made again after an undo an instance has another slot, and the file is the same.
    const Position& position = instance.position;
    const std::uint64_t where = instance.newId == 0         ? instance.offset
                                : position.behind == NoSlot ? ~std::uint64_t{position.section}
                                                            : ~mixed(id(position.behind));
    if (std::holds_alternative<Absent>(instance.now)) return instance.newId == 0 ? mixed(where + 1) : 0;
    const std::string_view text = textOf(instance, instance.now);
    // Of a list also what edits in several commands have led back to.
    if (instance.newId == 0 && text == original(instance)) return 0;
    return mixed(std::hash<std::string_view>()(text) + mixed(where));
}

/// A sum, so that the order of the edits does not matter, and each more costs its own weight and not all of them.
std::uint64_t Changes::fingerprint() {
    // One at a time, since memory for the text of a long list may be lacking.
    for (; !notWeighed_.empty(); notWeighed_.pop_back()) {
        ChangedInstance& instance = changed_[notWeighed_.back()];
        const std::uint64_t now = weight(instance);
        sum_ += now - instance.weight;
        instance.weight = now;
        instance.weighed = true;
    }
    return sum_;
}

void Changes::weighLater(ChangedInstance& instance) noexcept {
    if (std::exchange(instance.weighed, false)) {
        notWeighed_.push_back(static_cast<std::size_t>(index_.places[instance.slot].where()));
    }
}

void Changes::exchange(ChangedInstance& instance, TextState& state) noexcept {
    const ReferenceRemovals* removals = removalsBetween(instance.now, state);
    if (listener_ != nullptr && removals == nullptr) listener_->beforeChange(instance.slot);
    std::swap(instance.now, state);
    weighLater(instance);
    if (instance.newId != 0) rememberNewId(instance);
    if (listener_ == nullptr) return;
    if (removals == nullptr) return listener_->afterChange(instance.slot);
    const std::size_t before = std::get<ListState>(state).edits, now = std::get<ListState>(instance.now).edits;
    listener_->afterRemovals(instance.slot, removals->attributeIndex(),
                             removals->removed(std::min(before, now), std::max(before, now)), now > before);
}

/// After an undo the next new instance gets the same id again, in another slot.
void Changes::rememberNewId(const ChangedInstance& instance) noexcept {
    const auto at = static_cast<std::size_t>(instance.newId - firstNewId_);
    newIds_[at] = std::holds_alternative<Absent>(instance.now) ? NoSlot : instance.slot;
}

// --- Commands ---

/// Whether the instance reads as it did before. Edits of one list never lead back to where they began: each of them
/// makes the text longer, or each shorter.
bool Changes::same(const ChangedInstance& instance, const TextState& before) const {
    const TextState& now = instance.now;
    if (std::holds_alternative<Absent>(now) || std::holds_alternative<Absent>(before)) {
        return now.index() == before.index();
    }
    const auto* list = std::get_if<ListState>(&now);
    const auto* old = std::get_if<ListState>(&before);
    if (list != nullptr && old != nullptr && list->list == old->list) return list->edits == old->edits;
    return textOf(instance, now) == textOf(instance, before);
}

/// What was changed and changed back is no step to undo. All are compared before the first is dropped, since memory for
/// the text of a long list may be lacking.
void Changes::dropUnchanged() {
    std::vector<bool> unchanged;
    unchanged.reserve(current_.entries.size());
    for (const Entry& entry : current_.entries) unchanged.push_back(same(changed_[entry.instance], entry.other));
    auto next = unchanged.cbegin();
    std::erase_if(current_.entries, [&](const Entry&) { return *next++; });
}

bool Changes::commit(std::string name) {
    // What may lack memory comes first: as long as the command is open it can be rolled back.
    constexpr std::size_t Few = 8;
    if (commands_.capacity() <= done_) commands_.reserve(2 * done_ + Few);
    dropUnchanged();
    running_ = false;
    if (current_.entries.empty()) {
        nextId_ = current_.otherNextId;
        return false;
    }
    current_.name = std::move(name);
    commands_.erase(commands_.begin() + static_cast<std::ptrdiff_t>(done_), commands_.end());
    commands_.push_back(std::move(current_));
    ++done_;
    return true;
}

void Changes::rollback() noexcept {
    running_ = false;
    if (current_.entries.empty()) {
        nextId_ = current_.otherNextId;
    } else {
        exchangeAll(current_);
    }
    current_ = {};
}

void Changes::exchangeAll(Command& command) noexcept {
    // The last first, then turned around: the way back goes through the same states as the way there.
    for (std::size_t i = command.entries.size(); i-- > 0;)
        exchange(changed_[command.entries[i].instance], command.entries[i].other);
    std::reverse(command.entries.begin(), command.entries.end());
    std::swap(nextId_, command.otherNextId);
    ++changeCount_;
}

UndoSteps Changes::undoSteps() const {
    UndoSteps steps;
    if (canUndo()) steps.undo = commands_[done_ - 1].name;
    if (canRedo()) steps.redo = commands_[done_].name;
    return steps;
}

bool Changes::undo() noexcept {
    if (!canUndo()) return false;
    exchangeAll(commands_[--done_]);
    return true;
}

bool Changes::redo() noexcept {
    if (!canRedo()) return false;
    exchangeAll(commands_[done_++]);
    return true;
}

}  // namespace model::step
