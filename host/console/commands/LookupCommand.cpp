#include "console/commands/LookupCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/commands/Nothing.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Json.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "importing/ListRows.hpp"
#include "text/Guid.hpp"

#include <fmt/format.h>

#include <optional>

namespace console {
namespace {

constexpr Int32 LookupMenuItem = 2;

// The lookup dialog's items.
constexpr Int16 LookUpButton = 1;
constexpr Int16 CloseButton = 2;
constexpr Int16 GuidField = 3;
constexpr Int16 ResultList = 4;

struct LookupAnswer {
    std::string guid;  ///< As looked up.
    std::vector<importing::ListRow> rows;

    /// "BADID" and the like; empty where the element was found; "?" where the add-on named no reason.
    std::string error() const;
};

/// The user of the lookup dialog: types one GUID after the other and reads the rows that each lookup appends.
class LookupUser : public frontend::View {
public:
    /// @param guids  none: the one that the dialog opens with.
    explicit LookupUser(std::vector<std::string> guids) : guids_(std::move(guids)) {}

    void runModal(frontend::Dialog& dialog) override;
    std::optional<std::string> pickFile(const frontend::FileRequest&) override { return std::nullopt; }

    bool dialogSeen() const { return dialogSeen_; }
    const std::vector<std::string>& header() const { return header_; }
    const std::vector<LookupAnswer>& answers() const { return answers_; }
    /// The GUID during whose look-up the dialog ended by itself; those behind it were not looked up.
    const std::optional<std::string>& failedGuid() const { return failedGuid_; }

private:
    void lookUp(frontend::Dialog& dialog);

