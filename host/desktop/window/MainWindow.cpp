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
    : doc(new Document(theHost, this)),
      table(new ElementPanel),
      inspect(new InspectorPanel),
      planPanel(new PlanPanel),
      reportPanel(new ReportPanel),
      debugPanel(new DebugPanel),
      middle(new QStackedWidget),
      summary(new QLabel),
      readOnlyBar(new ReadOnlyBar) {
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
    review.reset();
    frontend::setDebugSink({});
    theHost.setReportSink({});
    theHost.setPointPicker({});
    // What looks at the model goes before the host that owns it.
    doc->close();
}

QSize MainWindow::sizeHint() const {
    return (screen()->availableSize() * 17 / 20).boundedTo({1680, 1050});
}

void MainWindow::makePanels() {
    addToolBar(Qt::TopToolBarArea, readOnlyBar);
    middle->addWidget(makeWelcome());
    middle->addWidget(table);
    setCentralWidget(middle);
    // The report belongs under the table; the plan and the element's data keep the window's whole height.
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    planDock = addDock(QStringLiteral("Plan"), QStringLiteral("planDock"), planPanel, Qt::RightDockWidgetArea);
    elementDock = addDock(QStringLiteral("Element"), QStringLiteral("elementDock"), inspect, Qt::RightDockWidgetArea);
    reportDock = addDock(QStringLiteral("Report"), QStringLiteral("reportDock"), reportPanel, Qt::BottomDockWidgetArea);
    debugDock =
        addDock(QStringLiteral("Debug Output"), QStringLiteral("debugDock"), debugPanel, Qt::BottomDockWidgetArea);
    tabifyDockWidget(reportDock, debugDock);
    debugDock->hide();
    const QSize size = MainWindow::sizeHint();
    resizeDocks({planDock, elementDock}, {size.height() * 55 / 100, size.height() * 45 / 100}, Qt::Vertical);
    resizeDocks({planDock}, {size.width() * 2 / 5}, Qt::Horizontal);
    resizeDocks({reportDock}, {size.height() / 7}, Qt::Vertical);
    summary->setObjectName(QStringLiteral("summary"));
    summary->setAccessibleName(QStringLiteral("Model"));
    statusBar()->addPermanentWidget(summary);
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
    connect(button, &QPushButton::clicked, this, [this] { files->openByDialog(); });
    auto* all = new QVBoxLayout(page);
    all->addStretch();
    all->addWidget(text);
    all->addSpacing(12);
    all->addWidget(button, 0, Qt::AlignCenter);
    all->addStretch();
    return page;
}

void MainWindow::makeMenus() {
    files = new FileMenu(this, *doc, busy);
    new EditMenu(this, *doc, *table, busy);
    QMenu* shown = menuBar()->addMenu(QStringLiteral("&View"));
    for (QDockWidget* dock : {planDock, elementDock, reportDock, debugDock}) shown->addAction(dock->toggleViewAction());
    addOn = new AddOnMenu(this, theHost, *doc, busy);
    help = new HelpMenu(this, theHost);
}

void MainWindow::connectPanels() {
    connect(doc, &Document::closing, this, [this] {
        table->setSource(nullptr, nullptr);
        inspect->show(nullptr, std::nullopt);
        planPanel->setSource(nullptr, nullptr);
    });
    connect(doc, &Document::replaced, this, &MainWindow::showDocument);
    connect(doc, &Document::fileChanged, this, &MainWindow::showTitle);
    connect(doc, &Document::fileChanged, this, [this] { readOnlyBar->show(doc->lockHolder()); });
    connect(readOnlyBar, &ReadOnlyBar::saveAsWanted, this, [this] { files->saveAs(); });
    connect(readOnlyBar, &ReadOnlyBar::reopeningWanted, this, [this] {
        const QString path = doc->path();  // a copy: saving the changes first may give the document another one
        files->open(path);
    });
    connect(&busy, &Busy::changed, this, [this] { readOnlyBar->setEnabled(!busy.active()); });
    connect(doc, &Document::edited, table, &ElementPanel::refresh);
    connect(table, &ElementPanel::currentChanged, this, [this] {
        inspect->show(doc->model(), table->current());
        planPanel->showElement(table->current());
    });
    connect(planPanel, &PlanPanel::elementClicked, table, &ElementPanel::select);
    connect(reportPanel, &ReportPanel::countChanged, this, [this](int count) {
        reportDock->setWindowTitle(count ? QStringLiteral("Report (%1)").arg(number(count)) : QStringLiteral("Report"));
    });
    connect(addOn, &AddOnMenu::commandEnded, this, [this](GSErrCode error) {
        frontEnd->takePickedFile();
        if (error == NoError) return;
        reportPanel->append(QStringLiteral("The add-on's command ended with the error 0x%1")
                                .arg(static_cast<quint32>(error), 8, 16, QLatin1Char('0')),
                            false);
    });
}

