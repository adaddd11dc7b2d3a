#pragma once
// An open resource module: what its definition files say, after the user's language has been laid over them.

#include "FrontEnd.hpp"

#include <map>
#include <string>
#include <vector>

namespace frameworks {

/// Where a definition begins, for the report of its faults.
struct Origin {
    std::string file;
    int line = 0;
};

enum class TextListKind { Strings, Menu, Fixed };

struct TextList {
    TextListKind kind = TextListKind::Strings;
    GS::UniString title;  ///< Of a menu.
    std::vector<GS::UniString> texts;
    Origin origin;
};

struct DialogItemDefinition {
    Int16 number = 0;
    frontend::ItemKind kind = frontend::ItemKind::StaticText;
    frontend::Rect rect;
    GS::UniString text;
    Origin origin;
};

struct DialogDefinition {
    GS::UniString title;
    int width = 0, height = 0;
    bool growable = false;
    int minimumWidth = 0, minimumHeight = 0;  ///< Of a dialog that does not grow: its size.
    std::map<Int16, DialogItemDefinition> items;
    Origin origin;
};

struct ResourceModule {
    std::map<Int32, TextList> lists;
    std::map<Int32, DialogDefinition> dialogs;
};

/// @return the open module, or null for an unknown one; valid until it is closed.
const ResourceModule* openModule(GSResModule module);

}  // namespace frameworks
