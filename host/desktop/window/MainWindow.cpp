#include "desktop/window/MainWindow.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/byhand/HandBar.hpp"
#include "desktop/byhand/HandChanges.hpp"
#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/dialogs/DesktopView.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/elements/ElementColumns.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/look/Message.hpp"
#include "desktop/plan/PlanAccessible.hpp"
#include "desktop/plan/PlanOutput.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/report/DebugPanel.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/review/Imports.hpp"
#include "desktop/review/Review.hpp"
#include "desktop/review/ReviewReports.hpp"
#include "desktop/window/AddOnMenu.hpp"
#include "desktop/window/EditMenu.hpp"
#include "desktop/window/ElementMenu.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/HelpMenu.hpp"
#include "desktop/window/MainToolBar.hpp"
#include "desktop/window/ReadOnlyBar.hpp"
#include "desktop/window/StartPage.hpp"
#include "desktop/window/ViewMenu.hpp"
#include "frameworks/FrontEnd.hpp"
#include "importing/ReviewRows.hpp"
#include "updatefile/ReviewList.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace desktop {

namespace {

const QString GeometryKey = QStringLiteral("window/geometry");
const QString StateKey = QStringLiteral("window/state");
const QString ReviewHeightKey = QStringLiteral("review/height");
/// Raised when the docks change, so that an older arrangement is not laid over them.
constexpr int StateVersion = 3;

constexpr int LowWindow = 560;
/// Of each panel, so that all of them and a review have a place in a low window.
constexpr QSize LeastPanel(140, 40);

/// The first file of a drop; empty where there is none.
QString droppedFile(const QMimeData* data) {
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile()) return url.toLocalFile();
    }
    return {};
}

/// What a review has written, by what is unique in it.
std::vector<HandChanges::Through> writtenRows(const std::optional<importing::ReviewedUpdates>& reviewed) {
    std::vector<HandChanges::Through> written;
    for (const importing::ListRow& row : reviewed ? reviewed->rows() : std::vector<importing::ListRow>()) {
        if (importing::done(row)) {
            written.push_back(
                {row.columns[updatefile::reviewlist::GuidColumn], row.columns[updatefile::reviewlist::PropertyColumn]});
        }
    }
    return written;
}

}  // namespace

MainWindow::MainWindow()
    : document_(new Document(host_, this)),
      elements_(new ElementPanel),
      inspector_(new InspectorPanel),
      plan_(new PlanPanel),
      planCursor_(new PlanCursor(plan_->view())),
      report_(new ReportPanel),
      debug_(new DebugPanel),
      middle_(new QStackedWidget),
      startPage_(new StartPage),
      hand_(new HandChanges(*document_, this)),
      handBar_(new HandBar),
      toolBar_(new MainToolBar),
      reviewPlace_(new QScrollArea),
      summary_(new QLabel),
      readOnlyBar_(new ReadOnlyBar) {
    setObjectName(QStringLiteral("mainWindow"));
    setAcceptDrops(true);
    makePanels();
    makeMenus();
    connectPanels();
    connectHost();
    restorePlaces();
    showDocument();
}

MainWindow::~MainWindow() {
    // The host's destructor runs the add-on's end, which may still report and print: there is no window to show it in.
    review_.reset();
    frontend::setDebugSink({});
    host_.setReportSink({});
    host_.setPointPicker({});
    // What looks at the model goes before the host that owns it.
    document_->close();
}

QSize MainWindow::sizeHint() const {
    // A small screen is needed whole, but for what the desktop draws around a window.
    const QSize room = screen()->availableSize(), frame(8, 40);
    return (room * 17 / 20).expandedTo(QSize(1000, 680).boundedTo(room - frame)).boundedTo({1680, 1050});
}

