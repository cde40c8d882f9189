#include "button_painter.h"
#include "icon_file.h"
#include "program_icon.h"
#include "splash.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>

#include <cstdio>
#include <stdexcept>

namespace {

using namespace artwork;

void write(const QImage& picture, const QDir& folder, const QString& name, const char* format) {
    if (!folder.mkpath(QStringLiteral(".")) || !picture.save(folder.filePath(name), format))
        throw std::runtime_error("cannot write " + folder.filePath(name).toStdString());
}

void write_buttons(const QDir& folder) {
    for (const ButtonPicture& button : button_table()) {
        write(paint_button(button, Press::Up), folder, button.up.toString(), "BMP");
        if (!button.pressed.isEmpty())
            write(paint_button(button, Press::Down), folder, button.pressed.toString(), "BMP");
    }
}

void write_icons(const QDir& folder) {
    write(paint_program_icon(256), folder, QStringLiteral("rovena.png"), "PNG");
    for (const int side : {128, 64, 48})
        write(paint_program_icon(side), folder, QStringLiteral("rovena-%1.png").arg(side), "PNG");
    QList<QImage> sizes;
    for (const int side : {16, 20, 24, 32, 40, 48, 64, 256})
        sizes << paint_program_icon(side);
    write(paint_installer_side(), folder, QStringLiteral("installer.bmp"), "BMP");
    QFile icon(folder.filePath(QStringLiteral("rovena.ico")));
    if (const QByteArray bytes = icon_file(sizes);
        !icon.open(QIODevice::WriteOnly) || icon.write(bytes) != bytes.size() || !icon.flush())
        throw std::runtime_error("cannot write " + icon.fileName().toStdString());
}

int draw_all(const QDir& out) {
    try {
        write_buttons(out.filePath(QStringLiteral("botan")));
        write(paint_splash(), out, QStringLiteral("splash.bmp"), "BMP");
        write_icons(out.filePath(QStringLiteral("icon")));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: rovena-artwork OUTDIR\n", stderr);
        return 2;
    }
    // Drawing needs fonts, but no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return draw_all(QDir(QString::fromLocal8Bit(argv[1])));
}
