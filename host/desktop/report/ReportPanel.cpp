#include "desktop/report/ReportPanel.hpp"

#include "desktop/QtText.hpp"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace desktop {

ReportPanel::ReportPanel(QWidget* parent) : QWidget(parent), list_(new QListWidget(this)) {
    list_->setObjectName(QStringLiteral("report"));
    list_->setAccessibleName(tr("Report"));
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // One height for all, or a report of thousands of refusals would be measured line by line.
    list_->setUniformItemSizes(true);
    list_->installEventFilter(this);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(list_);
}

void ReportPanel::append(const QString& text, bool alert) {
    auto* line = new QListWidgetItem(visible(text.simplified()), list_);
    line->setToolTip(asPlainToolTip(text));
    if (alert) line->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    list_->scrollToBottom();
    Q_EMIT countChanged(list_->count());
}

void ReportPanel::clear() {
    list_->clear();
    Q_EMIT countChanged(0);
}

QStringList ReportPanel::lines() const {
    QStringList texts;
    for (int i = 0; i < list_->count(); ++i) texts += list_->item(i)->text();
    return texts;
}

bool ReportPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        QStringList texts;
        for (int i = 0; i < list_->count(); ++i) {
            if (list_->item(i)->isSelected()) texts += list_->item(i)->text();
        }
        QApplication::clipboard()->setText(texts.join(u'\n'));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