void MainWindow::makePanels() {
    addToolBar(Qt::TopToolBarArea, toolBar_);
    addToolBarBreak(Qt::TopToolBarArea);
    addToolBar(Qt::TopToolBarArea, readOnlyBar_);
    middle_->addWidget(startPage_);
    middle_->addWidget(elements_);
    middle_->setMinimumSize(LeastPanel);
    setCentralWidget(middle_);
    // The report belongs under the table; the plan and the element's data keep the window's whole height.
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    inspector_->setProposals(
        [this](model::Element element, const std::string& item) { return hand_->proposed(element, item); });
    inspector_->setFooter(handBar_);
    planDock_ = addDock(tr("Plan"), QStringLiteral("planDock"), plan_, Qt::RightDockWidgetArea);
    elementDock_ = addDock(tr("Element"), QStringLiteral("elementDock"), inspector_, Qt::RightDockWidgetArea);
    reportDock_ = addDock(tr("Messages"), QStringLiteral("reportDock"), report_, Qt::BottomDockWidgetArea);
    debugDock_ = addDock(tr("Debug Output"), QStringLiteral("debugDock"), debug_, Qt::BottomDockWidgetArea);
    tabifyDockWidget(reportDock_, debugDock_);
    debugDock_->hide();
    // A review that is larger than its place, or than the screen, is scrolled.
    reviewPlace_->setWidgetResizable(true);
    reviewPlace_->setFrameShape(QFrame::NoFrame);
    reviewPlace_->setFocusPolicy(Qt::NoFocus);
    reviewDock_ = addDock(tr("Review"), QStringLiteral("reviewDock"), reviewPlace_, Qt::BottomDockWidgetArea);
    // It comes and goes with the add-on's dialog, which has a button to close it.
    reviewDock_->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    reviewDock_->toggleViewAction()->setVisible(false);
    tabifyDockWidget(reportDock_, reviewDock_);
    reviewDock_->hide();
    arrangeForScreen();
    summary_->setObjectName(QStringLiteral("summary"));
    summary_->setAccessibleName(tr("Model"));
    statusBar()->addPermanentWidget(summary_);
}

/// Until the user arranges them. On a low screen the plan and the data of an element have one place in turn.
void MainWindow::arrangeForScreen() {
    const QSize size = MainWindow::sizeHint();
    if (size.height() < LowWindow) {
        tabifyDockWidget(planDock_, elementDock_);
        planDock_->raise();
    } else {
        resizeDocks({planDock_, elementDock_}, {size.height() * 55 / 100, size.height() * 45 / 100}, Qt::Vertical);
    }
    resizeDocks({planDock_}, {size.width() * 2 / 5}, Qt::Horizontal);
    resizeDocks({reportDock_}, {size.height() / 7}, Qt::Vertical);
}

