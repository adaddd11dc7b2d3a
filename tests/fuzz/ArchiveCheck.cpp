#include "fuzz/Checks.hpp"
#include "model/step/disk/Archive.hpp"

#include <array>

namespace fuzz {

namespace {

using namespace model::step;

std::string unpacked(std::string_view archive, ModelEntry& entry) {
    const auto bytes = readArchive(archive, entry, {});
    require(bool{bytes}, "what was packed here cannot be unpacked");
    return std::string(bytes->text());
}

model::Result<std::string> packed(std::string_view archive, const ModelEntry& entry, std::string_view model) {
    const std::array<std::string_view, 2> pieces = {model.substr(0, model.size() / 2), model.substr(model.size() / 2)};
    return writeArchive(archive, entry, pieces, {});
}

}  // namespace

void checkArchive(std::string_view bytes) {
    ModelEntry entry;
    const auto model = readArchive(bytes, entry, {});
    if (model) {
        ModelEntry found;
        const std::string changed = std::string(model->text()) + "/* changed */";
        const auto written = packed(bytes, entry, changed);
        // An archive of odd make may be read and yet be refused when it is to be written.
        require(written || !written.error().message.empty(), "a refusal gives no reason");
        if (written) {
            require(unpacked(*written, found) == changed, "another model comes out than went in");
            require(found.name == entry.name && found.method == entry.method, "the model's entry is another one");
        }
    } else {
        require(!model.error().message.empty(), "a refusal gives no reason");
    }
    ModelEntry fresh, found;
    fresh.name = "model.ifc";
    fresh.method = 8;
    const auto made = packed({}, fresh, bytes);
    require(made && unpacked(*made, found) == bytes, "bytes do not come back from an archive");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkArchive)
