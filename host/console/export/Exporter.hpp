#pragma once
// Turns elements' current values into update-file lines.

#include "console/export/LeftOut.hpp"

#include <functional>
#include <string>
#include <vector>

namespace console {

struct ExportedValue {
    const std::string& guid;
    const std::string& item;
    const std::string& value;
};

class Exporter {
public:
    using Sink = std::function<void(const ExportedValue&)>;

    Exporter(const model::Model& model, std::vector<std::string> items, Sink sink);

    /// Throws Failure where the element's data cannot be read.
    void write(model::Element element);

    std::uint64_t lineCount() const { return lines_; }
    const LeftOut& leftOut() const { return out_; }
    /// Elements that have an item in several property sets, of which the import shows the last and writes the first.
    const std::map<std::string, std::uint64_t>& ambiguous() const { return several_; }

private:
    struct Item {
        std::string text;
        std::u16string name;
    };

    void writeItem(const LineSubject& subject, const ElementData& data, const Item& item);

    const model::Model& model_;
    std::vector<Item> items_;
    Sink sink_;
    std::uint64_t lines_ = 0;
    LeftOut out_;
    std::map<std::string, std::uint64_t> several_;
};

}  // namespace console
