#pragma once

#include <QScrollArea>

class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

/// What the window shows as long as no model is open: how to begin, the models opened last, and the way from there.
class StartPage : public QScrollArea {
    Q_OBJECT

public:
    explicit StartPage(QWidget* parent = nullptr);

    /// Takes the recent files, their dates and sizes anew.
    void refresh();

    QTreeWidget* recentFiles() const { return recent_; }

Q_SIGNALS:
    void openWanted();
    void fileWanted(const QString& path);

private:
    QWidget* makeRecent();
    QWidget* makeSteps();
    void openRecent(const QTreeWidgetItem* item);

    QTreeWidget* recent_;
    QWidget* recentPart_ = nullptr;
    bool opening_ = false;
};

}  // namespace desktop
