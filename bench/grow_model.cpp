// grow_model SAMPLE.ifc OUT.ifc MEGABYTES: an estate of houses from one house.
//
// Each copy of the sample gets instance ids and GlobalIds of its own; what an estate has once (project, site, units,
// contexts, owner history, classification systems) is shared by all copies. Every copy's furniture, which has no other
// properties, gets a set of forty, so that the cost of a review can be measured on it.

#include "model/Model.hpp"
#include "model/step/StepFile.hpp"
#include "text/Guid.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace {

using model::step::Instance;
using model::step::InstanceId;
using model::step::Slot;
using model::step::StepFile;
using model::step::ValueKind;

constexpr std::size_t PropertiesOfBigSet = 40;

/// What an estate has once.
bool isShared(std::string_view keyword) {
    static const std::set<std::string_view> shared = {"IFCPROJECT",
                                                      "IFCSITE",
                                                      "IFCUNITASSIGNMENT",
                                                      "IFCSIUNIT",
                                                      "IFCPERSON",
                                                      "IFCCONVERSIONBASEDUNIT",
                                                      "IFCMEASUREWITHUNIT",
                                                      "IFCORGANIZATION",
                                                      "IFCDIMENSIONALEXPONENTS",
                                                      "IFCAPPLICATION",
                                                      "IFCOWNERHISTORY",
                                                      "IFCGEOMETRICREPRESENTATIONCONTEXT",
                                                      "IFCCLASSIFICATION",
                                                      "IFCPOSTALADDRESS",
                                                      "IFCGEOMETRICREPRESENTATIONSUBCONTEXT",
                                                      "IFCMONETARYUNIT",
                                                      "IFCDERIVEDUNIT",
                                                      "IFCPERSONANDORGANIZATION",
                                                      "IFCDERIVEDUNITELEMENT"};
    return shared.contains(keyword);
}

/// A well mixed 64-bit number from a counter (SplitMix64), so that GlobalIds are as scattered as real ones.
std::uint64_t mixed(std::uint64_t value) {
    value += 0x9E3779B97F4A7C15ULL;
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBULL;
    return value ^ (value >> 31U);
}

class Estate {
public:
    Estate(const StepFile& sample, std::FILE* output) : file(sample), out(output) {
        for (Slot slot = 0; slot < file.slotCount(); ++slot) read(slot);
    }

    std::uint64_t writeCopy(std::uint64_t number) {
        std::string text;
        for (const Line& line : lines) {
            if (number > 0 && line.shared) continue;
            appendLine(text, line, number);
        }
        appendBigSet(text, number);
        std::fwrite(text.data(), 1, text.size(), out);
        return text.size();
    }

private:
    struct Line {
        std::string text;
        InstanceId id = 0;
        bool shared = false;
        bool rooted = false;
    };

    void read(Slot slot) {
        Instance instance;
        if (!file.read(slot, instance) || instance.complex) return;
        Line line;
        line.text = std::string(file.text(slot));
        line.id = instance.id;
        line.shared = isShared(file.keywordText(file.keyword(slot)));
        line.rooted = !instance.arguments.empty() && instance.arguments[0].kind == ValueKind::String &&
                      instance.arguments[0].text.size() == 24 &&
                      text::fromGlobalId(instance.arguments[0].text.substr(1, 22)).has_value();
        if (line.shared) sharedIds.insert(line.id);
        if (line.id > highestId) highestId = line.id;
        if (instance.arguments.size() >= 2 && instance.arguments[1].kind == ValueKind::Reference && line.rooted)
            ownerHistory = model::step::referenceId(instance.arguments[1]);
        if (inspected == 0 && file.keywordText(file.keyword(slot)) == "IFCFURNITURE") inspected = line.id;
        lines.push_back(std::move(line));
    }

    InstanceId stride() const { return highestId + PropertiesOfBigSet + 2; }

    InstanceId renumbered(InstanceId id, std::uint64_t copy) const {
        return sharedIds.contains(id) ? id : id + copy * stride();
    }

