#include "console/commands/ListCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/commands/Nothing.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Json.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "text/Guid.hpp"

#include <fmt/format.h>

namespace console {
namespace {

const std::vector<std::string> Header{"GUID", "GlobalId", "Class", "Type", "Name"};

std::vector<std::string> record(const model::Model& model, model::Element element) {
    const model::ElementInfo info = model.info(element);
    return {text::guidText(info.guid), info.globalId, info.ifcClass, info.typeName.english(),
            toUtf8(model.name(element))};
}

void printAsTable(const model::Model& model, const std::vector<model::Element>& elements) {
    Table table(Header);
    // One of the two is whole as long as there is room: either names the element in every command.
    table.yield(0, Yield::First);
    table.yield(1, Yield::Last);
    for (const model::Element element : elements) {
        Table::Row row;
        for (std::string& text : record(model, element)) row.push_back({std::move(text)});
        table.add(std::move(row));
    }
    table.layOut(Terminal::standardOutput(), print);
}

void printAsTsv(const model::Model& model, const std::vector<model::Element>& elements) {
    const Terminal terminal = Terminal::standardOutput();
    print(tsvLine(Header, terminal));
    for (const model::Element element : elements) print(tsvLine(record(model, element), terminal));
}

void printAsJson(ModelSession& session, const std::vector<model::Element>& elements) {
    JsonValue list = JsonValue::array();
    for (const model::Element element : elements) {
        const std::vector<std::string> texts = record(session.model(), element);
        list.push_back(
            {{"guid", texts[0]}, {"globalId", texts[1]}, {"class", texts[2]}, {"type", texts[3]}, {"name", texts[4]}});
    }
    const ModelFacts facts = session.facts();
    JsonValue document;
    document["model"] = asJson(facts);
    document["model"]["unknownClasses"] = asJson(facts.unknownClasses);
    document["elements"] = std::move(list);
    printDocument(document);
}

}  // namespace

std::vector<std::string> listHeader() {
    return Header;
}

std::vector<std::vector<std::string>> listRows(const JsonValue& document) {
    std::vector<std::vector<std::string>> rows;
    for (const JsonValue& element : document.value("elements", JsonValue::array()))
        rows.push_back({element["guid"], element["globalId"], element["class"], element["type"], element["name"]});
    return rows;
}

ExitStatus runList(const ListOptions& options) {
    ModelSession session(options.common, options.model, Access::Reading);
    const ElementFilter filter(session.model(), options.type, options.ifcClass, options.where);
    const std::vector<model::Element> elements = filter.elements();
    switch (options.common.format) {
        case Format::Table:
            printAsTable(session.model(), elements);
            break;
        case Format::Tsv:
            printAsTsv(session.model(), elements);
            break;
        case Format::Json:
            printAsJson(session, elements);
            break;
    }
    if (elements.empty()) sayNothingChosen(session, options.where, options.common.share);
    return ExitStatus::Done;
}

}  // namespace console
