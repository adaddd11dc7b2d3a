#include "desktop/elements/ElementExport.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WholeFile.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"

#include <QCoreApplication>
#include <QFileInfo>
#include <iterator>

namespace desktop {

tables::Grid gridOf(const model::Model& model, const std::vector<model::Element>& elements) {
    tables::Grid grid{{std::begin(tables::GridColumns), std::end(tables::GridColumns)}, {}};
    grid.rows.reserve(elements.size());
    for (const model::Element element : elements) {
        const model::ElementInfo info = model.info(element);
        grid.rows.push_back({text::guidText(info.guid), model.storey(element), std::string(info.ifcClass),
                             std::string(info.typeName), text::toUtf8(model.name(element))});
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
    return writeWhole(path, bytes);
}

}  // namespace desktop
