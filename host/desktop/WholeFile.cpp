#include "desktop/WholeFile.hpp"

#include <QSaveFile>

namespace desktop {

QString writeWhole(const QString& path, std::string_view bytes) {
    QSaveFile file(path);
    const auto size = static_cast<qint64>(bytes.size());
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.commit();
    return written ? QString() : file.errorString();
}

}  // namespace desktop
