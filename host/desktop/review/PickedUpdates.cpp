#include "desktop/review/PickedUpdates.hpp"

#include "desktop/QtText.hpp"
#include "text/Message.hpp"
#include "updatefile/Hints.hpp"

#include <QCoreApplication>
#include <QFileInfo>

namespace desktop {

namespace {

/// Nobody reads more, and what they have in common is fixed at once.
constexpr std::size_t MostLeftOutShown = 20;

QString sentence(const std::string& text) {
    QString shown = toQString(text);
    return shown.isEmpty() ? shown : shown.replace(0, 1, shown.at(0).toUpper());
}

QStringList leftOut(const tables::ReadReport& table) {
    QStringList hints;
    for (const tables::LeftOut& left : table.leftOut) {
        if (static_cast<std::size_t>(hints.size()) == MostLeftOutShown) {
            hints += QCoreApplication::translate("desktop::PickedUpdates",
                                                 "%1 more cells or lines were left out; fix these first")
                         .arg(number(static_cast<qint64>(table.leftOut.size() - MostLeftOutShown)));
            break;
        }
        const QString column =
            left.column.empty() ? QString() : QStringLiteral(", %1").arg(visible(toQString(left.column)));
        hints += QCoreApplication::translate("desktop::PickedUpdates", "Left out: line %1%2: %3")
                     .arg(QString::number(left.line), column, toQString(left.why));
    }
    return hints;
}

}  // namespace

PickedUpdates::PickedUpdates(QString path, std::unique_ptr<importing::UpdateSource> source)
    : path_(std::move(path)), fileName_(QFileInfo(path_).fileName()), source_(std::move(source)) {}

model::Result<PickedUpdates> PickedUpdates::read(const QString& path, const model::Model& model) {
    auto source = importing::UpdateSource::open(toPath(path), {});
    if (!source) return source.error();
    if (const model::Status read = (*source)->read(model); !read) return read.error();
    return PickedUpdates(path, std::move(*source));
}

bool PickedUpdates::goOn() {
    if (list_ + 1 >= listCount()) return false;
    ++list_;
    return true;
}

QString PickedUpdates::howRead() const {
    return source_->notes().empty() ? QString() : toQString(source_->notes().front());
}

void PickedUpdates::describe(importing::ReviewedUpdates& reviewed, const frontend::List& list) const {
    reviewed.updatesPath = path_.toStdString();
    reviewed.linesWithoutRow = source_->findings().withoutRow.count;
    if (source_->table()) {
        reviewed.leftOut = source_->table()->leftOut;
        reviewed.linesWithoutRow += reviewed.leftOut.size();
    }
    const updatefile::ReviewCounts counts{static_cast<std::uint64_t>(list.rowCount()), list.rowsLost()};
    const auto ofLines =
        updatefile::hintsFor(source_->findings(), counts, text::message("the table of elements shows"));
    std::vector<std::string> hints;
    hints.reserve(source_->notes().size() + ofLines.size() + reviewed.hints.size());
    // The first note is howRead(), which is no hint.
    if (!source_->notes().empty()) hints.assign(source_->notes().begin() + 1, source_->notes().end());
    hints.insert(hints.end(), ofLines.begin(), ofLines.end());
    hints.insert(hints.end(), reviewed.hints.begin(), reviewed.hints.end());
    reviewed.hints = std::move(hints);
}

QStringList PickedUpdates::hints(const frontend::List& list) const {
    QStringList hints;
    for (std::size_t i = 1; i < source_->notes().size(); ++i) hints += sentence(source_->notes()[i]);
    if (source_->table()) hints += leftOut(*source_->table());
    const updatefile::ReviewCounts counts{static_cast<std::uint64_t>(list.rowCount()), list.rowsLost()};
    for (const std::string& hint :
         updatefile::hintsFor(source_->findings(), counts, text::message("the table of elements shows")))
        hints += sentence(hint);
    return hints;
}

}  // namespace desktop
