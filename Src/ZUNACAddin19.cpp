// The add-on: its start, its menu and its two commands. "Import updates" reads a file of proposed changes, shows each
// of them beside what the model holds, and writes those that the user ticks. "Look up an element" lists what one
// element carries.
//
// Nothing outlives a command. The list in the import dialog is the only store of the proposed changes, of their ticks
// and of what became of them: what is applied is what is shown.

#include "ACAPlib.hpp"
#include "DialogManager.hpp"
#include "File.hpp"
#include "FileTypeManager.hpp"

#include <cstdio>
#include <cstdlib>
#include <limits>

// --- Resources -----------------------------------------------------------------------------------------------------

static constexpr Int16 AddOnStrResID = 32000;  // 1: name, 2: description
static constexpr Int16 MenuStrResID = 32500;
static constexpr Int16 PromptStrResID = 32520;
static constexpr Int16 LookupDialogResID = 32500;
static constexpr Int16 ImportDialogResID = 32501;
static constexpr Int16 ImportHeaderStrResID = 32501;  // one text a column

enum MenuItemIndex : Int32 { ImportUpdatesMenuItem = 1, LookupElementMenuItem = 2 };

// The pair under which the help folder is registered.
static constexpr UInt32 HelpDeveloperId = 0x58703953;  // 'Xp9S'
static constexpr Int32 HelpLocalId = -1312990621;      // 0xB1BD5A63

// --- The model, as both commands see it ----------------------------------------------------------------------------

/// A text that is no GUID gives the null GUID, which names no element: the host's verdict on the fetch covers both.
static API_Guid guidOf(const GS::UniString& guidText) {
    GS::Guid guid;
    guid.ConvertFromString(guidText);
    return GSGuid2APIGuid(guid);
}

static GSErrCode getElement(const API_Guid& guid, API_Element* element) {
    *element = API_Element{};
    element->header.guid = guid;
    return ACAPI_Element_Get(element, 0);
}

/// The display name of an element's type; empty where the host has none.
static GS::UniString getTypeName(const API_Element& element) {
    GS::UniString typeName;
    const auto typeID = static_cast<std::intptr_t>(element.header.typeID);
    ACAPI_Goodies(APIAny_GetElemTypeName, reinterpret_cast<void*>(typeID), &typeName, nullptr);
    return typeName;
}

/// Cuts *head[inner]* in two at the first `bracket`. The last unit of the text is taken for the closing bracket and is
/// dropped whatever it is. Without a bracket all of the text is the head.
/// @return whether there is a bracket.
static bool splitAtBracket(const GS::UniString& text, char16_t bracket, GS::UniString* head, GS::UniString* inner) {
    const UIndex at = text.FindFirst(bracket);
    if (at >= text.GetLength()) {
        *head = text;
        inner->Clear();
        return false;
    }
    *head = text.GetSubstring(0, at);
    *inner = text.GetSubstring(Int64{at} + 1, Int64{text.GetLength()} - at - 2);
    return true;
}

static GS::UniString textBefore(const GS::UniString& text, char16_t bracket) {
    return text.GetSubstring(0, text.FindFirst(bracket));
}

/// A text as a cell of a list row shows it: a TAB inside it would start the row's next cell.
static GS::UniString cellText(const GS::UniString& text) {
    GS::UniString shown = text;
    if (shown.FindFirst(u'\t') != MaxUIndex) shown.ReplaceAll("\t", " ");
    return shown;
}

// --- A property's value as text ------------------------------------------------------------------------------------

static GS::UniString integerText(Int64 value) {
    char buffer[std::numeric_limits<Int64>::digits10 + 3];
    std::snprintf(buffer, sizeof buffer, "%lli", static_cast<long long>(value));
    return buffer;
}

/// Six decimals whatever the magnitude, all digits before the point: the largest double takes 309 of them.
static GS::UniString realText(double value) {
    char buffer[std::numeric_limits<double>::max_exponent10 + 10];
    std::snprintf(buffer, sizeof buffer, "%f", value);
    return buffer;
}

static GS::UniString logicalText(Int64 code) {
    switch (code) {
        case API_IFCFalse:
            return "false";
        case API_IFCUnknown:
            return "unknown";
        case API_IFCTrue:
            return "true";
        default:
            return {};
    }
}

static GS::UniString singleValueText(const API_IFCPropertyValue& value) {
    switch (value.primitiveType) {
        case API_IFCIntegerType:
            return integerText(value.integerValue);
        case API_IFCRealType:
            return realText(value.realValue);
        case API_IFCBooleanType:
            return (value.booleanValue & 1U) != 0 ? "true" : "false";
        case API_IFCLogicalType:
            return logicalText(value.integerValue);
        case API_IFCStringType:
            return value.stringValue;
        default:
            return {};
    }
}

