#pragma once
// Very small IFC models, written instance by instance with full control of who shares what. The schema tables give
// every instance its right number of attributes, so that one text serves all three schemas.
//
//     TinyModel ifc("IFC4");
//     const auto wall = ifc.element("IfcWall", "Wall");
//     ifc.give({wall}, ifc.set("Pset_WallCommon", {ifc.single("FireRating", "IFCLABEL('60')")}));

#include "model/Model.hpp"
#include "support/InstanceText.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using Id = std::uint64_t;
using Ids = std::vector<Id>;
using Values = testing_support::AttributeValues;

std::string ref(Id id);            ///< "#12"
std::string refs(const Ids& ids);  ///< "(#12,#13)"

class TinyModel {
public:
    explicit TinyModel(std::string schema = "IFC4");

    /// Any instance; a root gets a GlobalId and, in IFC2X3, an owner history of its own if it is not given.
    Id add(std::string_view ifcClass, const Values& values = {});
    /// Text as it stands, "IFCWALL('...',$)", or anything else that is to follow "#id=".
    Id raw(const std::string& body);

    Id element(std::string_view ifcClass, const std::string& name, const Values& more = {});
    Id single(const std::string& name, const std::string& value);  ///< A property; `value` in STEP form with its type.
    Id set(const std::string& name, const Ids& properties);
    Id give(const Ids& objects, Id set);
    Id giveSetOfSets(const Ids& objects, const Ids& sets);
    Id overrideProperties(const Ids& objects, Id set, const Ids& properties);  ///< IFC2X3
    Id type(const Ids& objects, const Ids& sets);
    Id classification(const std::string& name);
    Id classificationReference(const std::string& item, const std::string& name, Id source);
    Id classify(const Ids& objects, const std::string& label, Id reference);

    /// A text instead of the GlobalId that add() would make.
    static std::string globalIdText(unsigned number);

    std::string text() const;
    const std::string schema;

private:
    std::string instances_;
    Id lastId_ = 0;
    Id ownerHistory_ = 0;
    unsigned rootsMade_ = 0;
};

/// An open model with short ways to ask and to change, each change in a command of its own.
class Opened {
public:
    explicit Opened(const TinyModel& tiny) : Opened(tiny.text()) {}
    explicit Opened(std::string bytes);

    model::Model* operator->() { return model_.get(); }
    model::Model& operator*() { return *model_; }

    model::Element find(std::string_view name);  ///< By its attribute Name; the test fails where there is none.
    std::string attribute(model::Element element, std::string_view name);
    /// A property's value as text; "(none)" where it is not listed. Inherited ones end with "^".
    std::string property(model::Element element, std::string_view set, std::string_view name);
    /// "item{name}" under a label; "(none)" where it is not listed.
    std::string classification(model::Element element, std::string_view label);

    model::Status setAttribute(model::Element element, std::string_view name, std::string_view value);
    /// Sets the property as the file has it, or a new one of the given type, to the value that the text stands for.
    model::Status setProperty(model::Element element, std::string_view set, std::string_view name,
                              std::string_view value, std::string_view newType = "IfcLabel");
    model::Status setClassification(model::Element element, const model::ClassificationReference& reference);
    /// What the two set, for commands of more than one change.
    model::Property wantedProperty(model::Element element, std::string_view set, std::string_view name,
                                   std::string_view value, std::string_view newType = "IfcLabel");
    model::ClassificationReference wantedReference(model::Element element, std::string_view label,
                                                   std::string_view item, std::string_view name);
    /// Item and name under a label; other fields as the element has them.
    model::Status classify(model::Element element, std::string_view label, std::string_view item,
                           std::string_view name);

    /// Everything that the host lists of one element.
    std::string data(model::Element element);
    /// The same of all.
    std::vector<std::string> snapshot();

private:
    std::unique_ptr<model::Model> model_;
};

/// A property's value as text.
std::string valueText(const model::PropertyValue& value);
/// A value of the primitive type that the text stands for.
model::PropertyValue valueOf(std::string_view type, model::Primitive primitive, std::string_view text);

std::string utf8(std::u16string_view text);
std::u16string utf16(std::string_view text);
