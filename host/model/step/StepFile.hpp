#pragma once
// A file in clear-text encoding (ISO 10303-21), held as the bytes it came with, an index of its instances, and the
// changes made since. Saving writes every byte as it was except the instances that changed and the new ones.
// StepFileOpening.cpp and StepFileSaving.cpp hold what their names say, StepFile.cpp the rest.
//
// Words used in this folder:
//   instance        "#12=IFCWALL(...);", from '#' to ';' (ISO 10303-21: entity instance, in a data section).
//   slot            the number under which the index knows an instance; it never changes.
//   arguments       the values between the instance's parentheses; ISO 10303-21 calls them parameters.
//   attributeIndex  which of the arguments, from 0. They are the values of the entity's explicit attributes in the
//                   order of the schema, those of its supertypes first (ISO 10303-21: internal mapping).
//   command         changes that are undone together, between begin() and commit() or rollback().

#include "model/base/FileOptions.hpp"
#include "model/base/Result.hpp"
#include "model/base/UndoSteps.hpp"
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

/// One thread at a time: it may be opened on a worker and handed over, but has no locks of its own. Progress functions
/// are called on the thread that called open or save. Views and references handed out belong to the StepFile.
class StepFile {
public:
    /// Reads a .ifc file, or the model in an .ifczip. One pass over the bytes; only ids, keywords and places are kept.
    /// Faults inside the file are no error, see remarks().
    /// @return ErrorKind::CannotRead where the file cannot be read, is being written by another program, is not in
    ///         clear-text encoding, or where the progress function cancelled. Nothing is left behind then.
    static Result<std::unique_ptr<StepFile>> open(const std::filesystem::path& path, const OpenOptions& options = {});
    /// The same for bytes in memory (tests, fuzzing). Such a file has no path and no lock, and can be saved anywhere.
    static Result<std::unique_ptr<StepFile>> fromBytes(std::string bytes);
    ~StepFile();

    // --- What the file says of itself ---
    /// The names in FILE_SCHEMA of the header section, decoded to UTF-8, in their order and spelling.
    const std::vector<std::string>& schemaNames() const;
    /// What is wrong in the file as opened, in file order, the remarks on the whole file last. Edits change nothing.
    const std::vector<Remark>& remarks() const;
    std::uint64_t byteCount() const;  ///< Of the file as opened; of an .ifczip, of the model unpacked.
    /// Whether both were opened from the same bytes and have not been changed since.
    bool sameBytes(const StepFile& other) const;
    /// The program that has the file open for editing, so that it can be saved under other names only; for a person:
    /// "modelhost (process 1234)". Empty where there is none.
    const std::string& lockHolder() const;
    /// Takes the lock of OpenOptions::lock now, or learns who has it: see lockHolder().
    void takeLock();

    // --- Instances as they are now. NoSlot may be asked about: it is not present and has no id, keyword and text. ---
    std::size_t slotCount() const;         ///< Slots are 0 to this; absent instances have theirs too. Grows only.
    Slot find(InstanceId id) const;        ///< NoSlot where there is none, or where the file has several of that id.
    bool present(Slot slot) const;         ///< False for an instance that is erased, or new and undone.
    bool isNew(Slot slot) const;           ///< None of the file as opened. Their slots are the last ones.
    InstanceId id(Slot slot) const;        ///< Of an absent instance too: the id that it had.
    KeywordCode keyword(Slot slot) const;  ///< NoKeyword for a complex instance. No edit changes it.
    std::string_view keywordText(KeywordCode code) const;       ///< Upper case; empty for NoKeyword.
    KeywordCode keywordCode(std::string_view upperCase) const;  ///< NoKeyword where the file does not use it.
    std::size_t keywordCount() const;                           ///< Codes are 0 to this.
    /// From '#' to ';'; of an absent instance empty. Valid until the instance is changed, by an undo too.
    std::string_view text(Slot slot) const;
    /// Whether `a` stands before `b` in the file that would be saved, where undone instances have their places too.
    /// Slots tell that of the instances of the file alone. Both must exist.
    bool before(Slot a, Slot b) const;
    /// The number of the data section it stands in, from 0. It must exist.
    std::uint32_t section(Slot slot) const;
    /// text() and splitInstance in one: the same validity.
    bool read(Slot slot, Instance& out) const;

