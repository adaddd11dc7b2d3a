#pragma once

#include <QStringList>

namespace desktop {

/// The models opened last, the newest first, kept in the user's settings.
class RecentFiles {
public:
    static constexpr int Most = 10;

    static QStringList list();
    static void add(const QString& path);
    static void remove(const QString& path);
    static void clear();
};

}  // namespace desktop
