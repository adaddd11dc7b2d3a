#include "desktop/plan/PlanOutput.hpp"

#include "desktop/QtText.hpp"
#include "desktop/SaveDialog.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/WholeFile.hpp"
#include "desktop/look/Message.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/plan/PlanSheet.hpp"
#include "desktop/window/Document.hpp"

#include <QAction>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMainWindow>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QSvgGenerator>
#include <algorithm>

namespace desktop {

namespace {

constexpr int PageDotsPerInch = 600;
const QString Drawing = QStringLiteral("svg"), Page = QStringLiteral("pdf");

/// The paper that the country uses.
QPageSize::PageSizeId paperId() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter : QPageSize::A4;
}

QPageLayout::Orientation orientation(bool wide) {
    return wide ? QPageLayout::Landscape : QPageLayout::Portrait;
}

QString written(const QString& path) {
    return PlanOutput::tr("Plan written to %1").arg(path);
}

/// Qt says nothing of a disk that is full.
bool isWholePage(const QString& path) {
    constexpr qint64 EndLength = 8;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && !file.isSequential() &&
           file.seek(std::max<qint64>(file.size() - EndLength, 0)) && file.readAll().contains("%%EOF");
}

}  // namespace

PlanOutput::PlanOutput(QMainWindow* window, const Document& document, PlanPanel& plan)
    : QObject(window),
      window_(window),
      document_(document),
      plan_(plan),
      save_(new QAction(tr("Save P&lan As…"), this)),
      print_(new QAction(tr("Pr&int Plan…"), this)) {
    save_->setStatusTip(tr("Save the plan as it is shown: as a drawing (.svg) or a page (.pdf)"));
    print_->setStatusTip(tr("Print the plan as it is shown"));
    print_->setShortcut(QKeySequence::Print);
    connect(save_, &QAction::triggered, this, &PlanOutput::saveByDialog);
    connect(print_, &QAction::triggered, this, &PlanOutput::printByDialog);
    const auto update = [this] {
        save_->setEnabled(document_.isOpen());
        print_->setEnabled(document_.isOpen());
    };
    connect(&document_, &Document::replaced, this, update);
    connect(&document_, &Document::fileChanged, this, update);
    update();
}

PlanSheet PlanOutput::sheet() {
    const WaitCursor wait;
    plan_.view()->finish();
    return plan_.view()->sheet(plan_.storeyName(), QFileInfo(document_.path()).fileName());
}

bool PlanOutput::isWide() {
    const QRectF extent = sheet().extent;
    return extent.width() > extent.height();
}

void PlanOutput::saveByDialog() {
    const WaitCursor::Pause usable;
    const QFileInfo model(document_.path());
    // A storey's name may hold what no file's name can.
    QString storey = plan_.storeyName();
    for (QChar& c : storey) {
        if (QStringLiteral("/\\:*?\"<>|").contains(c) || c < u' ') c = u'-';
    }
    const QString path =
        askWhereToSave(window_, QStringLiteral("planDialog"), tr("Save Plan As"),
                       {{tr("Page (*.pdf)"), Page}, {tr("Drawing (*.svg)"), Drawing}},
                       model.absoluteDir().filePath(QStringLiteral("%1-%2").arg(model.completeBaseName(), storey)));
    if (!path.isEmpty()) save(path);
}

bool PlanOutput::save(const QString& path) {
    const QString title = tr("%1 could not be written.").arg(QFileInfo(path).fileName());
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending != Drawing && ending != Page) {
        refuse(title, tr("A plan's name ends in .svg or .pdf."));
        return false;
    }
    const QByteArray bytes = ending == Drawing ? drawing() : page();
    const QString error = writeWhole(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    if (!error.isEmpty()) {
        refuse(title, error);
        return false;
    }
    window_->statusBar()->showMessage(written(path), 10000);
    return true;
}

QByteArray PlanOutput::drawing() {
    const PlanSheet what = sheet();
    QPageLayout layout(QPageSize(paperId()), orientation(isWide()), QMarginsF());
    const QSize size = layout.fullRectPixels(static_cast<int>(SheetDotsPerInch)).size();
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(SheetDotsPerInch));
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    generator.setTitle(QStringLiteral("%1 – %2").arg(what.storey, what.file));
    QPainter painter(&generator);
    drawSheet(painter, QSizeF(size), what);
    painter.end();
    return buffer.data();
}

QByteArray PlanOutput::page() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(PageDotsPerInch);
    writer.setPageSize(QPageSize(paperId()));
    writer.setPageOrientation(orientation(isWide()));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(QStringLiteral("%1 – %2").arg(plan_.storeyName(), QFileInfo(document_.path()).fileName()));
    drawOn(writer);
    return buffer.data();
}

bool PlanOutput::drawOn(QPagedPaintDevice& device) {
    const PlanSheet what = sheet();
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const double dots = device.logicalDpiX() / SheetDotsPerInch;
    painter.scale(dots, dots);
    drawSheet(painter, QSizeF(device.width(), device.height()) / dots, what);
    return painter.end();
}

void PlanOutput::printByDialog() {
    const WaitCursor::Pause usable;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(orientation(isWide()));
    printer.setDocName(QStringLiteral("%1 – %2").arg(plan_.storeyName(), QFileInfo(document_.path()).fileName()));
    QPrintDialog dialog(&printer, window_);
    dialog.setObjectName(QStringLiteral("printDialog"));
    if (dialog.exec() != QDialog::Accepted) return;
    const QString file = printer.outputFileName();
    const bool drawn = drawOn(printer);
    if (file.isEmpty() ? drawn : drawn && isWholePage(file)) {
        window_->statusBar()->showMessage(file.isEmpty() ? tr("Plan sent to the printer") : written(file), 10000);
    } else {
        refuse(tr("The plan could not be printed."),
               file.isEmpty() ? tr("The printer does not answer.")
                              : tr("%1 could not be written.").arg(QFileInfo(file).fileName()));
    }
}

void PlanOutput::refuse(const QString& title, const QString& why) {
    QMessageBox box(QMessageBox::Warning, tr("Plan"), title, QMessageBox::Ok, window_);
    box.setObjectName(QStringLiteral("planMessage"));
    box.setTextFormat(Qt::PlainText);
    setFurtherText(box, why);
    box.exec();
}

}  // namespace desktop
