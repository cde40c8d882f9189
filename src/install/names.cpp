#include "install/names.h"

#include "base/literals.h"

#include <array>

namespace install {

using namespace base;

namespace {

struct Written {
    QStringView kanji;
    QStringView kana;
};

constexpr std::array<Written, 40> surnames{{
    {u"佐藤", u"サトウ"},
    {u"鈴木", u"スズキ"},
    {u"高橋", u"タカハシ"},
    {u"田中", u"タナカ"},
    {u"伊藤", u"イトウ"},
    {u"渡辺", u"ワタナベ"},
    {u"山本", u"ヤマモト"},
    {u"中村", u"ナカムラ"},
    {u"小林", u"コバヤシ"},
    {u"加藤", u"カトウ"},
    {u"吉田", u"ヨシダ"},
    {u"山田", u"ヤマダ"},
    {u"佐々木", u"ササキ"},
    {u"山口", u"ヤマグチ"},
    {u"松本", u"マツモト"},
    {u"井上", u"イノウエ"},
    {u"木村", u"キムラ"},
    {u"林", u"ハヤシ"},
    {u"斎藤", u"サイトウ"},
    {u"清水", u"シミズ"},
    {u"山崎", u"ヤマザキ"},
    {u"森", u"モリ"},
    {u"池田", u"イケダ"},
    {u"橋本", u"ハシモト"},
    {u"阿部", u"アベ"},
    {u"石川", u"イシカワ"},
    {u"前田", u"マエダ"},
    {u"藤田", u"フジタ"},
    {u"後藤", u"ゴトウ"},
    {u"小川", u"オガワ"},
    {u"岡田", u"オカダ"},
    {u"長谷川", u"ハセガワ"},
    {u"村上", u"ムラカミ"},
    {u"近藤", u"コンドウ"},
    {u"石井", u"イシイ"},
    {u"坂本", u"サカモト"},
    {u"遠藤", u"エンドウ"},
    {u"青木", u"アオキ"},
    {u"藤井", u"フジイ"},
    {u"西村", u"ニシムラ"},
}};

constexpr std::array<Written, 40> given_names{{
    {u"翔太", u"ショウタ"},
    {u"健一", u"ケンイチ"},
    {u"美咲", u"ミサキ"},
    {u"陽子", u"ヨウコ"},
    {u"大輔", u"ダイスケ"},
    {u"直樹", u"ナオキ"},
    {u"恵子", u"ケイコ"},
    {u"由美", u"ユミ"},
    {u"拓也", u"タクヤ"},
    {u"誠", u"マコト"},
    {u"真由美", u"マユミ"},
    {u"彩", u"アヤ"},
    {u"健太", u"ケンタ"},
    {u"浩二", u"コウジ"},
    {u"久美子", u"クミコ"},
    {u"愛", u"アイ"},
    {u"達也", u"タツヤ"},
    {u"隆", u"タカシ"},
    {u"智子", u"トモコ"},
    {u"舞", u"マイ"},
    {u"和也", u"カズヤ"},
    {u"修", u"オサム"},
    {u"裕子", u"ユウコ"},
    {u"千尋", u"チヒロ"},
    {u"亮", u"リョウ"},
    {u"茂", u"シゲル"},
    {u"幸子", u"サチコ"},
    {u"葵", u"アオイ"},
    {u"悠斗", u"ユウト"},
    {u"勝", u"マサル"},
    {u"明美", u"アケミ"},
    {u"結衣", u"ユイ"},
    {u"蓮", u"レン"},
    {u"進", u"ススム"},
    {u"典子", u"ノリコ"},
    {u"遥", u"ハルカ"},
    {u"樹", u"イツキ"},
    {u"清", u"キヨシ"},
    {u"文子", u"フミコ"},
    {u"楓", u"カエデ"},
}};

constexpr size_t combinations = surnames.size() * given_names.size();
constexpr size_t stride = 733; // shares no factor with the combinations, so that all of them come up

} // namespace

Person person(int index) {
    const size_t pick = size_t(index) * stride % combinations;
    const Written& surname = surnames[pick % surnames.size()];
    const Written& given = given_names[pick / surnames.size()];
    return {u"%1　%2"_s.arg(surname.kanji, given.kanji), u"%1　%2"_s.arg(surname.kana, given.kana)};
}

} // namespace install
