#pragma once

#include <QDir>
#include <QWidget>

namespace tour {

/// The widget as NAME.png in the folder, at the scale of the screen. Throws e2e::RoadError if it can't be written.
void save_picture(QWidget& of, const QDir& out, const QString& name);

} // namespace tour
