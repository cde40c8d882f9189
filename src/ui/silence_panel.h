#pragma once

#include <QLabel>
#include <QPointer>

namespace ui {

/// "データサーバーの返事を待っています" over the window in hand, from a second on, as long as the program stands still
/// for a data server. It is painted at once: no event runs meanwhile.
class SilencePanel {
public:
    /// From now on, for this thread, until it ends.
    SilencePanel();
    SilencePanel(const SilencePanel&) = delete;
    SilencePanel& operator=(const SilencePanel&) = delete;
    ~SilencePanel();

private:
    void show();

    QPointer<QLabel> m_label; ///< its window's; nothing while nobody waits
};

} // namespace ui
