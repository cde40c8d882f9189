#include "store/setup.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "platform/paths.h"
#include "store/files.h"
#include "store/schema.h"

#include <array>
#include <optional>

namespace store {

using namespace base;

namespace {

struct Product {
    QString code;
    QString version;
    QString receiver;
    QString data_file;
    qint64 row = 0;

    bool operator==(const Product&) const = default;
};

Product running_product(const frame::Settings& settings) {
    return {settings.version_text.left(4), settings.version_text.mid(5, 2), receiver_path(settings),
        data_file_name.toString()};
}

std::optional<Product> registered(Database& allsystem, const frame::Settings& settings) {
    Statement rows = allsystem.prepare(
        "select 製品番号, バージョン, 受信ファイルpafi, 個別dataファイル, rowid from allsystem order by rowid");
    while (rows.step()) {
        const Row row = rows.row();
        if (row.text(0).left(1) == settings.product_code.left(1))
            return Product{row.text(0), row.text(1), row.text(2), row.text(3), row.number(4)};
    }
    return std::nullopt;
}

void add(Database& allsystem, const Product& product) {
    allsystem
        .prepare("insert into allsystem (製品番号, バージョン, 受信ファイルpafi, 個別dataファイル) values (?, ?, ?, ?)")
        .bind(product.code, product.version, product.receiver, product.data_file)
        .run();
}

void change(Database& allsystem, const Product& product) {
    allsystem.prepare("update allsystem set 製品番号=?, バージョン=?, 受信ファイルpafi=? where rowid=?")
        .bind(product.code, product.version, product.receiver, product.row)
        .run();
}

constexpr std::array suite_tables{u"table_ver", u"gen_ari", u"nimeisai", u"nikoumoku"};

/// A database that is looked through. Those of other products of the suite, which may be absent, hold nothing of ours.
struct Walked {
    QString path;
    Kind kind;
};

QStringList suite_tables_in(const Walked& file) {
    Database database = Database::open(file.path, file.kind);
    add_missing_tables(database, file.kind);
    QStringList met;
    for (const char16_t* name : suite_tables)
        if (database.has_table(QString::fromUtf16(name)))
            met << QString::fromUtf16(name);
    return met;
}

} // namespace

QString receiver_path(const frame::Settings& settings) {
    return settings.install_drive + platform::install_tail() +
           platform::native(
               u"/%1/system/exe/exe/%2"_s.arg(settings.product_folder, platform::program_file(u"jyurovena.exe"_s)));
}

bool 初期セットアップ(const frame::Settings& settings) {
    Database allsystem = Database::open(allsystem_path(settings), Kind::Allsystem);
    return register_product(allsystem, settings);
}

bool register_product(Database& allsystem, const frame::Settings& settings) {
    Product wanted = running_product(settings);
    const auto stands = [&] {
        const std::optional<Product> found = registered(allsystem, settings);
        wanted.row = found ? found->row : 0;
        wanted.data_file = found ? found->data_file : wanted.data_file;
        return found == wanted;
    };
    if (stands())
        return false;
    Transaction transaction(allsystem);
    if (stands()) // another PC was first
        return false;
    const bool first_start = wanted.row == 0;
    first_start ? add(allsystem, wanted) : change(allsystem, wanted);
    transaction.commit();
    return first_start;
}

QStringList db追加_テーブル(const frame::Settings& settings, SettingTables& tables) {
    const QString key = u"sokdataバージョン"_s;
    if (Val(tables.設定読込(u"rov_kihon"_s, key)) == Val(table_stamp.toString()))
        return {};
    QStringList met;
    for (const Walked& file :
        {Walked{comsys_path(settings), Kind::Comsys}, Walked{rovdata_path(settings), Kind::Rovdata}})
        met += suite_tables_in(file);
    tables.設定書込(u"rov_kihon"_s, key, table_stamp.toString());
    return met;
}

} // namespace store
