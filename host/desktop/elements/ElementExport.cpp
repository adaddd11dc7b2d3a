#include "desktop/elements/ElementExport.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WholeFile.hpp"
#include "desktop/elements/ValueText.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/ExportLine.hpp"

#include <QCoreApplication>
#include <QFileInfo>
#include <iterator>

namespace desktop {

namespace {

using updatefile::CurrentText;
using updatefile::ElementData;

CurrentText::Source sourceOf(ItemKind kind) {
    return kind == ItemKind::Attribute  ? CurrentText::Source::Attribute
           : kind == ItemKind::Property ? CurrentText::Source::Property
                                        : CurrentText::Source::Classification;
}

/// An item as the column of an export.
class ItemColumn {
public:
    explicit ItemColumn(const Item& item)
        : item_(item), designation_(item.designation()), set_(text::fromUtf8(item.set.toStdString())) {
        const std::string_view name = updatefile::nameIn(designation_);
        name_ = text::fromUtf8(name);
        if (item.kind == ItemKind::Attribute && name == "GlobalId") forReader_ = true;
        // A name with a bracket in it: an update would take the part before that for the name.
        if (name != item.name.toStdString()) forReader_ = true;
    }

    /// The header, once all cells have been asked for.
    std::string header() const { return forReader_ ? '#' + item_.title().toStdString() : designation_; }

    std::string cell(const updatefile::LineSubject& subject, const ElementData& data) {
        const model::Property* property = find(data);
        if (item_.kind == ItemKind::Property && !property) return {};
        const CurrentText current = updatefile::currentText(data, name_);
        if (current.source == CurrentText::Source::None) return {};
        if (current.source != sourceOf(item_.kind) || current.ambiguous) forReader_ = true;
        if (forReader_ && property) return valueText(*property).toStdString();
        const updatefile::ExportLine line = updatefile::exportLine(subject, designation_, current);
        return line.obstacle == updatefile::Obstacle::None ? line.value : std::string();
    }

private:
    const model::Property* find(const ElementData& data) const {
        for (const model::Property& property : data.properties)
            if (property.name == name_ && property.set == set_) return &property;
        return nullptr;
    }

    Item item_;
    std::string designation_;
    std::u16string set_, name_;
    bool forReader_ = false;
};

/// What of it cannot be read has no cells; the element's data say why.
ElementData dataOf(const model::Model& model, model::Element element) {
    ElementData data;
    if (auto attributes = model.attributes(element)) data.attributes = std::move(*attributes);
    if (auto properties = model.properties(element)) data.properties = std::move(*properties);
    if (auto references = model.classifications(element)) data.classifications = std::move(*references);
    return data;
}

}  // namespace

tables::Grid gridOf(const model::Model& model, const std::vector<model::Element>& elements,
                    const FurtherColumns& further) {
    tables::Grid grid{{std::begin(tables::GridColumns), std::end(tables::GridColumns)}, {}};
    std::vector<ItemColumn> items(further.items.begin(), further.items.end());
    grid.rows.reserve(elements.size());
    for (const model::Element element : elements) {
        const model::ElementInfo info = model.info(element);
        const std::string guid = text::guidText(info.guid), name = text::toUtf8(model.name(element));
        auto& row = grid.rows.emplace_back(std::vector<std::string>{
            guid, model.storey(element), std::string(info.ifcClass), info.typeName.english(), name});
        if (further.rooms) row.push_back(further.rooms->room(element).toStdString());
        if (items.empty()) continue;
        const ElementData data = dataOf(model, element);
        const updatefile::LineSubject subject{guid, info.guid == model::Guid{}, !name.empty()};
        for (ItemColumn& item : items) row.push_back(item.cell(subject, data));
    }
    if (further.rooms) grid.columns.emplace_back("#Room");
    for (const ItemColumn& item : items) grid.columns.push_back(item.header());
    return grid;
}

QString writeGrid(const tables::Grid& grid, const QString& path) {
    const QString ending = QFileInfo(path).suffix().toLower();
    std::string bytes;
    if (ending == QStringLiteral("xlsx")) {
        auto workbook = tables::writeWorkbook(grid, true);
        if (!workbook) return toQString(workbook.error().message);
        bytes = std::move(*workbook);
    } else if (ending == QStringLiteral("csv") || ending == QStringLiteral("tsv")) {
        bytes = tables::writeDelimited(grid, ending == QStringLiteral("csv") ? ',' : '\t');
    } else {
        return QCoreApplication::translate("desktop::ElementExport", "A table's name ends in .xlsx, .csv or .tsv.");
    }
    return writeWhole(path, bytes);
}

}  // namespace desktop
