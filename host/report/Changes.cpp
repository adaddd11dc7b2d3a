#include "report/Changes.hpp"

#include "report/Plans.hpp"
#include "text/Message.hpp"

namespace report {

namespace {

/// What a change of another kind is called for people who do not know the model's words.
std::string kindText(const std::string& kind) {
    if (kind == "placement") return text::message("Place (moved)");
    if (kind == "geometry") return text::message("Shape");
    if (kind == "class") return text::message("IFC class");
    if (kind == "storey") return text::message("Storey");
    if (kind == "type") return text::message("Type object");
    return text::message("Material");
}

Row rowOf(const comparing::Change& change) {
    Row row;
    row.item = change.kind == comparing::ChangeKind::Other ? kindText(change.item) : change.item;
    if (!change.set.empty() && !change.item.ends_with(']')) row.item += " (" + change.set + ")";
    row.old = change.old;
    row.now = change.now;
    if (change.kind == comparing::ChangeKind::Other) {
        row.remark = text::message("changed");
    } else if (!change.old) {
        row.remark = text::message("new");
    } else {
        row.remark = change.now ? text::message("changed") : text::message("removed");
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
        report.subjects.back().remark = Added;
    }
    for (const model::Element element : comparison.removed) {
        report.subjects.push_back(subjectOf(a, element));
        report.subjects.back().remark = Removed;
    }
    report.sums.push_back(
        {text::phrase("elements changed"), comparison.changed.size(), Tone::Good, text::phrase("element changed")});
    report.sums.push_back(
        {text::phrase("elements added"), comparison.added.size(), Tone::Good, text::phrase("element added")});
    report.sums.push_back(
        {text::phrase("elements removed"), comparison.removed.size(), Tone::Note, text::phrase("element removed")});
    report.sums.push_back(
        {text::phrase("elements the same"), comparison.same, Tone::Plain, text::phrase("element the same")});
    arrange(report.subjects);
    report.plans = plansOf(report, b, &a);
}

}  // namespace report
