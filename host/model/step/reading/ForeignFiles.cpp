#include "model/step/reading/ForeignFiles.hpp"

#include "text/Message.hpp"

#include <array>

namespace model::step {

namespace {

struct Kind {
    std::string_view start;
    text::Phrase description;
};

// "IS" as UTF-16 without a byte-order mark: what some editors make of an IFC file that was opened and saved again.
constexpr std::string_view Utf16Start("I\0S\0", 4);
constexpr std::string_view Utf16BigStart("\0I\0S", 4);
constexpr text::Phrase Utf16 =
    text::phrase("it is UTF-16 text, and an IFC file is plain ASCII; convert it, or export the model again");
constexpr text::Phrase Xml = text::phrase("it is XML, not an IFC file in clear text; export the model as .ifc");

/// The first that fits is told, so longer beginnings stand before shorter ones.
constexpr std::array Kinds = {
    Kind{"\xFF\xFE", Utf16},
    Kind{"\xFE\xFF", Utf16},
    Kind{Utf16Start, Utf16},
    Kind{Utf16BigStart, Utf16},
    Kind{"<?xml", Xml},
    Kind{"\xEF\xBB\xBF<", Xml},
    Kind{"<", text::phrase("it is XML or HTML, not an IFC file in clear text; export the model as .ifc")},
    Kind{"{", text::phrase("it is JSON, not an IFC file in clear text; export the model as .ifc")},
    Kind{"\x89HDF", text::phrase("it is an HDF5 file, not an IFC file in clear text; export the model as .ifc")},
    Kind{"\x1F\x8B", text::phrase("it is packed with gzip; unpack it first")},
    Kind{"7z\xBC\xAF", text::phrase("it is packed with 7-Zip; unpack it first")},
    Kind{"Rar!", text::phrase("it is packed with RAR; unpack it first")},
};

}  // namespace

std::string describeForeignFile(std::string_view bytes) {
    if (bytes.empty()) return text::message("the file is empty; export the model again");
    for (const Kind& kind : Kinds)
        if (bytes.starts_with(kind.start)) return kind.description.text();
    if (bytes.find_first_not_of('\0') == std::string_view::npos) {
        return text::message(
            "the file holds nothing but zero bytes; copying it was probably interrupted, so fetch it again");
    }
    return text::message(
        "it does not begin with ISO-10303-21, so it is no IFC file in clear text; export the model as .ifc");
}

}  // namespace model::step
