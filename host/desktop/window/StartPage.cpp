#include "desktop/window/StartPage.hpp"

#include "desktop/QtText.hpp"
#include "desktop/look/Icons.hpp"
#include "desktop/window/RecentFiles.hpp"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

enum Column : std::uint8_t { Name, Folder, Changed, Size, ColumnCount };
constexpr int PathRole = Qt::UserRole;
constexpr int WidestPage = 820;
constexpr int LogoSide = 64;

QLabel* text(const QString& shown, double scale = 1, bool bold = false) {
    auto* label = new QLabel(shown);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAccessibleName(shown);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QTreeWidgetItem* rowOf(const QString& path) {
    const QFileInfo file(path);
    const QLocale locale = QLocale::system();
    QStringList cells{visible(file.fileName()), visible(QDir::toNativeSeparators(file.absolutePath()))};
    if (file.exists()) {
        cells += locale.toString(file.lastModified(), QLocale::ShortFormat);
        cells += locale.formattedDataSize(file.size(), 1, QLocale::DataSizeTraditionalFormat);
    } else {
        cells += StartPage::tr("not found");
        cells += QString();
    }
    auto* row = new QTreeWidgetItem(cells);
    row->setData(Name, PathRole, path);
    row->setTextAlignment(Size, Qt::AlignRight | Qt::AlignVCenter);
    row->setToolTip(Name, asPlainToolTip(path));
    row->setToolTip(Folder, asPlainToolTip(path));
    row->setDisabled(!file.exists());
    return row;
}

}  // namespace

StartPage::StartPage(QWidget* parent) : QScrollArea(parent), recent_(new QTreeWidget) {
    setObjectName(QStringLiteral("startPage"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Its parts have it; what they hide is scrolled to when one of them gets it.
    setFocusPolicy(Qt::NoFocus);
    auto* logo = new QLabel;
    logo->setPixmap(programIcon().pixmap(QSize(LogoSide, LogoSide), devicePixelRatioF()));
    auto* titles = new QVBoxLayout;
    titles->addStretch();
    titles->addWidget(text(QStringLiteral("Model Host"), 1.8, true));
    titles->addWidget(text(tr("Review proposed changes of a building model, and apply those that you tick.")));
    titles->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(logo);
    top->addSpacing(12);
    top->addLayout(titles, 1);

    auto* open = new QPushButton(tr("&Open Model…"));
    open->setObjectName(QStringLiteral("welcomeOpen"));
    open->setAccessibleName(tr("Open a model"));
    open->setIcon(icon(Picture::Open, palette()));
    open->setIconSize({20, 20});
    open->setMinimumHeight(open->fontMetrics().height() * 2 + 6);
    open->setDefault(true);
    connect(open, &QPushButton::clicked, this, &StartPage::openWanted);
    auto* begin = new QHBoxLayout;
    begin->addWidget(open);
    begin->addSpacing(12);
    begin->addWidget(text(tr("or drop a model here (.ifc, .ifczip)")), 1);

    auto* page = new QWidget;
    page->setMaximumWidth(WidestPage);
    page->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto* content = new QVBoxLayout(page);
    content->setSpacing(12);
    content->addLayout(top);
    content->addSpacing(8);
    content->addLayout(begin);
    content->addSpacing(8);
    content->addWidget(makeSteps());
    content->addSpacing(8);
    recentPart_ = makeRecent();
    content->addWidget(recentPart_, 1);

    auto* across = new QHBoxLayout;
    across->addStretch(1);
    across->addWidget(page, 8);
    across->addStretch(1);
    auto* whole = new QWidget;
    auto* all = new QVBoxLayout(whole);
    all->setContentsMargins(24, 24, 24, 24);
    all->addStretch(1);
    all->addLayout(across, 6);
    all->addStretch(1);
    setWidget(whole);
    refresh();
}

QWidget* StartPage::makeSteps() {
    auto* steps = new QWidget;
    steps->setObjectName(QStringLiteral("steps"));
    auto* lines = new QVBoxLayout(steps);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(4);
    const QString texts[] = {tr("Open the model."), tr("Import updates: a list of proposed changes, or a spreadsheet."),
                             tr("Tick what is to be written, apply it, and save.")};
    int number = 0;
    for (const QString& step : texts) {
        auto* line = new QHBoxLayout;
        line->addWidget(text(QStringLiteral("%1.").arg(++number), 1, true));
        line->addWidget(text(step), 1);
        lines->addLayout(line);
    }
    return steps;
}

QWidget* StartPage::makeRecent() {
    auto* part = new QWidget;
    recent_->setObjectName(QStringLiteral("recentFiles"));
    recent_->setAccessibleName(tr("Models opened last"));
    recent_->setHeaderLabels({tr("Name"), tr("Folder"), tr("Changed"), tr("Size")});
    recent_->setRootIsDecorated(false);
    recent_->setUniformRowHeights(true);
    recent_->setAllColumnsShowFocus(true);
    recent_->setTextElideMode(Qt::ElideMiddle);
    recent_->header()->setStretchLastSection(false);
    recent_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    recent_->header()->setSectionResizeMode(Folder, QHeaderView::Stretch);
    recent_->header()->setSectionsClickable(false);
    recent_->headerItem()->setTextAlignment(Size, Qt::AlignRight | Qt::AlignVCenter);
    connect(recent_, &QTreeWidget::itemClicked, this, &StartPage::openRecent);
    connect(recent_, &QTreeWidget::itemActivated, this, &StartPage::openRecent);
    auto* all = new QVBoxLayout(part);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(text(tr("Models opened last"), 1.1, true));
    all->addWidget(recent_, 1);
    return part;
}

void StartPage::refresh() {
    recent_->clear();
    for (const QString& path : RecentFiles::list()) recent_->addTopLevelItem(rowOf(path));
    recentPart_->setVisible(recent_->topLevelItemCount() > 0);
    if (recent_->topLevelItemCount() > 0)
        recent_->setCurrentItem(recent_->topLevelItem(0), Name, QItemSelectionModel::NoUpdate);
}

/// A click opens, and Return does. Where a style activates by a click, too, both are said of one click.
void StartPage::openRecent(const QTreeWidgetItem* item) {
    if (!item || item->isDisabled() || opening_) return;
    opening_ = true;
    QTimer::singleShot(0, this, [this, path = item->data(Name, PathRole).toString()] {
        opening_ = false;
        Q_EMIT fileWanted(path);
    });
}

}  // namespace desktop
