#pragma once
// The file of updates that the user has picked for the add-on, read by the host before the add-on reads it.

#include "frameworks/FrontEnd.hpp"
#include "importing/ReviewPage.hpp"
#include "importing/UpdateSource.hpp"

#include <QString>
#include <QStringList>
#include <memory>
#include <string>

namespace desktop {

/// An update file, or a table that becomes one or more of them: one review list after the other.
class PickedUpdates {
public:
    static model::Result<PickedUpdates> read(const QString& path, const model::Model& model);

    /// Without its folder.
    const QString& fileName() const { return fileName_; }
    bool empty() const { return source_->parts().empty(); }

    /// The list that the add-on is to show, or shows; from 1.
    std::size_t list() const { return list_ + 1; }
    std::size_t listCount() const { return source_->parts().size(); }
    const importing::UpdatePart& part() const { return source_->parts()[list_]; }
    /// @return false where this was the last list.
    bool goOn();

    /// As the user has named it.
    const QString& path() const { return path_; }
    /// What a report says of the file.
    void describe(importing::ReviewedUpdates& reviewed, const frontend::List& list) const;

    /// "Read doors.csv: comma, …"; empty for an update file.
    QString howRead() const;
    /// What the user should know of the file, in sentences.
    QStringList hints(const frontend::List& list) const;

private:
    PickedUpdates(QString path, std::unique_ptr<importing::UpdateSource> source);

    QString path_, fileName_;
    std::unique_ptr<importing::UpdateSource> source_;
    std::size_t list_ = 0;
};

}  // namespace desktop
