#include "console/Commands.hpp"
#include "console/Session.hpp"
#include "console/lookup/LookupUser.hpp"
#include "console/output/GuidText.hpp"
#include "console/output/Json.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/Table.hpp"
#include "console/output/Tsv.hpp"

#include <fmt/format.h>

namespace console {
namespace {

constexpr Int32 LookupMenuItem = 2;

/// The dialog takes 36 characters only. Some programs put braces around them.
std::string inLongForm(const std::string& guid) {
    if (const auto fromGlobalId = model::fromGlobalId(guid)) return guidText(*fromGlobalId);
    const bool inBraces = guid.size() > 2 && guid.front() == '{' && guid.back() == '}';
    return inBraces ? guid.substr(1, guid.size() - 2) : guid;
}

std::vector<std::string> inLongForm(std::vector<std::string> guids) {
    for (std::string& guid : guids) guid = inLongForm(guid);
    return guids;
}

std::string asTable(const LookupUser& user, const Terminal& terminal) {
    std::string text;
    for (const LookupAnswer& answer : user.answers()) {
        Table table(user.header());
        for (const ListRow& row : answer.rows) {
            Table::Row cells;
            for (const std::string& column : row.columns) cells.push_back({column});
            table.add(std::move(cells));
        }
        if (!text.empty()) text += '\n';
        text += table.layOut(terminal);
    }
    return text;
}

std::string asTsv(const LookupUser& user) {
    std::string text = tsvLine(user.header());
    for (const LookupAnswer& answer : user.answers())
        for (const ListRow& row : answer.rows) text += tsvLine(row.columns);
    return text;
}

JsonValue asJson(const LookupUser& user) {
    JsonValue rows = JsonValue::array();
    for (const LookupAnswer& answer : user.answers())
        for (const ListRow& row : answer.rows) rows.push_back(row.columns);
    JsonValue document;
    document["rows"] = std::move(rows);
    return document;
}

void printAnswers(const LookupUser& user, Format format) {
    switch (format) {
        case Format::Json:
            return printDocument(asJson(user));
        case Format::Tsv:
            return print(asTsv(user));
        case Format::Table:
            return print(asTable(user, Terminal::standardOutput()));
    }
}

std::string explain(const LookupAnswer& answer, const Session& session) {
    if (answer.guid == "00000000-0000-0000-0000-000000000000")
        return fmt::format("{} is the GUID of no element at all; 'modelhost list' prints those there are", answer.guid);
    if (answer.error() == "BADPARS" || answer.error() == "?")
        return fmt::format("'{}' is no GUID of 36 characters and no GlobalId of 22; 'modelhost list' prints both",
                           answer.guid);
    return fmt::format("no element of {} has the GUID {} ({}); 'modelhost list' prints those there are",
                       session.modelPath().string(), answer.guid, answer.error());
}

}  // namespace

ExitStatus runLookup(const LookupOptions& options) {
    Session session(options.common, options.model, Access::Reading);
    session.loadAddOn();
    LookupUser user(inLongForm(options.guids));
    session.runMenuCommand(LookupMenuItem, user);
    if (!user.dialogSeen()) throw Failure("the add-on opened no lookup dialog; name another one with --addon");
    printAnswers(user, options.common.format);
    ExitStatus status = ExitStatus::Done;
    for (const LookupAnswer& answer : user.answers()) {
        if (answer.error().empty()) continue;
        say(explain(answer, session));
        status = ExitStatus::Failed;
    }
    return status;
}

}  // namespace console
