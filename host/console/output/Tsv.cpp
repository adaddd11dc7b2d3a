#include "console/output/Tsv.hpp"

#include "console/output/SafeText.hpp"

namespace console {

std::string tsvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) line += '\t';
        line += escaped(cell);
    }
    return line + '\n';
}

}  // namespace console
