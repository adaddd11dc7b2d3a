#pragma once

#include "desktop/window/Document.hpp"
#include "tables/Asking.hpp"

#include <QObject>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace desktop {

/// What the user proposes by hand, value by value. It is an update list like any other: reviewed and applied through
/// the add-on, from a file of its own in the folder for temporary files.
class HandChanges : public QObject {
    Q_OBJECT

public:
    HandChanges(Document& document, QObject* parent);

    struct Subject {
        model::Element element;
        QString old;  ///< What it holds.
    };
    /// How many of the subjects no update can ask for, and why not the first of these.
    struct Refused {
        std::size_t count = 0;
        QString reason;
    };
    /// @param item  as an update file's second field names it. A value that was proposed for it before is replaced; the
    /// value that the model holds takes the proposal back.
    Refused propose(const std::vector<Subject>& subjects, const std::string& item, const QString& value);
    /// What is proposed for an item; nothing where nothing is.
    std::optional<QString> proposed(model::Element element, const std::string& item) const;
    int count() const { return static_cast<int>(changes_.size()); }
    void clear();

    /// Writes the list. @return its path; empty where no file can be written.
    QString writeFile();
    /// Whether a file is this list.
    bool isOwnFile(const QString& path) const { return !path.isEmpty() && path == path_; }
    /// What has been written is proposed no more.
    struct Through {
        std::string guid, item;
    };
    void forget(const std::vector<Through>& through);

Q_SIGNALS:
    void changed();

private:
    std::string keyOf(model::Element element, const std::string& item) const;
    QString proposeOne(const Subject& subject, const std::string& item, const QString& value);
    std::vector<tables::AskedUpdate> inOrder() const;

    Document& document_;
    struct Change {
        std::uint64_t turn;  ///< They are listed as they came.
        tables::AskedUpdate update;
    };
    std::unordered_map<std::string, Change> changes_;  ///< By GUID and item.
    std::uint64_t turns_ = 0;
    std::unique_ptr<QTemporaryDir> folder_;
    QString path_;
};

}  // namespace desktop