/// The text that both dialogs show, and that a new value is compared with.
static GS::UniString getIFCPropertyValue(API_IFCProperty property) {
    switch (property.head.kind) {
        case API_IFCPropertySingleValueType:
            return singleValueText(property.singleValue.nominalValue);
        case API_IFCPropertyListValueType:
            return "???? List Value";
        case API_IFCPropertyBoundedValueType:
            return "???? Bounded Value";
        case API_IFCPropertyEnumeratedValueType:
            return "???? Enum Value";
        case API_IFCPropertyTableValueType:
            return "???? Table Value";
        default:
            return {};
    }
}

// --- Writing a value -----------------------------------------------------------------------------------------------

/// Whether `lower` or `upper` is not the text's first letter, which is so of every text, since one of the two is not:
/// "false" is written as true. Kept, because existing update files rely on it.
static bool isNotFirst(const GS::UniString& text, char16_t lower, char16_t upper) {
    return text.FindFirst(lower) != 0 || text.FindFirst(upper) != 0;  // GCOV_EXCL_BR_LINE: never false
}

static API_IFCLogical logicalOf(const GS::UniString& text) {
    if (isNotFirst(text, u't', u'T')) return API_IFCTrue;  // GCOV_EXCL_BR_LINE: always
    // Never reached, since the line above is true of every text. It says what the rule was meant to be.
    return isNotFirst(text, u'f', u'F') ? API_IFCFalse : API_IFCUnknown;  // GCOV_EXCL_LINE: see above
}

/// Writes a text into a property as a value of the type that the property has. Properties that are not single values
/// stay as they are.
static void setIFCPropertyValue(API_IFCProperty* property, GS::UniString text) {
    if (property->head.kind != API_IFCPropertySingleValueType) return;

    API_IFCPropertyValue& value = property->singleValue.nominalValue;
    switch (value.primitiveType) {
        case API_IFCIntegerType:
            value.integerValue = std::atoi(text.ToCStr());
            break;
        case API_IFCRealType:
            value.realValue = std::atof(text.ToCStr());
            break;
        case API_IFCBooleanType:
            value.booleanValue = isNotFirst(text, u't', u'T') ? 1 : 0;  // GCOV_EXCL_BR_LINE: always
            break;
        case API_IFCLogicalType:
            value.integerValue = logicalOf(text);
            break;
        case API_IFCStringType:
            value.stringValue = text;
            break;
        default:
            break;
    }
}

/// The type of a property that does not exist yet. A leading number is enough: *2.75* begins with an integer and makes
/// an IfcInteger, only a text like *.5* makes an IfcReal.
static void chooseValueType(const GS::UniString& text, API_IFCPropertyValue* value) {
    Int64 integer = 0;
    double real = 0.0;
    if (text == "true" || text == "false") {
        value->primitiveType = API_IFCBooleanType;
        value->valueType = "IfcBoolean";
    } else if (text.SScanf("%i", &integer) == 1) {
        value->primitiveType = API_IFCIntegerType;
        value->valueType = "IfcInteger";
    } else if (text.SScanf("%f", &real) == 1) {
        value->primitiveType = API_IFCRealType;
        value->valueType = "IfcReal";
    } else {
        value->primitiveType = API_IFCStringType;
        value->valueType = "IfcLabel";
    }
}

static API_IFCProperty newProperty(const GS::UniString& setName, const GS::UniString& name, const GS::UniString& text) {
    API_IFCProperty property;
    property.head.propertySetName = setName;
    property.head.propertyName = name;
    property.head.kind = API_IFCPropertySingleValueType;
    property.head.inherited = false;
    chooseValueType(text, &property.singleValue.nominalValue);
    return property;
}

/// One attempt to write a value: the designation may have named something else, or the host has given its verdict.
enum class Attempt { NoMatch, Written, Failed };

static Attempt attemptOf(GSErrCode error) {
    return error == NoError ? Attempt::Written : Attempt::Failed;
}

static Attempt setAttribute(const API_Guid& guid, const GS::UniString& name, const GS::UniString& value) {
    GS::Array<API_IFCAttribute> attributes;
    if (ACAPI_Element_GetIFCAttributes(guid, false, &attributes) != NoError) return Attempt::NoMatch;

    for (const API_IFCAttribute& attribute : attributes) {
        if (attribute.attributeName != name) continue;
        API_IFCAttribute changed = attribute;
        changed.attributeValue = value;
        return attemptOf(ACAPI_Element_SetIFCAttribute(guid, changed));
    }
    return Attempt::NoMatch;
}

static Attempt writeProperty(const API_Guid& guid, API_IFCProperty property, const GS::UniString& value) {
    setIFCPropertyValue(&property, value);
    return attemptOf(ACAPI_Element_SetIFCProperty(guid, property));
}

