#include "desktop/dialogs/RowLook.hpp"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

/// What WCAG 2 asks for of texts, level AA.
constexpr double ReadableContrast = 4.5;
constexpr int SignSide = 16;

/// This, luminance and contrast are as WCAG 2 defines them for colours of sRGB.
double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Grey, but still to be read: what a style gives disabled controls is hardly that, and these rows have reasons in
/// them.
QColor greyText(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const auto middle = [](int a, int b) { return (a * 11 + b * 9) / 20; };
    return {middle(text.red(), base.red()), middle(text.green(), base.green()), middle(text.blue(), base.blue())};
}

/// On a square of 16.
QList<QLineF> strokes(RowState state) {
    switch (state) {
        case RowState::Done:
            return {{3, 8.5, 6.5, 12}, {6.5, 12, 13, 4}};
        case RowState::Error:
            return {{4, 4, 12, 12}, {12, 4, 4, 12}};
        case RowState::Otherwise:
            return {{3, 6, 13, 6}, {3, 10, 13, 10}, {10.5, 3, 5.5, 13}};
        case RowState::Conflict:
            return {{8, 3, 8, 9}, {8, 12, 8, 12.4}};
        case RowState::Unchanged:
            return {{4, 8, 12, 8}};
        case RowState::None:
        case RowState::Open:
        case RowState::Ticked:
            break;
    }
    return {};
}

QPixmap drawn(const QList<QLineF>& lines, const QColor& color, int scale) {
    QPixmap picture(SignSide * scale, SignSide * scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLines(lines);
    return picture;
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableOn(const QColor& base, QColor color) {
    const bool dark = luminance(base) < 0.18;
    constexpr int Steps = 100;
    for (int step = 0; step < Steps && contrast(base, color) < ReadableContrast; ++step) {
        const double lightness = std::clamp(color.lightnessF() + (dark ? 0.01 : -0.01), 0.0, 1.0);
        // A grey has no hue, and says -1.
        color.setHslF(std::max(color.hslHueF(), 0.0F), color.hslSaturationF(), static_cast<float>(lightness));
    }
    return color;
}

QColor textColor(RowState state, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    switch (state) {
        case RowState::Done:
            return readableOn(base, QColor(0x1b, 0x7a, 0x34));
        case RowState::Error:
            return readableOn(base, QColor(0xc6, 0x28, 0x28));
        case RowState::Otherwise:
        case RowState::Conflict:
            return readableOn(base, QColor(0x9a, 0x62, 0x00));
        case RowState::Unchanged:
            return greyText(palette);
        case RowState::None:
        case RowState::Open:
        case RowState::Ticked:
            break;
    }
    return {};
}

QIcon sign(RowState state, const QPalette& palette) {
    const QList<QLineF> lines = strokes(state);
    if (lines.isEmpty()) return {};
    QIcon icon;
    for (const int scale : {1, 2, 3}) {
        icon.addPixmap(drawn(lines, textColor(state, palette), scale));
        icon.addPixmap(drawn(lines, palette.color(QPalette::HighlightedText), scale), QIcon::Selected);
    }
    return icon;
}

}  // namespace desktop
