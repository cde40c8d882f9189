#include "install/alone.h"

#include "store/database.h"
#include "store/files.h"
#include "store/server.h"

#include <QDeadlineTimer>
#include <QThread>
#include <stdexcept>

namespace install {

Alone::Alone(const base::Settings& settings)
    : m_program(store::data_folder(settings), store::desktop_program.toString()),
      m_manager(store::exchange_folder(settings), store::manager_program.toString()) {
    if (!m_program.take(std::chrono::milliseconds(0)))
        throw std::runtime_error("このＰＣか別のＰＣで、このデータの就業録が開いています。先に終了してください。");
    if (!m_manager.take(std::chrono::seconds(5)))
        throw std::runtime_error("jyusinkanri がこのデータを反映しています。終わるのを待ってください。");
}

void refuse_programs_on_server(const base::Settings& settings, std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    store::end_waiting_connections();
    store::Database database = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    store::Statement others =
        database.prepare("select count(*) from pg_stat_activity where (application_name = 'rovena' or application_name"
                         " like 'rovena %') and datname = current_database() and pid <> pg_backend_pid()");
    constexpr unsigned long pause = 100;
    while (others.step() && others.row().number(0) > 0) {
        if (deadline.hasExpired())
            throw std::runtime_error(
                "このＰＣか別のＰＣで、サーバーのデータの就業録が開いています。先に終了してください。");
        others.reset();
        QThread::msleep(pause);
    }
}

} // namespace install
