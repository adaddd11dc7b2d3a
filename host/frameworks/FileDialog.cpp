#include "DialogAccess.hpp"
#include "FileTypes.hpp"
#include "NativePaths.hpp"

namespace DG {

struct FileDialog::Content {
    std::vector<frontend::FileFilter> filters;
    std::size_t currentFilter = 0;
    IO::Location selected;
};

SystemDialog::~SystemDialog() = default;

FileDialog::FileDialog(Type) : content(new Content) {}

FileDialog::~FileDialog() {
    delete content;
}

UIndex FileDialog::AddFilter(FTM::TypeID type, Int32) {
    const FTM::FileType* const found = frameworks::registeredFileType(type);
    if (found == nullptr) return MaxUIndex;
    content->filters.push_back({found->GetDescription(), found->GetExtension()});
    return static_cast<UIndex>(content->filters.size() - 1);
}

void FileDialog::SelectFilter(UIndex index) {
    if (index < content->filters.size()) content->currentFilter = index;
}

bool FileDialog::Invoke() {
    content->selected.Clear();
    frontend::View* const view = frontend::currentView();
    if (view == nullptr) return false;
    const auto path = view->pickFile({title, content->filters, content->currentFilter});
    if (!path || path->empty()) return false;
    frameworks::rememberPath(*path);
    content->selected = IO::Location(path->c_str());
    return true;
}

const IO::Location& FileDialog::GetSelectedFile(UIndex index) const {
    static const IO::Location none;
    return index == 0 ? content->selected : none;
}

}  // namespace DG
