#pragma once

#include "desktop/window/Document.hpp"
#include "importing/ReviewPage.hpp"

#include <QObject>
#include <optional>

class QAction;
class QMainWindow;

namespace desktop {

class Review;

/// The report to hand on of the last review, or of the one that is open, as the command line's --report writes it.
class ReviewReports : public QObject {
    Q_OBJECT

public:
    ReviewReports(QMainWindow* window, Document& document);

    QAction* action() const { return action_; }
    /// The review that is open; null when it is about to go. What it came to is kept.
    void setReview(const Review* review);

    /// Asks for a name and writes it.
    void writeByDialog();
    /// @return false where it cannot be written; the reason is in a message.
    bool write(const QString& path);

private:
    void update();
    std::optional<importing::ReviewedUpdates> reviewed() const;

    QMainWindow* window_;
    Document& document_;
    QAction* action_;
    const Review* open_ = nullptr;
    std::optional<importing::ReviewedUpdates> last_;
    std::uint64_t revision_ = 0;  ///< Of the model when the last review was closed.
};

}  // namespace desktop
