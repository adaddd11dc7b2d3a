#include "report/PlanSvg.hpp"

#include "report/HtmlText.hpp"
#include "text/Message.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace report {

namespace {

/// The longer side of the drawing, in units of the drawing, and the blank around it.
constexpr double LongerSide = 1000;
constexpr double Margin = 12;
constexpr double DotRadius = 6;

template <class Visit>
void forEachCorner(const Outline& outline, Visit visit) {
    for (const auto* parts : {&outline.rings, &outline.lines})
        for (const std::vector<Corner>& part : *parts)
            for (const Corner& corner : part) visit(corner);
}

/// From the model's coordinates to those of the drawing, in which y points down.
class Mapping {
public:
    explicit Mapping(const Plan& plan) {
        double maxX = std::numeric_limits<double>::lowest(), minY = std::numeric_limits<double>::max();
        minX_ = minY;
        maxY_ = maxX;
        for (const Outline& outline : plan.outlines) {
            forEachCorner(outline, [&](const Corner& corner) {
                if (!usable(corner)) return;
                minX_ = std::min(minX_, corner.x);
                maxX = std::max(maxX, corner.x);
                minY = std::min(minY, corner.y);
                maxY_ = std::max(maxY_, corner.y);
            });
        }
        const double width = maxX - minX_, height = maxY_ - minY;
        const double longer = std::max(width, height);
        // One point alone has no size.
        scale_ = longer > 0 && std::isfinite(longer) ? LongerSide / longer : 1;
        width_ = std::max(width * scale_, 1.0) + 2 * Margin;
        height_ = std::max(height * scale_, 1.0) + 2 * Margin;
        empty_ = maxX < minX_ || !std::isfinite(width_) || !std::isfinite(height_);
    }

    static bool usable(const Corner& corner) { return std::isfinite(corner.x) && std::isfinite(corner.y); }
    bool empty() const { return empty_; }
    double width() const { return width_; }
    double height() const { return height_; }
    Corner of(const Corner& corner) const {
        return {(corner.x - minX_) * scale_ + Margin, (maxY_ - corner.y) * scale_ + Margin};
    }

private:
    double minX_, maxY_, scale_ = 1, width_ = 0, height_ = 0;
    bool empty_ = true;
};

void appendPath(const std::vector<std::vector<Corner>>& parts, const char* end, const Mapping& mapping,
                std::string& html) {
    for (const std::vector<Corner>& part : parts) {
        char command = 'M';
        for (const Corner& corner : part) {
            const Corner at = mapping.of(corner);
            html += fmt::format("{}{:.1f} {:.1f}", command, at.x, at.y);
            command = 'L';
        }
        html += end;
    }
}

void appendShape(const Outline& outline, const Mapping& mapping, std::string& html) {
    const char* kind = outline.area ? "area" : outline.cut ? "cut" : "thing";
    if (outline.rings.size() == 1 && outline.rings.front().size() == 1) {
        const Corner at = mapping.of(outline.rings.front().front());
        html += fmt::format("<circle class=\"{}\" cx=\"{:.1f}\" cy=\"{:.1f}\" r=\"{}\"/>", kind, at.x, at.y, DotRadius);
        return;
    }
    html += fmt::format("<path class=\"{}\" fill-rule=\"evenodd\" d=\"", kind);
    appendPath(outline.rings, "Z", mapping, html);
    html += "\"/>";
    if (outline.lines.empty()) return;
    html += "<path class=\"line\" d=\"";
    appendPath(outline.lines, "", mapping, html);
    html += "\"/>";
}

Tone toneOf(const Subject& subject) {
    Tone tone = Tone::Good;
    for (const Row& row : subject.rows) tone = std::max(tone, row.tone);
    return tone;
}

void appendLinked(const Outline& outline, const Report& report, const Mapping& mapping, std::string& html) {
    const Subject& subject = report.subjects[*outline.subject];
    const Tone tone = toneOf(subject);
    const char* mark = tone == Tone::Bad ? "bad" : tone == Tone::Note ? "note" : "good";
    html += fmt::format("<a class=\"{}{}\" href=\"#e{}\"><title>", mark, subject.remark == Removed ? " gone" : "",
                        *outline.subject + 1);
    appendText(subject.name.empty() ? subject.type.text() : subject.name, html);
    html += "</title>";
    appendShape(outline, mapping, html);
    html += "</a>\n";
}

}  // namespace

void appendPlan(const Plan& plan, const Report& report, std::string& html) {
    const Mapping mapping(plan);
    if (mapping.empty()) return;
    html += fmt::format("<figure>\n<svg viewBox=\"0 0 {:.0f} {:.0f}\" role=\"group\" aria-label=\"", mapping.width(),
                        mapping.height());
    appendText(text::message("Plan"), html);
    html += "\">\n";
    const auto drawable = [](const Outline& outline) {
        bool usable = true;
        forEachCorner(outline, [&](const Corner& corner) { usable = usable && Mapping::usable(corner); });
        return usable;
    };
    // What is marked lies above all else, so that nothing hides it.
    for (const Outline& outline : plan.outlines) {
        if (outline.subject || !drawable(outline)) continue;
        appendShape(outline, mapping, html);
        html += '\n';
    }
    std::size_t marked = 0;
    for (const Outline& outline : plan.outlines) {
        if (!outline.subject || !drawable(outline)) continue;
        appendLinked(outline, report, mapping, html);
        ++marked;
    }
    html += "</svg>\n<figcaption>";
    appendText(text::message("{} marked on the plan; each leads to its rows.", marked), html);
    if (plan.notDrawn > 0) {
        html += ' ';
        appendText(text::message("{} elements more are not drawn.", plan.notDrawn), html);
    }
    html += "</figcaption>\n</figure>\n";
}

}  // namespace report
