#pragma once

// A file of the installation that has to be there and isn't: artwork above all. The program can't go on without it, so
// this ends it, with a text that names the file.

#include <QString>
#include <stdexcept>

namespace platform {

class FileError : public std::runtime_error {
public:
    explicit FileError(QString file)
        : std::runtime_error("file not found: " + file.toStdString()), m_file(std::move(file)) {}

    const QString& file() const { return m_file; }

    /// What the person sees.
    QString text() const { return QStringLiteral("ファイルが見つかりません。\n") + m_file; }

private:
    QString m_file;
};

} // namespace platform
