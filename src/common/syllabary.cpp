#include "common/syllabary.h"

namespace common {

namespace {

constexpr QChar no_kana = u'　';

constexpr QStringView plain[] = {u"あいうえおはひふへほ", u"かきくけこまみむめも", u"さしすせそやゆよ　　",
    u"たちつてとらりるれろ", u"なにぬねのわをんー・", u"　　　　　"};
constexpr QStringView voiced[] = {u"がぎぐげご", u"ざじずぜぞ", u"だぢづでど", u"ばびぶべぼ"};
constexpr QStringView half_voiced[] = {u"ぱぴぷぺぽ"};
constexpr QStringView small[] = {u"ぁぃぅぇぉ", u"ヵ　　ヶ　", u"　　っ　　", u"ゃゅょ　　", u"ゎ　　　　"};

constexpr SyllabaryPage pages[] = {
    {u"通常", plain},
    {u"濁音", voiced},
    {u"半濁音", half_voiced},
    {u"小文字", small},
};

} // namespace

QString SyllabaryPage::kana(base::Cell head, int place) const {
    const QStringView column = head.col < std::ssize(columns) ? columns[head.col] : QStringView();
    const int at = (head.row - 1) * kana_a_line + place;
    return at < column.size() && column[at] != no_kana ? QString(column[at]) : QString();
}

QString SyllabaryPage::head(base::Cell head) const {
    QString first;
    for (int place = 0; first.isEmpty() && place < kana_a_line; ++place)
        first = kana(head, place);
    return first;
}

std::span<const SyllabaryPage> syllabary() {
    return pages;
}

} // namespace common
