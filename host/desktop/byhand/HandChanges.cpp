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

namespace {

/// A GUID has a fixed length, so nothing can be mistaken for another pair.
std::string keyOf(const std::string& guid, const std::string& item) {
    return guid + item;
}

}  // namespace

std::string HandChanges::keyOf(model::Element element, const std::string& item) const {
    return desktop::keyOf(text::guidText(document_.index()->guid(element)), item);
}

HandChanges::Refused HandChanges::propose(const std::vector<Subject>& subjects, const std::string& item,
                                          const QString& value) {
    Refused refused;
    for (const Subject& subject : subjects) {
        const QString obstacle = proposeOne(subject, item, value);
        if (obstacle.isEmpty()) continue;
        if (refused.count++ == 0) refused.reason = obstacle;
    }
    if (refused.count < subjects.size()) Q_EMIT changed();
    return refused;
}

/// @return why no update can ask for that.
QString HandChanges::proposeOne(const Subject& subject, const std::string& item, const QString& value) {
    // Back to what the model holds: nothing is proposed any more.
    if (value == subject.old) {
        changes_.erase(keyOf(subject.element, item));
        return {};
    }
    if (document_.model()->name(subject.element).empty())
        return tr("The element has no name, and changes of such an element are refused.");
    if (value.contains(u'\t')) return tr("An update cannot hold a TAB.");
    tables::AskedUpdate change;
    change.guid = text::guidText(document_.index()->guid(subject.element));
    change.item = item;
    change.old = subject.old.toStdString();
    change.value = value.toStdString();
    if (const auto obstacle = tables::obstacleOf(change)) return toQString(*obstacle);
    changes_.insert_or_assign(keyOf(subject.element, item), Change{turns_++, std::move(change)});
    return {};
}

std::optional<QString> HandChanges::proposed(model::Element element, const std::string& item) const {
    if (changes_.empty() || !document_.isOpen()) return std::nullopt;
    const auto known = changes_.find(keyOf(element, item));
    if (known == changes_.end()) return std::nullopt;
    return toQString(known->second.update.value);
}

std::vector<tables::AskedUpdate> HandChanges::inOrder() const {
    // They are kept by element and item; the list is to have them as they were made.
    std::vector<const Change*> changes;
    for (const auto& [key, change] : changes_) changes.push_back(&change);
    std::sort(changes.begin(), changes.end(), [](const Change* a, const Change* b) { return a->turn < b->turn; });
    std::vector<tables::AskedUpdate> updates;
    for (const Change* change : changes) updates.push_back(change->update);
    return updates;
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
    for (const tables::UpdateFile& part : tables::writeUpdateFiles(inOrder())) text += part.text;
    if (!writeWhole(path_, text).isEmpty()) path_.clear();
    return path_;
}

void HandChanges::forget(const std::vector<Through>& through) {
    std::size_t forgotten = 0;
    for (const Through& it : through) forgotten += changes_.erase(desktop::keyOf(it.guid, it.item));
    if (forgotten > 0) Q_EMIT changed();
}

}  // namespace desktop
