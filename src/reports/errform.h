#pragma once

// errform, "エラー画面": the messages that the exchange side has left for this PC, to be read and printed.

#include "base/sheet.h"
#include "frame/session.h"
#include "reports/pages/print_surface.h"

namespace reports {

class errform {
public:
    static constexpr QStringView caption = u"エラー画面";

    errform(frame::Session& session, PrintShop& shop) : m_session(session), m_shop(shop) {}

    base::Sheet hyou;
    QString msg_tai; ///< how the last print ended
    bool close_wanted = false;

    void 表書式設定_エラーリスト();

    /// A row for each line of the file, without its quotes. No file is no message: the heading alone stands.
    void Form_Load();
    void botan_Click(int element); ///< 0 leaves the screen, 1 prints the list

private:
    void print_list();

    frame::Session& m_session;
    PrintShop& m_shop;
};

} // namespace reports
