#pragma once
// The instances as they are now: the index of the file with the changes laid over it, and the journal that undoes them.

#include "model/step/editing/ChangeListener.hpp"
#include "model/step/editing/ReferenceRemovals.hpp"
#include "model/step/index/Index.hpp"
#include "model/step/index/Slot.hpp"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace model::step {

/// How an instance reads at one moment.
struct TextState {
    enum class Kind : std::uint8_t { Original, Changed, Absent };

    Kind kind = Kind::Original;
    std::string text;  ///< Of a Changed one.

    bool operator==(const TextState&) const = default;
};

/// An instance that was changed at least once, or is new.
struct ChangedInstance {
    Slot slot = NoSlot;
    std::uint64_t offset = 0;   ///< In the file; unused for a new one.
    InstanceId newId = 0;       ///< Of a new one, 0 for one of the file.
    std::uint32_t section = 0;  ///< That a new one is written in.
    std::uint64_t command = 0;  ///< The last command that touched it.
    TextState now;
    std::uint64_t weight = 0;  ///< Its part of the fingerprint, of the time when that was last asked for.
    bool weighed = true;       ///< Whether `weight` is that of `now`.
};

class Changes {
public:
    explicit Changes(Index& target) : index_(target) {}

    /// Of NoSlot, and any other slot that does not exist, these tell nothing.
    bool known(Slot slot) const { return slot < index_.places.size(); }
    bool present(Slot slot) const;
    InstanceId id(Slot slot) const;
    Slot find(InstanceId id) const;
    /// Takes out what removeReferences() was asked to.
    std::string_view text(Slot slot);
    /// Where an instance of the file stands in it.
    std::uint64_t offset(Slot slot) const;
    /// The data section it stands in.
    std::uint32_t section(Slot slot) const;

    bool begin();
    bool open() const { return running_; }
    /// Lays `next` over the instance. Only while a command is open.
    void set(Slot slot, TextState next);
    /// Takes the references to `member` out of an argument of an instance, in its text only when that is asked for.
    /// Only while a command is open. @return how many others the argument still names; nothing where it does not name
    /// it.
    std::optional<std::size_t> removeReferences(Slot slot, std::size_t attributeIndex, InstanceId member);
    /// Adds "#id=body;". @return NoSlot where there is no id left.
    Slot append(std::string_view body, KeywordCode keyword, std::uint32_t section);
    /// @return true where the command changed anything.
    bool commit(std::string name);
    void rollback();

    bool undo();
    bool redo();
    bool canUndo() const { return !running_ && !undoable_.empty(); }
    bool canRedo() const { return !running_ && !redoable_.empty(); }
    std::string undoName() const { return canUndo() ? undoable_.back().name : std::string(); }
    std::string redoName() const { return canRedo() ? redoable_.back().name : std::string(); }

    std::uint64_t revision() const { return changeCount_; }
    /// Stands for the bytes that saving would write: equal for equal bytes, and 0 for those of the file as opened. It
    /// is a sum over the changed instances, so that asking costs no more than what changed since the last time, and
    /// undoing leads back to the same number.
    std::uint64_t fingerprint();
    void setListener(ChangeListener* newListener) { listener_ = newListener; }

    const std::deque<ChangedInstance>& instances() {
        takeOutAll();
        return changed_;
    }

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

    ChangedInstance& changeable(Slot slot);
    bool reserveId();
    const ChangedInstance* lookUp(Slot slot) const;
    std::string_view original(const ChangedInstance& instance) const;
    std::uint64_t weight(const ChangedInstance& instance) const;
    TextState changedTo(const ChangedInstance& instance, std::string newText) const;
    void remember(ChangedInstance& instance);
    void exchange(ChangedInstance& instance, TextState& state);
    void takeOut(Slot slot);
    void takeOutAll();
    void weighLater(ChangedInstance& instance);
    void exchangeAll(Command& command);
    void rememberNewId(const ChangedInstance& instance);

    Index& index_;
    ChangeListener* listener_ = nullptr;
    std::deque<ChangedInstance> changed_;  ///< Never moves in memory: text() hands out views of short strings too.
    std::unordered_map<Slot, ReferenceRemovals> removals_;  ///< That no text shows yet; only while a command is open.
    std::vector<Slot> newIds_;                              ///< By id, from firstNewId on.
    InstanceId firstNewId_ = 0;                             ///< 0 until the first new instance asks.
    InstanceId nextId_ = 0;
    std::vector<Command> undoable_, redoable_;
    Command current_;
    bool running_ = false;
    std::uint64_t commandCount_ = 0;
    std::uint64_t changeCount_ = 0;
    std::uint64_t sum_ = 0;                ///< Of the weights.
    std::vector<std::size_t> notWeighed_;  ///< Places in `changed`.
};

}  // namespace model::step