/// The first property of the name is written, in whichever set it stands: the set that the designation names only says
/// where a property goes that the element has in no set.
static Attempt setProperty(const API_Guid& guid, const GS::UniString& setName, const GS::UniString& name,
                           const GS::UniString& value) {
    GS::Array<API_IFCProperty> properties;
    if (ACAPI_Element_GetIFCProperties(guid, false, &properties) != NoError) return Attempt::NoMatch;

    for (const API_IFCProperty& property : properties)
        if (property.head.propertyName == name) return writeProperty(guid, property, value);

    if (setName.IsEmpty()) return Attempt::NoMatch;
    return writeProperty(guid, newProperty(setName, name, value), value);
}

/// Completes a reference to one of the two systems whose source is known.
/// @return false for every other system.
static bool describeSystem(const GS::UniString& systemLabel, API_IFCClassificationReference* reference) {
    if (systemLabel == "SpecSection Classification") {
        reference->location.text = "www.csiresources.org/masterformat";
        reference->referencedSource.classificationName = "MasterFormat2012";
    } else if (systemLabel == "UniFormat Classification") {
        reference->location.text = "www.csiresources.org/uniformat";
        reference->referencedSource.classificationName = "UniFormat";
    } else {
        return false;
    }
    reference->systemLabel = systemLabel;
    reference->location.present = true;
    reference->referencedSource.source = reference->location.text;
    return true;
}

static Attempt writeClassification(const API_Guid& guid, API_IFCClassificationReference reference,
                                   const GS::UniString& value) {
    splitAtBracket(value, u'{', &reference.itemReference.text, &reference.name.text);
    reference.itemReference.present = true;
    reference.name.present = true;
    return attemptOf(ACAPI_Element_SetIFCClassificationReference(guid, reference));
}

static Attempt setClassification(const API_Guid& guid, const GS::UniString& systemLabel, const GS::UniString& value) {
    GS::Array<API_IFCClassificationReference> references;
    if (ACAPI_Element_GetIFCClassificationReferences(guid, false, &references) != NoError) return Attempt::Failed;

    for (const API_IFCClassificationReference& reference : references)
        if (reference.systemLabel == systemLabel) return writeClassification(guid, reference, value);

    API_IFCClassificationReference reference;
    return describeSystem(systemLabel, &reference) ? writeClassification(guid, reference, value) : Attempt::NoMatch;
}

/// Writes a new value into what a designation names on an element: an attribute, else a property, else a classification
/// reference. @return whether it was written.
static bool setValue(GS::UniString guidText, GS::UniString designation, GS::UniString value) {
    const API_Guid guid = guidOf(guidText);
    API_Element element;
    if (getElement(guid, &element) != NoError) return false;  // Only to know that there is one.

    GS::UniString name, setName;
    if (splitAtBracket(designation, u'[', &name, &setName)) setName.Insert(0, "Pset_");

    Attempt attempt = setAttribute(guid, name, value);
    if (attempt == Attempt::NoMatch) attempt = setProperty(guid, setName, name, value);
    if (attempt == Attempt::NoMatch) attempt = setClassification(guid, name, value);
    return attempt == Attempt::Written;
}

// --- The update file -----------------------------------------------------------------------------------------------

static constexpr UIndex LineFieldCount = 4;
enum LineField : UIndex { GuidField = 0, DesignationField = 1, NewValueField = 3 };

/// Lets the user pick the update file. `location` gets the dialog's answer whether or not the user confirmed.
static bool Select_a_TXTFile(IO::Location* location) {
    FTM::FileTypeManager manager("myConfManager");
    const FTM::FileType type("TXT File", "txt", 0, 0, 0, nullptr, nullptr, true);
    const FTM::TypeID typeID = manager.AddType(type, FTM::RootGroup);

    DG::FileDialog dialog(DG::FileDialog::OpenFile);
    dialog.SelectFilter(dialog.AddFilter(typeID, 0));
    dialog.SetTitle("Select a TXT file");
    const bool confirmed = dialog.Invoke();
    *location = dialog.GetSelectedFile(0);

    manager.RemoveType(typeID);
    return confirmed;
}

/// Reads the next line that is not empty; CR and LF both end a line. A line of more than 2047 bytes ends there, and
/// what is left of it is the next line.
/// @return false where the last read failed. So a last line without a line end does not count.
static bool getLine(IO::File* file, GS::UniString* line) {
    char buffer[2048];
    USize count = 0;
    GSErrCode error = NoError;
    while (count < sizeof buffer - 1) {
        char byte = '\0';
        error = file->ReadBin(&byte, 1);
        if (error != NoError) break;
        const bool lineEnd = byte == '\r' || byte == '\n';
        if (lineEnd && count > 0) break;
        if (!lineEnd) buffer[count++] = byte;
    }
    buffer[count] = '\0';
    *line = buffer;
    return error == NoError;
}

