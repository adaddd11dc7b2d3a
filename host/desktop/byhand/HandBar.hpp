#pragma once

#include "desktop/byhand/HandChanges.hpp"

#include <QFrame>

class QLabel;
class QPushButton;

namespace desktop {

/// The line below the element's data as long as something is proposed by hand: how much, and what to do with it.
class HandBar : public QFrame {
    Q_OBJECT

public:
    explicit HandBar(QWidget* parent = nullptr);

    void setCount(int count);
    /// Whether a review may begin now.
    void setFree(bool free);
    QPushButton* reviewButton() const { return review_; }
    QPushButton* discardButton() const { return discard_; }
    QString text() const;

Q_SIGNALS:
    void reviewWanted();
    void discardWanted();

private:
    QLabel* count_;
    QPushButton *review_, *discard_;
};

}  // namespace desktop