    std::string freshGlobalId() {
        model::Guid guid;
        for (std::size_t half = 0; half < 2; ++half) {
            const std::uint64_t bits = mixed(++guidCounter);
            for (std::size_t i = 0; i < 8; ++i) guid[half * 8 + i] = static_cast<std::uint8_t>(bits >> (8 * i));
        }
        return text::toGlobalId(guid);
    }

    void appendLine(std::string& text, const Line& line, std::uint64_t copy) {
        bool inString = false;
        bool idWanted = line.rooted && copy > 0;
        for (std::size_t i = 0; i < line.text.size(); ++i) {
            const char c = line.text[i];
            if (c == '\'') {
                inString = !inString;
                if (idWanted) {
                    text += '\'' + freshGlobalId() + '\'';
                    i += 23;
                    inString = false;
                    idWanted = false;
                    continue;
                }
            }
            if (c != '#' || inString) {
                text += c;
                continue;
            }
            char* end = nullptr;
            const InstanceId id = std::strtoull(line.text.c_str() + i + 1, &end, 10);
            text += '#' + std::to_string(renumbered(id, copy));
            i = static_cast<std::size_t>(end - line.text.c_str()) - 1;
        }
        text += '\n';
    }

    void appendBigSet(std::string& text, std::uint64_t copy) {
        InstanceId id = highestId + copy * stride();
        std::string members;
        for (std::size_t i = 1; i <= PropertiesOfBigSet; ++i) {
            text += '#' + std::to_string(++id) + "=IFCPROPERTYSINGLEVALUE('Inspection item " + std::to_string(i) +
                    "',$,IFCLABEL('checked " + std::to_string(mixed(copy * 64 + i) % 1000) + "'),$);\n";
            members += (i == 1 ? "#" : ",#") + std::to_string(id);
        }
        const std::string set = '#' + std::to_string(++id);
        const std::string owner = ownerHistory == 0 ? "$" : '#' + std::to_string(ownerHistory);
        text +=
            set + "=IFCPROPERTYSET('" + freshGlobalId() + "'," + owner + ",'Pset_Inspection',$,(" + members + "));\n";
        text += '#' + std::to_string(++id) + "=IFCRELDEFINESBYPROPERTIES('" + freshGlobalId() + "'," + owner +
                ",$,$,(#" + std::to_string(renumbered(inspected, copy)) + ")," + set + ");\n";
    }

    const StepFile& file;
    std::FILE* out;
    std::vector<Line> lines;
    std::unordered_set<InstanceId> sharedIds;
    InstanceId highestId = 0;
    InstanceId ownerHistory = 0;
    InstanceId inspected = 0;
    std::uint64_t guidCounter = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: grow_model SAMPLE.ifc OUT.ifc MEGABYTES\n");
        return 1;
    }
    auto sample = StepFile::open(argv[1]);
    if (!sample) {
        std::fprintf(stderr, "%s\n", sample.error().message.c_str());
        return 1;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(std::fopen(argv[2], "wb"), &std::fclose);
    if (!out) {
        std::fprintf(stderr, "%s: cannot be written\n", argv[2]);
        return 1;
    }
    const std::string schema = (*sample)->schemaNames().empty() ? "IFC4" : (*sample)->schemaNames().front();
    std::fprintf(out.get(),
                 "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION(('ViewDefinition [ReferenceView]'),'2;1');\n"
                 "FILE_NAME('estate.ifc','2026-01-01T00:00:00',(''),(''),'grow_model','','');\n"
                 "FILE_SCHEMA(('%s'));\nENDSEC;\nDATA;\n",
                 schema.c_str());
    const std::uint64_t wanted = std::strtoull(argv[3], nullptr, 10) * 1000 * 1000;
    Estate estate(**sample, out.get());
    std::uint64_t written = 0;
    for (std::uint64_t copy = 0; written < wanted; ++copy) written += estate.writeCopy(copy);
    std::fputs("ENDSEC;\nEND-ISO-10303-21;\n", out.get());
    return 0;
}
