#include "button_table.h"

namespace artwork {

namespace {

using enum Shape;
using enum Tone;
using I = IconKind;

constexpr ButtonPicture table[] = {
    // clang-format off
    // the frame
    {u"top_ent.BMP",  u"top_ent_b.BMP",  u"出勤入力",     I::Clock,    Top, Band},
    {u"top_rov.BMP",  u"top_rov_b.BMP",  u"集計表",       I::Chart,    Top, Band},
    {u"top_mst.BMP",  u"top_mst_b.BMP",  u"マスター",     I::Cards,    Top, Band},
    {u"top_help.BMP", u"top_help_b.BMP", u"ヘルプ",       I::Question, Top, Band},
    {u"top_end.BMP",  u"top_end_b.BMP",  u"終了",         I::Door,     Top, Band},
    // the menu of the reports
    {u"botan_syain.bmp",      u"botan_syain_b.bmp",      u"社員一覧表",       I::Person,    Menu, Report},
    {u"botan_kinmusyu.bmp",   u"botan_kinmusyu_b.bmp",   u"勤務種類一覧表",   I::Tag,       Menu, Report},
    {u"botan_kinmutype.bmp",  u"botan_kinmutype_b.bmp",  u"勤務タイプ一覧表", I::Timetable, Menu, Report},
    {u"botan_rovmei.bmp",     u"botan_rovmei_b.bmp",     u"出勤明細一覧表",   I::DaySheet,  Menu, Report},
    {u"botan_kinmujikan.bmp", u"botan_kinmujikan_b.bmp", u"勤務時間一覧表",   I::Bars,      Menu, Report},
    {u"botan_kyusyu.bmp",     u"botan_kyusyu_b.bmp",     u"休暇出勤一覧表",   I::Sun,       Menu, Report},
    // the menu of the masters
    {u"mida_syain.bmp",        u"mida_syain_b.bmp",        u"社員",               I::Person,      Menu, Master},
    {u"mida_kinsyu.bmp",       u"mida_kinsyu_b.BMP",       u"勤務種類",           I::Tag,         Menu, Master},
    {u"mida_kintype_time.bmp", u"mida_kintype_time_b.BMP", u"勤務タイプ時間設定", I::Timetable,   Menu, Master},
    {u"mida_kintype_sya.bmp",  u"mida_kintype_sya_b.BMP",  u"社員勤務タイプ設定", I::PersonClock, Menu, Master},
    {u"mida_system.BMP",       u"mida_system_b.BMP",       u"システム",           I::Gear,        Menu, Master},
    {u"mida_kyusyu.BMP",       u"mida_kyusyu_b.BMP",       u"休暇・出勤",         I::Sun,         Menu, Master},
    // the foot of a screen
    {u"zen_end.BMP",   u"zen_end_b.BMP",   u"閉じる", I::Back,      Action, Neutral},
    {u"zen_tour.BMP",  u"zen_tour_b.BMP",  u"登録",   I::Check,     Action, Primary},
    {u"zen_saku.BMP",  u"zen_saku_b.BMP",  u"削除",   I::Bin,       Action, Danger},
    {u"zen_chu.BMP",   u"zen_chu_b.BMP",   u"抽出",   I::Funnel,    Action, Secondary},
    {u"zen_kens.BMP",  u"zen_kens_b.BMP",  u"検索",   I::Magnifier, Action, Secondary},
    {u"zen_print.BMP", u"zen_print_b.BMP", u"印刷",   I::Printer,   Action, Neutral},
    {u"zen_prev.BMP",  u"zen_prev_b.BMP",  u"プレビュー",   I::SheetLens, Wide, Neutral},
    {u"zen_file.BMP",  u"zen_file_b.BMP",  u"ファイル作成", I::SheetOut,  Wide, Neutral},
    {u"zen_help.BMP",  u"zen_help_b.BMP",  u"ヘルプ", I::Question,  Action, Neutral},
    // the heading of a report, by its number
    {u"mida_chou_001.bmp", {}, u"社員一覧表",       I::Person,    Heading, Report},
    {u"mida_chou_002.bmp", {}, u"勤務種類一覧表",   I::Tag,       Heading, Report},
    {u"mida_chou_003.bmp", {}, u"勤務タイプ一覧表", I::Timetable, Heading, Report},
    {u"mida_chou_004.bmp", {}, u"出勤明細一覧表",   I::DaySheet,  Heading, Report},
    {u"mida_chou_005.bmp", {}, u"勤務時間一覧表",   I::Bars,      Heading, Report},
    {u"mida_chou_006.bmp", {}, u"休暇出勤一覧表",   I::Sun,       Heading, Report},
    // clang-format on
};

} // namespace

std::span<const ButtonPicture> button_table() {
    return table;
}

} // namespace artwork
