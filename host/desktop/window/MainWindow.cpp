#include "desktop/window/MainWindow.hpp"

#include "desktop/Text.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/dialogs/DesktopView.hpp"
#include "desktop/dialogs/UpdateHints.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/report/DebugPanel.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/window/AddOnMenu.hpp"
#include "desktop/window/EditMenu.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/HelpMenu.hpp"
#include "desktop/window/ReadOnlyBar.hpp"
#include "desktop/window/Review.hpp"
#include "frameworks/FrontEnd.hpp"

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
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

namespace desktop {

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
/// Raised when the docks change, so that an older arrangement is not laid over them.
constexpr int stateVersion = 1;

/// The first file of a drop; empty where there is none.
QString droppedFile(const QMimeData* data) {
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile()) return url.toLocalFile();
    }
    return {};
}

}  // namespace

MainWindow::MainWindow()
    : doc_(new Document(theHost_, this)),
      table_(new ElementPanel),
      inspect_(new InspectorPanel),
      planPanel_(new PlanPanel),
      reportPanel_(new ReportPanel),
      debugPanel_(new DebugPanel),
      middle_(new QStackedWidget),
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
    review_.reset();
    frontend::setDebugSink({});
    theHost_.setReportSink({});
    theHost_.setPointPicker({});
    // What looks at the model goes before the host that owns it.
    doc_->close();
}

QSize MainWindow::sizeHint() const {
    return (screen()->availableSize() * 17 / 20).boundedTo({1680, 1050});
}

void MainWindow::makePanels() {
    addToolBar(Qt::TopToolBarArea, readOnlyBar_);
    middle_->addWidget(makeWelcome());
    middle_->addWidget(table_);
    setCentralWidget(middle_);
    // The report belongs under the table; the plan and the element's data keep the window's whole height.
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    planDock_ = addDock(QStringLiteral("Plan"), QStringLiteral("planDock"), planPanel_, Qt::RightDockWidgetArea);
    elementDock_ = addDock(QStringLiteral("Element"), QStringLiteral("elementDock"), inspect_, Qt::RightDockWidgetArea);
    reportDock_ =
        addDock(QStringLiteral("Report"), QStringLiteral("reportDock"), reportPanel_, Qt::BottomDockWidgetArea);
    debugDock_ =
        addDock(QStringLiteral("Debug Output"), QStringLiteral("debugDock"), debugPanel_, Qt::BottomDockWidgetArea);
    tabifyDockWidget(reportDock_, debugDock_);
    debugDock_->hide();
    const QSize size = MainWindow::sizeHint();
    resizeDocks({planDock_, elementDock_}, {size.height() * 55 / 100, size.height() * 45 / 100}, Qt::Vertical);
    resizeDocks({planDock_}, {size.width() * 2 / 5}, Qt::Horizontal);
    resizeDocks({reportDock_}, {size.height() / 7}, Qt::Vertical);
    summary_->setObjectName(QStringLiteral("summary"));
    summary_->setAccessibleName(QStringLiteral("Model"));
    statusBar()->addPermanentWidget(summary_);
}

QDockWidget* MainWindow::addDock(const QString& title, const QString& name, QWidget* content, Qt::DockWidgetArea area) {
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setAccessibleName(title);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

QWidget* MainWindow::makeWelcome() {
    auto* page = new QWidget;
    auto* text = new QLabel(QStringLiteral("Open an IFC model, or drop one here."));
    text->setAccessibleName(text->text());
    text->setAlignment(Qt::AlignCenter);
    auto* button = new QPushButton(QStringLiteral("Open Model…"));
    button->setObjectName(QStringLiteral("welcomeOpen"));
    button->setAccessibleName(QStringLiteral("Open a model"));
    connect(button, &QPushButton::clicked, this, [this] { files_->openByDialog(); });
    auto* all = new QVBoxLayout(page);
    all->addStretch();
    all->addWidget(text);
    all->addSpacing(12);
    all->addWidget(button, 0, Qt::AlignCenter);
    all->addStretch();
    return page;
}

void MainWindow::makeMenus() {
    files_ = new FileMenu(this, *doc_, busy_);
    new EditMenu(this, *doc_, *table_, busy_);
    QMenu* shown = menuBar()->addMenu(QStringLiteral("&View"));
    for (QDockWidget* dock : {planDock_, elementDock_, reportDock_, debugDock_})
        shown->addAction(dock->toggleViewAction());
    addOn_ = new AddOnMenu(this, theHost_, *doc_, busy_);
    help_ = new HelpMenu(this, theHost_);
}

void MainWindow::connectPanels() {
    connect(doc_, &Document::closing, this, [this] {
        table_->setSource(nullptr, nullptr);
        inspect_->show(nullptr, std::nullopt);
        planPanel_->setSource(nullptr, nullptr);
    });
    connect(doc_, &Document::replaced, this, &MainWindow::showDocument);
    connect(doc_, &Document::fileChanged, this, &MainWindow::showTitle);
    connect(doc_, &Document::fileChanged, this, [this] { readOnlyBar_->show(doc_->lockHolder()); });
    connect(readOnlyBar_, &ReadOnlyBar::saveAsWanted, this, [this] { files_->saveAs(); });
    connect(readOnlyBar_, &ReadOnlyBar::reopeningWanted, this, [this] {
        const QString path = doc_->path();  // a copy: saving the changes first may give the document another one
        files_->open(path);
    });
    connect(&busy_, &Busy::changed, this, [this] { readOnlyBar_->setEnabled(!busy_.active()); });
    connect(doc_, &Document::edited, table_, &ElementPanel::refresh);
    connect(table_, &ElementPanel::currentChanged, this, [this] {
        inspect_->show(doc_->model(), table_->current());
        planPanel_->showElement(table_->current());
    });
    connect(planPanel_, &PlanPanel::elementClicked, table_, &ElementPanel::select);
    connect(reportPanel_, &ReportPanel::countChanged, this, [this](int count) {
        reportDock_->setWindowTitle(count ? QStringLiteral("Report (%1)").arg(number(count))
                                          : QStringLiteral("Report"));
    });
    connect(addOn_, &AddOnMenu::commandEnded, this, [this](GSErrCode error) {
        frontEnd_->takePickedFile();
        if (error == NoError) return;
        reportPanel_->append(QStringLiteral("The add-on's command ended with the error 0x%1")
                                 .arg(static_cast<quint32>(error), 8, 16, QLatin1Char('0')),
                             false);
    });
}

void MainWindow::connectHost() {
    frontEnd_ = std::make_unique<DesktopView>(this, planDock_);
    connect(frontEnd_.get(), &DesktopView::dialogOpened, this, &MainWindow::showDialog);
    connect(frontEnd_.get(), &DesktopView::dialogClosed, this, [this] { review_.reset(); });
    frontend::setDebugSink([this](const char* text) { debugPanel_->append(text); });
    frontend::setBeepSink([] { QApplication::beep(); });
    theHost_.setReportSink([this](const host::ReportLine& line) { showReportLine(line); });
    theHost_.setPointPicker([this](const std::string& prompt) { return pickPoint(toQString(prompt)); });
}

void MainWindow::restorePlaces() {
    const QSettings settings;
    resize(MainWindow::sizeHint());
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray(), stateVersion);
}

