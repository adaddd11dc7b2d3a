#include "desktop/window/FileTasks.hpp"

#include "desktop/QtText.hpp"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>
#include <atomic>

namespace desktop {

namespace {

/// A file that is through sooner shows no progress: a window that comes and goes at once is only a flicker.
constexpr int QuietMs = 500;
constexpr int PollMs = 40;
constexpr int WholeBar = 1000;

int onBar(std::uint64_t done, std::uint64_t total) {
    if (total == 0) return 0;
    const double part = std::min(static_cast<double>(done) / static_cast<double>(total), 1.0);
    return static_cast<int>(part * WholeBar);
}

void setUp(QProgressDialog& dialog, const QString& label, const QString& name) {
    dialog.setObjectName(name);
    dialog.setWindowTitle(label);
    dialog.setAccessibleName(label);
    dialog.setLabelText(label + u'…');
    dialog.setRange(0, WholeBar);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(QuietMs);
    dialog.setMinimumWidth(380);
    // It closes when the work says that it is through, not when the bar happens to be full.
    dialog.setAutoClose(false);
    dialog.setAutoReset(false);
}

model::Result<Document::Opened> openFile(const QString& path, const model::Progress& progress) {
    model::OpenOptions options;
    options.progress = progress;
    options.lock = false;  // the document takes it once the model that was open, maybe of the same file, is gone
    auto opened = model::Model::open(toPath(path), options);
    if (!opened) return opened.error();
    Document::Opened result;
    result.index = std::make_unique<ElementIndex>(**opened);
    result.model = std::move(*opened);
    return result;
}

}  // namespace

std::optional<model::Result<Document::Opened>> openWithProgress(QWidget* window, const QString& path) {
    std::atomic<std::uint64_t> done{0}, total{0};
    std::atomic<bool> cancelled{false};
    std::optional<model::Result<Document::Opened>> result;
    const std::unique_ptr<QThread> worker(QThread::create([&] {
        result = openFile(path, [&](std::uint64_t now, std::uint64_t all) {
            done = now;
            total = all;
            return !cancelled;
        });
    }));

    QProgressDialog dialog(window);
    setUp(dialog, QCoreApplication::translate("desktop::FileTasks", "Opening %1").arg(QFileInfo(path).fileName()),
          QStringLiteral("openProgress"));
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &dialog, [&] {
        if (!cancelled) dialog.setValue(onBar(done, total));
    });
    QObject::connect(&dialog, &QProgressDialog::canceled, &loop, [&] { cancelled = true; });
    QObject::connect(worker.get(), &QThread::finished, &loop, &QEventLoop::quit);
    dialog.setValue(0);
    poll.start(PollMs);
    worker->start();
    loop.exec();
    worker->wait();  // hands the model over: what the worker has cached is seen here
    if (cancelled) return std::nullopt;
    return result;
}

std::optional<model::Status> saveWithProgress(QWidget* window, Document& document, const QString& path, bool force) {
    QProgressDialog dialog(window);
    setUp(dialog, QCoreApplication::translate("desktop::FileTasks", "Saving %1").arg(QFileInfo(path).fileName()),
          QStringLiteral("saveProgress"));
    dialog.setValue(0);
    bool cancelled = false;
    const model::Status status = document.save(path, force, [&](std::uint64_t done, std::uint64_t total) {
        dialog.setValue(onBar(done, total));  // serves the window's events: the dialog is modal
        cancelled = dialog.wasCanceled();
        return !cancelled;
    });
    if (cancelled && !status) return std::nullopt;
    return status;
}

}  // namespace desktop
