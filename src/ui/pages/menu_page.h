#pragma once

// A menu page: picture buttons in rows of two, what each is for beside it, and the band `pic_bota` with `endbotan` at
// the foot.

#include "frame/button.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

namespace ui {

struct MenuEntry {
    const frame::Button* button;
    QString comment; ///< lines parted by CR LF
};

/// The acts of the menu's form. Both must be set.
struct MenuActs {
    std::function<void(int index)> botan_Click; ///< the entry's place in the list, from 0
    std::function<void()> endbotan_Click;
};

class MenuPage : public QWidget {
    Q_OBJECT
public:
    /// `pictures` ends in "/"; the buttons are read from there. Throws platform::FileError if one isn't there.
    MenuPage(QStringView caption, const std::vector<MenuEntry>& entries, const QString& pictures, MenuActs acts,
        QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* make_entry(const MenuEntry& entry, const QString& pictures);
    QWidget* make_band(const QString& pictures);

    MenuActs m_acts;
    QWidget* m_content;
    QWidget* m_band;
};

} // namespace ui
