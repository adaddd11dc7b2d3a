#include "ResourceReader.hpp"

#include "ResourceTokens.hpp"

#include <dirent.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <memory>
#include <optional>

namespace frameworks {

namespace {

constexpr int MostNumber = 32767;  // Resource numbers, item numbers and sizes are signed 16-bit values.

struct Fault {
    std::string message;
};

/// Takes the tokens of a line one after the other; throws a Fault for one that is not as it should be.
class LineReader {
public:
    explicit LineReader(std::vector<Token> list) : tokens_(std::move(list)) {}

    bool atEnd() const { return at_ == tokens_.size(); }
    bool atText() const { return !atEnd() && tokens_[at_].kind == Token::Kind::Text; }

    std::string word(const char* expected) {
        if (atEnd() || atText()) throw Fault{std::string(expected) + " is missing"};
        return tokens_[at_++].word;
    }

    void keyword(const char* expected) {
        const std::string found = word(expected);
        if (found != expected) throw Fault{"'" + found + "' stands where '" + expected + "' is expected"};
    }

    int number(const char* what, int least) {
        const std::string digits = word(what);
        int value = 0;
        const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (parsed.ec != std::errc() || parsed.ptr != digits.data() + digits.size() || value < least ||
            value > MostNumber) {
            throw Fault{std::string(what) + " is '" + digits + "', not a number from " + std::to_string(least) +
                        " to " + std::to_string(MostNumber)};
        }
        return value;
    }

    GS::UniString text(const char* what) {
        if (!atText()) throw Fault{std::string(what) + " in quotes is missing"};
        return tokens_[at_++].text;
    }

    GS::UniString optionalText() { return atText() ? tokens_[at_++].text : GS::UniString(); }

    void end() const {
        if (!atEnd()) throw Fault{"something follows the end of the definition"};
    }

private:
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
};

std::optional<TextListKind> textListKind(const std::string& word) {
    if (word == "strings") return TextListKind::Strings;
    if (word == "menu") return TextListKind::Menu;
    if (word == "fixed") return TextListKind::Fixed;
    return {};
}

std::optional<frontend::ItemKind> itemKind(const std::string& word) {
    if (word == "button") return frontend::ItemKind::Button;
    if (word == "edit") return frontend::ItemKind::EditText;
    if (word == "text") return frontend::ItemKind::StaticText;
    if (word == "list") return frontend::ItemKind::List;
    return {};
}

std::string describe(const Origin& origin) {
    return origin.file + ":" + std::to_string(origin.line);
}

void report(const Origin& origin, const std::string& message) {
    DBPrintf("%s: %s\n", describe(origin).c_str(), message.c_str());
}

std::optional<std::string> readWhole(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content;
    std::array<char, 4096> part;
    while (file.read(part.data(), part.size()) || file.gcount() > 0)
        content.append(part.data(), static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || !file.eof() || file.bad()) return {};
    return content;
}

/// Reads one file into a module, line by line.
class FileReader {
public:
    FileReader(const std::filesystem::path& path, ResourceModule& target)
        : module_(target), origin_{path.string(), 0} {}

    bool read() {
        const auto content = readWhole(origin_.file);
        if (!content) {
            report(origin_, "the file cannot be read");
            return false;
        }
        std::string_view rest = *content;
        if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
        bool faultless = true;
        while (!rest.empty()) {
            const std::size_t length = std::min(rest.find('\n'), rest.size());
            faultless = readLine(rest.substr(0, length)) && faultless;
            rest.remove_prefix(std::min(length + 1, rest.size()));
        }
        return faultless;
    }

private:
    bool readLine(std::string_view line) {
        ++origin_.line;
        if (line.ends_with('\r')) line.remove_suffix(1);
        try {
            std::string fault;
            LineReader reader(tokenize(line, fault));
            if (!fault.empty()) throw Fault{fault};
            if (!reader.atEnd()) readDefinition(reader);
            return true;
        } catch (const Fault& fault) {
            report(origin_, fault.message);
            return false;
        }
    }

    void readDefinition(LineReader& line) {
        if (line.atText()) {
            if (list_ == nullptr) throw Fault{"a text outside of a string list"};
            list_->texts.push_back(line.text("a text"));
            line.end();
            return;
        }
        const std::string word = line.word("a definition");
        if (const auto kind = itemKind(word)) {
            readItem(line, *kind);
        } else if (const auto listKind = textListKind(word)) {
            beginList(line, *listKind);
        } else if (word == "dialog") {
            beginDialog(line);
        } else {
            takeWhatFollows();
            throw Fault{"unknown definition '" + word + "'"};
        }
    }

    /// Lets texts and items go nowhere until a definition has proved good, so that a fault in one is reported once and
    /// not again for every line of it.
    void takeWhatFollows() {
        spare_ = TextList();
        spareDialog_ = DialogDefinition();
        list_ = &spare_;
        dialog_ = &spareDialog_;
    }

