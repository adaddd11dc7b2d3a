#pragma once
// The building model as a host's services see it: elements with attributes, properties and classification references,
// read from an IFC file and written back into it.
//
// Threads. A model belongs to one thread at a time, for reading too: const functions fill caches, and nothing guards
// these. open and fromBytes may run on any thread, several at once for different models. Who opens a model may read it
// and then hands it over: the next thread may touch it once the former has been joined. OpenOptions::progress and
// SaveOptions::progress are called on the thread that opens or saves. Opening a long file has helper threads of its
// own, which have ended when it returns. Commands and edits run on the user's thread, since the add-on does.

#include "model/base/FileOptions.hpp"
#include "model/base/Records.hpp"
#include "model/base/Result.hpp"
#include "model/base/UndoSteps.hpp"
#include "text/Guid.hpp"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace model {

namespace ifc {
class Entity;
class Workspace;
enum class SchemaVersion : std::uint8_t;
}  // namespace ifc

/// One open IFC file.
///
/// - **Elements.** An Element that the caller got from here is valid as long as the Model is; passing any other
///   number is a fault of the caller.
/// - **Texts.** They are handed over as copies unless it is said otherwise. A model's texts are UTF-16, as the host
///   interface has them; names of files, schemas and classes are UTF-8.
/// - **Memory.** Where it runs out, std::bad_alloc goes through to the caller, and what was asked for did not
///   happen: it is never answered by an empty list or a "not found". Only opening and saving answer with an Error
///   instead. It ends an open command, see there. Taking back (undo, redo, rollback) needs no memory.
/// - **Errors.** There are no other exceptions. An Error's message is a sentence without its subject: the caller
///   knows which element and which item it was.
class Model {
public:
    /// Reads a .ifc file, or the model in an .ifczip. Faults inside it are no error, see remarks().
    /// ErrorKind::CannotRead, with the path in the message, where it is none that can be read, and for want of memory.
    static Result<std::unique_ptr<Model>> open(const std::filesystem::path& path, const OpenOptions& options = {});
    /// The same for bytes in memory.
    static Result<std::unique_ptr<Model>> fromBytes(std::string bytes);
    ~Model();

    // --- The file ---
    std::string_view schemaName() const;       ///< "IFC2X3", "IFC4", "IFC4X3": the one it is read by. Static.
    std::uint64_t duplicateGlobalIds() const;  ///< Instances of elements' classes beyond the first of a GlobalId.
    std::uint64_t invalidGlobalIds() const;    ///< Instances of elements' classes without a valid one.
    /// What the schema does not have, by name: kept in the file and not read. Lives as long as the model.
    const std::vector<UnknownClass>& unknownClasses() const;
    /// The program that has the file open for editing, "modelhost-desktop (process 1234)": the model can be saved under
    /// other names only. Empty where there is none.
    const std::string& lockHolder() const;
    /// Takes the lock of OpenOptions::lock now: for who opens a file before closing the one that was open, which may be
    /// the same.
    void takeLock();
    /// What is worth telling the user about the file as opened, complete lines. Lives as long as the model.
    const std::vector<std::string>& remarks() const;

    // --- Elements, numbered from 0 in file order ---
    std::size_t elementCount() const;
    std::optional<Element> find(const Guid& guid) const;  ///< Of several with one GUID, the first in the file.
    ElementInfo info(Element element) const;
    std::int32_t typeId(Element element) const;  ///< That of info(), without a look into the file.
    std::u16string name(Element element) const;  ///< Attribute "Name"; empty where unset.
    std::string storey(Element element) const;   ///< UTF-8 name of the storey it stands in; empty where none.
    /// Whether others bear the element's GlobalId.
    bool hasDuplicates(Element element) const;

    // Coordinates are those of the file, in its length unit, whatever that is; z points up.

    /// Origin of the element's placement in the model's coordinates, the IfcLocalPlacement chain applied. Nothing where
    /// it has none or the chain is broken or circular.
    std::optional<Point> placement(Element element) const;
    /// The element's outline in plan, for drawing: the convex hull of its geometry seen from above, counter-clockwise,
    /// z the lowest of all. Empty where it has no geometry that can be read.
    std::vector<Point> footprint(Element element) const;

    /// The same as it is drawn: with corners and holes, and without what doors and windows take away from a wall where
    /// a plan is cut, and with the lines that a plan shows beside it; the hull where the geometry is of a kind that is
    /// not known, or too intricate. No ring where there is no geometry that can be read.
    PlanOutline outline(Element element) const;
    PlanKind planKind(Element element) const;  ///< By its class alone.
    RoomFacts room(Element element) const;
    /// Of an IfcGrid, those that have a curve with ends; empty for anything else.
    std::vector<GridAxis> gridAxes(Element element) const;
    /// Towards the geographic north, of length 1 in plan. Nothing where the file does not say.
    std::optional<Point> trueNorth() const;
    /// The length unit in metres. Nothing where the file names none that is known.
    std::optional<double> metresPerUnit() const;

    // --- IFC data ---
    // In the host's order, which no edit changes: what is listed before an edit is listed after it in the same order,
    // now and when the file is reopened. An instance that is not well formed is ErrorKind::Refused.

