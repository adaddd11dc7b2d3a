#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"
#include "services/Host.hpp"

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>

class QLabel;
class QScrollArea;
class QStackedWidget;

namespace desktop {

class AddOnDialog;
class AddOnMenu;
class DebugPanel;
class DesktopView;
class EditMenu;
class ElementPanel;
class FileMenu;
class HandBar;
class HandChanges;
class HelpMenu;
class Imports;
class InspectorPanel;
struct Item;
class MainToolBar;
class PlanCursor;
class PlanOutput;
class PlanPanel;
class ReadOnlyBar;
class ReportPanel;
class Review;
class ReviewReports;
class StartPage;
class ViewMenu;

/// The program's window: one model, one add-on, and everything that shows them.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// @return false where the add-on cannot run here; the reason is in the report and in a message.
    bool loadAddOn(const std::filesystem::path& bundle);
    bool openFile(const QString& path);

    host::Host& host() { return host_; }
    Document& document() { return *document_; }
    FileMenu& fileMenu() { return *fileMenu_; }
    AddOnMenu& addOnMenu() { return *addOnMenu_; }
    HelpMenu& helpMenu() { return *helpMenu_; }
    ElementPanel& elements() { return *elements_; }
    InspectorPanel& inspector() { return *inspector_; }
    PlanPanel& plan() { return *plan_; }
    PlanCursor& planCursor() { return *planCursor_; }
    PlanOutput& planOutput() { return *planOutput_; }
    ReportPanel& report() { return *report_; }
    DebugPanel& debug() { return *debug_; }
    DesktopView& view() { return *view_; }

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makePanels();
    void makeMenus();
    void fillToolBar();
    QDockWidget* addDock(const QString& title, const QString& name, QWidget* content, Qt::DockWidgetArea area);
    void connectPanels();
    void connectHost();
    void arrangeForScreen();
    void restorePlaces();

    void showPanels(bool modelOpen);
    void takeUpdates(const QString& path);
    void showDocument();
    void showElement();
    void propose(const Item& item, const QString& value);
    void showTitle();
    void showReportLine(const host::ReportLine& line);
    void showDialog(AddOnDialog* dialog);
    void dockReview(AddOnDialog& dialog, const QString& fileName);
    void setReviewHeight(int wanted, bool again = false);
    void undockReview();
    void makeRoomForReview();
    void leavePlanRoom();
    void closeReview();
    void lookUp(model::Element element);
    void showInPlan(model::Element element);
    void reviewHandChanges();
    void closeReviewFor(AddOnDialog& dialog, std::function<void()> next);
    std::optional<host::PickedPoint> pickPoint(const QString& prompt);

    host::Host host_;
    Busy busy_;
    Document* document_;
    ElementPanel* elements_;
    InspectorPanel* inspector_;
    PlanPanel* plan_;
    PlanCursor* planCursor_;
    ReportPanel* report_;
    DebugPanel* debug_;
    QStackedWidget* middle_;
    StartPage* startPage_;
    HandChanges* hand_;
    HandBar* handBar_;
    MainToolBar* toolBar_;
    QDockWidget *planDock_, *elementDock_, *reportDock_, *debugDock_, *reviewDock_;
    QScrollArea* reviewPlace_;
    QLabel* summary_;
    ReadOnlyBar* readOnlyBar_;
    FileMenu* fileMenu_ = nullptr;
    EditMenu* editMenu_ = nullptr;
    ViewMenu* viewMenu_ = nullptr;
    AddOnMenu* addOnMenu_ = nullptr;
    HelpMenu* helpMenu_ = nullptr;
    Imports* imports_ = nullptr;
    ReviewReports* reports_ = nullptr;
    PlanOutput* planOutput_ = nullptr;
    std::unique_ptr<DesktopView> view_;
    std::unique_ptr<Review> review_;
    std::optional<model::Element> lookUpNext_;        ///< Once the look-up's dialog is there.
    std::function<void()> afterCommand_;              ///< What the user wants once the add-on's command has ended.
    QPointer<QWidget> focusBefore_;                   ///< The review had it.
    std::vector<QPointer<QWidget>> hiddenForReview_;  ///< In a low window.
    int planHeight_ = 0, elementHeight_ = 0;          ///< Before there was a review.
    int reportHeight_ = 0;                            ///< While a review has the report's place.
    int heightGiven_ = 0;                             ///< The review's, by the program; 0: not yet.
    int reviewHeight_ = 0;                            ///< As the user left it; 0: not yet.
    bool panelsShown_ = true;                         ///< Those about a model.
    QByteArray stateWithModel_;                       ///< The docks, while those are not shown.
};

}  // namespace desktop
