#include "frame/menus.h"

#include "base/literals.h"

namespace frame {

using namespace base;

namespace {

constexpr Button report_buttons[]{
    {1, u"社員一覧表", u"botan_syain.bmp", u"botan_syain_b.bmp"},
    {2, u"勤務種類一覧表", u"botan_kinmusyu.bmp", u"botan_kinmusyu_b.bmp"},
    {3, u"勤務タイプ一覧表", u"botan_kinmutype.bmp", u"botan_kinmutype_b.bmp"},
    {4, u"出勤明細一覧表", u"botan_rovmei.bmp", u"botan_rovmei_b.bmp"},
    {5, u"勤務時間一覧表", u"botan_kinmujikan.bmp", u"botan_kinmujikan_b.bmp"},
    {6, u"休暇出勤一覧表", u"botan_kyusyu.bmp", u"botan_kyusyu_b.bmp"},
};

constexpr Button master_buttons[]{
    {0, u"社員", u"mida_syain.bmp", u"mida_syain_b.bmp"},
    {1, u"勤務種類", u"mida_kinsyu.bmp", u"mida_kinsyu_b.BMP"},
    {2, u"勤務タイプ時間設定", u"mida_kintype_time.bmp", u"mida_kintype_time_b.BMP"},
    {3, u"社員勤務タイプ設定", u"mida_kintype_sya.bmp", u"mida_kintype_sya_b.BMP"},
    {4, u"システム", u"mida_system.BMP", u"mida_system_b.BMP"},
    {5, u"休暇・出勤", u"mida_kyusyu.BMP", u"mida_kyusyu_b.BMP"},
};

constexpr Page masters[]{
    Page::mst_syain, Page::mst_kinsyu, Page::mst_kinjikan, Page::mst_kintype, Page::mst_kihon, Page::mst_kyuka};

constexpr int air_below_band = 300;
constexpr int designed_top = 4605;

QString lines(const QStringList& text) {
    return text.join(u"\r\n"_s);
}

} // namespace

std::span<const Button> rov_00::buttons() {
    return report_buttons;
}

QString rov_00::comment(int index) {
    constexpr QStringView comments[]{
        u"登録されている社員の一覧です。",
        u"登録されている勤務種類の一覧です。",
        u"登録されている勤務タイプの一覧です。",
        u"社員ごとの一か月の出勤明細です。",
        u"期間内の勤務時間を社員ごとにまとめます。",
        u"登録されている休暇と出勤の種類の一覧です。",
    };
    return comments[index - 1].toString();
}

void rov_00::botan_Click(int index) {
    if (!m_pages.has(Page::rov_01))
        return;
    m_mainform.report_no = index;
    m_pages.show(Page::rov_01);
    m_pages.close(Page::rov_00);
}

void rov_00::endbotan_Click() {
    m_pages.close(Page::rov_00);
    m_mainform.show_info();
}

std::span<const Button> mst_00::buttons() {
    return master_buttons;
}

mst_00::mst_00(mainform& main_frame, Pages& pages) : m_mainform(main_frame), m_pages(pages) {
    コメント表示();
}

void mst_00::コメント表示() {
    m_comments = {
        u"社員名簿を登録します。"_s,
        lines({u"勤務の種類を登録します。"_s, {}, u"（例）"_s, u"普通残業、深夜残業、日曜出勤"_s}),
        lines({u"勤務タイプを設定します。"_s, u"『勤務種類』で登録された勤務種類を使用し、"_s,
            u"曜日別の勤務時間範囲を作成・登録します。"_s, {}, u"（例）"_s, u"普通社員,遅出社員,Ａパート,Ｂパート"_s}),
        lines({u"それぞれの社員に勤務タイプを設定します。"_s, u"『社員』で登録された社員に『勤務タイプ時間設定』"_s,
            u"で登録された勤務タイプを設定します。"_s, {}, u"（例）"_s, u"山田さんには、普通社員勤務タイプ。"_s,
            u"田中さんには、Ｂパート勤務タイプ"_s}),
        u"システム的な設定をします。"_s,
        u"休暇と出勤の種類を設定します。"_s,
    };
}

void mst_00::botan_Click(int index) {
    const Page master = masters[index];
    if (!m_pages.has(master))
        return;
    m_pages.close(Page::mst_00);
    m_pages.show(master);
}

void mst_00::endbotan_Click() {
    m_pages.close(Page::mst_00);
    m_mainform.show_info();
}

int pic_bota_top(int page_height, int band_height) {
    const bool fits = band_height + air_below_band + designed_top <= page_height;
    return fits ? page_height - band_height - air_below_band : designed_top;
}

} // namespace frame
