#pragma once

// The two menu pages: `rov_00` with the six reports, `mst_00` with the six masters. A button closes the menu and opens
// its page; where this program has no such page, the button does nothing. `endbotan` closes the menu and brings the
// landing page back.

#include "frame/button.h"
#include "frame/mainform.h"
#include "frame/pages.h"

#include <QStringList>
#include <span>

namespace frame {

class rov_00 {
public:
    static constexpr QStringView Caption = u"集計メインページ";
    static std::span<const Button> buttons(); ///< `botan` 1 to 6; the index is the report number

    rov_00(mainform& main_frame, Pages& pages) : m_mainform(main_frame), m_pages(pages) {}

    void botan_Click(int index);
    void endbotan_Click();

    /// What stands beside a button.
    static QString comment(int index);

private:
    mainform& m_mainform;
    Pages& m_pages;
};

class mst_00 {
public:
    static constexpr QStringView Caption = u"マスター設定";
    static std::span<const Button> buttons(); ///< `botan` 0 to 5

    /// Sets the comments.
    mst_00(mainform& main_frame, Pages& pages);

    void botan_Click(int index);
    void endbotan_Click();

    /// The comment beside a button, lines parted by CR LF.
    QString comment(int index) const { return m_comments.value(index); }

private:
    void コメント表示();

    mainform& m_mainform;
    Pages& m_pages;
    QStringList m_comments; ///< `lab` 0 to 3 and the two fixed captions, by button
};

/// Where the band `pic_bota` stands on a menu page, all in twips: at the foot of the page with some air below it, and
/// never above its place in the page's design.
int pic_bota_top(int page_height, int band_height);

/// How much narrower than the frame's client area the band is. It reaches over the page; were it as high as the client
/// area, there would be no foot to stand at.
inline constexpr int pic_bota_margin = 240;

} // namespace frame
