#include "report/Changes.hpp"

#include "report/Plans.hpp"

namespace report {

namespace {

/// What a change of another kind is called for people who do not know the model's words.
std::string kindText(const std::string& kind) {
    if (kind == "placement") return "Place (moved)";
    if (kind == "geometry") return "Shape";
    if (kind == "class") return "IFC class";
    if (kind == "storey") return "Storey";
    if (kind == "type") return "Type object";
    return "Material";
}

Row rowOf(const comparing::Change& change) {
    Row row;
    row.item = change.kind == comparing::ChangeKind::Other ? kindText(change.item) : change.item;
    if (!change.set.empty() && !change.item.ends_with(']')) row.item += " (" + change.set + ")";
    row.old = change.old;
    row.now = change.now;
    if (change.kind == comparing::ChangeKind::Other) {
        row.remark = "changed";
    } else if (!change.old) {
        row.remark = "new";
    } else {
        row.remark = change.now ? "changed" : "removed";
    }
    return row;
}

}  // namespace

void addChanges(const comparing::Comparison& comparison, const model::Model& a, const model::Model& b, Report& report) {
    for (const comparing::ChangedElement& element : comparison.changed) {
        Subject subject = subjectOf(b, element.b);
        for (const comparing::Change& change : element.changes) subject.rows.push_back(rowOf(change));
        report.subjects.push_back(std::move(subject));
    }
    for (const model::Element element : comparison.added) {
        report.subjects.push_back(subjectOf(b, element));
        report.subjects.back().remark = "added";
    }
    for (const model::Element element : comparison.removed) {
        report.subjects.push_back(subjectOf(a, element));
        report.subjects.back().remark = "removed";
    }
    report.sums.push_back({"elements changed", comparison.changed.size(), Tone::Good, "element changed"});
    report.sums.push_back({"elements added", comparison.added.size(), Tone::Good, "element added"});
    report.sums.push_back({"elements removed", comparison.removed.size(), Tone::Note, "element removed"});
    report.sums.push_back({"elements the same", comparison.same, Tone::Plain, "element the same"});
    arrange(report.subjects);
    report.plans = plansOf(report, b, &a);
}

}  // namespace report
