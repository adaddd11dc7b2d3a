#include "desktop/plan/PlanSheet.hpp"

#include "desktop/QtText.hpp"
#include "desktop/plan/PlanDrawing.hpp"
#include "desktop/plan/PlanFrame.hpp"
#include "desktop/plan/PlanPainter.hpp"

#include <QCoreApplication>
#include <QFontInfo>
#include <QLocale>
#include <QPainter>
#include <cmath>

namespace desktop {

namespace {

constexpr double DotsPerMetre = SheetDotsPerInch / 0.0254;
constexpr double Margin = 40, FooterHeight = 44, TextPixels = 11;

/// Paper is white, whatever the windows are.
QPalette paperPalette() {
    QPalette palette;
    for (const auto role : {QPalette::Base, QPalette::Window}) palette.setColor(role, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, Qt::black);
    return palette;
}

/// In dots, not in points: the printer's resolution is the painter's matter.
QFont textFont(double pixels) {
    QFont font;
    font.setPixelSize(static_cast<int>(pixels));
    return font;
}

void drawFooter(QPainter& painter, const QRectF& area, const PlanSheet& sheet, double scale) {
    painter.setPen(QPen(Qt::black, 1));
    painter.drawLine(area.topLeft(), area.topRight());
    QFont bold = textFont(TextPixels + 4);
    bold.setBold(true);
    const QRectF upper(area.left(), area.top() + 6, area.width(), 20);
    const QRectF lower(area.left(), area.top() + 26, area.width(), 16);
    const double half = area.width() * 0.7;
    const auto drawCut = [&](const QRectF& line, const QString& text) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                         QFontMetricsF(painter.font()).elidedText(visible(text), Qt::ElideRight, half));
    };
    painter.setFont(bold);
    drawCut(upper, sheet.storey);
    painter.setFont(textFont(TextPixels));
    drawCut(lower, sheet.file);
    if (!(scale > 0)) return;
    const QString text = QCoreApplication::translate("desktop::PlanOutput", "Scale 1:%1")
                             .arg(QLocale::system().toString(scale, 'f', scale < 10 && scale != std::floor(scale)));
    painter.drawText(upper, Qt::AlignRight | Qt::AlignVCenter, text);
}

}  // namespace

double sheetScale(const QSizeF& extent, const QSizeF& dots, double metresPerUnit) {
    const double least =
        std::max(extent.width() / dots.width(), extent.height() / dots.height()) * metresPerUnit * DotsPerMetre;
    if (!(least > 1e-6) || !std::isfinite(least)) return 0;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 2.5, 5.0}) {
        if (step * power >= least * (1 - 1e-9)) return step * power;
    }
    return 10 * power;
}

void drawSheet(QPainter& painter, const QSizeF& paper, const PlanSheet& sheet) {
    const QPalette palette = paperPalette();
    const QRectF all = QRectF(QPointF(), paper).adjusted(Margin, Margin, -Margin, -Margin);
    const QRectF area = all.adjusted(0, 0, 0, -FooterHeight);
    if (area.width() < 100 || area.height() < 100) return;
    PlanViewport viewport;
    viewport.size = area.size();
    viewport.fit(sheet.extent, 0);
    const auto metres = sheet.geometry->metresPerUnit();
    const double scale = metres ? sheetScale(sheet.extent.size(), area.size(), *metres) : 0;
    if (scale > 0) viewport.scale = *metres * DotsPerMetre / scale;

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(textFont(TextPixels));
    painter.save();
    painter.translate(area.topLeft());
    PlanPainter plan(painter, viewport, palette);
    for (const auto& items :
         {buildingItems(*sheet.geometry, viewport), markItems(*sheet.geometry, sheet.marks, viewport)}) {
        for (const PlanItem& item : items) drawItem(painter, plan, viewport, palette, item);
    }
    const QRectF frame(QPointF(), area.size());
    // What reaches beyond the area. Not by a clip, which drawings in SVG do not have.
    const QRectF page(-area.topLeft(), paper);
    painter.fillRect(QRectF(page.left(), page.top(), paper.width(), -page.top()), Qt::white);
    painter.fillRect(QRectF(page.left(), frame.bottom(), paper.width(), page.bottom() - frame.bottom()), Qt::white);
    painter.fillRect(QRectF(page.left(), page.top(), -page.left(), paper.height()), Qt::white);
    painter.fillRect(QRectF(frame.right(), page.top(), page.right() - frame.right(), paper.height()), Qt::white);
    if (metres) drawScaleBar(painter, frame, viewport, palette, *metres);
    if (sheet.geometry->trueNorth()) drawNorthArrow(painter, frame, palette, *sheet.geometry->trueNorth());
    if (sheet.marks) drawLegend(painter, frame, palette, *sheet.marks);
    painter.restore();
    drawFooter(painter, QRectF(all.left(), area.bottom(), all.width(), FooterHeight), sheet, scale);
}

}  // namespace desktop
