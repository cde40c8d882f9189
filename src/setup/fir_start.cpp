#include "setup/fir_start.h"

#include "base/company_month.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/typed_time.h"
#include "platform/paths.h"
#include "setup/first_day.h"
#include "store/files.h"

#include <QFileInfo>

namespace setup {

using namespace base;

namespace {

constexpr TimePlace last_place{TimeBox::kyu_time, seeded_band_count - 1};

TimePlace next(TimePlace place) {
    if (place == last_place)
        return place;
    if (place.box == TimeBox::kyu_time)
        return {TimeBox::st_time, place.band + 1};
    return {TimeBox(int(place.box) + 1), place.band};
}

template <typename Form>
auto& text_of(Form& form, TimePlace place) {
    const std::array boxes{&form.st_time, &form.en_time, &form.kyukin_time, &form.kyu_time};
    return (*boxes[size_t(place.box)])[size_t(place.band)];
}

common::TypedTime kind_of(TimeBox box) {
    switch (box) {
    case TimeBox::kyukin_time:
        return common::TypedTime::Length;
    case TimeBox::kyu_time:
        return common::TypedTime::Break;
    default:
        return common::TypedTime::Clock;
    }
}

ClockNumber clock(const QString& box) {
    return {Val(box)};
}

} // namespace

fir_start::fir_start(frame::Session& session, QString program_folder)
    : m_session(session), m_program_folder(std::move(program_folder)) {}

const QString& fir_start::text(TimePlace place) const {
    return text_of(*this, place);
}

common::DayPicture fir_start::picture() const {
    QList<common::DayBand> bands;
    QList<qint64> categories;
    for (size_t i = 0; i < seeded_band_count; ++i) {
        categories << qint64(i) + 1;
        bands << common::DayBand{0, st_time[i], en_time[i], categories.back()};
    }
    return common::day_picture(bands, categories);
}

void fir_start::登録転記処理() {
    for (auto* boxes : {&st_time, &en_time, &kyukin_time, &kyu_time})
        for (QString& box : *boxes)
            box = text_to_time(box);
    atai[first_day] = digits(valid_first_day(Val(atai[first_day])));
    atai[printer] = prconb.text();
}

void fir_start::登録処理() {
    const Seed seed = gather_seed(m_session.settings);
    {
        auto rovdata = store::Database::open(store::rovdata_path(m_session.settings), store::Kind::Rovdata);
        plant(rovdata, seed, bands());
    }
    m_session.tables.設定書込(store::kihon, Tag[first_day].toString(), atai[first_day]);
    m_session.tables.設定書込(store::losystem, Tag[printer].toString(), atai[printer]);
}

Bands fir_start::bands() const {
    Bands bands;
    for (size_t i = 0; i < bands.size(); ++i)
        bands[i] = {clock(st_time[i]), clock(en_time[i]), clock(kyukin_time[i]), clock(kyu_time[i])};
    return bands;
}

void fir_start::start_anew() {
    const QString program = platform::program_file(m_program_folder + u"/rovena.exe"_s);
    if (QFileInfo(program).isFile())
        m_session.host.start_program(program);
}

void fir_start::Form_Load() {
    prconb.fill(m_session.host);
    prconb.select(Trim(m_session.tables.設定読込(store::losystem, Tag[printer].toString())));
    if (prconb.index < 0 && !prconb.items.isEmpty())
        prconb.index = 0;
}

void fir_start::time_Change(TimePlace place, const QString& typed) {
    notice.reset();
    text_of(*this, place) = field_text(typed);
}

void fir_start::time_GotFocus(TimePlace place) {
    text_of(*this, place) = m_as_read = text_to_time(text(place));
}

void fir_start::time_LostFocus(TimePlace place) {
    const QString& typed = text(place);
    if (const QString words = typed_time_notice(kind_of(place.box), typed); typed != m_as_read && !words.isEmpty())
        notice = {place, words};
    text_of(*this, place) = time_to_text(typed);
}

bool fir_start::time_KeyDown(TimePlace place, int key_code) {
    notice.reset();
    if (key_code != key::enter)
        return false;
    focus = next(place);
    return true;
}

void fir_start::atai_Change(const QString& typed) {
    const QString words = typed_first_day_notice(typed);
    notice.reset();
    if (!words.isEmpty())
        notice = {std::nullopt, words};
    atai[first_day] = only_of(typed, "0123456789"_L1);
}

void fir_start::botan_Click() {
    if (close_wanted)
        return;
    登録転記処理();
    登録処理();
    start_anew();
    close_wanted = true;
}

} // namespace setup
