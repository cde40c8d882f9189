#include "store/error.h"

#include "base/literals.h"
#include "platform/paths.h"

namespace store {

using namespace base;

namespace {

QString phrase(Code code) {
    switch (code) {
    case Code::Missing:
        return u"データベースがありません。"_s;
    case Code::Empty:
        return u"データベースの中身が空です。"_s;
    case Code::NotADatabase:
        return u"データベースではないファイルか、パスワードのかかっていないファイルです。"_s;
    case Code::WrongKey:
        return u"パスワードが違うか、データベースの先頭が壊れています。"_s;
    case Code::Damaged:
        return u"データベースの一部が壊れています。"_s;
    case Code::OtherKind:
        return u"別の種類のデータベースが置かれています。"_s;
    case Code::Newer:
        return u"このプログラムより新しいバージョンのデータベースです。"_s;
    case Code::ReadOnly:
        return u"読み取り専用のため、データベースに書き込めません。"_s;
    case Code::Full:
        return u"ディスクの空き容量が足りません。"_s;
    case Code::Busy:
        return u"他のＰＣまたはプログラムがデータベースに書き込み中です。"_s;
    case Code::Exists:
        return u"データベースがすでにあります。"_s;
    case Code::Replaced:
        return u"使用中にデータベースが別のファイルに置き換えられました。"_s;
    case Code::Misuse:
        return u"プログラムに誤りがあります。"_s;
    case Code::Other:
        break;
    }
    return u"データベースを処理できません。"_s;
}

QString lines(std::initializer_list<QString> texts) {
    QStringList filled(texts);
    filled.removeAll(QString());
    return filled.join(u'\n');
}

} // namespace

Error::Error(Code code, QString file, QString statement, QString detail)
    : std::runtime_error(lines({phrase(code), file, statement, detail}).toStdString()), m_code(code),
      m_file(std::move(file)), m_statement(std::move(statement)), m_detail(std::move(detail)) {}

QString Error::text() const {
    return lines({phrase(m_code), platform::native(m_file), m_detail});
}

} // namespace store
