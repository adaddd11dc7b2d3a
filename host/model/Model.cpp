#include "model/Model.hpp"

#include "model/ifc/data/AttributeData.hpp"
#include "model/ifc/data/ClassificationData.hpp"
#include "model/ifc/data/ClassificationEditor.hpp"
#include "model/ifc/data/ElementFacts.hpp"
#include "model/ifc/data/EqualRelations.hpp"
#include "model/ifc/data/NewValue.hpp"
#include "model/ifc/data/PropertyData.hpp"
#include "model/ifc/data/PropertyEditor.hpp"
#include "model/ifc/geometry/Footprint.hpp"
#include "model/ifc/geometry/Placement.hpp"
#include "model/ifc/geometry/Spatial.hpp"
#include "model/ifc/plan/Lines.hpp"
#include "model/ifc/plan/Outlines.hpp"
#include "model/ifc/plan/Rooms.hpp"
#include "model/ifc/schema/StandardSets.hpp"
#include "model/step/disk/Saving.hpp"
#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <exception>
#include <new>
#include <unordered_set>

namespace model {

struct Model::Content {
    Content(std::unique_ptr<step::StepFile> stepFile, ifc::SchemaVersion version)
        : file(std::move(stepFile)), work(*file, version) {}

    std::unique_ptr<step::StepFile> file;
    // The indexes in it are made when they are first needed, by reading as well.
    mutable ifc::Workspace work;
    ifc::Storeys storeys{work};
    ifc::Outlines outlines{work};
    ifc::Project project{work};
    std::vector<std::string> remarks;
    std::vector<std::string> notes;
    std::unordered_set<Element> noted;  ///< Elements whose duplicates have been told of.
    std::exception_ptr failure;         ///< What broke off a change of the open command.
    bool shareSets = false;

