#pragma once

// fir_start, "初期設定画面": the form of the one screen that a company answers before its first day. The bands of a
// normal working day, the first day of its month and its printer become a complete set of masters (setup/seeding.h), so
// that attendance can be entered at once; then the program starts itself anew.
//
// Registering replaces the masters without asking. The screen is left through its one button: a window closed by other
// means has registered nothing, and the next start goes to the main frame all the same.

#include "base/notice.h"
#include "common/day_picture.h"
#include "frame/session.h"
#include "setup/printer_list.h"
#include "setup/seeding.h"

#include <array>
#include <optional>

namespace setup {

/// The boxes of a band, in the order in which Enter goes through them.
enum class TimeBox { st_time, en_time, kyukin_time, kyu_time };
inline constexpr int time_box_count = 4;

/// One of the twelve boxes.
struct TimePlace {
    TimeBox box;
    int band;
    friend bool operator==(const TimePlace&, const TimePlace&) = default;
};

class fir_start {
public:
    static constexpr QStringView caption = u"初期設定画面";
    static constexpr QStringView band_headings[seeded_band_count] = {u"早朝勤務", u"通常勤務", u"残業"};
    static constexpr QStringView time_headings[time_box_count] = {u"開始時間", u"終了時間", u"休憩勤務", u"休憩時間"};
    static constexpr QStringView later_note = u"※後で細かい変更・修正は可能です。";
    static constexpr QStringView time_notes[] = {
        u"【開始時間】その勤務の開始時間",
        u"【終了時間】その勤務の終了時間",
        u"【休憩勤務】その時間の間勤務すると【休憩時間】の時間が休憩時間として自動加算されます。",
    };
    static constexpr QStringView first_day_note =
        u"集計開始日が１日の時は、「１」を、１１日の時は「１１」との様に入力してください。";

    /// Elements of `atai`.
    enum Element { first_day, printer };
    /// Where each element is kept: `first_day` in `kihon`, `printer` in `losystem`.
    static constexpr QStringView Tag[] = {u"月初日付", u"プリンター１"};

    /// The session must outlive the form. `program_folder` is the folder that the program runs from.
    fir_start(frame::Session& session, QString program_folder);

    std::array<QString, seeded_band_count> st_time{
        QStringLiteral("0:00"), QStringLiteral("8:00"), QStringLiteral("17:00")};
    std::array<QString, seeded_band_count> en_time{
        QStringLiteral("8:00"), QStringLiteral("17:00"), QStringLiteral("24:00")};
    std::array<QString, seeded_band_count> kyukin_time{QString(), QStringLiteral("7:00")};
    std::array<QString, seeded_band_count> kyu_time{QString(), QStringLiteral("1:00")};
    std::array<QString, 2> atai{QStringLiteral("1")};
    PrinterList prconb;

    /// What a box made of what was typed, where that may not be what was meant; without a place it is of the first day.
    std::optional<base::Notice<std::optional<TimePlace>>> notice;
    std::optional<TimePlace> focus; ///< a wish: move the keyboard there and clear it
    bool close_wanted = false;      ///< the window closes

    const QString& text(TimePlace place) const;

    /// The day as its bands are typed, each under a category of its own, which is its place in `band_headings`. The
    /// pieces carry no numbers.
    common::DayPicture picture() const;

    // Operations.

    void 登録転記処理(); ///< the boxes to clock numbers, a first day that no month has to 1
    void 登録処理();     ///< masters and settings from them; what a box doesn't say is 0. Throws store::Error

    // Acts of the person.

    void Form_Load(); ///< the printers, with this PC's own or else the first one selected

    void time_Change(TimePlace place, const QString& typed);
    void time_GotFocus(TimePlace place);              ///< "8:30" becomes "830"
    void time_LostFocus(TimePlace place);             ///< and back
    bool time_KeyDown(TimePlace place, int key_code); ///< Enter leads on; whether it was that

    void atai_Change(const QString& typed); ///< of `first_day`: digits only
    void prconb_Click(int item) { prconb.index = item; }
    /// Registers, starts the program anew and wants the window closed; a second press does nothing. Throws
    /// store::Error: the window stays then, to be tried again.
    void botan_Click();

private:
    Bands bands() const;
    void start_anew();

    frame::Session& m_session;
    QString m_program_folder;
    QString m_as_read; ///< the box in hand when the keyboard came to it
};

} // namespace setup
