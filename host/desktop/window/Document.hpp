#pragma once

#include "desktop/elements/ElementIndex.hpp"
#include "services/Host.hpp"

#include <QObject>
#include <QString>
#include <memory>

namespace desktop {

/// The model that is open, its file and its index. Knows no window.
///
/// It lives on the user's thread, and so does the model from `adopt` on: even reading a model fills its caches. A
/// thread that has read the model from its file must have ended by then.
class Document : public QObject {
    Q_OBJECT

public:
    explicit Document(host::Host& host, QObject* parent = nullptr);

    /// A model read from a file, with the index made for it.
    struct Opened {
        std::unique_ptr<model::Model> model;
        std::unique_ptr<ElementIndex> index;
    };
    void adopt(Opened opened, const QString& path);
    void close();
    /// @param force  even over a file that another program has changed since: ErrorKind::ChangedSince otherwise.
    model::Status save(const QString& path, bool force, const model::Progress& progress);

    bool isOpen() const { return index_ != nullptr; }
    bool modified() const;
    const QString& path() const { return path_; }
    /// The program that has the file open for editing, so that the model can be saved under another name only. Empty
    /// where there is none.
    QString lockHolder() const;
    /// Null where none is open. Ends the program where another thread than the user's asks.
    model::Model* model() const;
    const ElementIndex* index() const { return index_.get(); }

    void undo();
    void redo();
    /// Looks whether a command has changed the model.
    void noteCommand();

Q_SIGNALS:
    /// Another model is open, or none. Comes after `closing` and the new one's adoption.
    void replaced();
    /// The model is about to go: nobody may use it or its index from here on.
    void closing();
    /// The same model's content changed.
    void edited();
    /// The file's name or whether it is saved changed.
    void fileChanged();

private:
    host::Host& host_;
    std::unique_ptr<ElementIndex> index_;
    QString path_;
    std::uint64_t revision_ = 0;
};

}  // namespace desktop
