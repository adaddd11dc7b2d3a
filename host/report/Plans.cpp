#include "report/Plans.hpp"

#include "text/Guid.hpp"

#include <algorithm>
#include <map>

namespace report {

namespace {

using model::Element;
using model::Model;
using model::PlanKind;

/// A page with more than that is slow to read on, and shows nothing that could be told apart.
constexpr std::size_t MostOutlines = 4000;

/// What is drawn under what, as the window does it: areas first, then what stands on them. Negative: no part of a plan.
int layerOf(PlanKind kind) {
    switch (kind) {
        case PlanKind::Terrain:
        case PlanKind::Opening:
        case PlanKind::Annotation:
        case PlanKind::Grid:
            return -1;
        default:
            return static_cast<int>(kind);
    }
}

bool isArea(int layer) {
    return layer <= static_cast<int>(PlanKind::Room);
}

struct Candidate {
    const Model* model;
    Element element;
    int layer;
    std::optional<std::size_t> subject;
};

std::vector<std::vector<Corner>> cornersOf(const std::vector<std::vector<model::Point>>& parts) {
    std::vector<std::vector<Corner>> corners;
    for (const auto& part : parts) {
        auto& copy = corners.emplace_back();
        for (const model::Point& point : part) copy.push_back({point.x, point.y});
    }
    return corners;
}

std::optional<Outline> outlineOf(const Candidate& candidate) {
    Outline outline;
    outline.area = isArea(candidate.layer);
    outline.cut = candidate.layer == static_cast<int>(PlanKind::Structure);
    outline.subject = candidate.subject;
    const model::PlanOutline shape = candidate.model->outline(candidate.element);
    outline.rings = cornersOf(shape.rings);
    outline.lines = cornersOf(shape.lines);
    if (outline.rings.empty()) {
        const auto origin = candidate.model->placement(candidate.element);
        if (!origin || !candidate.subject) return std::nullopt;
        outline.rings.push_back({{origin->x, origin->y}});
    }
    return outline;
}

/// Subjects before all others where there are too many.
Plan planOf(const std::string& storey, std::vector<Candidate> candidates) {
    Plan plan;
    plan.storey = storey;
    if (candidates.size() > MostOutlines) {
        std::stable_partition(candidates.begin(), candidates.end(),
                              [](const Candidate& candidate) { return candidate.subject.has_value(); });
        plan.notDrawn = candidates.size() - MostOutlines;
        candidates.resize(MostOutlines);
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.layer < b.layer; });
    for (const Candidate& candidate : candidates)
        if (auto outline = outlineOf(candidate)) plan.outlines.push_back(std::move(*outline));
    return plan;
}

}  // namespace

std::vector<Plan> plansOf(const Report& report, const Model& model, const Model* before) {
    std::map<std::string, std::size_t> subjects;  // sorted, not hashed: a file can be made so that all have one hash
    std::map<std::string, std::vector<Candidate>> byStorey;
    std::vector<std::string> order;
    for (std::size_t i = 0; i < report.subjects.size(); ++i) {
        const Subject& subject = report.subjects[i];
        subjects.emplace(subject.guid, i);
        if (!subject.storey.empty() && byStorey.try_emplace(subject.storey).second) order.push_back(subject.storey);
    }
    const auto collect = [&](const Model& from, bool goneOnly) {
        for (Element element = 0; element < from.elementCount(); ++element) {
            const model::ElementInfo info = from.info(element);
            const int layer = layerOf(from.planKind(element));
            if (layer < 0 || (goneOnly && model.find(info.guid))) continue;
            const auto found = subjects.find(text::guidText(info.guid));
            const auto storey = byStorey.find(from.storey(element));
            if (storey == byStorey.end() || (goneOnly && found == subjects.end())) continue;
            storey->second.push_back(
                {&from, element, layer, found == subjects.end() ? std::nullopt : std::optional(found->second)});
        }
    };
    collect(model, false);
    if (before != nullptr) collect(*before, true);
    std::vector<Plan> plans;
    for (const std::string& storey : order) {
        Plan plan = planOf(storey, std::move(byStorey[storey]));
        if (!plan.outlines.empty()) plans.push_back(std::move(plan));
    }
    return plans;
}

}  // namespace report
