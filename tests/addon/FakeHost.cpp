#include "FakeHost.hpp"

#include "support/IfcText.hpp"

namespace testing_support {

namespace {

FakeHost* current = nullptr;

GSErrCode registerMenu(const API_MenuRegistration* record) {
    current->menu = *record;
    return current->menuError;
}

GSErrCode installMenuHandler(void*, Int32 menu, APIMenuCommandProc* handler) {
    current->handledMenu = menu;
    current->menuHandler = handler;
    return current->handlerError;
}

GSErrCode runUndoable(void* client, const GS::UniString& name, const std::function<GSErrCode()>& command) {
    EXPECT_EQ(client, &current->client);
    current->undoNames.push_back(narrow(name));
    return command();
}

GSErrCode getElement(void* client, API_Element* element, UInt32 mask) {
    EXPECT_EQ(client, &current->client);
    EXPECT_EQ(mask, 0U);
    if (current->elementError == NoError) element->header.typeID = current->typeID;
    if (current->inElement) current->inElement(*element);
    return current->elementError;
}

GSErrCode goodies(void*, UInt32 code, void* par1, void* par2, void* par3) {
    EXPECT_EQ(code, APIAny_GetElemTypeName);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(par1), current->typeID);
    EXPECT_EQ(par3, nullptr);
    if (!current->typeName) return APIERR_BADPARS;
    *static_cast<GS::UniString*>(par2) = *current->typeName;
    return NoError;
}

GSErrCode getAttributes(void*, const API_Guid&, bool storedOnly, GS::Array<API_IFCAttribute>* attributes) {
    EXPECT_FALSE(storedOnly);
    current->asked.emplace_back("attributes");
    if (current->inAttributes) current->inAttributes();
    if (current->attributesError == NoError) *attributes = current->attributes;
    return current->attributesError;
}

GSErrCode getProperties(void*, const API_Guid&, bool storedOnly, GS::Array<API_IFCProperty>* properties) {
    EXPECT_FALSE(storedOnly);
    current->asked.emplace_back("properties");
    if (current->propertiesError == NoError) *properties = current->properties;
    return current->propertiesError;
}

GSErrCode getClassifications(void*, const API_Guid&, bool storedOnly,
                             GS::Array<API_IFCClassificationReference>* references) {
    EXPECT_FALSE(storedOnly);
    current->asked.emplace_back("classifications");
    if (current->classificationsError == NoError) *references = current->classifications;
    return current->classificationsError;
}

template <class Record>
GSErrCode keep(const API_Guid& guid, const Record& record, std::vector<Record>& kept) {
    current->changed.push_back(guid);
    kept.push_back(record);
    return current->setError;
}

GSErrCode setAttribute(void*, const API_Guid& guid, const API_IFCAttribute& attribute) {
    return keep(guid, attribute, current->setAttributes);
}

GSErrCode setProperty(void*, const API_Guid& guid, const API_IFCProperty& property) {
    return keep(guid, property, current->setProperties);
}

GSErrCode setClassification(void*, const API_Guid& guid, const API_IFCClassificationReference& reference) {
    return keep(guid, reference, current->setClassifications);
}

}  // namespace

FakeHost::FakeHost() {
    current = this;
    attributes.Push(attribute("Name", "Wall-01"));
    addOn.put<HostSlot::Register_Menu>(&registerMenu);
    addOn.put<HostSlot::Install_MenuHandler>(&installMenuHandler);
    addOn.put<HostSlot::CallUndoableCommand>(&runUndoable);
    addOn.put<HostSlot::Element_Get>(&getElement);
    addOn.put<HostSlot::Goodies>(&goodies);
    addOn.put<HostSlot::Element_GetIFCAttributes>(&getAttributes);
    addOn.put<HostSlot::Element_SetIFCAttribute>(&testing_support::setAttribute);
    addOn.put<HostSlot::Element_GetIFCProperties>(&getProperties);
    addOn.put<HostSlot::Element_SetIFCProperty>(&testing_support::setProperty);
    addOn.put<HostSlot::Element_GetIFCClassificationReferences>(&getClassifications);
    addOn.put<HostSlot::Element_SetIFCClassificationReference>(&testing_support::setClassification);
    EXPECT_EQ(addOn.bind(), NoError);
}

FakeHost::~FakeHost() {
    addOn.exported.freeData();
    current = nullptr;
}

void FakeHost::start() {
    API_EnvirParams envir{};
    EXPECT_EQ(addOn.exported.checkEnvironment(&envir), APIAddon_Normal);
    EXPECT_EQ(addOn.exported.registerInterface(), NoError);
    EXPECT_EQ(addOn.initialize(&client), NoError);
}

GSErrCode FakeHost::pickMenuItem(Int32 item, Int16 menuResID) {
    if (menuHandler == nullptr) start();
    const API_MenuParams params{{.menuResID = menuResID, .itemIndex = item}};
    return menuHandler(&params);
}

// --- The fixture ---------------------------------------------------------------------------------------------------

const std::string FakeHostTest::guid = guidText(1);

std::string FakeHostTest::line(std::string_view item, std::string_view value) {
    return guid + "\t" + std::string(item) + "\t\t" + std::string(value) + "\n";
}

std::string FakeHostTest::setValue(std::string_view item, std::string_view value) {
    return importUpdates(line(item, value), [](ImportDialog& dialog) { dialog.tick(1).apply(); }).at(0).remarks;
}

void FakeHostTest::run(Int32 item) {
    EXPECT_EQ(host_.pickMenuItem(item), NoError);
}

// --- Records -------------------------------------------------------------------------------------------------------

API_IFCAttribute attribute(const char* name, const char* value) {
    return {name, value};
}

API_IFCPropertyValue integerValue(Int64 value) {
    API_IFCPropertyValue result;
    result.valueType = "IfcInteger";
    result.primitiveType = API_IFCIntegerType;
    result.integerValue = value;
    return result;
}

API_IFCPropertyValue realValue(double value) {
    API_IFCPropertyValue result;
    result.valueType = "IfcReal";
    result.primitiveType = API_IFCRealType;
    result.realValue = value;
    return result;
}

API_IFCPropertyValue booleanValue(unsigned char value) {
    API_IFCPropertyValue result;
    result.valueType = "IfcBoolean";
    result.primitiveType = API_IFCBooleanType;
    result.booleanValue = value;
    return result;
}

API_IFCPropertyValue logicalValue(Int64 code) {
    API_IFCPropertyValue result;
    result.valueType = "IfcLogical";
    result.primitiveType = API_IFCLogicalType;
    result.integerValue = code;
    return result;
}

API_IFCPropertyValue stringValue(const char* value) {
    API_IFCPropertyValue result;
    result.valueType = "IfcLabel";
    result.stringValue = value;
    return result;
}

API_IFCProperty property(const char* set, const char* name, const API_IFCPropertyValue& value) {
    API_IFCProperty result;
    result.head.propertySetName = set;
    result.head.propertyName = name;
    result.singleValue.nominalValue = value;
    return result;
}

API_IFCProperty propertyOfKind(const char* name, Int32 kind) {
    API_IFCProperty result = property("Pset_A", name, stringValue("a value that is not shown"));
    result.head.kind = kind;
    return result;
}

API_IFCClassificationReference classification(const char* system, const char* itemReference, const char* name) {
    API_IFCClassificationReference result;
    result.systemLabel = system;
    result.itemReference = {itemReference, true};
    result.name = {name, true};
    return result;
}

}  // namespace testing_support
