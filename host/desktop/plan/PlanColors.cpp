#include "desktop/plan/PlanColors.hpp"

namespace desktop {

namespace {

/// `part` of 255 of the text's colour in the background's.
QColor mixed(const QPalette& palette, int part) {
    const QColor text = palette.color(QPalette::Text), base = palette.color(QPalette::Base);
    const auto blend = [part](int a, int b) { return (a * part + b * (255 - part)) / 255; };
    return {blend(text.red(), base.red()), blend(text.green(), base.green()), blend(text.blue(), base.blue())};
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

}  // namespace

PlanStyle planStyle(const QPalette& palette, PlanLayer layer) {
    switch (layer) {
        case PlanLayer::Ground:
            return {Qt::transparent, mixed(palette, 40)};
        case PlanLayer::Zone:
            return {mixed(palette, 10), mixed(palette, 30)};
        case PlanLayer::Floor:
            return {Qt::transparent, mixed(palette, 70)};
        case PlanLayer::Object:
            return {mixed(palette, 30), mixed(palette, 90)};
        case PlanLayer::Structure:
            return {mixed(palette, 105), mixed(palette, 165)};
        case PlanLayer::Filling:
            return {mixed(palette, 12), mixed(palette, 140)};
    }
    return {};
}

QColor markColor(const QPalette& palette, Mark mark) {
    const bool dark = isDark(palette);
    switch (mark) {
        case Mark::None:
            break;
        case Mark::Unchanged:
            return mixed(palette, 120);
        case Mark::Done:
            return dark ? QColor(0x4C, 0xC3, 0x7B) : QColor(0x1E, 0x8E, 0x4E);
        case Mark::Open:
            return dark ? QColor(0xF2, 0xB8, 0x3C) : QColor(0xE0, 0x92, 0x00);
        case Mark::Ticked:
            return dark ? QColor(0x5A, 0xA2, 0xFF) : QColor(0x1F, 0x6F, 0xD6);
        case Mark::Error:
            return dark ? QColor(0xFF, 0x6B, 0x6B) : QColor(0xCC, 0x2F, 0x2F);
    }
    return Qt::transparent;
}

QString markText(Mark mark) {
    switch (mark) {
        case Mark::None:
            break;
        case Mark::Unchanged:
            return QStringLiteral("nothing to do");
        case Mark::Done:
            return QStringLiteral("done");
        case Mark::Open:
            return QStringLiteral("not ticked");
        case Mark::Ticked:
            return QStringLiteral("ticked");
        case Mark::Error:
            return QStringLiteral("failed");
    }
    return {};
}

}  // namespace desktop
