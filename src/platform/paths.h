#pragma once

// Paths of the install tree. Code writes them with "/"; what a person sees or what is stored is in the platform's form.
// A drive stands before every default path: on Windows the letter of one whose root holds the install tree, and
// anywhere the path of another folder that holds it.

#include <QString>

namespace platform {

/// The default install root on a drive, in the platform's form: "C:\Program Files\meridan\qn" for "C".
QString install_root(const QString& install_drive);

/// The file that this program was started from; empty where that can't be told.
QString program_path();

/// The folder that this program runs from, also before there is an application object; empty where that can't be told.
QString program_folder();

/// The drive of a program that runs from `program_folder`: drive_at() the nearest folder upwards that holds the install
/// tree. If none does: its first character on Windows, elsewhere `program_folder` itself.
QString install_drive(const QString& program_folder);

/// The folder of that drive with a separator at its end, in the platform's form: "C:\" for "C".
QString drive_root(const QString& install_drive);

/// The drive of an install tree that lies in `folder`, which needs not exist yet: on Windows the letter of a drive's
/// root, nothing for the root elsewhere, and otherwise the folder's absolute path with "/".
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
