#pragma once

// Numbers read from text. One rule serves the whole system: the leading number counts, else 0, and nothing is an error.

#include <QString>
#include <QStringView>

namespace base {

/// The leading whole number of the text: blanks before it are passed over, a sign is taken, anything after it is
/// ignored. A number too large for 64 bits is held at the end of the range.
///   Val(u"830")  // 830      Val(u" -5x") // -5      Val(u"k3") // 0      Val(u"") // 0      Val(u"1.9") // 1
qint64 Val(QStringView text);

/// Val held within int, for counts, rows and settings.
int int_val(QStringView text);

/// The leading decimal number of the text, read by the same rule, for sizes that are no whole numbers.
///   decimal_val(u"1.5mm") // 1.5      decimal_val(u"12.") // 12      decimal_val(u"-.5") // -0.5      decimal_val(u"")
///   // 0
double decimal_val(QStringView text);

/// The number in plain digits, 0 as "0".
QString digits(qint64 number);

/// The number with a comma before each group of three; 0 gives empty text.
///   grouped(1234567) // "1,234,567"      grouped(0) // ""
QString grouped(qint64 number);

} // namespace base
