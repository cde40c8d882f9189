#include "reports/errform.h"

#include "base/columns.h"
#include "base/text.h"
#include "frame/error_list.h"
#include "reports/printing/print.h"

#include <QFile>

namespace reports {

using namespace base;

namespace {

constexpr Column columns[] = {{u"エラー内容", 8450}};

/// The line without the quotes around it; what has no room for both is empty.
QString message_of(const QString& line) {
    const QString quoted = Trim(line);
    return quoted.size() < 2 ? QString() : quoted.sliced(1, quoted.size() - 2);
}

} // namespace

void errform::表書式設定_エラーリスト() {
    lay_out(hyou, columns, 1);
}

void errform::Form_Load() {
    表書式設定_エラーリスト();
    msg_tai.clear();
    QFile file(frame::error_file_path(m_session.settings));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return;
    while (!file.atEnd()) {
        QString line = QString::fromUtf8(file.readLine());
        if (line.endsWith(u'\n'))
            line.chop(1);
        hyou.SetRows(hyou.Rows() + 1);
        hyou(hyou.Rows() - 1, 0) = message_of(line);
    }
}

void errform::botan_Click(int element) {
    if (element == 0)
        close_wanted = true;
    else
        print_list();
}

void errform::print_list() {
    const Printed printed = 帳票印刷_エラーリスト(hyou, {m_session, m_shop});
    msg_tai = printed == Printed::Nothing ? no_pages.toString() : file_line(m_shop);
}

} // namespace reports
