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

    host::Host& host() { return theHost_; }
    Document& document() { return *doc_; }
    FileMenu& fileMenu() { return *files_; }
    AddOnMenu& addOnMenu() { return *addOn_; }
    HelpMenu& helpMenu() { return *help_; }
    ElementPanel& elements() { return *table_; }
    InspectorPanel& inspector() { return *inspect_; }
    PlanPanel& plan() { return *planPanel_; }
    ReportPanel& report() { return *reportPanel_; }
    DebugPanel& debug() { return *debugPanel_; }
    DesktopView& view() { return *frontEnd_; }

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

    host::Host theHost_;
    Busy busy_;
    Document* doc_;
    ElementPanel* table_;
    InspectorPanel* inspect_;
    PlanPanel* planPanel_;
    ReportPanel* reportPanel_;
    DebugPanel* debugPanel_;
    QStackedWidget* middle_;
    QDockWidget *planDock_, *elementDock_, *reportDock_, *debugDock_;
    QLabel* summary_;
    ReadOnlyBar* readOnlyBar_;
    FileMenu* files_ = nullptr;
    AddOnMenu* addOn_ = nullptr;
    HelpMenu* help_ = nullptr;
    std::unique_ptr<DesktopView> frontEnd_;
    std::unique_ptr<Review> review_;
};

}  // namespace desktop
