#pragma once

// Small text rules: trimming of ordinary blanks, fixed-width fields and the combo item text that carries numbers beside
// a name.

#include <QString>
#include <QStringView>

namespace base {

/// The text without ordinary blanks (U+0020) at both ends. Ideographic spaces stay, as a name may consist of them.
QString Trim(QStringView text);
QString Trim(const QString& text); ///< shares the text where nothing is to be taken off

/// Every occurrence of the character removed.
QString 文字除去(QString text, QChar character);

/// The characters of the text that are among the allowed ones.
QString only_of(QStringView text, QLatin1StringView allowed); ///< only_of(u"11日", "0123456789"_L1) // "11"

/// The text in a field of exactly `width` characters, padded with blanks or cut.
QString left_justified(QStringView text, int width);  ///< left_justified(u"公休", 4)  // "公休  "
QString right_justified(QStringView text, int width); ///< right_justified(u"7", 3)    // "  7"

/// The first `length` units of the text, one less where the cut would go through a character of two units.
QString whole_left(QStringView text, int length);

/// The bytes of the text in the Japanese code page: 1 for a half-width character, 2 for a full-width one.
///   byte_length(u"8:30") // 4      byte_length(u"公休") // 4      byte_length(u"ｶﾅ") // 2
int byte_length(QStringView text);

/// As much of the text's beginning as has so many bytes in the Japanese code page: left_bytes(u"残業", 3) // "残"
QString left_bytes(QStringView text, int bytes);

/// How many characters a text field of the tables holds.
inline constexpr int field_room = 255;

/// The text as a field of the tables can hold it.
QString field_text(QStringView text);

/// The last four characters of "0000" + text: the form in which hours and minutes are told apart by place.
QString last_four(QStringView text); ///< last_four(u"830") // "0830"

} // namespace base
