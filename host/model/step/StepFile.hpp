#pragma once
// A file in clear-text encoding (ISO 10303-21), held as the bytes it came with, an index of its instances, and the
// changes made since. Saving writes every byte as it was except the instances that changed and the new ones.

#include "model/base/FileOptions.hpp"
#include "model/base/Result.hpp"
#include "model/step/editing/ChangeListener.hpp"
#include "model/step/index/Remark.hpp"
#include "model/step/index/Slot.hpp"
#include "model/step/syntax/Instance.hpp"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace model::step {

class StepFile {
public:
    /// Reads a .ifc file, or the model in an .ifczip. One pass over the bytes; only ids, keywords and places are kept.
    /// Faults inside the file are no error, see remarks(). ErrorKind::CannotRead where the file cannot be read, is
    /// being written, or is none in clear-text encoding.
    static Result<std::unique_ptr<StepFile>> open(const std::filesystem::path& path, const OpenOptions& options = {});
    /// The same for bytes in memory (tests, fuzzing).
    static Result<std::unique_ptr<StepFile>> fromBytes(std::string bytes);
    ~StepFile();

    // --- What the file says of itself ---
    const std::vector<std::string>& schemaNames() const;  ///< FILE_SCHEMA, decoded, as written.
    const std::vector<Remark>& remarks() const;
    std::uint64_t byteCount() const;
    /// The program that has the file open for editing, so that it can be saved under other names only; for a person:
    /// "modelhost (process 1234)". Empty where there is none.
    const std::string& lockHolder() const;
    /// Takes the lock of OpenOptions::lock now, or learns who has it.
    void takeLock();

    // --- Instances as they are now. NoSlot may be asked about: it is not present and has no id, keyword and text. ---
    std::size_t slotCount() const;   ///< Places, absent ones included.
    Slot find(InstanceId id) const;  ///< NoSlot where there is none, or where the file has several of that id.
    bool present(Slot slot) const;
    InstanceId id(Slot slot) const;
    KeywordCode keyword(Slot slot) const;  ///< NoKeyword for a complex instance.
    std::string_view keywordText(KeywordCode code) const;
    KeywordCode keywordCode(std::string_view upperCase) const;  ///< NoKeyword where the file does not use it.
    std::size_t keywordCount() const;
    /// From '#' to ';'. Valid until the instance is changed.
    std::string_view text(Slot slot) const;
    /// text() and splitInstance in one.
    bool read(Slot slot, Instance& out) const;

    // --- Changes. Only between begin and commit or rollback. ---
    Status begin();  ///< ErrorKind::Nesting where a command is open.
    bool open() const;
    /// Puts `newText` in place of the value, which must be a view into text(slot). Every other byte of the instance
    /// stays. The views into this instance's text are invalid after it.
    /// Refused, like the two below: outside a command; an instance that is complex, absent or of a repeated id; a value
    /// that is Malformed or Derived; a new text that is no value.
    Status replaceValue(Slot slot, Value value, std::string_view newText);
    /// Adds one element to an Aggregate value of the instance, spaced as the others are.
    Status addToAggregate(Slot slot, Value aggregate, std::string_view element);
    /// Takes every reference to `member` out of an aggregate argument. The text is rewritten when it is next asked for,
    /// once for all removals until then, and the listener is not told: thousands of elements leave one relation.
    /// @return How many other instances the argument still names.
    Result<std::size_t> removeReferences(Slot slot, std::size_t argument, InstanceId member);
    /// Adds an instance at the end of the data section that `neighbour` stands in.
    /// @param body  "IFCWALL('...',$)" without id and semicolon. The id is the next above the highest in the file,
    /// those
    ///              in comments and dangling references included.
    Result<Slot> append(std::string_view body, Slot neighbour);
    Status erase(Slot slot);

    /// Ends the command. @return true where it changed anything: then it is an undo step.
    bool commit(std::string name);
    void rollback();

    bool canUndo() const;
    bool canRedo() const;
    std::string undoName() const;
    std::string redoName() const;
    bool undo();
    bool redo();
    /// True where the bytes differ from those last opened or saved.
    bool modified() const;
    /// Grows by one with each change, undo and redo: what is cached of the file is valid for one revision.
    std::uint64_t revision() const;

    /// For callers that keep indexes of the file: it is told of every change, undo and redo. Null for none; not owned.
    void setListener(ChangeListener* listener);

    /// Writes the file. Goes to a temporary file in the target's folder, is synced, renamed over the target, and the
    /// folder synced: at every moment the old file or the new one is there whole. Mode bits stay; a symbolic link stays
    /// a link. An unchanged model is written byte for byte. A target named .ifczip is written as such an archive; the
    /// file that was opened stays what it is.
    /// ErrorKind::ChangedSince where another program changed the target since it was opened or saved here (see
    /// SaveOptions::force), ErrorKind::CannotWrite where another host has it open and where writing fails: the old file
    /// is then untouched.
    Status save(const std::filesystem::path& path, const SaveOptions& options = {});
    /// The bytes that save would write.
    std::string bytes() const;

private:
    struct Content;
    explicit StepFile(std::unique_ptr<Content> parts);
    std::unique_ptr<Content> content_;
};

}  // namespace model::step
