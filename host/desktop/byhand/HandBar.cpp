#include "desktop/byhand/HandBar.hpp"

#include "desktop/QtText.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace desktop {

HandBar::HandBar(QWidget* parent)
    : QFrame(parent),
      count_(new QLabel),
      review_(new QPushButton(tr("Review…"))),
      discard_(new QPushButton(tr("Discard"))) {
    setObjectName(QStringLiteral("handBar"));
    // The inspector that it stands in may be narrower than the line.
    count_->setWordWrap(true);
    review_->setAccessibleName(tr("Review the changes proposed by hand"));
    review_->setToolTip(tr("Review these changes like any other updates, and apply those that you tick"));
    discard_->setAccessibleName(tr("Discard the changes proposed by hand"));
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(count_, 1);
    all->addWidget(review_);
    all->addWidget(discard_);
    connect(review_, &QPushButton::clicked, this, &HandBar::reviewWanted);
    connect(discard_, &QPushButton::clicked, this, &HandBar::discardWanted);
    hide();
}

void HandBar::setCount(int count) {
    count_->setText(
        counted(count, QT_TRANSLATE_NOOP("Counts", "change by hand"), QT_TRANSLATE_NOOP("Counts", "changes by hand")));
    setVisible(count > 0);
}

void HandBar::setFree(bool free) {
    review_->setEnabled(free);
}

QString HandBar::text() const {
    return count_->text();
}

}  // namespace desktop
