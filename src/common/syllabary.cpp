#include "common/syllabary.h"

namespace common {

namespace {

constexpr QChar no_kana = u'　';

constexpr QStringView plain[] = {u"あいうえお", u"かきくけこ", u"さしすせそ", u"たちつてと", u"なにぬねの",
    u"はひふへほ", u"まみむめも", u"やゆよ　　", u"らりるれろ", u"わをんー・"};
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

QString SyllabaryPage::kana(int line, int place) const {
    if (line < 0 || line >= std::ssize(lines) || lines[line][place] == no_kana)
        return {};
    return lines[line][place];
}

QString SyllabaryPage::head(int line) const {
    QString first;
    for (int place = 0; first.isEmpty() && place < kana_a_line; ++place)
        first = kana(line, place);
    return first;
}

std::span<const SyllabaryPage> syllabary() {
    return pages;
}

int line_of(base::Cell head) {
    return head.col < heads_a_row ? (head.row - 1) * heads_a_row + head.col : -1;
}

} // namespace common
