// Slots 416 to 422: an element's IFC attributes, properties and classification references, read and set.

#include "services/ErrorCodes.hpp"
#include "services/IfcRecords.hpp"
#include "services/Services.hpp"
#include "services/Session.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>

namespace host::services {

namespace {

/// Lets `read` fill a new array for the element; on an error the caller's array stays as it was.
template <class Record, class Read>
GSErrCode handOut(const API_Guid& guid, GS::Array<Record>* target, Read read) {
    if (target == nullptr) return APIERR_BADPARS;
    model::Element element{};
    if (const GSErrCode unknown = findElement(guid, element); unknown != NoError) return unknown;
    GS::Array<Record> records;
    const model::Status done = read(*session().model, element, records);
    if (!done) return errorCode(done.error().kind);
    *target = std::move(records);
    return NoError;
}

template <class Data, class Record>
model::Status convert(const model::Result<std::vector<Data>>& data, GS::Array<Record>& records) {
    if (!data) return data.error();
    records.SetCapacity(static_cast<USize>(data->size()));
    for (const Data& item : *data) records.PushMade([&] { return toRecord(item); });
    return {};
}

/// Finds the element and lets `set` write to it; a refusal goes into the report.
template <class Set>
GSErrCode edit(const API_Guid& guid, const std::string& item, Set set) {
    model::Element element{};
    switch (findElement(guid, element)) {
        case NoError:
            break;
        case APIERR_BADPARS:
            return refuseEdit(guid, item, {model::ErrorKind::BadParameter, text::message("the GUID is the null GUID")});
        default:
            return refuseEdit(guid, item, {model::ErrorKind::BadId, text::message("the model has no such element")});
    }
    const model::Status done = set(*session().model, element);
    for (const std::string& note : session().model->takeNotes()) session().report.write(note);
    return done ? NoError : refuseEdit(guid, item, done.error());
}

std::string designation(const API_IFCPropertyHead& head) {
    return text::toUtf8(head.propertyName.View()) + "[" + text::toUtf8(head.propertySetName.View()) + "]";
}

}  // namespace

GSErrCode Element_GetIFCAttributes(void*, const API_Guid& guid, bool, GS::Array<API_IFCAttribute>* attributes) {
    return handOut(guid, attributes, [](const model::Model& model, model::Element element, auto& records) {
        return convert(model.attributes(element), records);
    });
}

GSErrCode Element_GetIFCProperties(void*, const API_Guid& guid, bool storedOnly,
                                   GS::Array<API_IFCProperty>* properties) {
    return handOut(guid, properties, [&](const model::Model& model, model::Element element, auto& records) {
        USize& expected = session().propertiesExpected;
        records.SetCapacity(expected);
        model.visitProperties(element, [&](const model::PropertyView& property) {
            if (!storedOnly || !property.inherited) records.PushMade([&] { return toRecord(property); });
        });
        expected = std::max(ExpectedProperties, records.GetSize());
        return model::Status{};
    });
}

GSErrCode Element_GetIFCClassificationReferences(void*, const API_Guid& guid, bool,
                                                 GS::Array<API_IFCClassificationReference>* references) {
    return handOut(guid, references, [](const model::Model& model, model::Element element, auto& records) {
        model.visitClassifications(element, [&](const model::ClassificationReference& reference) {
            records.PushMade([&] { return toRecord(reference); });
        });
        return model::Status{};
    });
}

GSErrCode Element_SetIFCAttribute(void*, const API_Guid& guid, const API_IFCAttribute& attribute) {
    const std::string name = text::toUtf8(attribute.attributeName.View());
    return edit(guid, name, [&](model::Model& model, model::Element element) {
        return model.setAttribute(element, name, attribute.attributeValue.View());
    });
}

GSErrCode Element_SetIFCProperty(void*, const API_Guid& guid, const API_IFCProperty& property) {
    return edit(guid, designation(property.head), [&](model::Model& model, model::Element element) -> model::Status {
        if (!isKnown(property))
            return model::Error{model::ErrorKind::BadParameter, text::message("there is no such kind of property")};
        return model.setProperty(element, fromRecord(property));
    });
}

GSErrCode Element_SetIFCClassificationReference(void*, const API_Guid& guid,
                                                const API_IFCClassificationReference& reference) {
    return edit(guid, text::toUtf8(reference.systemLabel.View()), [&](model::Model& model, model::Element element) {
        return model.setClassification(element, fromRecord(reference));
    });
}

}  // namespace host::services
