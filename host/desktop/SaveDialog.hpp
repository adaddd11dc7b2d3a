#pragma once

#include <QList>
#include <QString>

class QWidget;

namespace desktop {

/// A kind of file that can be written.
struct FileForm {
    QString filter;  ///< "Page (*.html)"
    QString ending;  ///< What a name gets that has none: "html".
};

/// Asks for a file to write, in a window above `parent` that bears the object name.
/// @param forms  The first is offered first.
/// @param suggestion  A path whose name may lack its ending.
/// @return the path; empty where the user gave up.
QString askWhereToSave(QWidget* parent, const QString& objectName, const QString& title, const QList<FileForm>& forms,
                       const QString& suggestion);

}  // namespace desktop
