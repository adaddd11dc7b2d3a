#include "report/HtmlText.hpp"
#include "report/PlanSvg.hpp"
#include "report/Report.hpp"
#include "report/Style.hpp"
#include "text/Message.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>

namespace report {

namespace {

constexpr text::Phrase NoName = text::phrase("(no name)"), NoStorey = text::phrase("On no storey");

std::string orUnnamed(const std::string& text, text::Phrase otherwise) {
    return text.empty() ? otherwise.text() : text;
}

constexpr std::array Titles{text::phrase("Item"), text::phrase("Old"), text::phrase("New"), text::phrase("Remark")};

/// Whether somebody may have to do something about it.
bool isOpen(const Row& row) {
    return row.tone == Tone::Bad || row.tone == Tone::Note;
}

class Page {
public:
    explicit Page(const Report& report) : report_(report) {
        for (const Plan& plan : report.plans) plans_.emplace(plan.storey, &plan);
    }

    std::string write() && {
        begin();
        facts();
        sums();
        notStored();
        contents();
        storeys();
        notes();
        page_ += "</main>\n</body>\n</html>\n";
        return std::move(page_);
    }

private:
    void begin();
    void facts();
    void sums();
    void notStored();
    void contents();
    void storeys();
    void storey(std::size_t first, std::size_t end, std::size_t number);
    void group(std::size_t first, std::size_t end);
    void subject(std::size_t index);
    void row(const Row& row);
    void notes();

    void element(const char* name, const std::string& text) {
        page_.append("<").append(name).append(">");
        appendText(text, page_);
        page_.append("</").append(name).append(">\n");
    }
    void value(const std::optional<std::string>& text) {
        page_ += "<td>";
        // Long words are broken anywhere, and a cell without a text has none of its own.
        if (text) appendText(*text, page_);
        page_ += "</td>";
    }
    /// The end of the subjects from `first` on that agree in what `text` gives.
    template <class Text>
    std::size_t endOf(std::size_t first, std::size_t end, const Text& text) const {
        std::size_t at = first;
        while (at < end && text(report_.subjects[at]) == text(report_.subjects[first])) ++at;
        return at;
    }

