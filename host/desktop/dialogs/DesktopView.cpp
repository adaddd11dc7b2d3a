#include "desktop/dialogs/DesktopView.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/dialogs/AddOnDialog.hpp"

#include <QFileDialog>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace desktop {

namespace {

/// Whether the file that is asked for is one of updates, which the host reads too and makes of tables.
bool asksForUpdates(const frontend::FileRequest& request) {
    return std::any_of(request.filters.begin(), request.filters.end(), [](const frontend::FileFilter& filter) {
        return toQString(filter.extension).compare(u"txt", Qt::CaseInsensitive) == 0;
    });
}

/// One entry of a file dialog for each kind of file, in the order of the request. Before them what the host makes
/// updates of, last every file: the add-on may be handed any, so the user may pick any.
QStringList nameFilters(const frontend::FileRequest& request, bool updates) {
    QStringList filters;
    if (updates) filters += DesktopView::tr("Updates and tables (*.txt *.csv *.tsv *.xlsx *.ods)");
    for (const frontend::FileFilter& filter : request.filters) {
        // A bracket in the description would be read as the begin of the pattern.
        QString description = toQString(filter.description).remove(u'(').remove(u')');
        filters += QStringLiteral("%1 (*.%2)").arg(description, toQString(filter.extension));
    }
    if (updates) filters += DesktopView::tr("Tables (*.csv *.tsv *.xlsx *.ods)");
    filters += DesktopView::tr("All files (*)");
    return filters;
}

}  // namespace

DesktopView::DesktopView(QWidget* window, QWidget* keepFree)
    : window_(window), keepFree_(keepFree), previous_(frontend::setView(this)) {}

DesktopView::~DesktopView() {
    frontend::setView(previous_);
}

void DesktopView::runModal(frontend::Dialog& dialog) {
    // Modal for the add-on, which waits for this call, but not for the user, who may look at plan and elements.
    AddOnDialog shown(dialog, window_);
    open_[&dialog] = &shown;
    Q_EMIT dialogOpened(&shown);
    if (shown.isWindow()) place(shown);
    shown.run();
    open_.erase(&dialog);
    Q_EMIT dialogClosed();
}

/// Where the user left this dialog the last time; at first to the left of what is to be kept free, as low as the
/// window.
void DesktopView::place(AddOnDialog& dialog) const {
    const QRect room = window_->screen()->availableGeometry();
    const QMargins frame(window_->geometry().left() - window_->frameGeometry().left(),
                         window_->geometry().top() - window_->frameGeometry().top(), 0, 0);
    constexpr int Gap = 12;
    QPoint place = dialog.keptPlace().value_or(QPoint(keepFree_->mapToGlobal(QPoint(0, 0)).x() - dialog.width() - Gap,
                                                      window_->frameGeometry().bottom() - dialog.height() - Gap));
    const auto within = [](int wanted, int least, int most) { return std::max(least, std::min(wanted, most)); };
    place.setX(within(place.x(), room.left(), room.right() - dialog.width()));
    place.setY(within(place.y(), room.top(), room.bottom() - dialog.height() - frame.top()));
    dialog.move(place);
}

std::optional<std::string> DesktopView::pickFile(const frontend::FileRequest& request) {
    const bool updates = asksForUpdates(request) && updatesReader_;
    const auto known = updates ? std::exchange(nextAnswer_, std::nullopt) : std::nullopt;
    const auto path = known ? known : askForFile(request, updates);
    if (!path) return std::nullopt;
    return updates ? updatesReader_(*path) : toPath(*path).string();
}

std::optional<QString> DesktopView::askForFile(const frontend::FileRequest& request, bool updates) {
    const WaitCursor::Pause usable;
    QFileDialog dialog(window_, toQString(request.title));
    dialog.setObjectName(QStringLiteral("addOnFileDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QStringList filters = nameFilters(request, updates);
    dialog.setNameFilters(filters);
    if (!updates && request.currentFilter < static_cast<std::size_t>(filters.size())) {
        dialog.selectNameFilter(filters[static_cast<qsizetype>(request.currentFilter)]);
    }
    if (!folder_.isEmpty()) dialog.setDirectory(folder_);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    folder_ = dialog.directory().absolutePath();
    return dialog.selectedFiles().constFirst();
}

void DesktopView::changed(frontend::Dialog& dialog, Int16) {
    const auto shown = open_.find(&dialog);
    if (shown != open_.end()) shown->second->noteChange();
}

AddOnDialog* DesktopView::current() const {
    const auto& dialogs = frontend::openDialogs();
    if (dialogs.empty()) return nullptr;
    const auto shown = open_.find(dialogs.back());
    return shown == open_.end() ? nullptr : shown->second;
}

}  // namespace desktop
