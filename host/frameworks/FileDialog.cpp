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

FileDialog::FileDialog(Type) : content_(new Content) {}

FileDialog::~FileDialog() {
    delete content_;
}

UIndex FileDialog::AddFilter(FTM::TypeID type, Int32) {
    const FTM::FileType* const found = frameworks::registeredFileType(type);
    if (found == nullptr) return MaxUIndex;
    content_->filters.push_back({found->GetDescription(), found->GetExtension()});
    return static_cast<UIndex>(content_->filters.size() - 1);
}

void FileDialog::SelectFilter(UIndex index) {
    if (index < content_->filters.size()) content_->currentFilter = index;
}

bool FileDialog::Invoke() {
    content_->selected.Clear();
    frontend::View* const view = frontend::currentView();
    if (view == nullptr) return false;
    const auto path = view->pickFile({title_, content_->filters, content_->currentFilter});
    if (!path || path->empty()) return false;
    frameworks::rememberPath(*path);
    content_->selected = IO::Location(path->c_str());
    return true;
}

const IO::Location& FileDialog::GetSelectedFile(UIndex index) const {
    static const IO::Location none;
    return index == 0 ? content_->selected : none;
}

}  // namespace DG
