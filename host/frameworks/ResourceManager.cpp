#include "ResourceManager.hpp"

#include "NativePaths.hpp"
#include "NeverDestroyed.hpp"
#include "ResourceModule.hpp"
#include "ResourceReader.hpp"

#include <cctype>
#include <cstdlib>

namespace frameworks {

namespace {

std::map<GSResModule, ResourceModule>& openModules() {
    static auto& modules = frameworks::neverDestroyed<std::map<GSResModule, ResourceModule>>();
    return modules;
}

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// The user's language as two letters; empty where the locale names none ("C", "POSIX").
std::string userLanguage() {
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        const std::string_view locale = value;
        if (locale.size() < 2 || !isLetter(locale[0]) || !isLetter(locale[1])) return {};
        if (locale.size() > 2 && isLetter(locale[2])) return {};
        return {static_cast<char>(locale[0] | 0x20), static_cast<char>(locale[1] | 0x20)};
    }
    return {};
}

bool readModule(const std::filesystem::path& folder, ResourceModule& module) {
    if (!readDefinitions(folder, module)) return false;
    const std::string language = userLanguage();
    const std::filesystem::path translations = folder / (language + ".lproj");
    std::error_code error;
    if (language.empty() || !std::filesystem::is_directory(translations, error)) return true;
    ResourceModule translation;
    return readDefinitions(translations, translation) && applyTranslation(translation, module);
}

const TextList* findList(GSResModule module, Int32 resID) {
    const ResourceModule* const resources = openModule(module);
    if (resources == nullptr) return nullptr;
    const auto found = resources->lists.find(resID);
    return found == resources->lists.end() ? nullptr : &found->second;
}

bool readText(GS::UniString* text, const TextList* list, Int32 index) {
    if (text == nullptr) return false;
    text->Clear();
    if (list == nullptr || index < 1 || static_cast<std::size_t>(index) > list->texts.size()) return false;
    *text = list->texts[static_cast<std::size_t>(index) - 1];
    return true;
}

}  // namespace

const ResourceModule* openModule(GSResModule module) {
    const auto found = openModules().find(module);
    return found == openModules().end() ? nullptr : &found->second;
}

}  // namespace frameworks

GSResModule RSOpenResourceFile(const char* bundlePath) {
    if (bundlePath == nullptr || *bundlePath == '\0') return InvalidResModule;
    frameworks::ResourceModule module;
    if (!frameworks::readModule(std::filesystem::path(frameworks::nativePath(bundlePath)) / "Contents" / "Resources",
                                module))
        return InvalidResModule;
    // A number is never given twice, so a module that was closed stays unknown.
    static GSResModule last = 0;
    frameworks::openModules().emplace(++last, std::move(module));
    return last;
}

GSErrCode RSCloseResourceFile(GSResModule module) {
    return frameworks::openModules().erase(module) == 1 ? NoError : RSErrNoModule;
}

void RSRemoveModuleImageCache(GSResModule) {
    // Definitions have no images, so there is nothing to drop.
}

bool RSGetIndString(GS::UniString* text, Int32 resID, Int32 index, GSResModule module) {
    const frameworks::TextList* const list = frameworks::findList(module, resID);
    const bool fixed = list != nullptr && list->kind == frameworks::TextListKind::Fixed;
    return frameworks::readText(text, fixed ? nullptr : list, index);
}

bool RSGetIndFixString(GS::UniString* text, Int32 resID, Int32 index, GSResModule module) {
    const frameworks::TextList* const list = frameworks::findList(module, resID);
    const bool fixed = list != nullptr && list->kind == frameworks::TextListKind::Fixed;
    return frameworks::readText(text, fixed ? list : nullptr, index);
}

namespace frontend {

std::vector<GS::UniString> stringList(GSResModule module, Int32 resID) {
    const frameworks::TextList* const list = frameworks::findList(module, resID);
    return list == nullptr ? std::vector<GS::UniString>() : list->texts;
}

GS::UniString menuTitle(GSResModule module, Int32 resID) {
    const frameworks::TextList* const list = frameworks::findList(module, resID);
    return list == nullptr ? GS::UniString() : list->title;
}

}  // namespace frontend
