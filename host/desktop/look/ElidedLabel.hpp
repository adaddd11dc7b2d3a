#pragma once

#include <QLabel>

namespace desktop {

/// A line of text that gives way where there is no room for it: what is cut ends in an ellipsis, and the tool tip has
/// all of it.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;
};

}  // namespace desktop
