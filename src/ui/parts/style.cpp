#include "ui/parts/style.h"

#include "base/literals.h"
#include "ui/parts/colours.h"
#include "ui/parts/fonts.h"

#include <QApplication>
#include <QLabel>
#include <QPalette>

namespace ui {

using namespace base;

namespace {

QPalette light_palette() {
    const auto colour = [](QRgb rgb) { return QColor::fromRgb(rgb); };
    QPalette palette(colour(colours::page), colour(colours::page));
    palette.setColor(QPalette::Base, colour(colours::ground));
    palette.setColor(QPalette::AlternateBase, colour(colours::fixed));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, colour(colours::text));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colour(colours::quiet_text));
    palette.setColor(QPalette::PlaceholderText, colour(colours::quiet_text));
    palette.setColor(QPalette::ToolTipBase, colour(colours::ground));
    palette.setColor(QPalette::Highlight, colour(colours::accent));
    palette.setColor(QPalette::HighlightedText, colour(colours::ground));
    palette.setColor(QPalette::Link, colour(colours::accent));
    return palette;
}

struct Letters {
    int pixels;
    QFont::Weight weight;
    QRgb colour;
};

constexpr Letters letters_of(Lettering as) {
    switch (as) {
    case Lettering::Heading:
        return {20, QFont::Bold, colours::heading_text};
    case Lettering::Section:
        return {15, QFont::Bold, colours::heading_text};
    case Lettering::Quiet:
        return {13, QFont::Normal, colours::quiet_text};
    case Lettering::Link:
        return {13, QFont::Normal, colours::accent};
    case Lettering::Comment:
        return {13, QFont::Normal, colours::text};
    case Lettering::Mark:
        return {18, QFont::Normal, colours::heading_text};
    }
    Q_UNREACHABLE();
}

} // namespace

void apply_style(QApplication& application) {
    add_shipped_fonts(QApplication::applicationDirPath() + u"/fonts"_s);
    QApplication::setStyle(u"fusion"_s);
    QApplication::setPalette(light_palette());
    QApplication::setFont(screen_font());
    application.setApplicationDisplayName(QString());
}

void letter(QLabel& label, Lettering as) {
    const Letters letters = letters_of(as);
    QFont font = label.font();
    font.setPixelSize(letters.pixels);
    font.setWeight(letters.weight);
    label.setFont(font);
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, QColor::fromRgb(letters.colour));
    label.setPalette(palette);
}

} // namespace ui
