#include "report/Report.hpp"

#include <nlohmann/json.hpp>

namespace report {

namespace {

using Json = nlohmann::ordered_json;

Json orNull(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
}

Json asJson(const Row& row) {
    return {{"item", row.item},           {"old", orNull(row.old)},   {"new", orNull(row.now)},
            {"asked", orNull(row.asked)}, {"tone", nameOf(row.tone)}, {"remark", row.remark}};
}

Json asJson(const Subject& subject) {
    Json rows = Json::array();
    for (const Row& row : subject.rows) rows.push_back(asJson(row));
    return {{"guid", subject.guid},
            {"globalId", subject.globalId},
            {"class", subject.ifcClass},
            {"type", subject.type.english()},
            {"name", subject.name},
            {"storey", subject.storey},
            {"remark", subject.remark.english()},
            {"rows", std::move(rows)}};
}

}  // namespace

std::string toJson(const Report& report) {
    Json document;
    document["title"] = report.title;
    document["facts"] = Json::object();
    for (const Fact& fact : report.facts) document["facts"][fact.label.english()] = fact.text;
    document["sums"] = Json::object();
    for (const Sum& sum : report.sums) document["sums"][sum.label.english()] = sum.count;
    document["elements"] = Json::array();
    for (const Subject& subject : report.subjects) document["elements"].push_back(asJson(subject));
    document["notes"] = report.notes;
    // Texts of an add-on's own may hold any bytes. All that is not ASCII is escaped, since some of it is obeyed by
    // terminals or turns the direction of writing: it stays the same JSON.
    return document.dump(-1, ' ', true, Json::error_handler_t::replace) + "\n";
}

}  // namespace report
