#include "desktop/dialogs/UpdateHints.hpp"

#include "desktop/Text.hpp"
#include "updates/Hints.hpp"

#include <QFile>

namespace desktop {

namespace {

constexpr std::size_t reviewColumns = 8;

const frontend::List* reviewOf(const frontend::Dialog& dialog) {
    for (const frontend::Item& item : dialog.items()) {
        if (item.list && item.list->tabFields().size() == reviewColumns) return dialog.list(item.number);
    }
    return nullptr;
}

}  // namespace

QStringList hintsAbout(const std::string& file, const frontend::Dialog& dialog, const model::Model& model) {
    const frontend::List* list = reviewOf(dialog);
    if (!list) return {};
    QFile source(pathText(file));
    if (!source.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("It cannot be read (%1); check that you may read it").arg(source.errorString())};
    }
    updates::UpdateFileScan scan([&model](const updates::Guid& guid) { return model.find(guid).has_value(); });
    constexpr qint64 blockSize = 1 << 16;
    for (QByteArray block = source.read(blockSize); !block.isEmpty(); block = source.read(blockSize)) {
        scan.read({block.constData(), static_cast<std::size_t>(block.size())});
    }
    const updates::ReviewCounts counts{static_cast<std::uint64_t>(list->rowCount()), list->rowsLost()};
    QStringList hints;
    for (const std::string& hint : updates::hintsFor(scan.finish(), counts, "the table of elements shows")) {
        QString text = toQString(hint);
        hints += text.replace(0, 1, text.at(0).toUpper());
    }
    return hints;
}

}  // namespace desktop
