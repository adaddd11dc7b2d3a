#pragma once
// A host of the test's own making around the real add-on: it answers with the records and the errors that the test
// sets, what no model holds and no well-behaved host does included, and keeps what it is told. Every GUID names its
// element.
//
//     class ValueText : public FakeHostTest {};
//     TEST_F(ValueText, IntegerKeepsItsSign) {
//         host.properties.Push(property("Pset_A", "Count", integerValue(-7)));
//         EXPECT_EQ(review(line("Count", "1"))[0].current, "-7");
//     }

#include "support/AddOnFixture.hpp"
#include "support/RawAddOn.hpp"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace testing_support {

class FakeHost {
public:
    /// An element called "Wall-01" without anything else. The add-on is bound, not started.
    FakeHost();
    ~FakeHost();
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    /// Runs the whole start.
    void start();
    GSErrCode pickMenuItem(Int32 item, Int16 menu = 32500);

    RawAddOn addOn;
    int client = 0;  ///< Its address is the add-on's handle.

    // What it answers.
    API_ElemTypeID typeID = 1;
    std::optional<GS::UniString> typeName = GS::UniString("Wall");  ///< Nothing: the request for it fails.
    GS::Array<API_IFCAttribute> attributes;
    GS::Array<API_IFCProperty> properties;
    GS::Array<API_IFCClassificationReference> classifications;
    GSErrCode elementError = NoError;
    GSErrCode attributesError = NoError, propertiesError = NoError, classificationsError = NoError;
    GSErrCode setError = NoError;
    GSErrCode menuError = NoError, handlerError = NoError;
    std::function<void()> inAttributes;           ///< Called while the attributes are asked for.
    std::function<void(API_Element&)> inElement;  ///< Called with the element that is asked for.

    // What it was told.
    APIMenuCommandProc* menuHandler = nullptr;
    Int32 handledMenu = 0;
    std::optional<API_MenuRegistration> menu;
    std::vector<std::string> asked;  ///< The names of the operations that ask for IFC data, in order.
    std::vector<std::string> undoNames;
    std::vector<API_Guid> changed;
    std::vector<API_IFCAttribute> setAttributes;
    std::vector<API_IFCProperty> setProperties;
    std::vector<API_IFCClassificationReference> setClassifications;
};

class FakeHostTest : public AddOnFixture {
protected:
    /// The element of the update lines.
    static const std::string guid;

    /// An update line for the element, with its line end.
    static std::string line(std::string_view item, std::string_view value);
    /// Applies one value. @return the row's remarks afterwards: "Done" or "error!".
    std::string setValue(std::string_view item, std::string_view value);

    FakeHost host_;

private:
    void run(Int32 item) override;
};

// --- Records -------------------------------------------------------------------------------------------------------

API_IFCAttribute attribute(const char* name, const char* value);
API_IFCPropertyValue integerValue(Int64 value);
API_IFCPropertyValue realValue(double value);
API_IFCPropertyValue booleanValue(unsigned char value);
API_IFCPropertyValue logicalValue(Int64 code);
API_IFCPropertyValue stringValue(const char* value);
API_IFCProperty property(const char* set, const char* name, const API_IFCPropertyValue& value);
API_IFCProperty propertyOfKind(const char* name, Int32 kind);
API_IFCClassificationReference classification(const char* system, const char* itemReference, const char* name);

}  // namespace testing_support