    const Report& report_;
    std::map<std::string, const Plan*> plans_;
    std::string page_;
};

void Page::begin() {
    page_ += "<!DOCTYPE html>\n<html lang=\"";
    // The language of the texts around the model's own.
    appendText(text::message("en"), page_);
    page_ +=
        "\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<meta name=\"color-scheme\" content=\"light dark\">\n";
    element("title", report_.title);
    page_.append("<style>\n").append(StyleSheet).append("</style>\n</head>\n<body>\n<main>\n");
    element("h1", report_.title);
}

void Page::facts() {
    if (report_.facts.empty()) return;
    page_ += "<dl class=\"facts\">\n";
    for (const Fact& fact : report_.facts) {
        element("dt", fact.label.text());
        element("dd", fact.text);
    }
    page_ += "</dl>\n";
}

void Page::sums() {
    if (report_.sums.empty()) return;
    page_ += "<ul class=\"sums\">\n";
    for (const Sum& sum : report_.sums) {
        page_ +=
            fmt::format("<li class=\"{}\"><b>{}</b> <span>", sum.count == 0 ? "plain" : nameOf(sum.tone), sum.count);
        appendText((sum.count == 1 && sum.one ? sum.one : sum.label).text(), page_);
        page_ += "</span></li>\n";
    }
    page_ += "</ul>\n";
}

/// What was asked for and is not in the model, before all else: somebody has to do something about it.
void Page::notStored() {
    bool any = false;
    for (std::size_t i = 0; i < report_.subjects.size(); ++i) {
        const Subject& subject = report_.subjects[i];
        for (const Row& row : subject.rows) {
            if (!isOpen(row)) continue;
            if (!any) {
                page_ += "<section id=\"open\">\n";
                element("h2", text::message("Asked and not stored"));
                page_ += "<ul class=\"open\">\n";
            }
            any = true;
            page_ += fmt::format("<li class=\"{}\"><a href=\"#e{}\">", nameOf(row.tone), i + 1);
            appendText(orUnnamed(subject.name, NoName), page_);
            page_ += "</a>, ";
            appendText(row.item, page_);
            appendText(text::message(": asked for \xE2\x80\x9C{}\xE2\x80\x9D. {}",
                                     row.asked.value_or(row.now.value_or("")), row.remark),
                       page_);
            page_ += "</li>\n";
        }
    }
    if (any) page_ += "</ul>\n</section>\n";
}

void Page::contents() {
    if (report_.subjects.empty()) {
        page_ += "<p class=\"nothing\">";
        appendText(text::message("Nothing is different."), page_);
        page_ += "</p>\n";
        return;
    }
    page_ += "<nav aria-label=\"";
    appendText(text::message("Storeys"), page_);
    page_ += "\">\n<ul>\n";
    std::size_t number = 0;
    const auto storeyOf = [](const Subject& subject) -> const std::string& { return subject.storey; };
    for (std::size_t first = 0; first < report_.subjects.size();) {
        const std::size_t end = endOf(first, report_.subjects.size(), storeyOf);
        page_ += fmt::format("<li><a href=\"#s{}\">", ++number);
        appendText(orUnnamed(report_.subjects[first].storey, NoStorey), page_);
        page_ += fmt::format("</a> <span>{}</span></li>\n", end - first);
        first = end;
    }
    page_ += "</ul>\n</nav>\n";
}

void Page::storeys() {
    std::size_t number = 0;
    const auto storeyOf = [](const Subject& subject) -> const std::string& { return subject.storey; };
    for (std::size_t first = 0; first < report_.subjects.size();) {
        const std::size_t end = endOf(first, report_.subjects.size(), storeyOf);
        storey(first, end, ++number);
        first = end;
    }
}

void Page::storey(std::size_t first, std::size_t end, std::size_t number) {
    const std::string& name = report_.subjects[first].storey;
    page_ += fmt::format("<section id=\"s{}\">\n", number);
    element("h2", orUnnamed(name, NoStorey));
    if (const auto plan = plans_.find(name); plan != plans_.end() && !name.empty())
        appendPlan(*plan->second, report_, page_);
    const auto typeOf = [](const Subject& subject) { return subject.type; };
    for (std::size_t at = first; at < end;) {
        const std::size_t next = endOf(at, end, typeOf);
        group(at, next);
        at = next;
    }
    page_ += "</section>\n";
}

void Page::group(std::size_t first, std::size_t end) {
    page_ += "<h3>";
    appendText(report_.subjects[first].type.text(), page_);
    page_ += fmt::format(" <span>{}</span></h3>\n", end - first);
    page_ += "<table>\n<thead><tr>";
    for (const text::Phrase title : Titles) {
        page_ += "<th scope=\"col\">";
        appendText(title.text(), page_);
        page_ += "</th>";
    }
    page_ += "</tr></thead>\n";
    for (std::size_t i = first; i < end; ++i) subject(i);
    page_ += "</table>\n";
}

void Page::subject(std::size_t index) {
    const Subject& subject = report_.subjects[index];
    page_ += fmt::format("<tbody id=\"e{}\">\n<tr><th colspan=\"4\" scope=\"rowgroup\"><b>", index + 1);
    appendText(orUnnamed(subject.name, NoName), page_);
    page_ += "</b> <span class=\"id\">";
    appendText(subject.ifcClass + " \xC2\xB7 " + subject.guid, page_);
    page_ += "</span>";
    if (subject.remark) {
        page_ += " <em>";
        appendText(subject.remark.text(), page_);
        page_ += "</em>";
    }
    page_ += "</th></tr>\n";
    for (const Row& one : subject.rows) row(one);
    page_ += "</tbody>\n";
}

void Page::row(const Row& row) {
    page_ += fmt::format("<tr class=\"{}\"><td>", nameOf(row.tone));
    appendText(row.item, page_);
    page_ += "</td>";
    value(row.old);
    value(row.now);
    page_ += "<td>";
    const bool otherwise = isOpen(row) && row.asked;
    appendText(
        otherwise ? text::message("Asked for \xE2\x80\x9C{}\xE2\x80\x9D. {}", *row.asked, row.remark) : row.remark,
        page_);
    page_ += "</td></tr>\n";
}

void Page::notes() {
    if (report_.notes.empty()) return;
    page_ += "<section>\n";
    element("h2", text::message("Notes"));
    page_ += "<ul class=\"notes\">\n";
    for (const std::string& note : report_.notes) element("li", note);
    page_ += "</ul>\n</section>\n";
}

}  // namespace

std::string toHtml(const Report& report) {
    return Page(report).write();
}

}  // namespace report