/// Cuts a line into its fields at TABs. A field that the line does not supply keeps what an earlier line left in it; a
/// line that begins with a TAB supplies none.
static void cutLine(GS::UniString line, GS::UniString* fields) {
    line += "\t";
    UIndex start = 0;
    for (UIndex i = 0; i < LineFieldCount; ++i) {
        const auto tab = static_cast<Int32>(line.FindFirst(u'\t', start));
        if (tab <= 0) continue;
        const auto end = static_cast<UIndex>(tab);
        fields[i] = line.GetSubstring(start, Int64{end} - start);
        start = end + 1;
    }
}

// --- One line of the file, checked against the model: one row of the review list -----------------------------------

static constexpr Int16 ColumnCount = 8;
enum Column : Int16 {
    TickColumn = 1,
    ElementNameColumn = 2,
    ElementTypeColumn = 3,
    GuidColumn = 4,
    PropertyColumn = 5,
    CurrentValueColumn = 6,
    NewValueColumn = 7,
    MessageColumn = 8
};

static constexpr const char* Ticked = "[X]";
static constexpr const char* NotTicked = "[  ]";

/// Looks among the attributes for the element's name and for the item. Every attribute is visited: of several of one
/// name the last supplies the value. @return whether the item is an attribute.
static bool findAttribute(const API_Guid& guid, const GS::UniString& item, GS::UniString* elementName,
                          GS::UniString* currentValue) {
    GS::Array<API_IFCAttribute> attributes;
    if (ACAPI_Element_GetIFCAttributes(guid, false, &attributes) != NoError) return false;

    bool matched = false;
    for (const API_IFCAttribute& attribute : attributes) {
        DBPrintf(("Property: " + attribute.attributeName).ToCStr());
        if (attribute.attributeName == "Name") *elementName = attribute.attributeValue;
        if (attribute.attributeName != item) continue;
        *currentValue = attribute.attributeValue;
        matched = true;
    }
    return matched;
}

/// Property sets play no part; of several properties of one name the last supplies the value.
static bool findProperty(const API_Guid& guid, const GS::UniString& item, GS::UniString* currentValue) {
    GS::Array<API_IFCProperty> properties;
    if (ACAPI_Element_GetIFCProperties(guid, false, &properties) != NoError) return false;

    bool matched = false;
    for (const API_IFCProperty& property : properties) {
        if (property.head.propertyName != item) continue;
        *currentValue = getIFCPropertyValue(property);
        matched = true;
    }
    return matched;
}

static bool findClassification(const API_Guid& guid, const GS::UniString& item, GS::UniString* currentValue) {
    GS::Array<API_IFCClassificationReference> references;
    if (ACAPI_Element_GetIFCClassificationReferences(guid, false, &references) != NoError) return false;

    bool matched = false;
    for (const API_IFCClassificationReference& reference : references) {
        if (reference.systemLabel != item) continue;
        *currentValue = reference.itemReference.text;
        matched = true;
    }
    return matched;
}

/// The row's text: the tick and, each behind a TAB, the other columns. `columns` is indexed by Column.
static GS::UniString rowText(const GS::UniString* columns) {
    GS::UniString text = NotTicked;
    for (Int16 column = ElementNameColumn; column <= ColumnCount; ++column) {
        text += "\t";
        text += cellText(columns[column]);
    }
    return text;
}

static void appendRow(Int16 dialogId, Int16 listItem, const GS::UniString& text, Int16 status, bool red) {
    DGListInsertItem(dialogId, listItem, DG_LIST_BOTTOM);
    DGListSetItemText(dialogId, listItem, DG_LIST_BOTTOM, text);
    DGListSetItemStatus(dialogId, listItem, DG_LIST_BOTTOM, status);
    if (red) DGListSetItemColor(dialogId, listItem, DG_LIST_BOTTOM, 0xFFFF, 0, 0);
}

static void convertBoolean(GS::UniString* value) {
    if (*value == ".T.") {
        *value = "true";
    } else if (*value == ".F.") {
        *value = "false";
    }
}

/// Fills the columns that come from the model. @return whether the element has the item.
static bool readCurrentState(const API_Element& element, GS::UniString* columns) {
    const API_Guid& guid = element.header.guid;
    const GS::UniString item = textBefore(columns[PropertyColumn], u'[');
    GS::UniString* currentValue = &columns[CurrentValueColumn];

    columns[ElementTypeColumn] = getTypeName(element);
    return findAttribute(guid, item, &columns[ElementNameColumn], currentValue) ||
           findProperty(guid, item, currentValue) || findClassification(guid, item, currentValue);
}

/// Appends the remarks to the message column.
/// @param status, red  set where the row is not to be applied, and where it is to stand out.
static void judgeRow(bool matched, GS::UniString* columns, Int16* status, bool* red) {
    GS::UniString& remarks = columns[MessageColumn];
    if (!matched) remarks += " Property not found.";

    if (columns[ElementTypeColumn].IsEmpty() || columns[ElementNameColumn].IsEmpty()) {
        remarks += " Element / Type not found.";
        *status = DG_IS_DISABLE;
        *red = true;
    }
    if (columns[CurrentValueColumn] == textBefore(columns[NewValueColumn], u'{')) {
        remarks += " Old and new values are the same.";
        *status = DG_IS_DISABLE;
    }
}

