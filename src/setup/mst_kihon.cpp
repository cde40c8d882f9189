#include "setup/mst_kihon.h"

#include "base/company_month.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "setup/first_day.h"

namespace setup {

using namespace base;

namespace {

constexpr QStringView special_soft_key = u"特別ソフト";

QString key(mst_kihon::Element element) {
    return mst_kihon::Tag[element].toString();
}

int first_day_in(store::OpenSettings& kihon) {
    return valid_first_day(Val(kihon.設定読込(key(mst_kihon::first_day))));
}

} // namespace

void mst_kihon::基本マスター呼出() {
    load_shared();
    load_of_this_pc();
    waseireki = Val(atai[date_style]) == 0 ? 0 : 1;
    ck = Val(atai[net_info]) == 1;
    prconb.select(atai[printer]);
}

void mst_kihon::load_shared() {
    store::OpenSettings kihon = m_session.tables.open(store::kihon);
    atai[date_style] = kihon.設定読込(key(date_style));
    m_stored_day = m_replaced_day = first_day_in(kihon);
    m_session.settings.special_soft = int_val(kihon.設定読込(special_soft_key.toString()));
}

void mst_kihon::load_of_this_pc() {
    store::OpenSettings losystem = m_session.tables.open(store::losystem);
    const auto read = [&](Element element) { return losystem.設定読込(key(element)); };
    const qint64 day = Val(read(first_day));
    atai[first_day] = day == 0 ? u"1"_s : digits(day);
    atai[printer] = Trim(read(printer));
    atai[offset_y] = digits(Val(read(offset_y)));
    atai[offset_x] = digits(Val(read(offset_x)));
    atai[net_info] = read(net_info);
}

QString mst_kihon::first_day_notice() const {
    const int in_box = valid_first_day(Val(atai[first_day])), in_use = m_session.settings.month_start_day;
    if (in_box != m_stored_day)
        return u"いまの月初日付は%1日です。登録すると、次に始めたときから%2日に変わります。"_s.arg(m_stored_day)
            .arg(in_box);
    if (m_replaced_day != m_stored_day)
        return u"%1日から%2日に変えました。次に始めたときから変わります。"_s.arg(m_replaced_day).arg(m_stored_day);
    if (in_use != m_stored_day)
        return u"いまは%1日から計算しています。次に始めたときから%2日に変わります。"_s.arg(in_use).arg(m_stored_day);
    return {};
}

int mst_kihon::first_day_in_kihon() {
    store::OpenSettings kihon = m_session.tables.open(store::kihon);
    return first_day_in(kihon);
}

void mst_kihon::基本情報マスター登録_転記() {
    atai[date_style] = waseireki == 0 ? u"0"_s : u"1"_s;
    atai[net_info] = ck ? u"1"_s : u"0"_s;
    notice.reset();
    say(first_day, typed_first_day_notice(atai[first_day]));
    atai[first_day] = digits(valid_first_day(Val(atai[first_day])));
}

void mst_kihon::基本情報マスター登録() {
    write_shared();
    write_of_this_pc();
    msglab = u"登録終了"_s;
}

/// `特別ソフト` can't be changed here: what was loaded is written back.
void mst_kihon::write_shared() {
    store::OpenSettings kihon = m_session.tables.open(store::kihon);
    const int replaced = first_day_in(kihon);
    kihon.設定書込(key(date_style), atai[date_style]);
    kihon.設定書込(special_soft_key.toString(), digits(m_session.settings.special_soft));
    kihon.設定書込(key(first_day), atai[first_day]);
    kihon.commit();
    m_replaced_day = replaced;
    m_stored_day = valid_first_day(Val(atai[first_day]));
}

void mst_kihon::write_of_this_pc() {
    store::OpenSettings losystem = m_session.tables.open(store::losystem);
    for (const Element element : {printer, offset_y, offset_x, net_info})
        losystem.設定書込(key(element), atai[element]);
    losystem.commit();
}

void mst_kihon::Form_Load() {
    prconb.fill(m_session.host);
    基本マスター呼出();
}

void mst_kihon::waseireki_Click(int element) {
    waseireki = element;
    m_stored_day = first_day_in_kihon();
}

void mst_kihon::ck_Click(bool ticked) {
    ck = ticked;
    m_stored_day = first_day_in_kihon();
}

void mst_kihon::prconb_Click(int item) {
    prconb.index = item;
    atai[printer] = prconb.text();
    m_stored_day = first_day_in_kihon();
}

void mst_kihon::atai_Change(int element, const QString& typed) {
    atai[element] = field_text(only_of(typed, "0123456789-"_L1));
    notice.reset();
    if (element == first_day)
        say(element, typed_first_day_notice(typed));
    else if (atai[element] != typed)
        say(element, u"数字だけを入力します（逆の向きは -3 のように）"_s);
    m_stored_day = first_day_in_kihon();
}

/// Nothing is said where there are no words.
void mst_kihon::say(int element, const QString& words) {
    if (!words.isEmpty())
        notice = {element, words};
}

bool mst_kihon::atai_KeyDown(int element, int key_code) {
    notice.reset();
    if (element != offset_y || key_code != key::enter)
        return false;
    focus = frame::Focus{frame::Control::Atai, offset_x};
    return true;
}

void mst_kihon::press(int element) {
    if (element != 1)
        return;
    基本情報マスター登録_転記();
    基本情報マスター登録();
    m_session.settings.date_style = waseireki;
}

} // namespace setup
