#include "desktop/report/ReportPanel.hpp"

#include "desktop/Text.hpp"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace desktop {

ReportPanel::ReportPanel(QWidget* parent) : QWidget(parent), list(new QListWidget(this)) {
    list->setObjectName(QStringLiteral("report"));
    list->setAccessibleName(QStringLiteral("Report"));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // One height for all, or a report of thousands of refusals would be measured line by line.
    list->setUniformItemSizes(true);
    list->installEventFilter(this);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(list);
}

void ReportPanel::append(const QString& text, bool alert) {
    auto* line = new QListWidgetItem(text.simplified(), list);
    line->setToolTip(asPlainToolTip(text));
    if (alert) line->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    list->scrollToBottom();
    Q_EMIT countChanged(list->count());
}

void ReportPanel::clear() {
    list->clear();
    Q_EMIT countChanged(0);
}

QStringList ReportPanel::lines() const {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts += list->item(i)->text();
    return texts;
}

bool ReportPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i) {
            if (list->item(i)->isSelected()) texts += list->item(i)->text();
        }
        QApplication::clipboard()->setText(texts.join(u'\n'));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