QDockWidget* MainWindow::addDock(const QString& title, const QString& name, QWidget* content, Qt::DockWidgetArea area) {
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setAccessibleName(title);
    content->setMinimumSize(LeastPanel);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

void MainWindow::makeMenus() {
    fileMenu_ = new FileMenu(this, *document_, busy_);
    editMenu_ = new EditMenu(this, *document_, *elements_, busy_);
    viewMenu_ = new ViewMenu(this, toolBar_,
                             {{planDock_, QT_TRANSLATE_NOOP("desktop::ViewMenu", "&Plan"), true},
                              {elementDock_, QT_TRANSLATE_NOOP("desktop::ViewMenu", "&Element"), true},
                              {reportDock_, QT_TRANSLATE_NOOP("desktop::ViewMenu", "&Messages"), false},
                              {debugDock_, QT_TRANSLATE_NOOP("desktop::ViewMenu", "&Debug Output"), false}},
                             elements_->columns().menu());
    addOnMenu_ = new AddOnMenu(this, host_, *document_, busy_);
    helpMenu_ = new HelpMenu(this, host_);
    connect(addOnMenu_, &AddOnMenu::rebuilt, this, &MainWindow::fillToolBar);
    reports_ = new ReviewReports(this, *document_);
    auto* elementMenu = new ElementMenu({this, *document_, *elements_, *inspector_, *plan_, *planCursor_, *addOnMenu_});
    connect(elementMenu, &ElementMenu::lookUpWanted, this, &MainWindow::lookUp);
    connect(elementMenu, &ElementMenu::showInPlanWanted, this, &MainWindow::showInPlan);
    fileMenu_->insert(reports_->action());
    planOutput_ = new PlanOutput(this, *document_, *plan_);
    fileMenu_->insert(planOutput_->saveAction());
    fileMenu_->insert(planOutput_->printAction());
    fillToolBar();
}

void MainWindow::fillToolBar() {
    toolBar_->setButtons({{Picture::Open, fileMenu_->openAction(), tr("Open")},
                          {Picture::Save, fileMenu_->saveFileAction(), tr("Save")},
                          {Picture::Undo, editMenu_->undoAction(), {}, true},
                          {Picture::Redo, editMenu_->redoAction()},
                          {Picture::Import, addOnMenu_->importAction(), tr("Import Updates"), true},
                          {Picture::LookUp, addOnMenu_->lookUpAction(), tr("Look Up")},
                          {Picture::Report, reports_->action(), tr("Report"), true}});
}

void MainWindow::connectPanels() {
    connect(document_, &Document::closing, this, [this] {
        elements_->setSource(nullptr, nullptr);
        inspector_->show(nullptr, {});
        plan_->setSource(nullptr, nullptr);
    });
    connect(document_, &Document::replaced, this, &MainWindow::showDocument);
    connect(startPage_, &StartPage::openWanted, fileMenu_, &FileMenu::openByDialog);
    connect(startPage_, &StartPage::fileWanted, this, &MainWindow::openFile);
    connect(fileMenu_, &FileMenu::updatesOffered, this, &MainWindow::takeUpdates);
    fileMenu_->setProposalCount([this] { return hand_->count(); });
    connect(document_, &Document::fileChanged, this, &MainWindow::showTitle);
    connect(document_, &Document::fileChanged, this, [this] { readOnlyBar_->show(document_->lockHolder()); });
    connect(readOnlyBar_, &ReadOnlyBar::saveAsWanted, this, [this] { fileMenu_->saveAs(); });
    connect(readOnlyBar_, &ReadOnlyBar::reopeningWanted, this, [this] {
        const QString path = document_->path();  // a copy: saving the changes first may give the document another one
        fileMenu_->open(path);
    });
    connect(&busy_, &Busy::changed, this, [this] { readOnlyBar_->setEnabled(!busy_.active()); });
    connect(document_, &Document::edited, elements_, &ElementPanel::refresh);
    connect(document_, &Document::edited, plan_, &PlanPanel::refresh);
    connect(inspector_, &InspectorPanel::valueProposed, this, &MainWindow::propose);
    connect(hand_, &HandChanges::changed, this, [this] {
        handBar_->setCount(hand_->count());
        if (document_->isOpen()) showElement();
    });
    connect(handBar_, &HandBar::reviewWanted, this, &MainWindow::reviewHandChanges);
    connect(handBar_, &HandBar::discardWanted, hand_, &HandChanges::clear);
    connect(&busy_, &Busy::changed, this, [this] { handBar_->setFree(!busy_.active()); });
    connect(elements_, &ElementPanel::currentChanged, this, [this] {
        showElement();
        plan_->view()->setSelectedBeside(elements_->selected());
        plan_->showElement(elements_->current());
    });
    connect(elements_, &ElementPanel::said, this,
            [this](const QString& what) { statusBar()->showMessage(what, 10000); });
    connect(plan_, &PlanPanel::elementClicked, elements_, &ElementPanel::select);
    connect(planCursor_, &PlanCursor::moved, this, [this](model::Element element, const QString& what) {
        statusBar()->showMessage(what);
        announce(*plan_->view(), element);
    });
    connect(report_, &ReportPanel::countChanged, this, [this](int count) {
        reportDock_->setWindowTitle(count ? tr("Messages (%1)").arg(number(count)) : tr("Messages"));
    });
    connect(addOnMenu_, &AddOnMenu::commandEnded, this, [this](GSErrCode error) {
        const auto next = std::exchange(afterCommand_, {});
        // Not while the next list of the same file is reviewed, which begins before this.
        if (next) {
            QTimer::singleShot(0, this, [this, next] {
                if (!imports_->current()) next();
            });
        }
        if (error == NoError) return;
        report_->append(tr("The add-on's command ended with the error 0x%1")
                            .arg(static_cast<quint32>(error), 8, 16, QLatin1Char('0')),
                        false);
    });
}

void MainWindow::connectHost() {
    view_ = std::make_unique<DesktopView>(this, planDock_);
    imports_ = new Imports(this, *document_, *view_, *addOnMenu_, *report_);
    connect(view_.get(), &DesktopView::dialogOpened, this, &MainWindow::showDialog);
    connect(view_.get(), &DesktopView::dialogClosed, this, [this] { closeReview(); });
    frontend::setDebugSink([this](const char* text) { debug_->append(text); });
    frontend::setBeepSink([] { QApplication::beep(); });
    host_.setReportSink([this](const host::ReportLine& line) { showReportLine(line); });
    host_.setPointPicker([this](const std::string& prompt) { return pickPoint(toQString(prompt)); });
}

void MainWindow::restorePlaces() {
    const QSettings settings;
    resize(MainWindow::sizeHint());
    restoreGeometry(settings.value(GeometryKey).toByteArray());
    restoreState(settings.value(StateKey).toByteArray(), StateVersion);
    reviewDock_->hide();
    reviewHeight_ = settings.value(ReviewHeightKey).toInt();
}

bool MainWindow::loadAddOn(const std::filesystem::path& bundle) {
    const model::Status status = host_.loadAddOn(bundle);
    addOnMenu_->rebuild();
    // Help stands last in a menu bar.
    menuBar()->addAction(helpMenu_->menuAction());
    if (status) return true;
    // In a message once the window is up: who starts the program by a double click sees no standard error.
    const QString reason = toQString(status.error().message);
    report_->append(reason, true);
    QTimer::singleShot(0, this, [this, reason] {
        QMessageBox box(QMessageBox::Warning, tr("Add-On"), tr("The add-on could not be loaded."), QMessageBox::Ok,
                        this);
        box.setObjectName(QStringLiteral("addOnMessage"));
        setFurtherText(box, reason);
        box.exec();
    });
    return false;
}

bool MainWindow::openFile(const QString& path) {
    return fileMenu_->open(path);
}

/// The panels about a model come with one and go with it, each as the user left it.
void MainWindow::showPanels(bool modelOpen) {
    middle_->setCurrentIndex(modelOpen ? 1 : 0);
    viewMenu_->setModelOpen(modelOpen);
    if (modelOpen == panelsShown_) return;
    panelsShown_ = modelOpen;
    const bool debugShown = !debugDock_->isHidden();
    if (modelOpen) {
        restoreState(stateWithModel_, StateVersion);
        reviewDock_->hide();
        debugDock_->setVisible(debugShown || !debugDock_->isHidden());
    } else {
        stateWithModel_ = saveState(StateVersion);
        startPage_->refresh();
        for (QDockWidget* dock : {planDock_, elementDock_, reportDock_}) dock->hide();
    }
}

/// Updates come before a model only by mistake; the model that they are for is asked for then.
void MainWindow::takeUpdates(const QString& path) {
    if (!document_->isOpen()) {
        QMessageBox box(QMessageBox::Question, tr("Import Updates"),
                        tr("%1 holds changes to a model, and no model is open.").arg(QFileInfo(path).fileName()),
                        QMessageBox::Open | QMessageBox::Cancel, this);
        box.setObjectName(QStringLiteral("modelQuestion"));
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(tr("Open the model that they are for; the review begins then."));
        box.button(QMessageBox::Open)->setText(tr("&Open Model…"));
        if (box.exec() != QMessageBox::Open) return;
        fileMenu_->openByDialog();
    }
    if (document_->isOpen()) imports_->begin(path);
}

void MainWindow::showDocument() {
    const bool open = document_->isOpen();
    showPanels(open);
    report_->clear();
    elements_->setSource(document_->model(), document_->index());
    plan_->setSource(document_->model(), document_->index());
    summary_->clear();
    if (open) {
        view_->setFolder(QFileInfo(document_->path()).absolutePath());
        summary_->setText(
            QStringLiteral("%1 · %2").arg(toQString(document_->model()->schemaName()),
                                          counted(document_->index()->size(), QT_TRANSLATE_NOOP("Counts", "element"),
                                                  QT_TRANSLATE_NOOP("Counts", "elements"))));
        for (const std::string& remark : document_->model()->remarks()) {
            report_->append(toQString(remark), false);
        }
    }
    showTitle();
}

void MainWindow::showElement() {
    inspector_->show(document_->model(), elements_->selected());
}

/// For all that are selected and have the item, each with the value that it holds.
void MainWindow::propose(const Item& item, const QString& value) {
    std::vector<HandChanges::Subject> subjects;
    for (const model::Element element : elements_->selected()) {
        if (auto old = readItem(*document_->model(), element, item)) subjects.push_back({element, std::move(*old)});
    }
    const HandChanges::Refused refused = hand_->propose(subjects, item.designation(), value);
    if (refused.count == 0) return;
    const QString text = subjects.size() == 1 ? tr("This cannot be proposed.")
                                              : tr("%1 of %2 changes cannot be proposed.")
                                                    .arg(number(static_cast<qint64>(refused.count)),
                                                         number(static_cast<qint64>(subjects.size())));
    QMessageBox box(QMessageBox::Warning, tr("Change by Hand"), text, QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("handMessage"));
    setFurtherText(box, refused.reason);
    box.exec();
}

void MainWindow::showTitle() {
    const QString program = QStringLiteral("Model Host");
    const QString state = document_->lockHolder().isEmpty() ? QString() : tr(" (read-only)");
    setWindowTitle(document_->isOpen()
                       ? QStringLiteral("%1[*]%2 – %3").arg(QFileInfo(document_->path()).fileName(), state, program)
                       : program);
    setWindowModified(document_->modified());
    statusBar()->setToolTip(document_->path());
}

void MainWindow::showReportLine(const host::ReportLine& line) {
    const QString text = toQString(line.text);
    report_->append(text, line.alert);
    if (!line.alert) return;
    const WaitCursor::Pause usable;
    QMessageBox box(QMessageBox::Warning, tr("Report"), text, QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("alertMessage"));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MainWindow::showDialog(AddOnDialog* dialog) {
    const PickedUpdates* updates = imports_->current();
    review_ = std::make_unique<Review>(Review::Parts{*document_, host_, *plan_, *elements_, *dialog, updates});
    connect(review_.get(), &Review::failed, this, [this](const QString& what) { report_->append(what, true); });
    if (lookUpNext_ && review_->looksUp())
        QTimer::singleShot(0, review_.get(), [this, element = *lookUpNext_] { review_->lookUp(element); });
    lookUpNext_.reset();
    if (review_->bar()) {
        reports_->setReview(review_.get());
        connect(review_.get(), &Review::reportWanted, reports_, &ReviewReports::writeByDialog);
        connect(review_.get(), &Review::saveWanted, this,
                [this, dialog] { closeReviewFor(*dialog, [this] { fileMenu_->save(); }); });
        connect(review_.get(), &Review::undoWanted, this,
                [this, dialog] { closeReviewFor(*dialog, [this] { document_->undo(); }); });
        dockReview(*dialog, updates ? updates->fileName() : QString());
    }
    if (!updates || dialog->hintBar()->isHidden()) return;
    // There they stay when the dialog is gone.
    for (const QString& hint : dialog->hintBar()->hints())
        report_->append(QStringLiteral("%1: %2").arg(updates->fileName(), hint), false);
}

void MainWindow::closeReview() {
    undockReview();
    const PickedUpdates* updates = imports_->current();
    if (updates && hand_->isOwnFile(updates->path())) hand_->forget(writtenRows(review_->reviewed()));
    reports_->setReview(nullptr);
    review_.reset();
}

/// In the look-up that is open, or in a new one.
void MainWindow::lookUp(model::Element element) {
    if (review_ && review_->looksUp()) {
        review_->lookUp(element);
    } else if (QAction* action = addOnMenu_->lookUpAction(); action && action->isEnabled()) {
        lookUpNext_ = element;
        action->trigger();
        lookUpNext_.reset();
    }
}

void MainWindow::showInPlan(model::Element element) {
    planDock_->show();
    planDock_->raise();
    elements_->select(element);
    plan_->showElement(element);
    plan_->view()->setFocus(Qt::OtherFocusReason);
}

void MainWindow::reviewHandChanges() {
    const QString path = hand_->writeFile();
    if (!path.isEmpty()) {
        imports_->begin(path);
    } else {
        report_->append(tr("The changes by hand cannot be written to the folder for temporary files"), true);
    }
}

/// The review lies below everything, as wide as the window: its rows are wide, and the plan stays in sight.
void MainWindow::dockReview(AddOnDialog& dialog, const QString& fileName) {
    dialog.embed();
    focusBefore_ = focusWidget();
    reportHeight_ = reportDock_->height();
    const bool both = planDock_->isVisible() && elementDock_->isVisible();
    planHeight_ = both ? planDock_->height() : 0;
    elementHeight_ = both ? elementDock_->height() : 0;
    heightGiven_ = 0;
    setCorner(Qt::BottomRightCorner, Qt::BottomDockWidgetArea);
    const QString title =
        fileName.isEmpty() ? dialog.windowTitle() : QStringLiteral("%1: %2").arg(dialog.windowTitle(), fileName);
    reviewDock_->setWindowTitle(title);
    reviewDock_->setAccessibleName(title);
    reviewPlace_->setWidget(&dialog);
    makeRoomForReview();
    reviewDock_->show();
    reviewDock_->raise();
    // With room for the dock's title and its tabs.
    const int usual =
        std::clamp(dialog.usualHeight() + 5 * fontMetrics().height(), height() * 9 / 20, height() * 12 / 20);
    const int needed = dialog.heightForRows() + 5 * fontMetrics().height();
    const int most = height() < LowWindow ? height() : height() * 15 / 20;
    const int wanted = reviewHeight_ > 0      ? std::min(reviewHeight_, most)
                       : height() < LowWindow ? most
                                              : std::min(usual, needed);
    // Once the docks have found their places.
    QTimer::singleShot(0, reviewDock_, [this, wanted] { setReviewHeight(wanted); });
}

/// A low window has room for a review and a strip of plan and table. The commands of the tool bar wait for its end
/// anyway.
void MainWindow::makeRoomForReview() {
    if (height() >= LowWindow) return;
    for (QWidget* part : {static_cast<QWidget*>(toolBar_), static_cast<QWidget*>(elementDock_),
                          static_cast<QWidget*>(reportDock_), static_cast<QWidget*>(debugDock_)}) {
        if (part->isHidden()) continue;
        part->hide();
        hiddenForReview_.emplace_back(part);
    }
}

/// Docks that lie behind each other share their place with their tabs, which takes a second try.
void MainWindow::setReviewHeight(int wanted, bool again) {
    const int missing = wanted - reviewDock_->height();
    resizeDocks({reviewDock_}, {again ? wanted + missing : wanted}, Qt::Vertical);
    constexpr int LaidOutMs = 30;
    QTimer::singleShot(LaidOutMs, reviewDock_, [this, wanted, again] {
        heightGiven_ = reviewDock_->height();
        if (!again && heightGiven_ != wanted) {
            setReviewHeight(wanted, true);
        } else if (reviewPlace_->widget()) {
            leavePlanRoom();
        }
    });
}

/// The plan shows what the rows are about. Where the review leaves it a strip, the data of an element give way; the
/// menu of the view brings them back.
void MainWindow::leavePlanRoom() {
    constexpr int LeastPlan = 130;
    const bool inTurn = tabifiedDockWidgets(planDock_).contains(elementDock_);
    if (planDock_->isHidden() || elementDock_->isHidden() || inTurn || planDock_->isFloating() ||
        elementDock_->isFloating() || plan_->view()->height() >= LeastPlan) {
        return;
    }
    elementDock_->hide();
    hiddenForReview_.emplace_back(elementDock_);
}

void MainWindow::undockReview() {
    if (!reviewPlace_->widget()) return;
    reviewPlace_->takeWidget();
    // Only what the user has made of it: what has no room this time may have it the next.
    if (!reviewDock_->isFloating() && heightGiven_ > 0 && reviewDock_->height() != heightGiven_) {
        reviewHeight_ = reviewDock_->height();
        QSettings().setValue(ReviewHeightKey, reviewHeight_);
    }
    reviewDock_->hide();
    for (const QPointer<QWidget>& part : std::exchange(hiddenForReview_, {}))
        if (part) part->show();
    if (planHeight_ > 0 && elementHeight_ > 0)
        resizeDocks({planDock_, elementDock_}, {planHeight_, elementHeight_}, Qt::Vertical);
    // Else the next line edit would get it, and with it the keys of undo and redo.
    if (focusBefore_) {
        focusBefore_->setFocus();
    } else if (focusWidget()) {
        focusWidget()->clearFocus();
    }
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    if (reportHeight_ > 0) resizeDocks({reportDock_}, {reportHeight_}, Qt::Vertical);
}

/// The add-on's command is on the stack as long as its dialog is open; no other may begin before it has ended.
void MainWindow::closeReviewFor(AddOnDialog& dialog, std::function<void()> next) {
    afterCommand_ = std::move(next);
    dialog.reject();
}

/// A dialog that stands before the plan makes room until the user has answered.
std::optional<host::PickedPoint> MainWindow::pickPoint(const QString& prompt) {
    const Busy::Guard guard(busy_);
    const WaitCursor::Pause usable;
    AddOnDialog* dialog = view_->current();
    const bool hidden = dialog && dialog->isWindow() && dialog->isVisible();
    if (hidden) dialog->hide();
    planDock_->show();
    planDock_->raise();
    activateWindow();
    statusBar()->showMessage(prompt);
    const auto picked = plan_->pickPoint(prompt);
    statusBar()->clearMessage();
    if (hidden) dialog->show();
    return picked;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (busy_.active()) {
        // The add-on's command is on the stack; its dialog or question has to be answered first.
        plan_->cancelPicking();
        if (AddOnDialog* dialog = view_->current()) {
            dialog->raise();
            dialog->activateWindow();
        }
        QApplication::beep();
        event->ignore();
        return;
    }
    if (!fileMenu_->mayLoseModel()) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(GeometryKey, saveGeometry());
    settings.setValue(StateKey, panelsShown_ ? saveState(StateVersion) : stateWithModel_);
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!busy_.active() && !droppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = droppedFile(event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    // The program that the file comes from waits until this returns; opening may ask questions.
    QTimer::singleShot(0, this, [this, path] { openFile(path); });
}

}  // namespace desktop