    void collectRemarks(const std::string& schemaNamed);
    void remarkOnUnknownClasses();
    /// @param body  No std::function, which may need memory: nothing must fail before it is seen that it did.
    template <class Body>
    Status edit(Element element, const Body& body);
    void noteChange(Element element, bool changed, std::vector<std::string>& found);
    std::string describe(Element element);
};

namespace {

/// What FILE_SCHEMA says.
struct NamedSchema {
    ifc::SchemaVersion version;
    std::string name;  ///< As written.
};

/// The first schema named that can be read.
Result<NamedSchema> schemaOf(const step::StepFile& file) {
    std::string named, advice;
    for (const std::string& name : file.schemaNames()) {
        if (const auto version = ifc::Schema::versionOf(name)) return NamedSchema{*version, name};
        named += (named.empty() ? "" : ", ") + name;
        if (ifc::Schema::isWithdrawn(name)) {
            advice = text::message("; {} was withdrawn, so export the model again as IFC4 or IFC4X3", name);
        }
    }
    if (named.empty()) {
        return Error{ErrorKind::CannotRead,
                     text::message("the file names no schema in FILE_SCHEMA; IFC2X3, IFC4 and IFC4X3 can be read")};
    }
    return Error{ErrorKind::CannotRead,
                 text::message("the file is of schema {}; IFC2X3, IFC4 and IFC4X3 can be read", named) + advice};
}

/// "IFCA (3), IFCB (1) and 4 more classes"
std::string listed(const std::vector<UnknownClass>& classes) {
    constexpr std::size_t Most = 10;
    const std::size_t shown = classes.size() <= Most ? classes.size() : Most - 1;
    std::string list;
    for (std::size_t i = 0; i < shown; ++i) {
        list += (i == 0 ? "" : ", ") + classes[i].name + " (" + std::to_string(classes[i].instances) + ")";
    }
    return shown == classes.size() ? list : text::message("{} and {} more classes", list, classes.size() - shown);
}

}  // namespace

void Model::Content::collectRemarks(const std::string& schemaNamed) {
    const std::string schema(ifc::Schema::name(work.version));
    if (ifc::Schema::isReleaseCandidate(schemaNamed)) {
        remarks.push_back(
            text::message("the file is of {0}, a release candidate of {1}; it is read as {1}, so that classes which "
                          "the final schema has not are not understood",
                          schemaNamed, schema));
    }
    remarkOnUnknownClasses();
    for (const step::Remark& remark : file->remarks()) {
        remarks.push_back(remark.line == 0 ? remark.message
                                           : text::message("line {}: {}", remark.line, remark.message));
    }
    if (const auto count = work.elements.duplicates(); count > 0) {
        remarks.push_back(
            text::counted("{} instance has the GlobalId of an earlier one; of each GlobalId only the first instance is "
                          "read and changed",
                          "{} instances have the GlobalId of an earlier one; of each GlobalId only the first instance "
                          "is read and changed",
                          count));
    }
    if (const auto count = work.elements.invalid(); count > 0) {
        remarks.push_back(
            text::counted("{} instance has no valid GlobalId (22 characters of 0-9 A-Z a-z _ $, the first at most 3) "
                          "and cannot be addressed",
                          "{} instances have no valid GlobalId (22 characters of 0-9 A-Z a-z _ $, the first at most 3) "
                          "and cannot be addressed",
                          count));
    }
}

void Model::Content::remarkOnUnknownClasses() {
    const std::vector<UnknownClass>& unknown = work.elements.unknownClasses();
    if (unknown.empty()) return;
    std::uint64_t instances = 0;
    for (const UnknownClass& each : unknown) instances += each.instances;
    remarks.push_back(
        text::counted("{} instance is of classes that {} does not have, and kept in the file without being read: {}",
                      "{} instances are of classes that {} does not have, and kept in the file without being read: {}",
                      instances, ifc::Schema::name(work.version), listed(unknown)));
}

template <class Body>
Status Model::Content::edit(Element element, const Body& body) {
    if (!file->open())
        return Error{ErrorKind::Refused, text::message("the model can only be changed inside an undoable command")};
    const std::uint64_t before = file->revision();
    // A change that broke off in the middle may be half made: nothing more is changed, and the command only rolled
    // back.
    if (failure) std::rethrow_exception(failure);
    std::vector<std::string> found;
    try {
        Status done = body(found);
        noteChange(element, done && file->revision() != before, found);
        return done;
    } catch (...) {
        failure = std::current_exception();
        throw;
    }
}

void Model::Content::noteChange(Element element, bool changed, std::vector<std::string>& found) {
    if (changed && work.elements.hasDuplicates(element) && noted.insert(element).second) {
        found.push_back(
            text::message("its GlobalId stands in the file more than once; only the first instance, #{}, is changed",
                          file->id(work.elements.slot(element))));
    }
    for (const std::string& note : found) notes.push_back(describe(element) + ": " + note);
}

/// "Wall 12 (A32931C7-...)"
std::string Model::Content::describe(Element element) {
    const std::string name = text::toUtf8(ifc::attributeText(work, work.elements.slot(element), "Name"));
    return (name.empty() ? "" : name + " ") + "(" + text::guidText(work.elements.guid(element)) + ")";
}

Model::Model(std::unique_ptr<Content> modelContent) : content_(std::move(modelContent)) {}

Model::~Model() = default;

Result<std::unique_ptr<Model>> Model::open(const std::filesystem::path& path, const OpenOptions& options) try {
    auto file = step::StepFile::open(path, {options.progress, options.lock});
    if (!file) return file.error();
    auto schema = schemaOf(**file);
    if (!schema) return Error{schema.error().kind, path.string() + ": " + schema.error().message};
    auto content = std::make_unique<Content>(std::move(*file), schema->version);
    content->collectRemarks(schema->name);
    return std::unique_ptr<Model>(new Model(std::move(content)));
} catch (const std::bad_alloc&) {
    return Error{
        ErrorKind::CannotRead,
        text::message("{}: there is not enough memory to open it; close other programs and try again", path.string())};
}

Result<std::unique_ptr<Model>> Model::fromBytes(std::string bytes) try {
    auto file = step::StepFile::fromBytes(std::move(bytes));
    if (!file) return file.error();
    auto schema = schemaOf(**file);
    if (!schema) return schema.error();
    auto content = std::make_unique<Content>(std::move(*file), schema->version);
    content->collectRemarks(schema->name);
    return std::unique_ptr<Model>(new Model(std::move(content)));
} catch (const std::bad_alloc&) {
    return Error{ErrorKind::CannotRead, text::message("there is not enough memory to open the model")};
}

// --- The file ---

std::string_view Model::schemaName() const {
    return ifc::Schema::name(content_->work.version);
}

void Model::takeLock() {
    content_->file->takeLock();
}

const std::string& Model::lockHolder() const {
    return content_->file->lockHolder();
}

std::uint64_t Model::duplicateGlobalIds() const {
    return content_->work.elements.duplicates();
}

std::uint64_t Model::invalidGlobalIds() const {
    return content_->work.elements.invalid();
}

const std::vector<UnknownClass>& Model::unknownClasses() const {
    return content_->work.elements.unknownClasses();
}

const std::vector<std::string>& Model::remarks() const {
    return content_->remarks;
}

// --- Elements ---

std::size_t Model::elementCount() const {
    return content_->work.elements.size();
}

std::optional<Element> Model::find(const Guid& guid) const {
    return content_->work.elements.find(guid);
}

ElementInfo Model::info(Element element) const {
    ifc::Workspace& work = content_->work;
    const step::Slot slot = work.elements.slot(element);
    const ifc::Class& cls = work.classes.of(slot);
    const Guid& guid = work.elements.guid(element);
    return {guid,        text::toGlobalId(guid), std::string(cls.entity->name()),
            cls.type.id, cls.type.name,          work.file.id(slot)};
}

std::int32_t Model::typeId(Element element) const {
    ifc::Workspace& work = content_->work;
    return work.classes.of(work.elements.slot(element)).type.id;
}

std::u16string Model::name(Element element) const {
    return ifc::attributeText(content_->work, content_->work.elements.slot(element), "Name");
}

std::string Model::storey(Element element) const {
    const step::Slot storey = content_->storeys.of(content_->work.elements.slot(element));
    return storey == step::NoSlot ? std::string{} : text::toUtf8(ifc::attributeText(content_->work, storey, "Name"));
}

bool Model::hasDuplicates(Element element) const {
    return content_->work.elements.hasDuplicates(element);
}

std::optional<Point> Model::placement(Element element) const {
    const auto frame = ifc::placementOf(content_->work, content_->work.elements.slot(element));
    return frame ? std::optional(frame->origin) : std::nullopt;
}

std::vector<Point> Model::footprint(Element element) const {
    return ifc::footprintOf(content_->work, content_->work.elements.slot(element));
}

PlanOutline Model::outline(Element element) const {
    return content_->outlines.of(content_->work.elements.slot(element));
}

PlanKind Model::planKind(Element element) const {
    return content_->outlines.kindOf(entity(element));
}

RoomFacts Model::room(Element element) const {
    return ifc::roomOf(content_->work, content_->project, content_->work.elements.slot(element));
}

std::vector<GridAxis> Model::gridAxes(Element element) const {
    return ifc::gridAxesOf(content_->work, content_->work.elements.slot(element));
}

std::optional<Point> Model::trueNorth() const {
    return content_->project.trueNorth();
}

std::optional<double> Model::metresPerUnit() const {
    return content_->project.metres();
}

// --- IFC data ---

Result<std::vector<Attribute>> Model::attributes(Element element) const {
    return ifc::readAttributes(content_->work, element);
}

Result<std::vector<Property>> Model::properties(Element element) const {
    std::vector<Property> properties;
    visitProperties(element, [&](const PropertyView& view) {
        const PropertyValue value{std::string(view.type),     view.primitive, view.integer, view.real, view.boolean,
                                  std::u16string(view.string)};
        properties.push_back({std::u16string(view.set), std::u16string(view.name), view.kind, view.inherited, value});
    });
    return properties;
}

void Model::visitProperties(Element element, const std::function<void(const PropertyView&)>& visit) const {
    ifc::forEachProperty(content_->work, content_->work.elements.slot(element), visit);
}

Result<std::vector<ClassificationReference>> Model::classifications(Element element) const {
    std::vector<ClassificationReference> references;
    visitClassifications(element, [&](const ClassificationReference& one) { references.push_back(one); });
    return references;
}

void Model::visitClassifications(Element element,
                                 const std::function<void(const ClassificationReference&)>& visit) const {
    ifc::forEachClassification(content_->work, content_->work.elements.slot(element), visit);
}

std::string Model::standardType(std::u16string_view set, std::u16string_view name) const {
    const auto& sets = ifc::StandardSets::of(content_->work.version);
    const auto property = sets.find(text::toUtf8(set), text::toUtf8(name));
    return property && property->kind == PropertyKind::Single ? std::string(property->type) : std::string();
}

std::vector<std::vector<std::u16string>> Model::chosenItems(Element element,
                                                            const std::vector<PropertyName>& properties) const {
    ifc::Workspace& work = content_->work;
    std::vector<std::vector<std::u16string>> items;
    for (const step::Slot property : ifc::findProperties(work, work.elements.slot(element), properties))
        items.push_back(ifc::chosenItems(work, property));
    return items;
}

ifc::SchemaVersion Model::schemaVersion() const {
    return content_->work.version;
}

const ifc::Entity& Model::entity(Element element) const {
    ifc::Workspace& work = content_->work;
    return *work.classes.of(work.elements.slot(element)).entity;
}

const ifc::Entity* Model::typeEntity(Element element) const {
    ifc::Workspace& work = content_->work;
    const step::Slot type = work.typeObject(work.elements.slot(element));
    return type == step::NoSlot ? nullptr : work.classes.of(type).entity;
}

std::string Model::predefinedType(Element element) const {
    const auto values = ifc::ElementFacts(content_->work).attribute(element, "PredefinedType");
    return values.empty() ? std::string() : text::toUtf8(values.front().text);
}

ifc::Workspace& Model::workspace() const {
    return content_->work;
}

// --- Edits ---

Status Model::setAttribute(Element element, std::string_view name, std::u16string_view value) {
    return content_->edit(element, [&](auto&) { return ifc::setAttribute(content_->work, element, name, value); });
}

Status Model::setProperty(Element element, const Property& property) {
    return content_->edit(element,
                          [&](auto& notes) { return ifc::setProperty(content_->work, element, property, notes); });
}

Status Model::setPropertyText(Element element, const PropertyText& property) {
    return content_->edit(element,
                          [&](auto& notes) { return ifc::setPropertyText(content_->work, element, property, notes); });
}

Status Model::setClassification(Element element, const ClassificationReference& reference) {
    return content_->edit(
        element, [&](auto& notes) { return ifc::setClassification(content_->work, element, reference, notes); });
}

Status Model::removeClassification(Element element, std::u16string_view system) {
    return content_->edit(
        element, [&](auto& notes) { return ifc::removeClassification(content_->work, element, system, notes); });
}

std::vector<std::string> Model::takeNotes() {
    return std::exchange(content_->notes, {});
}

// --- Commands and undo ---

Result<std::int32_t> Model::command(std::string name, const std::function<std::int32_t()>& body) {
    if (Status begun = content_->file->begin(); !begun) return begun.error();
    const auto firstNew = static_cast<step::Slot>(content_->file->slotCount());
    content_->work.relationCopies.clear();
    std::int32_t result = 0;
    Status joined;
    try {
        result = body();
        // The body may have passed over it, or may not be able to let it through.
        if (content_->failure) std::rethrow_exception(content_->failure);
        if (result == 0) joined = ifc::joinEqualRelations(content_->work, firstNew, content_->shareSets);
        if (result == 0 && joined) content_->file->commit(std::move(name));
    } catch (...) {
        content_->failure = nullptr;
        content_->file->rollback();
        throw;
    }
    if (result != 0 || !joined) content_->file->rollback();
    if (!joined) return joined.error();
    return result;
}

void Model::shareNewSets(bool share) {
    content_->shareSets = share;
}

bool Model::commandOpen() const {
    return content_->file->open();
}

UndoSteps Model::undoSteps() const {
    return content_->file->undoSteps();
}

bool Model::undo() {
    return content_->file->undo();
}

bool Model::redo() {
    return content_->file->redo();
}

bool Model::modified() const {
    return content_->file->modified();
}

std::uint64_t Model::revision() const {
    return content_->file->revision();
}

Status Model::save(const std::filesystem::path& path, const SaveOptions& options) {
    return content_->file->save(path, {options.progress, options.force, options.moveLock});
}

std::string Model::bytes() const {
    return content_->file->bytes();
}

Status Model::checkTarget(const std::filesystem::path& path) {
    return step::checkTarget(path);
}

std::vector<std::string> Model::targetWarnings(const std::filesystem::path& path) {
    return step::targetWarnings(path);
}

}  // namespace model