/// Makes one row from a line's fields. A line whose element does not exist makes none. In place, a boolean's short form
/// in the new value becomes the word.
static void addTableLine(Int16 dialogId, Int16 listItem, GS::UniString* fields) {
    try {
        API_Element element;
        if (getElement(guidOf(fields[GuidField]), &element) != NoError) return;

        convertBoolean(&fields[NewValueField]);
        GS::UniString columns[ColumnCount + 1];
        columns[GuidColumn] = fields[GuidField];
        columns[PropertyColumn] = fields[DesignationField];
        columns[NewValueColumn] = fields[NewValueField];

        Int16 status = DG_IS_ENABLE;
        bool red = false;
        judgeRow(readCurrentState(element, columns), columns, &status, &red);
        appendRow(dialogId, listItem, rowText(columns), status, red);
    } catch (const GS::GSException& exception) {
        DBPrintf((exception.GetMessage() + "\n").ToCStr());
    }
}

// --- The import dialog ---------------------------------------------------------------------------------------------

enum ImportItem : Int16 {
    ApplyButton = 1,
    ImportCloseButton = 2,
    SelectAllButton = 3,
    DeselectAllButton = 4,
    ReviewList = 5
};

static void setTabField(Int16 dialogId, Int16 listItem, Int16 field, int begin, int end, bool separator) {
    DGListSetTabFieldData(dialogId, listItem, field, static_cast<Int16>(begin), static_cast<Int16>(end), 0, 0,
                          separator, true);
}

static void setHeaderItem(Int16 dialogId, Int16 listItem, Int16 headerItem, const GS::UniString& text) {
    DGListSetHeaderItemFlags(dialogId, listItem, headerItem, false, true);
    DGListSetHeaderItemText(dialogId, listItem, headerItem, text);
}

static GS::UniString columnTitle(Int16 column) {
    char title[ACAPI_ResourceTextSize];
    ACAPI_Resource_GetLocStr(title, ImportHeaderStrResID, column, ACAPI_GetOwnResModule());
    return title;
}

/// Eight columns of one width; the last takes what the division leaves.
static void layOutReviewList(Int16 dialogId) {
    const Int16 width = DGListGetItemWidth(dialogId, ReviewList);
    const int step = width / ColumnCount;
    DGListSetTabFieldCount(dialogId, ReviewList, ColumnCount);
    DGListSetHeaderItemCount(dialogId, ReviewList, ColumnCount);
    DGListSetHeaderFlags(dialogId, ReviewList, true, false, false);
    for (Int16 column = 1; column <= ColumnCount; ++column) {
        const int end = column < ColumnCount ? step * column - 1 : width;
        setTabField(dialogId, ReviewList, column, step * (column - 1), end, true);
        setHeaderItem(dialogId, ReviewList, column, columnTitle(column));
    }
}

static void addRowsOfFile(Int16 dialogId, IO::File* file) {
    GS::UniString line;
    GS::UniString fields[LineFieldCount];
    while (getLine(file, &line)) {
        cutLine(line, fields);
        addTableLine(dialogId, ReviewList, fields);
    }
}

/// A file that cannot be opened leaves the list empty.
static void initImportDialog(Int16 dialogId, const IO::Location& updateFile) {
    DGListDisableDraw(dialogId, ReviewList);
    layOutReviewList(dialogId);

    IO::File file(updateFile, IO::File::Fail);
    if (file.Open(IO::File::ReadMode, IO::File::AccessDeniedFail) == NoError) addRowsOfFile(dialogId, &file);

    DGListEnableDraw(dialogId, ReviewList);
    DGInvalidateItem(dialogId, ReviewList);
    file.Close();
}

/// Calls `visit(row)` for each row, from the top. A full list has 32,767 rows, and a row number is a signed 16-bit
/// value: counting in one would never get past the last row.
template <class Visitor>
static void forEachRow(Int16 dialogId, Visitor visit) {
    const Int16 count = DGListGetItemCount(dialogId, ReviewList);
    for (int row = 1; row <= count; ++row) visit(static_cast<Int16>(row));
}

static void setTick(Int16 dialogId, Int16 row, const char* tick) {
    DGListSetTabItemText(dialogId, ReviewList, row, TickColumn, tick);
}

static void selectAll(Int16 dialogId) {
    forEachRow(dialogId, [dialogId](Int16 row) {
        if (DGListGetItemStatus(dialogId, ReviewList, row) == DG_IS_ENABLE) setTick(dialogId, row, Ticked);
    });
}

static void deselectAll(Int16 dialogId) {
    forEachRow(dialogId, [dialogId](Int16 row) { setTick(dialogId, row, NotTicked); });
}

