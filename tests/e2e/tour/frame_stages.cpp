// The stages around the screens: menus, other sizes of the window, a look at every screen, the end of the program.

#include "base/literals.h"
#include "stage.h"

namespace tour {

using namespace base;
using e2e::demand;

namespace {

constexpr QSize low_window(1280, 720);

struct Screen {
    QStringView button; ///< in the menu of the masters
    QStringView picture;
    QStringView list = {}; ///< the grid whose first row is clicked
};
constexpr Screen screens[] = {
    {u"社員", u"employees", u"hyou"},
    {u"勤務種類", u"categories", u"hyou"},
    {u"勤務タイプ時間設定", u"work-types", u"hyoulist"},
    {u"社員勤務タイプ設定", u"assignment", u"hyou"},
    {u"休暇・出勤", u"day-kinds", u"hyou"},
    {u"システム", u"settings"},
};

} // namespace

void see_menus(Tour& tour) {
    tour.picture(u"main-frame"_s);
    tour.clerk().press_button(u"集計表"_s);
    tour.picture(u"menu-of-reports"_s);
    tour.clerk().press_button(u"マスター"_s);
    tour.picture(u"menu-of-masters"_s);
}

void see_low_window(Tour& tour) {
    tour.resize_window(low_window);
    tour.open_month();
    tour.picture(u"month-1280x720"_s);
    tour.resize_window(usual_window);
}

void see_screens(Tour& tour) {
    e2e::Clerk clerk = tour.clerk();
    for (const Screen& screen : screens) {
        clerk.press_button(u"マスター"_s);
        clerk.press_button(screen.button.toString());
        if (!screen.list.isEmpty())
            clerk.click_cell(screen.list.toString(), 1, 0);
        tour.picture(u"screen-"_s + screen.picture.toString());
        clerk.press_button(u"閉じる"_s);
    }
    tour.open_month();
    tour.picture(u"screen-month"_s);
}

void leave_program(Tour& tour) {
    tour.boxes().await(u"終了しますか？"_s, u"はい"_s, u"leaving"_s);
    tour.boxes().await(u"バックアップしますか？"_s, u"はい"_s, u"backup"_s);
    tour.clerk().press_button(u"終了"_s);
    demand(tour.boxes().answered(), u"nobody asked before the program ended"_s);
    demand(!tour.program().window().isVisible(), u"the main window is still there"_s);
    tour.end();
}

} // namespace tour
