#include "desktop/byhand/HandChanges.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WholeFile.hpp"
#include "tables/UpdateFiles.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"

#include <algorithm>

namespace desktop {

HandChanges::HandChanges(Document& document, QObject* parent) : QObject(parent), document_(document) {
    connect(&document_, &Document::closing, this, &HandChanges::clear);
}

std::vector<tables::AskedUpdate>::const_iterator HandChanges::find(model::Element element,
                                                                   const std::string& item) const {
    const std::string guid = text::guidText(document_.index()->guid(element));
    return std::find_if(changes_.begin(), changes_.end(),
                        [&](const tables::AskedUpdate& change) { return change.guid == guid && change.item == item; });
}

QString HandChanges::propose(model::Element element, const std::string& item, const QString& old,
                             const QString& value) {
    const auto known = find(element, item);
    if (value == old) {
        if (known != changes_.end()) changes_.erase(known);
        Q_EMIT changed();
        return {};
    }
    if (document_.model()->name(element).empty())
        return tr("The element has no name, and changes of such an element are refused.");
    if (value.contains(u'\t')) return tr("An update cannot hold a TAB.");
    tables::AskedUpdate change;
    change.guid = text::guidText(document_.index()->guid(element));
    change.item = item;
    change.old = old.toStdString();
    change.value = value.toStdString();
    if (const auto obstacle = tables::obstacleOf(change)) return toQString(*obstacle);
    if (known != changes_.end()) changes_.erase(known);
    changes_.push_back(std::move(change));
    Q_EMIT changed();
    return {};
}

std::optional<QString> HandChanges::proposed(model::Element element, const std::string& item) const {
    if (changes_.empty() || !document_.isOpen()) return std::nullopt;
    const auto known = find(element, item);
    if (known == changes_.end()) return std::nullopt;
    return toQString(known->value);
}

void HandChanges::clear() {
    if (changes_.empty()) return;
    changes_.clear();
    Q_EMIT changed();
}

QString HandChanges::writeFile() {
    if (!folder_) folder_ = std::make_unique<QTemporaryDir>();
    path_ = folder_->filePath(tr("By hand") + QStringLiteral(".txt"));
    std::string text;
    for (const tables::UpdateFile& part : tables::writeUpdateFiles(changes_)) text += part.text;
    if (!writeWhole(path_, text).isEmpty()) path_.clear();
    return path_;
}

void HandChanges::forget(const std::vector<Through>& through) {
    const auto isThrough = [&](const tables::AskedUpdate& change) {
        return std::any_of(through.begin(), through.end(),
                           [&](const Through& it) { return it.guid == change.guid && it.item == change.item; });
    };
    if (std::erase_if(changes_, isThrough) > 0) Q_EMIT changed();
}

}  // namespace desktop