/// A click in the tick column turns the row's tick over, whatever the row's status: the apply pass looks at that.
static void clickReviewList(Int16 dialogId, const DGListClick& click) {
    Int16 begin = 0, end = 0;
    bool inUse = false;
    DGListGetTabFieldData(dialogId, ReviewList, TickColumn, &begin, &end, nullptr, nullptr, nullptr, &inUse);
    if (!inUse || click.x < begin || click.x > end) return;

    const bool notTicked = DGListGetTabItemText(dialogId, ReviewList, click.row, TickColumn) == NotTicked;
    setTick(dialogId, click.row, notTicked ? Ticked : NotTicked);
}

static bool isToBeApplied(Int16 dialogId, Int16 row) {
    return DGListGetItemStatus(dialogId, ReviewList, row) == DG_IS_ENABLE &&
           DGListGetTabItemText(dialogId, ReviewList, row, TickColumn) == Ticked;
}

/// A row that fails keeps its tick and its status, so that the next press of Apply tries it again.
static void applyRow(Int16 dialogId, Int16 row) {
    const GS::UniString guid = DGListGetTabItemText(dialogId, ReviewList, row, GuidColumn);
    const GS::UniString property = DGListGetTabItemText(dialogId, ReviewList, row, PropertyColumn);
    const GS::UniString value = DGListGetTabItemText(dialogId, ReviewList, row, NewValueColumn);
    if (!setValue(guid, property, value)) {
        DGListSetTabItemText(dialogId, ReviewList, row, MessageColumn, "error!");
        return;
    }
    setTick(dialogId, row, NotTicked);
    DGListSetItemStatus(dialogId, ReviewList, row, DG_IS_DISABLE);
    DGListSetTabItemText(dialogId, ReviewList, row, MessageColumn, "Done");
}

/// One step of the host's undo queue. It always succeeds: an error would make the host take back the rows that were
/// written because others were not.
static void applyUpdates(Int16 dialogId) {
    ACAPI_CallUndoableCommand("Apply Quillmarsh updates", [dialogId]() -> GSErrCode {
        forEachRow(dialogId, [dialogId](Int16 row) {
            if (isToBeApplied(dialogId, row)) applyRow(dialogId, row);
        });
        return NoError;
    });
}

static Int16 clickImportDialog(Int16 dialogId, Int16 item, DGMessageData messageData) {
    switch (item) {
        case ApplyButton:
            applyUpdates(dialogId);
            return 0;
        case ImportCloseButton:
            return ImportCloseButton;
        case SelectAllButton:
            selectAll(dialogId);
            return 0;
        case DeselectAllButton:
            deselectAll(dialogId);
            return 0;
        case ReviewList:
            clickReviewList(dialogId, *reinterpret_cast<const DGListClick*>(messageData));
            return 0;
        default:
            return 0;
    }
}

/// Close stays at the right, Apply in the middle, the two selections at the left; the list's last column takes the
/// change in width.
static void resizeImportDialog(Int16 dialogId, Int16 growH, Int16 growV) {
    DGBeginMoveGrowItems(dialogId);
    DGMoveItem(dialogId, ImportCloseButton, growH, growV);
    DGMoveItem(dialogId, ApplyButton, static_cast<Int16>(growH / 2), growV);
    DGMoveItem(dialogId, SelectAllButton, 0, growV);
    DGMoveItem(dialogId, DeselectAllButton, 0, growV);
    DGMoveGrowItem(dialogId, ReviewList, 0, 0, growH, growV);
    Int16 begin = 0, end = 0;
    DGListGetTabFieldData(dialogId, ReviewList, ColumnCount, &begin, &end, nullptr, nullptr, nullptr, nullptr);
    setTabField(dialogId, ReviewList, ColumnCount, begin, end + growH, true);
    DGEndMoveGrowItems(dialogId);
}

/// @param userData  the address of the update file's location.
static Int16 ImportUpdates_Handler(Int16 message, Int16 dialogId, Int16 item, DGUserData userData,
                                   DGMessageData messageData) {
    switch (message) {
        case DG_MSG_INIT:
            initImportDialog(dialogId, *reinterpret_cast<const IO::Location*>(userData));
            return 0;
        case DG_MSG_CLICK:
            return clickImportDialog(dialogId, item, messageData);
        case DG_MSG_RESIZE:
            resizeImportDialog(dialogId, DGResizeHorizontal(messageData), DGResizeVertical(messageData));
            return 0;
        default:
            return 0;
    }
}

// --- The lookup dialog ---------------------------------------------------------------------------------------------

enum LookupItem : Int16 { LookupButton = 1, LookupCloseButton = 2, GuidEdit = 3, ResultList = 4 };

static void addpair(Int16 dialogId, GS::UniString name, GS::UniString value) {
    GS::UniString text = cellText(value);
    text.Insert(0, "\t");
    text.Insert(0, cellText(name));
    DGListInsertItem(dialogId, ResultList, DG_LIST_BOTTOM);
    DGListSetItemText(dialogId, ResultList, DG_LIST_BOTTOM, text);
}

