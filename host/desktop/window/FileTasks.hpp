#pragma once
// Opening and saving with a window that shows how far it is and takes a cancel.

#include "desktop/window/Document.hpp"

class QWidget;

namespace desktop {

/// Reads a model and makes its index on a thread of its own, so that the window stays alive. That thread has ended when
/// this returns: from here on the model is the user's thread's.
/// @return nothing where the user cancelled.
std::optional<model::Result<Document::Opened>> openWithProgress(QWidget* window, const QString& path);

/// Saves on the user's thread, since the model is the add-on's too; the window is served in between.
/// @param force  even over a file that another program has changed since.
/// @return nothing where the user cancelled.
std::optional<model::Status> saveWithProgress(QWidget* window, Document& document, const QString& path, bool force);

}  // namespace desktop
