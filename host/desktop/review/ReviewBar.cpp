#include "desktop/review/ReviewBar.hpp"

#include "desktop/QtText.hpp"
#include "desktop/look/ElidedLabel.hpp"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

namespace desktop {

namespace {

QString rowsText(qsizetype rows) {
    return counted(rows, QT_TRANSLATE_NOOP("Counts", "row"), QT_TRANSLATE_NOOP("Counts", "rows"));
}

QString sentence(const ReviewTotals& totals, int shown) {
    QStringList parts{shown == totals.rows ? rowsText(totals.rows)
                                           : ReviewBar::tr("%1 of %2 shown").arg(number(shown), rowsText(totals.rows)),
                      ReviewBar::tr("%1 of %2 ticked").arg(number(totals.ticked), number(totals.tickable))};
    const auto add = [&parts](qsizetype count, const char* one, const char* many) {
        if (count > 0) parts += counted(count, one, many);
    };
    add(totals.done, QT_TRANSLATE_NOOP("Counts", "done"), QT_TRANSLATE_NOOP("Counts", "done"));
    add(totals.errors, QT_TRANSLATE_NOOP("Counts", "error"), QT_TRANSLATE_NOOP("Counts", "errors"));
    add(totals.otherwise, QT_TRANSLATE_NOOP("Counts", "not as asked"), QT_TRANSLATE_NOOP("Counts", "not as asked"));
    add(totals.conflicts, QT_TRANSLATE_NOOP("Counts", "conflict"), QT_TRANSLATE_NOOP("Counts", "conflicts"));
    return parts.join(QStringLiteral(" · "));
}

struct Choice {
    RowChoice choice;
    const char* text;
};
constexpr Choice Choices[] = {{RowChoice::All, QT_TRANSLATE_NOOP("desktop::ReviewBar", "All rows")},
                              {RowChoice::Ticked, QT_TRANSLATE_NOOP("desktop::ReviewBar", "Ticked")},
                              {RowChoice::Errors, QT_TRANSLATE_NOOP("desktop::ReviewBar", "Errors")},
                              {RowChoice::Otherwise, QT_TRANSLATE_NOOP("desktop::ReviewBar", "Not as asked")},
                              {RowChoice::Conflicts, QT_TRANSLATE_NOOP("desktop::ReviewBar", "Conflicts")},
                              {RowChoice::Done, QT_TRANSLATE_NOOP("desktop::ReviewBar", "Done")},
                              {RowChoice::Unchanged, QT_TRANSLATE_NOOP("desktop::ReviewBar", "Nothing to do")}};

}  // namespace

ReviewBar::ReviewBar(QWidget* parent)
    : QFrame(parent),
      all_(new QBoxLayout(QBoxLayout::LeftToRight, this)),
      rows_(new QHBoxLayout),
      buttons_(new QHBoxLayout),
      choice_(new QComboBox),
      filter_(new QLineEdit),
      totalsLabel_(new ElidedLabel),
      store_(new QPushButton(tr("Store as Asked"))),
      report_(new QPushButton(tr("Report…"))),
      undo_(new QPushButton(tr("Undo"))),
      save_(new QPushButton(tr("Save"))) {
    setObjectName(QStringLiteral("reviewBar"));
    totalsLabel_->setObjectName(QStringLiteral("reviewTotals"));
    totalsLabel_->setAccessibleName(tr("Totals"));
    choice_->setObjectName(QStringLiteral("rowChoice"));
    choice_->setAccessibleName(tr("Rows to show"));
    for (const Choice& choice : Choices) choice_->addItem(tr(choice.text));
    filter_->setObjectName(QStringLiteral("rowFilter"));
    filter_->setAccessibleName(tr("Show rows with this text"));
    filter_->setPlaceholderText(tr("Filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setMaximumWidth(200);
    report_->setToolTip(tr("Write what came of this review: as a page, a workbook or JSON"));
    undo_->setToolTip(tr("Close the review and take its last step back"));
    save_->setToolTip(tr("Close the review and save the model"));

    all_->setContentsMargins(10, 0, 10, 6);
    all_->addLayout(rows_, 1);
    all_->addLayout(buttons_);
    rows_->addWidget(choice_);
    rows_->addWidget(filter_);
    rows_->addWidget(totalsLabel_, 1);
    buttons_->addStretch();
    for (QPushButton* button : {store_, report_, undo_, save_}) {
        button->setAccessibleName(button->text());
        // Return is the dialog's, wherever the focus is.
        button->setAutoDefault(false);
        // A click must not take the arrow keys away from the list.
        button->setFocusPolicy(Qt::TabFocus);
        buttons_->addWidget(button);
    }
    const auto choose = [this] {
        Q_EMIT chosen(Choices[static_cast<std::size_t>(choice_->currentIndex())].choice, filter_->text());
    };
    connect(choice_, &QComboBox::currentIndexChanged, this, choose);
    connect(filter_, &QLineEdit::textChanged, this, choose);
    connect(store_, &QPushButton::clicked, this, &ReviewBar::storeAsAskedWanted);
    connect(report_, &QPushButton::clicked, this, &ReviewBar::reportWanted);
    connect(undo_, &QPushButton::clicked, this, &ReviewBar::undoWanted);
    connect(save_, &QPushButton::clicked, this, &ReviewBar::saveWanted);
}

void ReviewBar::setTotals(const ReviewTotals& totals, std::size_t storable) {
    totals_ = totals;
    showTotals();
    store_->setEnabled(storable > 0);
    store_->setText(storable > 0 ? tr("Store %1 as Asked").arg(number(static_cast<qint64>(storable)))
                                 : tr("Store as Asked"));
    store_->setToolTip(storable > 0 ? tr("Writes what the file asks for where the model holds something else, as an "
                                         "undoable step of its own")
                                    : tr("No applied row holds something else than the file asks for"));
    store_->setAccessibleName(store_->text());
    // What comes next is there once something has been applied.
    report_->setVisible(totals.done + totals.errors > 0);
    for (QPushButton* button : {undo_, save_}) button->setVisible(totals.done > 0);
    fold();
}

void ReviewBar::setShown(int rows) {
    shown_ = rows;
    showTotals();
}

void ReviewBar::showTotals() {
    totalsLabel_->setText(sentence(totals_, shown_));
    fold();
}

bool ReviewBar::fits(int width) const {
    const QMargins around = all_->contentsMargins();
    const int needed = rows_->sizeHint().width() + all_->spacing() + buttons_->sizeHint().width();
    return needed + around.left() + around.right() <= width;
}

int ReviewBar::heightForWidth(int width) const {
    const int rows = rows_->sizeHint().height(), buttons = buttons_->sizeHint().height();
    const QMargins around = all_->contentsMargins();
    const int lines = fits(width) ? std::max(rows, buttons) : rows + all_->spacing() + buttons;
    return lines + around.top() + around.bottom();
}

void ReviewBar::fold() {
    all_->setDirection(fits(width()) ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void ReviewBar::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    fold();
}

QString ReviewBar::totals() const {
    return totalsLabel_->text();
}

}  // namespace desktop