bool MainWindow::loadAddOn(const std::filesystem::path& bundle) {
    const model::Status status = theHost_.loadAddOn(bundle);
    addOn_->rebuild();
    // Help stands last in a menu bar.
    menuBar()->addAction(help_->menuAction());
    if (status) return true;
    const QString reason = toQString(status.error().message);
    reportPanel_->append(reason, true);
    QTimer::singleShot(0, this, [this, reason] {
        QMessageBox box(QMessageBox::Warning, QStringLiteral("Add-On"),
                        QStringLiteral("The add-on could not be loaded."), QMessageBox::Ok, this);
        box.setObjectName(QStringLiteral("addOnMessage"));
        box.setInformativeText(reason.toHtmlEscaped());
        box.exec();
    });
    return false;
}

bool MainWindow::openFile(const QString& path) {
    return files_->open(path);
}

void MainWindow::showDocument() {
    const bool open = doc_->isOpen();
    middle_->setCurrentIndex(open ? 1 : 0);
    reportPanel_->clear();
    table_->setSource(doc_->model(), doc_->index());
    planPanel_->setSource(doc_->model(), doc_->index());
    summary_->clear();
    if (open) {
        summary_->setText(QStringLiteral("%1 · %2").arg(toQString(doc_->model()->schemaName()),
                                                        counted(doc_->index()->size(), "element", "elements")));
        for (const std::string& remark : doc_->model()->remarks()) {
            reportPanel_->append(toQString(remark), false);
        }
    }
    showTitle();
}

void MainWindow::showTitle() {
    const QString program = QStringLiteral("Model Host");
    const QString state = doc_->lockHolder().isEmpty() ? QString() : QStringLiteral(" (read-only)");
    setWindowTitle(doc_->isOpen()
                       ? QStringLiteral("%1[*]%2 – %3").arg(QFileInfo(doc_->path()).fileName(), state, program)
                       : program);
    setWindowModified(doc_->modified());
    statusBar()->setToolTip(doc_->path());
}

void MainWindow::showReportLine(const host::ReportLine& line) {
    const QString text = toQString(line.text);
    reportPanel_->append(text, line.alert);
    if (!line.alert) return;
    const WaitCursor::Pause usable;
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Report"), text, QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("alertMessage"));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MainWindow::showDialog(AddOnDialog* dialog) {
    review_ = std::make_unique<Review>(*doc_, *planPanel_, *table_, *dialog);
    const auto file = frontEnd_->takePickedFile();
    if (!file || !doc_->isOpen()) return;
    const QString name = QFileInfo(pathText(*file)).fileName();
    const QStringList hints = hintsAbout(*file, dialog->content(), *doc_->model());
    dialog->showHints(name, hints);
    // There they stay when the dialog is gone.
    for (const QString& hint : hints) reportPanel_->append(QStringLiteral("%1: %2").arg(name, hint), false);
}

/// A dialog that stands before the plan makes room until the user has answered.
std::optional<host::PickedPoint> MainWindow::pickPoint(const QString& prompt) {
    const Busy::Guard guard(busy_);
    const WaitCursor::Pause usable;
    AddOnDialog* dialog = frontEnd_->current();
    const bool hidden = dialog && dialog->isVisible();
    if (hidden) dialog->hide();
    planDock_->show();
    planDock_->raise();
    activateWindow();
    statusBar()->showMessage(prompt);
    const auto picked = planPanel_->pickPoint(prompt);
    statusBar()->clearMessage();
    if (hidden) dialog->show();
    return picked;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (busy_.active()) {
        // The add-on's command is on the stack; its dialog or question has to be answered first.
        planPanel_->cancelPicking();
        if (AddOnDialog* dialog = frontEnd_->current()) {
            dialog->raise();
            dialog->activateWindow();
        }
        QApplication::beep();
        event->ignore();
        return;
    }
    if (!files_->mayLoseModel()) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState(stateVersion));
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
