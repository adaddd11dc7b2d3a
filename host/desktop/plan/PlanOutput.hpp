#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class QPagedPaintDevice;
class QPainter;

namespace desktop {

class Document;
class PlanPanel;
struct PlanSheet;

/// The plan on paper: saved as a drawing or a page, and printed. What is on it is what the window shows.
class PlanOutput : public QObject {
    Q_OBJECT

public:
    PlanOutput(QMainWindow* window, const Document& document, PlanPanel& plan);

    QAction* saveAction() const { return save_; }
    QAction* printAction() const { return print_; }

    /// As .svg or .pdf, by the name's ending. A failure is said in a message. @return whether it was written.
    bool save(const QString& path);
    /// Draws on one page of a printer or a file. @return false where it cannot be drawn on.
    bool drawOn(QPagedPaintDevice& device);

private:
    void saveByDialog();
    void printByDialog();
    PlanSheet sheet();
    bool isWide();
    QByteArray drawing();
    QByteArray page();
    void refuse(const QString& title, const QString& why);

    QMainWindow* window_;
    const Document& document_;
    PlanPanel& plan_;
    QAction *save_, *print_;
};

}  // namespace desktop
