#include "desktop/review/ReviewBar.hpp"

#include "desktop/QtText.hpp"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace desktop {

namespace {

QString sentence(const ReviewTotals& totals, int shown) {
    QStringList parts{shown == totals.rows
                          ? counted(totals.rows, "row", "rows")
                          : QStringLiteral("%1 of %2 shown").arg(number(shown), counted(totals.rows, "row", "rows")),
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

struct Choice {
    RowChoice choice;
    const char* text;
};
constexpr Choice Choices[] = {{RowChoice::All, "All rows"},           {RowChoice::Ticked, "Ticked"},
                              {RowChoice::Errors, "Errors"},          {RowChoice::Otherwise, "Not as asked"},
                              {RowChoice::Conflicts, "Conflicts"},    {RowChoice::Done, "Done"},
                              {RowChoice::Unchanged, "Nothing to do"}};

}  // namespace

ReviewBar::ReviewBar(QWidget* parent)
    : QFrame(parent),
      choice_(new QComboBox),
      filter_(new QLineEdit),
      totalsLabel_(new QLabel),
      store_(new QPushButton(QStringLiteral("Store as Asked"))),
      report_(new QPushButton(QStringLiteral("Report"))),
      undo_(new QPushButton(QStringLiteral("Undo"))),
      save_(new QPushButton(QStringLiteral("Save"))) {
    setObjectName(QStringLiteral("reviewBar"));
    totalsLabel_->setObjectName(QStringLiteral("reviewTotals"));
    totalsLabel_->setAccessibleName(QStringLiteral("Totals"));
    choice_->setObjectName(QStringLiteral("rowChoice"));
    choice_->setAccessibleName(QStringLiteral("Rows to show"));
    for (const Choice& choice : Choices) choice_->addItem(QString::fromLatin1(choice.text));
    filter_->setObjectName(QStringLiteral("rowFilter"));
    filter_->setAccessibleName(QStringLiteral("Show rows with this text"));
    filter_->setPlaceholderText(QStringLiteral("Filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setMaximumWidth(200);
    report_->setToolTip(QStringLiteral("Show what the host has reported"));
    undo_->setToolTip(QStringLiteral("Close the review and take its last step back"));
    save_->setToolTip(QStringLiteral("Close the review and save the model"));

    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(10, 0, 10, 8);
    all->addWidget(choice_);
    all->addWidget(filter_);
    all->addWidget(totalsLabel_, 1);
    for (QPushButton* button : {store_, report_, undo_, save_}) {
        button->setAccessibleName(button->text());
        button->setAutoDefault(false);
        // A click must not take the arrow keys away from the list.
        button->setFocusPolicy(Qt::TabFocus);
        all->addWidget(button);
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
    store_->setText(storable > 0 ? QStringLiteral("Store %1 as Asked").arg(number(static_cast<qint64>(storable)))
                                 : QStringLiteral("Store as Asked"));
    store_->setToolTip(storable > 0
                           ? QStringLiteral("Writes what the file asks for where the model holds something else, as an "
                                            "undoable step of its own")
                           : QStringLiteral("No applied row holds something else than the file asks for"));
    store_->setAccessibleName(store_->text());
    // What comes next is there once something has been applied.
    report_->setVisible(totals.done + totals.errors > 0);
    for (QPushButton* button : {undo_, save_}) button->setVisible(totals.done > 0);
}

void ReviewBar::setShown(int rows) {
    shown_ = rows;
    showTotals();
}

void ReviewBar::showTotals() {
    totalsLabel_->setText(sentence(totals_, shown_));
}

QString ReviewBar::totals() const {
    return totalsLabel_->text();
}

}  // namespace desktop
