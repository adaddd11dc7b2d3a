#include "desktop/window/ReadOnlyBar.hpp"

#include <QAction>
#include <QIcon>
#include <QLabel>
#include <QStyle>

namespace desktop {

ReadOnlyBar::ReadOnlyBar(QWidget* parent) : QToolBar(tr("Read-only"), parent), label_(new QLabel) {
    setObjectName(QStringLiteral("readOnlyBar"));
    setMovable(false);
    // It comes and goes with the reason for it; the user cannot ask for it.
    toggleViewAction()->setVisible(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    // A note's colours: a style draws a tool bar over the palette's.
    setStyleSheet(
        QStringLiteral("QToolBar { background: %1; border: none; padding: 2px; } QLabel { color: %2; }")
            .arg(palette().color(QPalette::ToolTipBase).name(), palette().color(QPalette::ToolTipText).name()));

    auto* icon = new QLabel;
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(side, side));
    icon->setMargin(4);
    addWidget(icon);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    label_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(label_);
    connect(addAction(tr("Open Again")), &QAction::triggered, this, &ReadOnlyBar::reopeningWanted);
    connect(addAction(tr("Save As…")), &QAction::triggered, this, &ReadOnlyBar::saveAsWanted);
    hide();
}

void ReadOnlyBar::show(const QString& holder) {
    if (!holder.isEmpty()) {
        label_->setText(
            tr("The file is open in %1 and was opened here for reading: save changes under another name.").arg(holder));
        label_->setAccessibleName(label_->text());
    }
    setVisible(!holder.isEmpty());
}

QString ReadOnlyBar::text() const {
    return isVisible() ? label_->text() : QString();
}

}  // namespace desktop
