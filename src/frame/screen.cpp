#include "frame/screen.h"

#include "store/files.h"

namespace frame {

void Screen::botan_Click(int element) {
    if (busy)
        return;
    leave_cell();
    focus = Focus{Control::Toubotan};
    if (element == 0)
        close_wanted = true;
    else
        press(element);
}

store::Database Screen::open_rovdata() const {
    return store::Database::open(store::rovdata_path(m_session.settings), store::Kind::Rovdata);
}

} // namespace frame
