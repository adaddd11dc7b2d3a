#include "desktop/review/ReviewBar.hpp"

#include "desktop/QtText.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace desktop {

namespace {

QString sentence(const ReviewTotals& totals) {
    QStringList parts{counted(totals.rows, "row", "rows"),
                      QStringLiteral("%1 of %2 ticked").arg(number(totals.ticked), number(totals.tickable))};
    const auto add = [&parts](qsizetype count, const char* one, const char* many) {
        if (count > 0) parts += counted(count, one, many);
    };
    add(totals.done, "done", "done");
    add(totals.errors, "error", "errors");
    add(totals.otherwise, "not as asked", "not as asked");
    add(totals.conflicts, "conflict", "conflicts");
    return parts.join(QStringLiteral(" · "));
}

}  // namespace

ReviewBar::ReviewBar(QWidget* parent) : QFrame(parent), totals_(new QLabel), store_(new QPushButton) {
    setObjectName(QStringLiteral("reviewBar"));
    totals_->setObjectName(QStringLiteral("reviewTotals"));
    totals_->setAccessibleName(QStringLiteral("Totals"));
    store_->setObjectName(QStringLiteral("storeAsAsked"));
    store_->setText(QStringLiteral("Store as Asked"));
    store_->setAutoDefault(false);
    // A click must not take the arrow keys away from the list.
    store_->setFocusPolicy(Qt::TabFocus);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(10, 0, 10, 8);
    all->addWidget(totals_, 1);
    all->addWidget(store_);
    connect(store_, &QPushButton::clicked, this, &ReviewBar::storeAsAskedWanted);
}

void ReviewBar::setTotals(const ReviewTotals& totals, std::size_t storable) {
    totals_->setText(sentence(totals));
    store_->setEnabled(storable > 0);
    store_->setText(storable > 0 ? QStringLiteral("Store %1 as Asked").arg(number(static_cast<qint64>(storable)))
                                 : QStringLiteral("Store as Asked"));
    store_->setToolTip(storable > 0
                           ? QStringLiteral("Writes what the file asks for where the model holds something else, as an "
                                            "undoable step of its own")
                           : QStringLiteral("No applied row holds something else than the file asks for"));
    store_->setAccessibleName(store_->text());
}

QString ReviewBar::totals() const {
    return totals_->text();
}

}  // namespace desktop