    void beginList(LineReader& line, TextListKind kind) {
        takeWhatFollows();
        TextList begun{kind, {}, {}, origin_};
        const int number = line.number("the list's number", 1);
        if (kind == TextListKind::Menu) begun.title = line.text("the menu's title");
        line.end();
        const auto [entry, isNew] = module_.lists.try_emplace(number, begun);
        if (!isNew) throw Fault{"the number is taken by the list of " + describe(entry->second.origin)};
        list_ = &entry->second;
        dialog_ = nullptr;
    }

    void beginDialog(LineReader& line) {
        takeWhatFollows();
        DialogDefinition begun;
        begun.origin = origin_;
        const int number = line.number("the dialog's number", 1);
        begun.title = line.text("the dialog's title");
        line.keyword("size");
        begun.minimumWidth = begun.width = line.number("the width", 1);
        begun.minimumHeight = begun.height = line.number("the height", 1);
        if (!line.atEnd()) readGrowth(line, begun);
        line.end();
        const auto [entry, isNew] = module_.dialogs.try_emplace(number, begun);
        if (!isNew) throw Fault{"the number is taken by the dialog of " + describe(entry->second.origin)};
        dialog_ = &entry->second;
        list_ = nullptr;
    }

    static void readGrowth(LineReader& line, DialogDefinition& target) {
        line.keyword("grow");
        target.growable = true;
        target.minimumWidth = line.number("the minimum width", 1);
        target.minimumHeight = line.number("the minimum height", 1);
        if (target.minimumWidth > target.width || target.minimumHeight > target.height)
            throw Fault{"the minimum size exceeds the size"};
    }

    void readItem(LineReader& line, frontend::ItemKind kind) {
        if (dialog_ == nullptr) throw Fault{"an item outside of a dialog"};
        DialogItemDefinition item;
        item.kind = kind;
        item.origin = origin_;
        item.number = static_cast<Int16>(line.number("the item's number", 1));
        line.keyword("at");
        item.rect.left = line.number("the left edge", 0);
        item.rect.top = line.number("the top edge", 0);
        line.keyword("size");
        item.rect.right = item.rect.left + line.number("the width", 1);
        item.rect.bottom = item.rect.top + line.number("the height", 1);
        if (std::max(item.rect.right, item.rect.bottom) > MostNumber) throw Fault{"the item ends too far out"};
        if (kind != frontend::ItemKind::List) item.text = line.optionalText();
        line.end();
        const auto [entry, isNew] = dialog_->items.try_emplace(item.number, item);
        if (!isNew) throw Fault{"the number is taken by the item of " + describe(entry->second.origin)};
    }

    ResourceModule& module_;
    Origin origin_;
    // What the next texts and items belong to; null where they have no place.
    TextList* list_ = nullptr;
    DialogDefinition* dialog_ = nullptr;
    TextList spare_;
    DialogDefinition spareDialog_;
};

void translate(const GS::UniString& translation, GS::UniString& text) {
    if (!translation.IsEmpty()) text = translation;
}

void translate(const DialogDefinition& translation, DialogDefinition& dialog, bool& faultless) {
    translate(translation.title, dialog.title);
    for (const auto& [number, item] : translation.items) {
        const auto original = dialog.items.find(number);
        if (original != dialog.items.end() && original->second.kind == item.kind) {
            translate(item.text, original->second.text);
            continue;
        }
        report(item.origin, "the dialog has no such item of this kind to translate");
        faultless = false;
    }
}

}  // namespace

/// The standard library's iterator over a folder ends the program where memory runs out.
static bool listDefinitions(const std::filesystem::path& folder, std::vector<std::filesystem::path>& files) {
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> entries(::opendir(folder.c_str()));
    if (!entries) return false;
    errno = 0;
    while (const dirent* entry = ::readdir(entries.get())) {
        const std::filesystem::path name = entry->d_name;
        if (name.extension() == ".res") files.push_back(folder / name);
        errno = 0;
    }
    return errno == 0;
}

bool readDefinitions(const std::filesystem::path& folder, ResourceModule& module) {
    std::vector<std::filesystem::path> files;
    if (!listDefinitions(folder, files)) {
        report({folder.string(), 0}, "the folder cannot be read");
        return false;
    }
    std::sort(files.begin(), files.end());
    bool faultless = true;
    for (const std::filesystem::path& file : files) faultless = FileReader(file, module).read() && faultless;
    return faultless;
}

bool applyTranslation(const ResourceModule& translation, ResourceModule& module) {
    bool faultless = true;
    for (const auto& [number, list] : translation.lists) {
        const auto original = module.lists.find(number);
        if (original == module.lists.end() || original->second.kind != list.kind || list.kind == TextListKind::Fixed ||
            list.texts.size() > original->second.texts.size()) {
            report(list.origin, "no translatable list of this kind, number and length");
            faultless = false;
            continue;
        }
        translate(list.title, original->second.title);
        for (std::size_t i = 0; i < list.texts.size(); ++i) translate(list.texts[i], original->second.texts[i]);
    }
    for (const auto& [number, dialog] : translation.dialogs) {
        const auto original = module.dialogs.find(number);
        if (original != module.dialogs.end()) {
            translate(dialog, original->second, faultless);
            continue;
        }
        report(dialog.origin, "no dialog of this number to translate");
        faultless = false;
    }
    return faultless;
}

}  // namespace frameworks
