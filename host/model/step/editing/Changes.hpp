#pragma once
// The instances as they are now: the index of the file with the changes laid over it, and the journal that undoes them.

#include "model/base/UndoSteps.hpp"
#include "model/step/editing/ChangeListener.hpp"
#include "model/step/editing/EditedList.hpp"
#include "model/step/index/Index.hpp"
#include "model/step/index/Slot.hpp"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace model::step {

/// Of an instance of the file that reads as it was found.
struct AsFound {};
/// Of one that is not there.
struct Absent {};
/// Of one whose list was edited reference by reference: so many of the edits are in its text.
struct ListState {
    std::shared_ptr<EditedList> list;
    std::size_t edits = 0;
};
/// How an instance reads at one moment; otherwise its text.
using TextState = std::variant<AsFound, Absent, std::string, ListState>;

/// Where a new instance is written: at the end of a data section, or right behind another instance, which may be new
/// itself.
struct Position {
    std::uint32_t section = 0;
    Slot behind = NoSlot;     ///< NoSlot at the end of the section.
    Slot root = NoSlot;       ///< Where following `behind` leads in the end: an instance of the file, or a new one at
                              ///< the end of the section, which may be the instance itself.
    std::uint32_t depth = 0;  ///< The number of steps on the way there.
};

/// An instance that was changed at least once, or is new.
struct ChangedInstance {
    Slot slot = NoSlot;
    std::uint64_t offset = 0;   ///< In the file; unused for a new one.
    InstanceId newId = 0;       ///< Of a new one, 0 for one of the file.
    Position position;          ///< Of a new one.
    std::uint64_t command = 0;  ///< The last command that touched it.
    TextState now;
    std::uint64_t weight = 0;  ///< Its part of the fingerprint, of the time when that was last asked for.
    bool weighed = true;       ///< Whether `weight` is that of `now`.
};

/// Where memory runs out in the middle of a change, the change is not made: the instances, the journal and the listener
/// are as before. What takes changes back (rollback, undo, redo) needs no memory and cannot fail.
class Changes {
public:
    explicit Changes(Index& target) : index_(target) {}

    /// Of NoSlot, and any other slot that does not exist, these tell nothing.
    bool known(Slot slot) const { return slot < index_.places.size(); }
    bool present(Slot slot) const;
    /// Whether it is none of the file's.
    bool isNew(Slot slot) const;
    InstanceId id(Slot slot) const;
    Slot find(InstanceId id) const;
    std::string_view text(Slot slot) const;
    /// Where an instance of the file stands in it.
    std::uint64_t offset(Slot slot) const;
    /// The data section it stands in.
    std::uint32_t section(Slot slot) const;
    /// Whether `a` is written before `b`. Both exist, and may be absent just now.
    bool before(Slot a, Slot b) const;

    bool begin();
    bool open() const { return running_; }
    /// Lays `next` over the instance. Only while a command is open.
    void set(Slot slot, TextState next);
    /// Takes the references to `member` out of an argument of an instance, without telling the listener. Only while a
    /// command is open. @return how many others the argument still names; nothing where it does not name it.
    std::optional<std::size_t> removeReferences(Slot slot, std::size_t attributeIndex, InstanceId member);
    /// Adds a reference at the end of an argument in the same way. @return false where that is no list.
    bool addReference(Slot slot, std::size_t attributeIndex, InstanceId member);
    /// Whether so many more instances can be added.
    bool hasRoomFor(std::size_t count);
    /// Adds "#id=body;" at the end of the section. @return NoSlot where there is no id left.
    Slot append(std::string_view body, KeywordCode keyword, std::uint32_t section);
    /// The same right behind `original`, and behind what was inserted there before.
    Slot insertBehind(std::string_view body, KeywordCode keyword, Slot original);
    /// @return true where the command changed anything. Where it throws, the command is still open.
    bool commit(std::string name);
    void rollback() noexcept;

    bool undo() noexcept;
    bool redo() noexcept;
    UndoSteps undoSteps() const;

    std::uint64_t revision() const { return changeCount_; }
    /// Stands for the bytes that saving would write: equal for equal bytes, and 0 for those of the file as opened. It
    /// is a sum over the changed instances, so that asking costs no more than what changed since the last time, and
    /// undoing leads back to the same number.
    std::uint64_t fingerprint();
    void setListener(ChangeListener* newListener) { listener_ = newListener; }

    const std::deque<ChangedInstance>& instances() const { return changed_; }

private:
    /// An instance touched by a command, with the state that undoing (or then redoing) gives it.
    struct Entry {
        std::size_t instance;
        TextState other;
    };
    struct Command {
        std::string name;
        std::vector<Entry> entries;
        InstanceId otherNextId = 0;
    };

    bool canUndo() const { return !running_ && done_ > 0; }
    bool canRedo() const { return !running_ && done_ < commands_.size(); }
    ChangedInstance& changeable(Slot slot);
    ChangedInstance& newRecord();
    bool reserveId();
    Slot add(std::string_view body, KeywordCode keyword, Position position);
    const ChangedInstance* lookUp(Slot slot) const;
    const ChangedInstance* lookUpNew(Slot slot) const;
    Position position(Slot slot) const;
    bool rootBefore(Slot a, Slot b) const;
    std::string_view original(const ChangedInstance& instance) const;
    std::string_view textOf(const ChangedInstance& instance, const TextState& state) const;
    bool same(const ChangedInstance& instance, const TextState& before) const;
    std::uint64_t weight(const ChangedInstance& instance) const;
    TextState changedTo(const ChangedInstance& instance, std::string newText) const;
    void remember(ChangedInstance& instance);
    void exchange(ChangedInstance& instance, TextState& state) noexcept;
    const ListState* heldList(Slot slot) const;
    template <class Edits>
    std::shared_ptr<EditedList> listFor(Slot slot, std::size_t attributeIndex);
    void giveEdits(Slot slot, const std::shared_ptr<EditedList>& list);
    void dropUnchanged();
    void weighLater(ChangedInstance& instance) noexcept;
    void exchangeAll(Command& command) noexcept;
    void rememberNewId(const ChangedInstance& instance) noexcept;

    Index& index_;
    ChangeListener* listener_ = nullptr;
    std::deque<ChangedInstance> changed_;  ///< Never moves in memory: text() hands out views of short strings too.
    std::vector<Slot> newIds_;             ///< By id, from firstNewId on.
    InstanceId firstNewId_ = 0;            ///< 0 until the first new instance asks.
    InstanceId nextId_ = 0;
    std::vector<Slot> sectionEnds_;  ///< By section, the first of the file's slots behind it; made with firstNewId.
    std::vector<Command> commands_;  ///< The first `done_` can be undone, the others redone.
    std::size_t done_ = 0;
    Command current_;
    bool running_ = false;
    std::uint64_t commandCount_ = 0;
    std::uint64_t changeCount_ = 0;
    std::uint64_t sum_ = 0;                ///< Of the weights.
    std::vector<std::size_t> notWeighed_;  ///< Places in `changed`; always has room for all of them.
};

}  // namespace model::step
