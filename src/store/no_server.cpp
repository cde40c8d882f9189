#include "store/server.h"
#include "store/server_turn.h"
#include "store/server_word.h"

#include "base/literals.h"

#include <stdexcept>

namespace store {

using namespace base;

namespace {

[[noreturn]] void refuse(const QString& path) {
    throw Error(Code::Other, path, {}, u"このプログラムはデータサーバーに接続できません。"_s);
}

} // namespace

std::unique_ptr<Engine> open_on_server(const ServerPlace&, const QString& path, Kind, std::chrono::milliseconds) {
    refuse(path);
}

void create_on_server(
    const ServerPlace&, const QString& path, Kind, const std::function<void(Database&)>&, std::chrono::milliseconds) {
    refuse(path);
}

std::unique_ptr<ServerTurn> server_turn(const QString&, TurnFor) {
    return nullptr;
}

std::unique_ptr<ServerWord> server_word(const QString&) {
    return nullptr;
}

void end_waiting_connections() {}

void check_connection_words(const QByteArray&) {
    throw std::runtime_error("このプログラムはデータサーバーに接続できません。");
}

} // namespace store