    // --- Changes. Only between begin and commit or rollback. A refused one changes nothing. ---
    Status begin();  ///< ErrorKind::Nesting where a command is open.
    bool open() const;
    /// Puts `newText` in place of the value, which must be a view into text(slot). Every other byte of the instance
    /// stays. The views into this instance's text are invalid after it.
    /// @return ErrorKind::Refused, as the two below: outside a command; for an instance that is complex, absent or of a
    ///         repeated id; for a value that is Malformed or Derived; for a new text that is no value.
    Status replaceValue(Slot slot, Value value, std::string_view newText);
    /// Adds a reference to `member` at the end of an aggregate argument, spaced as the others are. Of a long instance
    /// the text is rewritten when it is next asked for, once for all additions until then. The listener is not told:
    /// a list may grow by thousands one after the other.
    Status addReference(Slot slot, std::size_t attributeIndex, InstanceId member);
    /// Takes every reference to `member` out of an aggregate argument, in the same way: thousands of elements leave one
    /// relation.
    /// @return how many other instances the argument still names.
    Result<std::size_t> removeReferences(Slot slot, std::size_t attributeIndex, InstanceId member);
    /// Adds an instance at the end of the data section that `neighbour` stands in.
    /// @param body  "IFCWALL('...',$)" without id and semicolon. The id is the next above the highest that the file
    ///              names, comments and dangling references included.
    Result<Slot> append(std::string_view body, Slot neighbour);
    /// The same right behind `original`, which may be new itself, and behind what was inserted there before: on the
    /// next line where the original ends its line, otherwise on the same one.
    Result<Slot> insertBehind(std::string_view body, Slot original);
    /// Whether so many instances can be added one after the other: for who would rather refuse than leave half of them.
    Status checkRoom(std::size_t count);
    /// The instance becomes absent; the caller changes what refers to it. Its id is not used again.
    Status erase(Slot slot);

    /// Ends the command. @return true where it changed anything: then it is an undo step, and nothing can be redone.
    bool commit(std::string name);
    /// Ends the command and takes its changes back. Ids given to new instances are free again.
    void rollback();

    UndoSteps undoSteps() const;  ///< Named as commit() was told.
    bool undo();                  ///< @return false where there is nothing to undo, or a command is open.
    bool redo();
    /// True where the bytes differ from those last opened or saved.
    bool modified() const;
    /// Grows by one with each change, undo and redo: what is cached of the file is valid for one revision.
    std::uint64_t revision() const;

    /// For callers that keep indexes of the file: it is told of every change, undo and redo. Null for none; not owned.
    /// Only one at a time.
    void setListener(ChangeListener* listener);

    /// Writes the file. Goes to a temporary file in the target's folder, is synced, renamed over the target, and the
    /// folder synced: at every moment the old file or the new one is there whole. Mode bits stay; a symbolic link stays
    /// a link. An unchanged model is written byte for byte. A target named .ifczip is written as such an archive; the
    /// file that was opened stays what it is. Not inside a command: what is open then would be saved half done.
    /// @return ErrorKind::ChangedSince where another program changed the target since it was opened or saved here (see
    ///         SaveOptions::force), ErrorKind::CannotWrite where another host has it open and where writing fails. The
    ///         old file is untouched then, unless the message says otherwise.
    Status save(const std::filesystem::path& path, const SaveOptions& options = {});
    /// The bytes that save would write; of an .ifczip, those of the model in it.
    std::string bytes() const;

private:
    struct Content;
    explicit StepFile(std::unique_ptr<Content> parts);
    std::unique_ptr<Content> content_;
};

}  // namespace model::step
