#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"
#include "services/Host.hpp"

#include <QMainWindow>
#include <memory>

class QLabel;
class QStackedWidget;

namespace desktop {

class AddOnDialog;
class AddOnMenu;
class DebugPanel;
class DesktopView;
class ElementPanel;
class FileMenu;
class HelpMenu;
class InspectorPanel;
class PlanPanel;
class ReadOnlyBar;
class ReportPanel;
class Review;

/// The program's window: one model, one add-on, and everything that shows them.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// @return false where the add-on cannot run here; the reason is in the report and in a message.
    bool loadAddOn(const std::filesystem::path& bundle);
    bool openFile(const QString& path);

    host::Host& host() { return theHost; }
    Document& document() { return *doc; }
    FileMenu& fileMenu() { return *files; }
    AddOnMenu& addOnMenu() { return *addOn; }
    HelpMenu& helpMenu() { return *help; }
    ElementPanel& elements() { return *table; }
    InspectorPanel& inspector() { return *inspect; }
    PlanPanel& plan() { return *planPanel; }
    ReportPanel& report() { return *reportPanel; }
    DebugPanel& debug() { return *debugPanel; }
    DesktopView& view() { return *frontEnd; }

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makePanels();
    void makeMenus();
    QWidget* makeWelcome();
    QDockWidget* addDock(const QString& title, const QString& name, QWidget* content, Qt::DockWidgetArea area);
    void connectPanels();
    void connectHost();
    void restorePlaces();

    void showDocument();
    void showTitle();
    void showReportLine(const host::ReportLine& line);
    void showDialog(AddOnDialog* dialog);
    std::optional<host::PickedPoint> pickPoint(const QString& prompt);

    host::Host theHost;
    Busy busy;
    Document* doc;
    ElementPanel* table;
    InspectorPanel* inspect;
    PlanPanel* planPanel;
    ReportPanel* reportPanel;
    DebugPanel* debugPanel;
    QStackedWidget* middle;
    QDockWidget *planDock, *elementDock, *reportDock, *debugDock;
    QLabel* summary;
    ReadOnlyBar* readOnlyBar;
    FileMenu* files = nullptr;
    AddOnMenu* addOn = nullptr;
    HelpMenu* help = nullptr;
    std::unique_ptr<DesktopView> frontEnd;
    std::unique_ptr<Review> review;
};

}  // namespace desktop
