#pragma once

#include "desktop/look/Icons.hpp"

#include <QToolBar>
#include <optional>
#include <vector>

namespace desktop {

/// The commands that people need most, in the order of the work. They are the menus' own actions.
class MainToolBar : public QToolBar {
    Q_OBJECT

public:
    struct Button {
        Picture picture;
        QAction* action;        ///< Null: there is no such command now.
        QString text{};         ///< In place of the action's; empty: that.
        bool newGroup = false;  ///< Stands apart from the one before.
    };
    explicit MainToolBar(QWidget* parent = nullptr);

    /// In place of the buttons that there were.
    void setButtons(const std::vector<Button>& buttons);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void takeIcons();
    void chooseTexts();

    std::vector<Button> buttons_;
    int widthWithTexts_ = 0;
};

}  // namespace desktop
