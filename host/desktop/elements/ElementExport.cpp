#include "desktop/elements/ElementExport.hpp"

#include "desktop/QtText.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>
#include <iterator>

namespace desktop {

namespace {

/// What cannot be read is an empty cell: it asks for nothing when the table comes back.
updatefile::ElementData dataOf(const model::Model& model, model::Element element) {
    updatefile::ElementData data;
    if (auto attributes = model.attributes(element)) data.attributes = std::move(*attributes);
    if (auto properties = model.properties(element)) data.properties = std::move(*properties);
    if (auto references = model.classifications(element)) data.classifications = std::move(*references);
    return data;
}

std::u16string nameOf(const std::string& item) {
    return toQString(std::string_view(item).substr(0, item.find('['))).toStdU16String();
}

}  // namespace

tables::Grid gridOf(const model::Model& model, const std::vector<model::Element>& elements,
                    const std::vector<std::string>& items) {
    tables::Grid grid{{std::begin(tables::GridColumns), std::end(tables::GridColumns)}, {}};
    grid.columns.insert(grid.columns.end(), items.begin(), items.end());
    grid.rows.reserve(elements.size());
    for (const model::Element element : elements) {
        const model::ElementInfo info = model.info(element);
        auto& row = grid.rows.emplace_back(
            std::vector<std::string>{text::guidText(info.guid), model.storey(element), std::string(info.ifcClass),
                                     std::string(info.typeName), text::toUtf8(model.name(element))});
        if (items.empty()) continue;
        const updatefile::ElementData data = dataOf(model, element);
        for (const std::string& item : items) {
            const updatefile::CurrentText current = updatefile::currentText(data, nameOf(item));
            row.push_back(current.plain ? text::toUtf8(current.text) : std::string());
        }
    }
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
    QSaveFile file(path);
    const auto size = static_cast<qint64>(bytes.size());
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.commit();
    return written ? QString() : file.errorString();
}

}  // namespace desktop