void MainWindow::connectHost() {
    frontEnd = std::make_unique<DesktopView>(this, planDock);
    connect(frontEnd.get(), &DesktopView::dialogOpened, this, &MainWindow::showDialog);
    connect(frontEnd.get(), &DesktopView::dialogClosed, this, [this] { review.reset(); });
    frontend::setDebugSink([this](const char* text) { debugPanel->append(text); });
    frontend::setBeepSink([] { QApplication::beep(); });
    theHost.setReportSink([this](const host::ReportLine& line) { showReportLine(line); });
    theHost.setPointPicker([this](const std::string& prompt) { return pickPoint(toQString(prompt)); });
}

void MainWindow::restorePlaces() {
    const QSettings settings;
    resize(MainWindow::sizeHint());
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray(), stateVersion);
}

bool MainWindow::loadAddOn(const std::filesystem::path& bundle) {
    const model::Status status = theHost.loadAddOn(bundle);
    addOn->rebuild();
    // Help stands last in a menu bar.
    menuBar()->addAction(help->menuAction());
    if (status) return true;
    const QString reason = toQString(status.error().message);
    reportPanel->append(reason, true);
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
    return files->open(path);
}

void MainWindow::showDocument() {
    const bool open = doc->isOpen();
    middle->setCurrentIndex(open ? 1 : 0);
    reportPanel->clear();
    table->setSource(doc->model(), doc->index());
    planPanel->setSource(doc->model(), doc->index());
    summary->clear();
    if (open) {
        summary->setText(QStringLiteral("%1 · %2").arg(toQString(doc->model()->schemaName()),
                                                       counted(doc->index()->size(), "element", "elements")));
        for (const std::string& remark : doc->model()->remarks()) {
            reportPanel->append(toQString(remark), false);
        }
    }
    showTitle();
}

void MainWindow::showTitle() {
    const QString program = QStringLiteral("Model Host");
    const QString state = doc->lockHolder().isEmpty() ? QString() : QStringLiteral(" (read-only)");
    setWindowTitle(doc->isOpen() ? QStringLiteral("%1[*]%2 – %3").arg(QFileInfo(doc->path()).fileName(), state, program)
                                 : program);
    setWindowModified(doc->modified());
    statusBar()->setToolTip(doc->path());
}

void MainWindow::showReportLine(const host::ReportLine& line) {
    const QString text = toQString(line.text);
    reportPanel->append(text, line.alert);
    if (!line.alert) return;
    const WaitCursor::Pause usable;
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Report"), text, QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("alertMessage"));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MainWindow::showDialog(AddOnDialog* dialog) {
    review = std::make_unique<Review>(*doc, *planPanel, *table, *dialog);
    const auto file = frontEnd->takePickedFile();
    if (!file || !doc->isOpen()) return;
    const QString name = QFileInfo(pathText(*file)).fileName();
    const QStringList hints = hintsAbout(*file, dialog->content(), *doc->model());
    dialog->showHints(name, hints);
    // There they stay when the dialog is gone.
    for (const QString& hint : hints) reportPanel->append(QStringLiteral("%1: %2").arg(name, hint), false);
}

/// A dialog that stands before the plan makes room until the user has answered.
std::optional<host::PickedPoint> MainWindow::pickPoint(const QString& prompt) {
    const Busy::Guard guard(busy);
    const WaitCursor::Pause usable;
    AddOnDialog* dialog = frontEnd->current();
    const bool hidden = dialog && dialog->isVisible();
    if (hidden) dialog->hide();
    planDock->show();
    planDock->raise();
    activateWindow();
    statusBar()->showMessage(prompt);
    const auto picked = planPanel->pickPoint(prompt);
    statusBar()->clearMessage();
    if (hidden) dialog->show();
    return picked;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (busy.active()) {
        // The add-on's command is on the stack; its dialog or question has to be answered first.
        planPanel->cancelPicking();
        if (AddOnDialog* dialog = frontEnd->current()) {
            dialog->raise();
            dialog->activateWindow();
        }
        QApplication::beep();
        event->ignore();
        return;
    }
    if (!files->mayLoseModel()) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState(stateVersion));
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!busy.active() && !droppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = droppedFile(event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    // The program that the file comes from waits until this returns; opening may ask questions.
    QTimer::singleShot(0, this, [this, path] { openFile(path); });
}

}  // namespace desktop
