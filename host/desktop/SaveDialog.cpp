#include "desktop/SaveDialog.hpp"

#include <QFileDialog>
#include <QFileInfo>

namespace desktop {

QString askWhereToSave(QWidget* parent, const QString& objectName, const QString& title, const QList<FileForm>& forms,
                       const QString& suggestion) {
    QFileDialog dialog(parent, title);
    dialog.setObjectName(objectName);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    QStringList filters;
    for (const FileForm& form : forms) filters += form.filter;
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(forms.constFirst().ending);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        for (const FileForm& form : forms)
            if (form.filter == filter) dialog.setDefaultSuffix(form.ending);
    });
    const QFileInfo suggested(suggestion);
    dialog.setDirectory(suggested.absolutePath());
    dialog.selectFile(suggested.fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

}  // namespace desktop
