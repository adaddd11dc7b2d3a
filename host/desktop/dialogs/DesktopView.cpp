#include "desktop/dialogs/DesktopView.hpp"

#include "desktop/Text.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/dialogs/AddOnDialog.hpp"

#include <QFileDialog>
#include <QScreen>
#include <QSettings>

namespace desktop {

namespace {

const QString folderKey = QStringLiteral("folders/addOnFiles");

/// One entry of a file dialog for each kind of file, in the order of the request. Last, every file: the add-on may be
/// handed any, so the user may pick any.
QStringList nameFilters(const frontend::FileRequest& request) {
    QStringList filters;
    for (const frontend::FileFilter& filter : request.filters) {
        // A bracket in the description would be read as the begin of the pattern.
        QString description = toQString(filter.description).remove(u'(').remove(u')');
        filters += QStringLiteral("%1 (*.%2)").arg(description, toQString(filter.extension));
    }
    filters += QStringLiteral("All files (*)");
    return filters;
}

}  // namespace

DesktopView::DesktopView(QWidget* shownOver) : window(shownOver), before(frontend::setView(this)) {}

DesktopView::~DesktopView() {
    frontend::setView(before);
}

void DesktopView::runModal(frontend::Dialog& dialog) {
    AddOnDialog shown(dialog, window);
    open[&dialog] = &shown;
    place(shown);
    Q_EMIT dialogOpened(&shown);
    shown.run();
    open.erase(&dialog);
    Q_EMIT dialogClosed();
}

/// In the lower left of the main window: the plan in its upper right stays in sight beside a review.
void DesktopView::place(AddOnDialog& dialog) const {
    const QRect frame = window->frameGeometry();
    const QRect room = window->screen()->availableGeometry();
    constexpr int margin = 24;
    QRect wanted(frame.left() + margin, frame.bottom() - dialog.height() - margin, dialog.width(), dialog.height());
    wanted.moveRight(std::min(wanted.right(), room.right()));
    wanted.moveBottom(std::min(wanted.bottom(), room.bottom()));
    wanted.moveTopLeft({std::max(wanted.left(), room.left()), std::max(wanted.top(), room.top())});
    dialog.move(wanted.topLeft());
}

std::optional<std::string> DesktopView::pickFile(const frontend::FileRequest& request) {
    const WaitCursor::Pause usable;
    QFileDialog dialog(window, toQString(request.title));
    dialog.setObjectName(QStringLiteral("addOnFileDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QStringList filters = nameFilters(request);
    dialog.setNameFilters(filters);
    if (request.currentFilter < static_cast<std::size_t>(filters.size())) {
        dialog.selectNameFilter(filters[static_cast<qsizetype>(request.currentFilter)]);
    }
    const QString folder = QSettings().value(folderKey).toString();
    if (!folder.isEmpty()) dialog.setDirectory(folder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    QSettings().setValue(folderKey, dialog.directory().absolutePath());
    return toPath(dialog.selectedFiles().constFirst()).string();
}

void DesktopView::changed(frontend::Dialog& dialog, Int16) {
    const auto shown = open.find(&dialog);
    if (shown != open.end()) shown->second->noteChange();
}

AddOnDialog* DesktopView::current() const {
    const auto& dialogs = frontend::openDialogs();
    if (dialogs.empty()) return nullptr;
    const auto shown = open.find(dialogs.back());
    return shown == open.end() ? nullptr : shown->second;
}

}  // namespace desktop
