#include "model/step/index/Keywords.hpp"

#include "model/step/syntax/Characters.hpp"

#include <unistd.h>

namespace model::step {

Keywords::Keywords() : table_(512) {
    // Should the system have no random bytes, the place in memory is hard to foresee, too.
    if (::getentropy(&key_, sizeof key_) != 0) key_ = reinterpret_cast<std::uintptr_t>(table_.data());
}

KeywordCode Keywords::add(std::string_view spelling) {
    const std::string upper = toUpperCase(spelling);
    const KeywordCode code = codeOf(upper);
    // Each spelling has its own entry, so that no keyword of a file in lower case is converted twice.
    if (spelling != upper && code != NoKeyword) insert(std::string(spelling), code);
    return code;
}

KeywordCode Keywords::codeOf(const std::string& upperCase) {
    const Entry& known = table_[position(upperCase)];
    if (known.text != nullptr) return known.code;
    if (names_.size() >= NoKeyword) return NoKeyword;
    const auto code = static_cast<KeywordCode>(names_.size());
    names_.push_back(upperCase);
    insert(upperCase, code);
    return code;
}

void Keywords::insert(const std::string& spelling, KeywordCode code) {
    if ((used_ + 1) * 2 > table_.size()) grow();
    spellings_.push_back(spelling);
    const std::string& kept = spellings_.back();
    table_[position(kept)] = {kept.data(), static_cast<std::uint32_t>(kept.size()), code};
    ++used_;
}

void Keywords::grow() {
    std::vector<Entry> old(table_.size() * 2);
    old.swap(table_);
    for (const Entry& entry : old)
        if (entry.text != nullptr) table_[position({entry.text, entry.length})] = entry;
}

}  // namespace model::step
