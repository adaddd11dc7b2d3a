#include "desktop/review/ReviewReports.hpp"

#include "desktop/QtText.hpp"
#include "desktop/SaveDialog.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/WholeFile.hpp"
#include "desktop/look/Message.hpp"
#include "desktop/review/Review.hpp"
#include "report/Forms.hpp"
#include "text/Message.hpp"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>

namespace desktop {

ReviewReports::ReviewReports(QMainWindow* window, Document& document)
    : QObject(window), window_(window), document_(document), action_(new QAction(tr("Re&port…"), this)) {
    action_->setShortcut(Qt::CTRL | Qt::Key_R);
    action_->setStatusTip(tr("Write what came of the last review: as a page, a workbook or JSON"));
    connect(action_, &QAction::triggered, this, &ReviewReports::writeByDialog);
    connect(&document_, &Document::closing, this, [this] {
        last_.reset();
        update();
    });
    update();
}

void ReviewReports::setReview(const Review* review) {
    // Kept as it was at its end, so that the report can still be written while the model is open.
    if (open_ && !review) {
        last_ = open_->reviewed();
        if (document_.isOpen()) revision_ = document_.model()->revision();
    }
    open_ = review;
    update();
}

void ReviewReports::update() {
    action_->setEnabled(open_ || last_);
}

std::optional<importing::ReviewedUpdates> ReviewReports::reviewed() const {
    auto reviewed = open_ ? open_->reviewed() : last_;
    if (!reviewed || !document_.isOpen()) return std::nullopt;
    reviewed->program = "modelhost-desktop " DESKTOP_VERSION;
    reviewed->modelPath = toPath(document_.path());
    if (reviewed->result && !document_.modified()) reviewed->saved = document_.path().toStdString();
    if (!open_ && document_.model()->revision() != revision_)
        reviewed->hints.push_back(text::message("The model was changed, or a step taken back, after this review"));
    return reviewed;
}

void ReviewReports::writeByDialog() {
    if (!action_->isEnabled()) return;
    const WaitCursor::Pause usable;
    const QFileInfo model(document_.path());
    const QString path = askWhereToSave(window_, QStringLiteral("reportDialog"), tr("Write Report"),
                                        {{tr("Page (*.html)"), QStringLiteral("html")},
                                         {tr("Workbook (*.xlsx)"), QStringLiteral("xlsx")},
                                         {tr("JSON (*.json)"), QStringLiteral("json")}},
                                        model.absoluteDir().filePath(tr("%1-report").arg(model.completeBaseName())));
    if (!path.isEmpty()) write(path);
}

bool ReviewReports::write(const QString& path) {
    const auto refuse = [&](const QString& why) {
        QMessageBox box(QMessageBox::Warning, tr("Report"),
                        tr("%1 could not be written.").arg(QFileInfo(path).fileName()), QMessageBox::Ok, window_);
        box.setObjectName(QStringLiteral("reportMessage"));
        box.setTextFormat(Qt::PlainText);
        setFurtherText(box, why);
        box.exec();
        return false;
    };
    if (!report::hasForm(toPath(path))) return refuse(tr("A report's name ends in .html, .xlsx or .json."));
    const auto what = reviewed();
    if (!what) return false;
    // The wait is over before anything is said of what came of it.
    std::optional<model::Result<std::string>> bytes;
    {
        const WaitCursor wait;
        bytes = report::inFormOf(toPath(path), importing::pageOf(*what, *document_.model()));
    }
    if (!*bytes) return refuse(toQString(bytes->error().message));
    if (const QString error = writeWhole(path, **bytes); !error.isEmpty()) return refuse(error);
    window_->statusBar()->showMessage(tr("Report written to %1").arg(path), 10000);
    return true;
}

}  // namespace desktop