    /// In schema order, those of the superclasses first.
    Result<std::vector<Attribute>> attributes(Element element) const;
    /// The element's own in file order, then those of its type object that it has not itself.
    Result<std::vector<Property>> properties(Element element) const;
    /// The same without building a list: for reviewing thousands of lines. `visit` must not change the model.
    void visitProperties(Element element, const std::function<void(const PropertyView&)>& visit) const;
    /// The element's own in file order, then those of its type object whose label it has not itself.
    Result<std::vector<ClassificationReference>> classifications(Element element) const;
    /// The same without building a list.
    void visitClassifications(Element element, const std::function<void(const ClassificationReference&)>& visit) const;
    /// The type that the standard gives the single value of a property, "IfcLabel". Empty where the standard sets of
    /// the file's schema have no such set or property.
    std::string standardType(std::u16string_view set, std::u16string_view name) const;
    /// The items that each of the properties has chosen, as texts. Empty for one that is not there, or not enumerated.
    std::vector<std::vector<std::u16string>> chosenItems(Element element,
                                                         const std::vector<PropertyName>& properties) const;
    /// What the schema says of an element, see model/ifc/schema. Static.
    ifc::SchemaVersion schemaVersion() const;
    const ifc::Entity& entity(Element element) const;
    const ifc::Entity* typeEntity(Element element) const;  ///< The class of its type object; null where it has none.
    /// UTF-8, as the standard's sets tell kinds of elements apart: what stands behind a USERDEFINED, the type object's
    /// before the element's own. Empty where there is none.
    std::string predefinedType(Element element) const;
    /// What all of this is read from, for libraries that read more than records hold: see model/ifc/data. Valid as long
    /// as the model; what is kept in its indexes follows every change. No program needs it.
    ifc::Workspace& workspace() const;

    // --- Edits: only inside a command, ErrorKind::Refused otherwise ---
    // What other elements see is not changed by them, whatever they share with this one. An equal value, and a property
    // that is no single value, change nothing and succeed; a refused edit leaves no byte. The message of a refusal is
    // the value and the reason.

    /// @param value  As attributes() lists values; empty unsets an optional one. ErrorKind::BadName where the class has
    /// no such attribute, ReadOnly for GlobalId, BadValue where the text is no value of the declared type.
    Status setAttribute(Element element, std::string_view name, std::u16string_view value);
    /// Found by set and name; made where the element has none of its own. `kind` and the member of `value` that its
    /// `primitive` tells count, the type is the one that the property has. ErrorKind::BadName, BadValue as above.
    Status setProperty(Element element, const Property& property);
    /// Found by system label; made where the element has none of its own. ErrorKind::BadName, BadValue as above.
    Status setClassification(Element element, const ClassificationReference& reference);
    /// Takes the element's own classification of a label away; a reference that nobody uses any more goes with it.
    /// Without one nothing is changed. ErrorKind::Refused where it is the type object's.
    Status removeClassification(Element element, std::u16string_view system);
    /// Stores what a text says, which setProperty cannot always express: nothing at all (`$`), another type, an item of
    /// an enumerated property. ErrorKind::BadValue where the text is no value of the type, ErrorKind::Refused for
    /// lists, ranges and tables.
    Status setPropertyText(Element element, const PropertyText& property);
    /// What the user is to be told of the edits since the last call, complete lines: another instance with the same
    /// GlobalId, another set of the same name.
    std::vector<std::string> takeNotes();

    // --- Commands and undo ---
    /// Runs `body` as one undoable command. A body that returns a value other than 0 is rolled back; one that changed
    /// nothing leaves no step. An exception that leaves the body, or broke off an edit in it, rolls the command back
    /// and goes on to the caller, even where the body passes over it.
    /// Classifications that it gave to several elements alike become one reference and one relation at its end.
    /// @return body's value, or ErrorKind::Nesting.
    Result<std::int32_t> command(std::string name, const std::function<std::int32_t()>& body);
    /// Whether so do property sets that a command makes with equal content. From the next command on; off at first.
    void shareNewSets(bool share);
    bool commandOpen() const;
    UndoSteps undoSteps() const;
    bool undo();  ///< Restores the file's text exactly. @return false where there is nothing to undo.
    bool redo();
    bool modified() const;           ///< Whether save() would write other bytes than were last opened or saved.
    std::uint64_t revision() const;  ///< Grows with each change, undo and redo.

    /// Safe replacement, and its errors: see StepFile::save.
    Status save(const std::filesystem::path& path, const SaveOptions& options = {});
    std::string bytes() const;  ///< What save() would write.
    /// What stands in the way of saving there, as far as it can be known before the work: a missing folder, a
    /// write-protected file, another host that has the file open.
    static Status checkTarget(const std::filesystem::path& path);
    /// What saving there will change besides the model, complete lines to be shown before the work: the file's other
    /// names (hard links) keep the old version, and its owner or group may be lost. Empty where there is nothing to
    /// say.
    static std::vector<std::string> targetWarnings(const std::filesystem::path& path);

private:
    struct Content;
    explicit Model(std::unique_ptr<Content> content);
    std::unique_ptr<Content> content_;
};

}  // namespace model