    std::vector<std::string> guids_;
    bool dialogSeen_ = false;
    std::vector<std::string> header_;
    std::vector<LookupAnswer> answers_;
    std::optional<std::string> failedGuid_;
};

std::string LookupAnswer::error() const {
    // The first row repeats the GUID. The second is the element's type, or the reason why there is no element.
    if (rows.size() < 2 || rows[1].columns.size() < 2) return "?";
    return rows[1].columns[0] == "Error" && rows.size() == 2 ? rows[1].columns[1].get() : "";
}

void LookupUser::runModal(frontend::Dialog& dialog) {
    if (dialogSeen_ || dialog.list(ResultList) == nullptr) return;
    dialogSeen_ = true;
    header_ = importing::readHeader(*dialog.list(ResultList));
    if (guids_.empty()) lookUp(dialog);
    for (const std::string& guid : guids_) {
        if (dialog.ended()) break;
        dialog.typeText(GuidField, toUniString(guid));
        lookUp(dialog);
    }
    dialog.clickItem(CloseButton);
}

void LookupUser::lookUp(frontend::Dialog& dialog) {
    const frontend::List& list = *dialog.list(ResultList);
    const int before = list.rowCount();
    const frontend::Item* field = dialog.item(GuidField);
    std::string guid = field == nullptr ? "" : toUtf8(field->text);
    dialog.clickItem(LookUpButton);
    // Only Close ends this dialog, unless the add-on failed: then what it has written so far is no answer.
    if (dialog.ended()) {
        failedGuid_ = std::move(guid);
        return;
    }
    answers_.push_back({std::move(guid), importing::RowReader().readFrom(list, before + 1)});
}

/// The dialog takes the 36 characters only. Windows programs often write a GUID in braces.
std::string inLongForm(const std::string& guid) {
    if (const auto bytes = text::fromGlobalId(guid)) return text::guidText(*bytes);
    const bool inBraces = guid.size() > 2 && guid.front() == '{' && guid.back() == '}';
    return inBraces ? guid.substr(1, guid.size() - 2) : guid;
}

std::vector<std::string> guidsToLookUp(const LookupOptions& options, const model::Model& model) {
    std::vector<std::string> guids;
    for (const std::string& guid : options.guids) guids.push_back(inLongForm(guid));
    if (options.where.empty()) return guids;
    for (const model::Element element : ElementFilter(model, {}, {}, options.where).elements())
        guids.push_back(text::guidText(model.info(element).guid));
    return guids;
}

void printNothing(Format format) {
    if (format != Format::Json) return;
    JsonValue document;
    document["rows"] = JsonValue::array();
    document["lookups"] = JsonValue::array();
    printDocument(document);
}

void printAsTable(const LookupUser& user) {
    for (const LookupAnswer& answer : user.answers()) {
        Table table(user.header());
        for (const importing::ListRow& row : answer.rows) {
            Table::Row cells;
            for (const importing::SharedText& column : row.columns) cells.push_back({column});
            table.add(std::move(cells));
        }
        if (&answer != &user.answers().front()) print("\n");
        table.layOut(Terminal::standardOutput(), print);
    }
}

void printAsTsv(const LookupUser& user) {
    const Terminal terminal = Terminal::standardOutput();
    print(tsvLine(user.header(), terminal));
    for (const LookupAnswer& answer : user.answers())
        for (const importing::ListRow& row : answer.rows) print(tsvLine(row.columns, terminal));
}

void printAsJson(const LookupUser& user) {
    JsonValue rows = JsonValue::array();
    JsonValue lookups = JsonValue::array();
    for (const LookupAnswer& answer : user.answers()) {
        JsonValue own = JsonValue::array();
        for (const importing::ListRow& row : answer.rows) own.push_back(toJson(row)["columns"]);
        rows.insert(rows.end(), own.begin(), own.end());
        const std::string error = answer.error();
        lookups.push_back({{"guid", answer.guid},
                           {"error", error.empty() ? JsonValue() : JsonValue(error)},
                           {"rows", std::move(own)}});
    }
    printDocument({{"rows", std::move(rows)}, {"lookups", std::move(lookups)}});
}

void printAnswers(const LookupUser& user, Format format) {
    switch (format) {
        case Format::Json:
            return printAsJson(user);
        case Format::Tsv:
            return printAsTsv(user);
        case Format::Table:
            return printAsTable(user);
    }
}

std::string explain(const LookupAnswer& answer, const ModelSession& session) {
    if (answer.guid == "00000000-0000-0000-0000-000000000000")
        return fmt::format("{} is the GUID of no element at all; 'modelhost list' prints those there are", answer.guid);
    if (!text::parseGuid(answer.guid)) {
        return fmt::format("'{}' is no GUID of 36 characters and no GlobalId of 22; 'modelhost list' prints both",
                           answer.guid);
    }
    if (answer.error() == "?") return fmt::format("the add-on gave no answer for {}", answer.guid);
    return fmt::format("no element of {} has the GUID {} ({}); 'modelhost list' prints those there are",
                       session.shownName(), answer.guid, answer.error());
}

}  // namespace

ExitStatus runLookup(const LookupOptions& options) {
    ModelSession session(options.common, options.model, Access::Reading);
    std::vector<std::string> guids = guidsToLookUp(options, session.model());
    if (guids.empty() && !options.where.empty()) {
        printNothing(options.common.format);
        sayNothingChosen(session, options.where, nullptr);
        return ExitStatus::Done;
    }
    session.loadAddOn();
    LookupUser user(std::move(guids));
    try {
        session.runMenuCommand(LookupMenuItem, user);
    } catch (const Failure&) {
        // What was answered before the add-on failed is printed all the same.
        if (!user.failedGuid()) throw;
    }
    if (!user.dialogSeen()) throw Failure("the add-on opened no lookup dialog; name another one with --addon");
    printAnswers(user, options.common.format);
    ExitStatus status = ExitStatus::Done;
    for (const LookupAnswer& answer : user.answers()) {
        if (answer.error().empty()) continue;
        complain(explain(answer, session));
        status = ExitStatus::Failed;
    }
    if (user.failedGuid()) {
        throw Failure(fmt::format("the add-on failed while it looked up {}; look up other elements without it",
                                  *user.failedGuid()));
    }
    return status;
}

}  // namespace console
