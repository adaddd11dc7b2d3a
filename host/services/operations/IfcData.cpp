// Slots 416 to 422: an element's IFC attributes, properties and classification references, read and set.

#include "services/ErrorCodes.hpp"
#include "services/IfcRecords.hpp"
#include "services/Services.hpp"
#include "services/Session.hpp"

namespace host::services {

namespace {

/// The element's records, from the cache or read by `read` and converted.
template <class Record, class Read>
GSErrCode recordsOf(const API_Guid& guid, RecordCache<Record>& cache, Read read, const GS::Array<Record>*& records) {
    model::Element element{};
    if (const GSErrCode unknown = findElement(guid, element); unknown != NoError) return unknown;
    const model::Model& model = *session().model;
    const std::uint64_t revision = model.revision();
    records = cache.find(element, revision);
    if (records != nullptr) return NoError;
    const auto data = (model.*read)(element);
    if (!data) return errorCode(data.error().kind);
    GS::Array<Record> converted;
    converted.SetCapacity(static_cast<USize>(data->size()));
    for (const auto& item : *data) converted.Push(toRecord(item));
    records = &cache.put(element, revision, std::move(converted));
    return NoError;
}

/// Hands a copy to the caller; on an error the caller's array stays as it was.
template <class Record, class Read>
GSErrCode handOut(const API_Guid& guid, RecordCache<Record>& cache, Read read, GS::Array<Record>* target) {
    if (target == nullptr) return APIERR_BADPARS;
    const GS::Array<Record>* records = nullptr;
    const GSErrCode failed = recordsOf(guid, cache, read, records);
    if (failed == NoError) *target = *records;
    return failed;
}

/// Finds the element and lets `set` write to it; a refusal goes into the report.
template <class Set>
GSErrCode edit(const API_Guid& guid, const std::string& item, Set set) {
    model::Element element{};
    switch (findElement(guid, element)) {
        case NoError:
            break;
        case APIERR_BADPARS:
            return refuseEdit(guid, item, {model::ErrorKind::BadParameter, "the GUID is the null GUID"});
        default:
            return refuseEdit(guid, item, {model::ErrorKind::BadId, "the model has no such element"});
    }
    const model::Status done = set(*session().model, element);
    return done ? NoError : refuseEdit(guid, item, done.error());
}

std::string designation(const API_IFCPropertyHead& head) {
    return utf8(head.propertyName) + "[" + utf8(head.propertySetName) + "]";
}

}  // namespace

GSErrCode Element_GetIFCAttributes(void*, const API_Guid& guid, bool, GS::Array<API_IFCAttribute>* attributes) {
    return handOut(guid, session().records.attributes, &model::Model::attributes, attributes);
}

GSErrCode Element_GetIFCProperties(void*, const API_Guid& guid, bool storedOnly,
                                   GS::Array<API_IFCProperty>* properties) {
    auto& cache = session().records.properties;
    if (!storedOnly) return handOut(guid, cache, &model::Model::properties, properties);
    if (properties == nullptr) return APIERR_BADPARS;
    const GS::Array<API_IFCProperty>* records = nullptr;
    const GSErrCode failed = recordsOf(guid, cache, &model::Model::properties, records);
    if (failed != NoError) return failed;
    properties->Clear();
    for (const API_IFCProperty& record : *records) {
        if (!record.head.inherited) properties->Push(record);
    }
    return NoError;
}

GSErrCode Element_GetIFCClassificationReferences(void*, const API_Guid& guid, bool,
                                                 GS::Array<API_IFCClassificationReference>* references) {
    return handOut(guid, session().records.classifications, &model::Model::classifications, references);
}

GSErrCode Element_SetIFCAttribute(void*, const API_Guid& guid, const API_IFCAttribute& attribute) {
    const std::string name = utf8(attribute.attributeName);
    return edit(guid, name, [&](model::Model& model, model::Element element) {
        return model.setAttribute(element, name, attribute.attributeValue.View());
    });
}

GSErrCode Element_SetIFCProperty(void*, const API_Guid& guid, const API_IFCProperty& property) {
    return edit(guid, designation(property.head), [&](model::Model& model, model::Element element) -> model::Status {
        if (!isKnown(property))
            return model::Error{model::ErrorKind::BadParameter, "there is no such kind of property"};
        return model.setProperty(element, fromRecord(property));
    });
}

GSErrCode Element_SetIFCClassificationReference(void*, const API_Guid& guid,
                                                const API_IFCClassificationReference& reference) {
    return edit(guid, utf8(reference.systemLabel), [&](model::Model& model, model::Element element) {
        return model.setClassification(element, fromRecord(reference));
    });
}

}  // namespace host::services
