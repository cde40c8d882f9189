#pragma once

// Paths of the install tree. Code writes them with "/"; what a person sees or what is stored is in the platform's form.
// A drive letter stands before every default path; off Windows the folder that holds the install tree takes its place.

#include <QString>

namespace platform {

/// The default install root below a drive, in the platform's form: ":\Program Files\meridan\qn" on Windows, the same
/// without the colon and with "/" elsewhere.
QString install_tail();

/// The folder that this program runs from, also before there is an application object; empty where that can't be told.
QString program_folder();

/// What stands for the drive of a program that runs from `program_folder`: its first character on Windows; elsewhere
/// the nearest folder upwards that holds the install tree, or `program_folder` itself if none does.
QString install_drive(const QString& program_folder);

/// The root folder of that drive, in the platform's form: "C:\" on Windows, elsewhere the folder itself and "/".
QString drive_root(const QString& install_drive);

/// What stands for the drive of an install tree that lies in `folder`: its first character on Windows; elsewhere the
/// folder itself, which needs not exist yet.
QString drive_at(const QString& folder);

/// The path in the platform's form.
QString native(const QString& path);

/// The path with "/" only, as code uses it.
QString portable(const QString& path);

/// The name of a program file on this platform: ".exe" is dropped off Windows.
QString program_file(const QString& exe_path);

/// Whether the root names a share (contains two consecutive backslashes, or off Windows also starts with "//").
bool is_share(const QString& root);

} // namespace platform