static void initLookupDialog(Int16 dialogId) {
    const Int16 width = DGListGetItemWidth(dialogId, ResultList);
    DGListSetTabFieldCount(dialogId, ResultList, 2);
    setTabField(dialogId, ResultList, 1, 0, width / 2 - 1, true);
    setTabField(dialogId, ResultList, 2, width / 2, width, false);

    DGListSetHeaderItemCount(dialogId, ResultList, 2);
    DGListSetHeaderFlags(dialogId, ResultList, true, false, false);
    setHeaderItem(dialogId, ResultList, 1, "Property");
    setHeaderItem(dialogId, ResultList, 2, "Value");

    // Two sample GUIDs; the dialog opens with the second.
    DGSetItemText(dialogId, GuidEdit, "A32931C7-B3B2-4117-8D6A-3038DD4E9A78");
    DGSetItemText(dialogId, GuidEdit, "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");
}

/// The value of the row that an error makes; null for an error that makes none.
static const char* errorText(GSErrCode error) {
    switch (error) {
        case APIERR_BADID:
            return "BADID";
        case APIERR_BADINDEX:
            return "BADINDEX";
        case APIERR_BADPARS:
            return "BADPARS";
        case APIERR_DELETED:
            return "DELETED";
        default:
            return nullptr;
    }
}

static void addAttributeRows(Int16 dialogId, const API_Guid& guid) {
    GS::Array<API_IFCAttribute> attributes;
    if (ACAPI_Element_GetIFCAttributes(guid, false, &attributes) != NoError) {
        addpair(dialogId, "Err", "?");
        return;
    }
    for (const API_IFCAttribute& attribute : attributes)
        addpair(dialogId, attribute.attributeName, attribute.attributeValue);
}

static void addPropertyRows(Int16 dialogId, const API_Guid& guid) {
    GS::Array<API_IFCProperty> properties;
    if (ACAPI_Element_GetIFCProperties(guid, false, &properties) != NoError) return;

    for (const API_IFCProperty& property : properties) {
        const API_IFCPropertyHead& head = property.head;
        addpair(dialogId, head.propertyName + "[" + head.propertySetName + "]", getIFCPropertyValue(property));
    }
}

static void addClassificationRows(Int16 dialogId, const API_Guid& guid) {
    GS::Array<API_IFCClassificationReference> references;
    if (ACAPI_Element_GetIFCClassificationReferences(guid, false, &references) != NoError) return;

    for (const API_IFCClassificationReference& reference : references)
        addpair(dialogId, reference.systemLabel, reference.itemReference.text + " {" + reference.name.text + "}");
}

/// Appends all rows of one element below those that are there.
static void lookUpElement(Int16 dialogId) {
    const GS::UniString guidText = DGGetItemText(dialogId, GuidEdit);
    addpair(dialogId, "GUID", guidText);

    API_Element element;
    const GSErrCode error = getElement(guidOf(guidText), &element);
    if (error != NoError) {
        if (const char* text = errorText(error)) addpair(dialogId, "Error", text);
        return;
    }
    addpair(dialogId, "Type", getTypeName(element));
    addAttributeRows(dialogId, element.header.guid);
    addPropertyRows(dialogId, element.header.guid);
    addClassificationRows(dialogId, element.header.guid);
}

static Int16 clickLookupDialog(Int16 dialogId, Int16 item) {
    if (item == LookupCloseButton) return LookupCloseButton;
    if (item == LookupButton) lookUpElement(dialogId);
    return 0;
}

static void resizeLookupDialog(Int16 dialogId, Int16 growH, Int16 growV) {
    DGBeginMoveGrowItems(dialogId);
    DGMoveItem(dialogId, LookupButton, growH, growV);
    DGMoveItem(dialogId, LookupCloseButton, growH, growV);
    DGGrowItem(dialogId, GuidEdit, growH, 0);
    DGMoveGrowItem(dialogId, ResultList, 0, 0, growH, growV);
    DGEndMoveGrowItems(dialogId);
}

static Int16 LookupElement_Handler(Int16 message, Int16 dialogId, Int16 item, DGUserData /*userData*/,
                                   DGMessageData messageData) {
    switch (message) {
        case DG_MSG_INIT:
            initLookupDialog(dialogId);
            return 0;
        case DG_MSG_CLICK:
            return clickLookupDialog(dialogId, item);
        case DG_MSG_RESIZE:
            resizeLookupDialog(dialogId, DGResizeHorizontal(messageData), DGResizeVertical(messageData));
            return 0;
        default:
            return 0;
    }
}

// --- Menu commands -------------------------------------------------------------------------------------------------

