#include "fuzz/Checks.hpp"
#include "fuzz/ModelData.hpp"
#include "readback/Items.hpp"

#include <algorithm>

namespace fuzz {

namespace {

using namespace model;

/// The line up to its end, which goes too.
std::string_view takeLine(std::string_view& bytes) {
    const std::string_view line = bytes.substr(0, bytes.find('\n'));
    bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
    return line;
}

}  // namespace

void checkReadBack(std::string_view bytes) {
    const std::string_view item = takeLine(bytes), asked = takeLine(bytes);
    const auto opened = Model::fromBytes(std::string(bytes));
    if (!opened || (*opened)->elementCount() == 0 || !(*opened)->remarks().empty()) return;
    Model& model = **opened;
    const Element element = someElement(model, bytes);
    const readback::Place place = readback::placesOf(model, element, {item}).at(0);
    const readback::Stored held = readback::storedAt(model, element, {&place}).at(0);
    const std::string before = model.bytes();
    const std::vector<std::u16string> data = dataOf(model);
    (void)readback::textOf(held);
    Status done;
    const auto ran = model.command("Fuzz", [&] {
        done = readback::storeAsAsked(model, element, place, held.kind, asked, readback::DecimalSign::Comma);
        return 0;
    });
    require(bool{ran}, "a command cannot be run");
    const readback::Stored now = readback::storedAt(model, element, {&place}).at(0);
    require(done || !done.error().message.empty(), "a refusal gives no reason");
    require(done || model.bytes() == before, "a refusal leaves something behind");
    require(!done || readback::isAsAsked(asked, now, readback::DecimalSign::Comma),
            "what was stored is not what was asked for");
    requirePromises(model, before, data, element);
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkReadBack)
