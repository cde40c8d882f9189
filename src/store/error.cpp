#include "store/error.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace store {

using namespace base;

namespace {

struct Phrase {
    Code code;
    QStringView text;
};

constexpr std::array phrases{
    Phrase{Code::Missing, u"データベースがありません。"},
    Phrase{Code::Empty, u"データベースの中身が空です。"},
    Phrase{Code::NotADatabase, u"データベースではないファイルか、パスワードのかかっていないファイルです。"},
    Phrase{Code::WrongKey, u"パスワードが違うか、データベースの先頭が壊れています。"},
    Phrase{Code::Damaged, u"データベースの一部が壊れています。"},
    Phrase{Code::OtherKind, u"別の種類のデータベースが置かれています。"},
    Phrase{Code::Newer, u"このプログラムより新しいバージョンのデータベースです。"},
    Phrase{Code::Older, u"データサーバーの表が古い形です。管理者に rovena-install をもう一度行うよう頼んでください。"},
    Phrase{Code::Away, u"データサーバーに接続できません。"},
    Phrase{Code::Refused, u"データサーバーに接続を断られました。"},
    Phrase{Code::Forbidden, u"データサーバーの利用者に、この操作の権限がありません。"},
    Phrase{Code::ReadOnly, u"読み取り専用のため、データベースに書き込めません。"},
    Phrase{Code::Full, u"ディスクの空き容量が足りません。"},
    Phrase{Code::Io, u"ディスクまたはネットワークの読み書きに失敗しました。"},
    Phrase{Code::Busy, u"他のＰＣまたはプログラムがデータベースに書き込み中です。"},
    Phrase{Code::Exists, u"データベースがすでにあります。"},
    Phrase{Code::Replaced, u"使用中にデータベースが別のファイルに置き換えられました。"},
    Phrase{Code::NoAccess, u"データベースを開くことができません。アクセス権を確認してください。"},
    Phrase{Code::Misuse, u"プログラムに誤りがあります。"},
    Phrase{Code::Other, u"データベースを処理できません。"},
};

QString phrase(Code code) {
    return std::ranges::find(phrases, code, &Phrase::code)->text.toString();
}

Code code_of(const std::error_code& failure) {
    if (failure == std::errc::file_exists)
        return Code::Exists;
    if (failure == std::errc::no_space_on_device || failure == std::errc::file_too_large)
        return Code::Full;
    if (failure == std::errc::read_only_file_system || failure == std::errc::permission_denied)
        return Code::ReadOnly;
    if (failure == std::errc::io_error)
        return Code::Io;
    return Code::Other;
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

void check_system(const std::error_code& failure, const QString& file) {
    if (failure)
        throw Error(code_of(failure), file, {}, QString::fromLocal8Bit(failure.message()));
}

} // namespace store