static void runDialog(Int16 resID, DGDialogHandler handler, DGUserData userData) {
    DGModalDialog(ACAPI_GetOwnResModule(), resID, ACAPI_GetOwnResModule(), handler, userData);
}

static GSErrCode Do_ImportUpdates() {
    IO::Location updateFile;
    if (Select_a_TXTFile(&updateFile))
        runDialog(ImportDialogResID, &ImportUpdates_Handler, reinterpret_cast<DGUserData>(&updateFile));
    return NoError;
}

static GSErrCode Do_LookupElement() {
    runDialog(LookupDialogResID, &LookupElement_Handler, 0);
    return NoError;
}

/// The commands' results go nowhere: whatever the user should know stands in the dialogs' rows.
static GSErrCode MenuCommandHandler(const API_MenuParams* params) {
    if (params->menuItemRef.menuResID != MenuStrResID) return NoError;
    switch (params->menuItemRef.itemIndex) {
        case ImportUpdatesMenuItem:
            Do_ImportUpdates();
            break;
        case LookupElementMenuItem:
            Do_LookupElement();
            break;
        default:
            break;
    }
    return NoError;
}

// --- Help ----------------------------------------------------------------------------------------------------------

static GS::UniString displayText(const IO::Location& location) {
    GS::UniString text;
    location.ToDisplayText(&text);
    return text;
}

/// Tells where the host keeps the help of its add-ons.
static void printHelpFolder() {
    Int32 folder = API_HelpFolder;
    IO::Location location;
    ACAPI_Environment(APIEnv_GetSpecFolder, &folder, &location, nullptr);
    DBPrintf(("px=" + displayText(location)).ToCStr());
    DBPrintf("\n");
}

/// The folder that holds a file or folder; the whole path where it has no separator. A "/" counts before any "\\".
static GS::UniString parentFolder(GS::UniString path) {
    UIndex separator = path.FindLast(u'/');
    if (separator >= path.GetLength()) separator = path.FindLast(u'\\');
    if (separator < path.GetLength()) path.DeleteFrom(separator);
    return path;
}

static const char* statusMessage(GSErrCode status) {
    switch (status) {  // GCOV_EXCL_BR_LINE: see below
        case IO::Location::StatusOK:
            return "helpLoc is OK\n";
        // GCOV_EXCL_START: the host that the tests run in knows a location that is there and one that is not, no
        // others.
        case IO::Location::StatusMemoryFull:
            return "helpLoc is full\n";
        // GCOV_EXCL_STOP
        case IO::Location::StatusError:
            return "helpLoc is error\n";
        // GCOV_EXCL_START: as above
        default:
            return "helpLoc is unknown\n";
            // GCOV_EXCL_STOP
    }
}

/// Adds the folder that holds the add-on to the host's help. Failures are only logged.
static void registerHelp() {
    IO::Location ownLocation;
    ACAPI_GetOwnLocation(ownLocation);

    // Handed over: the host keeps the address, also while the add-on ends, and so it is never deleted.
    const auto* helpLocation = new IO::Location(parentFolder(displayText(ownLocation)));
    DBPrintf(statusMessage(helpLocation->GetStatus()));

    // Made before the registration, which may keep the host busy with the location.
    const GS::UniString message = "ZUNACAddon:: Additional Help at: \"" + displayText(*helpLocation) + "\"\n";
    const bool registered = DG::RegisterAdditionalHelpLocation(HelpDeveloperId, HelpLocalId, helpLocation, nullptr,
                                                               nullptr, nullptr, nullptr);
    DBPrintf(message.ToCStr());
    if (!registered) DBPrintf("register additional help failed\n");
}

// --- Called by the host --------------------------------------------------------------------------------------------

API_AddonType CheckEnvironment(API_EnvirParams* envir) {
    if (envir->applicationId != 0) return APIAddon_DontRegister;
    ACAPI_Resource_GetLocStr(envir->addOnInfo.name, AddOnStrResID, 1, ACAPI_GetOwnResModule());
    ACAPI_Resource_GetLocStr(envir->addOnInfo.description, AddOnStrResID, 2, ACAPI_GetOwnResModule());
    return APIAddon_Normal;
}

GSErrCode RegisterInterface() {
    const GSErrCode error = ACAPI_Register_Menu(MenuStrResID, PromptStrResID, 1, 0);
    if (error != NoError) DBPrintf("ZUNACAddon:: RegisterInterface() ACAPI_Register_Menu failed\n");
    return error;
}

GSErrCode Initialize() {
    const GSErrCode error = ACAPI_Install_MenuHandler(MenuStrResID, &MenuCommandHandler);
    if (error != NoError) DBPrintf("ZUNACAddon:: Initialize() ACAPI_Install_MenuHandler failed\n");
    printHelpFolder();
    registerHelp();
    return error;
}

GSErrCode FreeData() {
    DG::UnregisterAdditionalHelpLocation(HelpDeveloperId, HelpLocalId);
    return NoError;
}
