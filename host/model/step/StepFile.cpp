#include "model/step/StepFile.hpp"

#include "model/step/StepFileContent.hpp"
#include "model/step/editing/InstanceEdits.hpp"
#include "text/Message.hpp"

namespace model::step {

namespace {

Error refused(InstanceId id, const std::string& why) {
    return {ErrorKind::Refused, text::message("the instance #{} is not edited: {}", id, why)};
}

Error noSuchInstance() {
    return {ErrorKind::Refused, text::message("there is no such instance")};
}

Error noIdLeft() {
    return {ErrorKind::Refused, text::message("the file has no id left for a new instance")};
}

}  // namespace

// --- What the file says of itself ---

const std::vector<std::string>& StepFile::schemaNames() const {
    return content_->index.schemaNames;
}
const std::vector<Remark>& StepFile::remarks() const {
    return content_->index.remarks;
}
/// The bytes stay those that were opened, whatever is edited: of edited files they tell nothing.
bool StepFile::sameBytes(const StepFile& other) const {
    return revision() == 0 && other.revision() == 0 && content_->bytes.text() == other.content_->bytes.text();
}
std::uint64_t StepFile::byteCount() const {
    return content_->bytes.size;
}
const std::string& StepFile::lockHolder() const {
    return content_->lockedBy;
}

// --- Instances ---

std::size_t StepFile::slotCount() const {
    return content_->index.places.size();
}
Slot StepFile::find(InstanceId id) const {
    return content_->changes.find(id);
}
bool StepFile::present(Slot slot) const {
    return content_->changes.present(slot);
}
bool StepFile::isNew(Slot slot) const {
    return content_->changes.isNew(slot);
}
InstanceId StepFile::id(Slot slot) const {
    return content_->changes.id(slot);
}
KeywordCode StepFile::keyword(Slot slot) const {
    return content_->changes.known(slot) ? content_->index.places[slot].keyword() : NoKeyword;
}
std::string_view StepFile::keywordText(KeywordCode code) const {
    return content_->index.keywords.text(code);
}
KeywordCode StepFile::keywordCode(std::string_view upperCase) const {
    return content_->index.keywords.find(upperCase);
}
std::size_t StepFile::keywordCount() const {
    return content_->index.keywords.size();
}
std::string_view StepFile::text(Slot slot) const {
    return content_->changes.text(slot);
}
bool StepFile::before(Slot a, Slot b) const {
    return content_->changes.before(a, b);
}
bool StepFile::read(Slot slot, Instance& out) const {
    return splitInstance(text(slot), out);
}

// --- Changes ---

Status StepFile::begin() {
    if (content_->changes.begin()) return {};
    return Error{ErrorKind::Nesting, text::message("a command is open already")};
}

bool StepFile::open() const {
    return content_->changes.open();
}

/// Whether the instance can be edited now. Its id must lead back to it: of a repeated one nobody knows which is meant.
Status StepFile::Content::checkEditable(Slot slot) const {
    if (!changes.open()) return Error{ErrorKind::Refused, text::message("a file is edited only inside a command")};
    if (!changes.known(slot)) return noSuchInstance();
    const InstanceId id = changes.id(slot);
    if (!changes.present(slot)) return refused(id, text::message("it is no longer there"));
    if (changes.find(id) != slot) return refused(id, text::message("the file has several instances of this id"));
    if (index.places[slot].keyword() == NoKeyword) return refused(id, text::message("it is a complex instance"));
    return {};
}

Status StepFile::Content::edit(Slot slot, Result<std::string> newText) {
    if (!newText) return refused(changes.id(slot), newText.error().message);
    changes.set(slot, std::move(*newText));
    return {};
}

std::uint32_t StepFile::section(Slot slot) const {
    return content_->changes.section(slot);
}

Status StepFile::replaceValue(Slot slot, Value value, std::string_view newText) {
    if (Status editable = content_->checkEditable(slot); !editable) return editable;
    return content_->edit(slot, withValue(text(slot), value, newText));
}

Status StepFile::addReference(Slot slot, std::size_t attributeIndex, InstanceId member) {
    if (Status editable = content_->checkEditable(slot); !editable) return editable;
    if (content_->changes.addReference(slot, attributeIndex, member)) return {};
    return refused(content_->changes.id(slot), text::message("the list is malformed in the file"));
}

Result<std::size_t> StepFile::removeReferences(Slot slot, std::size_t attributeIndex, InstanceId member) {
    if (Status editable = content_->checkEditable(slot); !editable) return editable.error();
    if (const auto left = content_->changes.removeReferences(slot, attributeIndex, member)) return *left;
    return refused(content_->changes.id(slot), text::message("its list does not name #{}", member));
}

/// Whether a new instance can be added, and its keyword.
Result<KeywordCode> StepFile::Content::checkNew(std::string_view body) {
    std::string_view keyword;
    if (!changes.open()) return Error{ErrorKind::Refused, text::message("a file is edited only inside a command")};
    if (!isInstanceBody(body, keyword))
        return Error{ErrorKind::Refused, text::message("the new instance is malformed")};
    if (index.sections.empty()) return Error{ErrorKind::Refused, text::message("the file has no section DATA")};
    return index.keywords.intern(keyword);
}

Result<Slot> StepFile::append(std::string_view body, Slot neighbour) {
    Content& parts = *content_;
    const Result<KeywordCode> code = parts.checkNew(body);
    if (!code) return code.error();
    const bool known = parts.changes.known(neighbour);
    const auto last = static_cast<std::uint32_t>(parts.index.sections.size() - 1);
    const Slot slot = parts.changes.append(body, *code, known ? parts.changes.section(neighbour) : last);
    if (slot == NoSlot) return noIdLeft();
    return slot;
}

Result<Slot> StepFile::insertBehind(std::string_view body, Slot original) {
    Content& parts = *content_;
    const Result<KeywordCode> code = parts.checkNew(body);
    if (!code) return code.error();
    if (!parts.changes.known(original)) return noSuchInstance();
    const Slot slot = parts.changes.insertBehind(body, *code, original);
    if (slot == NoSlot) return noIdLeft();
    return slot;
}

Status StepFile::checkRoom(std::size_t count) {
    return content_->changes.hasRoomFor(count) ? Status{} : noIdLeft();
}

Status StepFile::erase(Slot slot) {
    if (Status editable = content_->checkEditable(slot); !editable) return editable;
    content_->changes.set(slot, Absent());
    return {};
}

// --- Commands ---

bool StepFile::commit(std::string name) {
    return content_->changes.commit(std::move(name));
}
void StepFile::rollback() {
    content_->changes.rollback();
}
UndoSteps StepFile::undoSteps() const {
    return content_->changes.undoSteps();
}
bool StepFile::undo() {
    return content_->changes.undo();
}
bool StepFile::redo() {
    return content_->changes.redo();
}
/// By content, not by commands: a value that was changed and changed back leaves nothing to save.
bool StepFile::modified() const {
    return content_->changes.fingerprint() != content_->savedFingerprint;
}
std::uint64_t StepFile::revision() const {
    return content_->changes.revision();
}
void StepFile::setListener(ChangeListener* listener) {
    content_->changes.setListener(listener);
}

}  // namespace model::step
