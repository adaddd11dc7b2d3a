#pragma once
// The building model as a host's services see it: elements with attributes, properties and classification references,
// read from an IFC file and written back into it.

#include "model/Progress.hpp"
#include "model/Result.hpp"

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace model {

using Guid = std::array<std::uint8_t, 16>;  ///< Bytes in the order of the text form.

/// The 22-character GlobalId (IFC's base-64 of the 16 bytes), and back. Nothing where the text is no GlobalId: 22
/// characters of 0-9 A-Z a-z _ $, the first at most '3'.
std::string toGlobalId(const Guid& guid);
std::optional<Guid> fromGlobalId(std::string_view globalId);

/// The 36-character form, upper case.
std::string guidText(const Guid& guid);

/// An element's place in the model: file order. Valid as long as the model lives; no edit changes it.
using Element = std::uint32_t;

struct ElementInfo {
    Guid guid;
    std::string globalId;
    std::string ifcClass;       ///< In the schema's spelling, "IfcWall".
    std::int32_t typeId;        ///< Type identifier of the header.
    std::string_view typeName;  ///< Display name, "Wall".
    std::uint64_t instanceId;
};

struct Attribute {
    std::string_view name;
    std::u16string value;
};

enum class PropertyKind : std::uint8_t { Single, List, Bounded, Enumerated, Table, Reference };
enum class Primitive : std::uint8_t { Integer, Real, Boolean, Logical, String, Other };

/// A property's value; which member counts is told by `primitive`.
struct PropertyValue {
    std::string type;  ///< In the schema's spelling, "IfcLabel"; empty for a single value without a nominal value.
    Primitive primitive = Primitive::String;
    std::int64_t integer = 0;  ///< Also the logical's code: 0 false, 1 unknown, 2 true.
    double real = 0.0;
    bool boolean = false;
    std::u16string string;
};

struct Property {
    std::u16string set;
    std::u16string name;
    PropertyKind kind = PropertyKind::Single;
    bool inherited = false;  ///< From the element's type object.
    PropertyValue value;
};

/// A property without copies of its texts: they are valid during the visit.
struct PropertyView {
    std::u16string_view set;
    std::u16string_view name;
    PropertyKind kind = PropertyKind::Single;
    bool inherited = false;
    std::string_view type;
    Primitive primitive = Primitive::String;
    std::int64_t integer = 0;
    double real = 0.0;
    bool boolean = false;
    std::u16string_view string;
};

struct ClassificationReference {
    std::u16string system;  ///< The label: the relation's Name, or the classification's name where that is empty.
    std::optional<std::u16string> location, name, itemReference;
    std::u16string source, edition, classificationName;
};

struct OpenOptions {
    Progress progress;
    /// Tells other hosts that the file is open for editing here. For reading alone it is not needed.
    bool lock = true;
};

struct SaveOptions {
    Progress progress;
    /// Even over a file that another program changed since: ErrorKind::ChangedSince otherwise.
    bool force = false;
    /// From here on the saved file is the one worked on, and locked in place of the one opened.
    bool moveLock = false;
};

struct Point {
    double x = 0, y = 0, z = 0;
};

class Model {
public:
    static Result<std::unique_ptr<Model>> open(const std::filesystem::path& path, const OpenOptions& options = {});
    static Result<std::unique_ptr<Model>> fromBytes(std::string bytes);
    ~Model();

    // --- The file ---
    std::string_view schemaName() const;       ///< "IFC2X3", "IFC4", "IFC4X3".
    std::uint64_t duplicateGlobalIds() const;  ///< Instances of elements' classes beyond the first of a GlobalId.
    std::uint64_t invalidGlobalIds() const;
    /// The program that has the file open for editing, "modelhost-desktop (process 1234)": the model can be saved under
    /// other names only. Empty where there is none.
    const std::string& lockHolder() const;
    /// Takes the lock of OpenOptions::lock now: for who opens a file before closing the one that was open, which may be
    /// the same.
    void takeLock();
    /// What is worth telling the user about the file as opened, complete lines.
    const std::vector<std::string>& remarks() const;

    // --- Elements ---
    std::size_t elementCount() const;
    std::optional<Element> find(const Guid& guid) const;
    ElementInfo info(Element element) const;
    std::int32_t typeId(Element element) const;  ///< That of info(), without a look into the file.
    std::u16string name(Element element) const;  ///< Attribute "Name"; empty where unset.
    std::string storey(Element element) const;   ///< UTF-8 name of the storey it stands in; empty where none.
    /// Whether others bear the element's GlobalId.
    bool hasDuplicates(Element element) const;
    /// Origin of the element's placement in the model's coordinates, the IfcLocalPlacement chain applied. Nothing where
    /// it has none or the chain is broken or circular.
    std::optional<Point> placement(Element element) const;
    /// The element's outline in plan, for drawing: the convex hull of its geometry seen from above, counter-clockwise,
    /// z the lowest of all. Empty where it has no geometry that can be read.
    std::vector<Point> footprint(Element element) const;

    // --- IFC data, in the host's order ---
    Result<std::vector<Attribute>> attributes(Element element) const;
    Result<std::vector<Property>> properties(Element element) const;
    /// The same without building a list: for reviewing thousands of lines.
    void visitProperties(Element element, const std::function<void(const PropertyView&)>& visit) const;
    Result<std::vector<ClassificationReference>> classifications(Element element) const;

    // --- Edits: only inside a command ---
    // What other elements see is not changed by them, whatever they share with this one. An equal value, and a property
    // that is no single value, change nothing and succeed; a refused edit changes nothing. The message of a refusal is
    // the value and the reason; the caller knows the element and the item.
    Status setAttribute(Element element, std::string_view name, std::u16string_view value);
    Status setProperty(Element element, const Property& property);
    Status setClassification(Element element, const ClassificationReference& reference);
    /// What the user is to be told of the edits since the last call, complete lines: another instance with the same
    /// GlobalId, another set of the same name.
    std::vector<std::string> takeNotes();

    // --- Commands and undo ---
    /// Runs `body` as one undoable command. A body that returns a value other than 0 is rolled back; one that changed
    /// nothing leaves no step. @return body's value, or ErrorKind::Nesting.
    Result<std::int32_t> command(std::string name, const std::function<std::int32_t()>& body);
    bool commandOpen() const;
    bool canUndo() const;
    bool canRedo() const;
    std::string undoName() const;
    std::string redoName() const;
    bool undo();
    bool redo();
    bool modified() const;
    std::uint64_t revision() const;  ///< Grows with each change, undo and redo.

    /// Safe replacement: see StepFile::save.
    Status save(const std::filesystem::path& path, const SaveOptions& options = {});
    std::string bytes() const;
    /// What stands in the way of saving there, as far as it can be known before the work: a missing folder, a
    /// write-protected file, another host that has the file open.
    static Status checkTarget(const std::filesystem::path& path);

private:
    struct Content;
    explicit Model(std::unique_ptr<Content> content);
    std::unique_ptr<Content> content_;
};

}  // namespace model
